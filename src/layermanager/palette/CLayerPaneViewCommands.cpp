// The palette's commands: one table routes them by their identifiers.

#include "layermanager/filters/tree/FilterCommands.h"
#include "layermanager/filters/view/CLayerTreeVw.h"
#include "layermanager/layer_states/LayerStateDialogs.h"
#include "layermanager/layers/grid/CLayerListCtrl.h"
#include "layermanager/layers/operations/LayerCommandTable.h"
#include "layermanager/palette/CLayerPaneTBar.h"
#include "layermanager/palette/CLayerPaneView.h"
#include "layermanager/palette/CLayerSettingsDlg.h"
#include "layermanager/palette/pane/PaneCommands.h"

#include <algorithm>

namespace {

/// What a command needs to be enabled.
enum class Need { Nothing, Drawing, Rows };

} // namespace

struct CLayerPaneView::Command
{
    int id;
    void (CLayerPaneView::*run)(int id);
    Need need;
};

const CLayerPaneView::Command* CLayerPaneView::commandOf(int id)
{
    static constexpr Command kCommands[] = {
        {kToolbarDeleteLayers, &CLayerPaneView::deleteLayers, Need::Rows},
        {kToolbarNewLayer, &CLayerPaneView::newLayer, Need::Drawing},
        {kToolbarNewLayerVpFrozen, &CLayerPaneView::newLayer, Need::Drawing},
        {kToolbarSetCurrent, &CLayerPaneView::makeCurrent, Need::Rows},
        {kToolbarNewGroupFilter, &CLayerPaneView::newFilter, Need::Drawing},
        {kToolbarNewPropertyFilter, &CLayerPaneView::newFilter, Need::Drawing},
        {kLayerStates, &CLayerPaneView::openLayerStates, Need::Drawing},
        {kRefreshList, &CLayerPaneView::refreshList, Need::Drawing},
        {kLayerSettings, &CLayerPaneView::openSettings, Need::Nothing},
        {kSearchButton, &CLayerPaneView::searchNow, Need::Drawing},
        {kShowFilterTree, &CLayerPaneView::toggleTree, Need::Nothing},
    };
    const auto* found = std::find_if(std::begin(kCommands), std::end(kCommands),
                                     [id](const Command& command) { return command.id == id; });
    return found == std::end(kCommands) ? nullptr : found;
}

void CLayerPaneView::command(int id)
{
    const Command* command = commandOf(id);
    if (command && m_bInitialised && isCommandEnabled(id))
        (this->*command->run)(id);
}

bool CLayerPaneView::isCommandEnabled(int id) const
{
    const Command* command = commandOf(id);
    if (!command)
        return false;
    switch (command->need) {
    case Need::Nothing:
        return true;
    case Need::Drawing:
        return m_pDb;
    case Need::Rows:
        return m_pDb && grid()->layerModel().rowCount() > 0;
    }
    return false;
}

bool CLayerPaneView::isCommandChecked(int id) const
{
    return id == kShowFilterTree && m_bTreeVisible;
}

void CLayerPaneView::updateCommands()
{
    for (CLayerPaneTBar* bar : m_toolbars)
        bar->updateCommands();
}

CLayerPaneTBar* CLayerPaneView::toolbar(int id) const
{
    const auto found = std::find_if(m_toolbars.begin(), m_toolbars.end(),
                                    [id](const CLayerPaneTBar* bar) { return bar->id() == id; });
    return found == m_toolbars.end() ? nullptr : *found;
}

void CLayerPaneView::deleteLayers(int id)
{
    if (!grid()->editor())
        grid()->operate(id);
}

void CLayerPaneView::newLayer(int id)
{
    const QPointer<CLayerPaneView> self(this); // it may go while a message is shown
    grid()->closeInPlaceEditor();
    // A text that is refused stays open and wants correcting first.
    if (self && m_pDb && !grid()->editor())
        grid()->operate(id);
}

void CLayerPaneView::makeCurrent(int id)
{
    if (grid()->editor() || grid()->chosenRowCount() > 1)
        return;
    const QPointer<CLayerPaneView> self(this); // it may go while a message is shown
    grid()->operate(id);
    if (self)
        UpdateCurrentLayerLine();
}

void CLayerPaneView::newFilter(int id)
{
    m_treeView->command(id);
}

void CLayerPaneView::openLayerStates(int)
{
    openLayerStateManager(this);
}

void CLayerPaneView::openSettings(int)
{
    CLayerSettingsDlg::run(this);
}

/// Asks for the layers anew, whatever is known of them.
void CLayerPaneView::refreshList(int)
{
    m_search.forget();
    ApplySearch();
}

void CLayerPaneView::searchNow(int)
{
    ApplySearch();
}

void CLayerPaneView::toggleTree(int)
{
    ShowFilterTree(!m_bTreeVisible);
}
