// How the palette follows what happens to its drawing elsewhere.

#include "layermanager/filters/view/CLayerTreeVw.h"
#include "layermanager/layers/CDragDropUtility.h"
#include "layermanager/layers/grid/CLayerListCtrl.h"
#include "layermanager/palette/CLayerPaneView.h"
#include "layermanager/palette/CLayer_Filter_ViolationPromptDlg.h"

#include <QScrollBar>

void CLayerPaneView::connectSync()
{
    grid()->setListing([this] { return listing(); });
    connect(grid(), &CLayerListCtrl::listStale, this, &CLayerPaneView::refreshFromDrawing);
    connect(grid(), &CLayerListCtrl::burstOver, m_treeView, &CLayerTreeVw::UpdateUnreconciledNode);
    connect(grid(), &CLayerListCtrl::erasuresOver, m_treeView, &CLayerTreeVw::refresh);
    connect(grid(), &CLayerListCtrl::filterViolated, this,
            [this] { CLayer_Filter_ViolationPromptDlg::run(this); });
    new CDragDropUtility(*m_treeView);
}

LayerListing CLayerPaneView::listing() const
{
    return {m_treeView->testOfSelected(), m_bInvert, pattern()};
}

void CLayerPaneView::refreshFromDrawing()
{
    if (!m_pDb)
        return;
    m_treeView->UpdateUnreconciledNode();
    // The row at the top stays there while it is listed.
    const OdDbObjectId top = grid()->layerModel().layerId(grid()->rowAt(0));
    const int offset = top.isNull() ? 0 : grid()->rowViewportPosition(grid()->rowAt(0));
    const int scrolled = grid()->verticalScrollBar()->value();
    ApplySearch();
    UpdateStatusLine();
    grid()->keepRowAt(grid()->findRow(top), offset, scrolled);
}
