#include "Surfaces.h"

#include "database/filters/OdLyLayerFilterManager.h"
#include "layermanager/LayerDrawing.h"
#include "layermanager/filter_editor/CDlgLayPropFilter.h"
#include "layermanager/filters/view/CLayerTreeVw.h"
#include "layermanager/layer_states/CEdLayStateDlg.h"
#include "layermanager/layer_states/CLSImportPromptDlg.h"
#include "layermanager/layer_states/CLayStateImportDlg.h"
#include "layermanager/layer_states/CLayStateMgrAddDlg.h"
#include "layermanager/layer_states/CLayerStateManDlg.h"
#include "layermanager/layer_states/CNewLayStateDlg.h"
#include "layermanager/layer_states/core/LayerStateControls.h"
#include "layermanager/layers/grid/CLayerListCtrl.h"
#include "layermanager/palette/CLayerPaneView.h"
#include "layermanager/palette/CLayerSettingsDlg.h"
#include "layermanager/palette/CLayer_Filter_ViolationPromptDlg.h"
#include "sdk/CLayerStateUtility.h"
#include "toolkit/ControlRegistry.h"

#include <QAbstractButton>
#include <QMenu>

namespace {

QWidget* propertyFilterDialog(CLayerPaneView&, OdDbDatabase& drawing)
{
    OdLyLayerFilterPtr root;
    OdLyLayerFilterPtr current;
    odlyGetLayerFilterManager(&drawing)->getFilters(root, current);
    return new CDlgLayPropFilter(drawing, root,
                                 odrxCreate<OdLyLayerFilter>(QStringLiteral("Walls")), {}, false);
}

const QString& savedState(OdDbDatabase& drawing)
{
    static const QString name = QStringLiteral("1");
    CLayerStateUtility(&drawing).AddNewLayStateToDB(name, QString());
    return name;
}

/// With one half only, or with both.
QWidget* stateManager(OdDbDatabase& drawing, bool expanded)
{
    savedState(drawing);
    auto* manager = new CLayerStateManDlg;
    if (manager->isExpanded() != expanded) {
        const int id = expanded ? StateControl::kMore : StateControl::kLess;
        qobject_cast<QAbstractButton*>(controlById(manager, id))->click();
    }
    return manager;
}

QWidget* stateImport(CLayerPaneView&, OdDbDatabase& drawing)
{
    auto source = layer_drawing::make({{"Walls"}});
    savedState(*source);
    savedState(drawing);
    return new CLayStateImportDlg(std::move(source), {});
}

constexpr Surface kSurfaces[] = {
    {"palette",
     [](CLayerPaneView& palette, OdDbDatabase&) -> QWidget* { return palette.parentWidget(); }},
    {"menu of the grid",
     [](CLayerPaneView& palette, OdDbDatabase&) -> QWidget* {
         palette.grid()->selectCurrentRow();
         return palette.grid()->contextMenu().release();
     }},
    {"menu of the filter tree",
     [](CLayerPaneView& palette, OdDbDatabase&) -> QWidget* {
         return palette.tree()->contextMenu().release();
     }},
    {"property filter", propertyFilterDialog},
    {"settings", [](CLayerPaneView&, OdDbDatabase&) -> QWidget* { return new CLayerSettingsDlg; }},
    {"filter violation",
     [](CLayerPaneView&, OdDbDatabase&) -> QWidget* {
         return new CLayer_Filter_ViolationPromptDlg;
     }},
    {"layer states",
     [](CLayerPaneView&, OdDbDatabase& drawing) { return stateManager(drawing, false); }},
    {"layer states with options",
     [](CLayerPaneView&, OdDbDatabase& drawing) { return stateManager(drawing, true); }},
    {"new layer state",
     [](CLayerPaneView&, OdDbDatabase&) -> QWidget* {
         return new CNewLayStateDlg(ExistingStates());
     }},
    {"layer state",
     [](CLayerPaneView&, OdDbDatabase& drawing) -> QWidget* {
         return new CEdLayStateDlg(savedState(drawing));
     }},
    {"layers for a state",
     [](CLayerPaneView&, OdDbDatabase&) -> QWidget* {
         return new CLayStateMgrAddDlg({QStringLiteral("Walls")});
     }},
    {"states of a file", stateImport},
    {"imported state",
     [](CLayerPaneView&, OdDbDatabase&) -> QWidget* {
         return new CLSImportPromptDlg(QStringLiteral("1"));
     }},
};

} // namespace

std::span<const Surface> surfaces()
{
    return kSurfaces;
}
