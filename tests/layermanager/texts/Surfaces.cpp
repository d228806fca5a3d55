#include "Surfaces.h"

#include "database/OdDbDatabase.h"
#include "database/OdLyLayerFilterManager.h"
#include "layermanager/filter_editor/CDlgLayPropFilter.h"
#include "layermanager/filters/view/CLayerTreeVw.h"
#include "layermanager/layers/grid/CLayerListCtrl.h"
#include "layermanager/palette/CLayerPaneView.h"
#include "layermanager/palette/CLayerSettingsDlg.h"
#include "layermanager/palette/CLayer_Filter_ViolationPromptDlg.h"

#include <QMenu>

namespace {

QWidget* propertyFilterDialog(CLayerPaneView&, OdDbDatabase& drawing)
{
    static OdLyLayerFilterPtr s_filter;
    s_filter = odrxCreate<OdLyLayerFilter>(QStringLiteral("Walls"));
    return new CDlgLayPropFilter(drawing, *s_filter);
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
};

} // namespace

std::span<const Surface> surfaces()
{
    return kSurfaces;
}
