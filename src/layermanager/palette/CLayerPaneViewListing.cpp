// What the palette's grid lists: the layers of the selected filter, searched and inverted.

#include "database/drawing/OdDbDatabase.h"
#include "layermanager/filters/view/CLayerTreeVw.h"
#include "layermanager/layers/grid/CLayerListCtrl.h"
#include "layermanager/palette/CLayerPaneView.h"
#include "layermanager/palette/pane/CLayerSearchBox.h"
#include "sdk/IKestServicesManager.h"
#include "sdk/KsApDocManager.h"

#include <QCheckBox>

#include <algorithm>

bool CLayerPaneView::isReferenceSelected() const
{
    const FilterNode* node = m_treeView->selectedNode();
    return node && node->kind == FilterNodeKind::ExternalReference;
}

/// The layers of an external reference are listed whole, as the tree tells them.
QString CLayerPaneView::pattern() const
{
    return isReferenceSelected() ? QString() : m_searchBox->text();
}

void CLayerPaneView::prepareSearch()
{
    if (!m_pDb)
        return;
    m_search.read(*m_pDb, grid()->sortOrder(), LayerCellContext::of(*m_pDb));
    if (m_search.hasFilter())
        return;
    const FilterLayers layers = m_treeView->layersOfSelected();
    ++m_filterEvaluations;
    m_search.setFilter(layers.in, layers.other);
}

LayerSearch::Ids CLayerPaneView::wantedLayers()
{
    prepareSearch();
    return m_search.matching(pattern(), m_bInvert);
}

void CLayerPaneView::ApplySearch()
{
    if (!m_pDb || m_treeView->selectedName().isEmpty())
        return;
    // Listing anew would take away what the user is typing into a cell.
    if (grid()->editor()) {
        grid()->requestRefresh();
        return;
    }
    prepareSearch();
    if (m_search.isFilterEmpty())
        return; // the selected filter is gone
    grid()->listOrdered(m_search.matching(pattern(), m_bInvert));
    UpdateStatusLine();
}

void CLayerPaneView::setInverted(bool inverted)
{
    grid()->forgetChanges();
    m_bInvert = inverted;
    m_invertBox->setChecked(inverted);
    ApplySearch();
}

void CLayerPaneView::list(const LayerSearch::Ids& layers)
{
    // Another drawing may be current while a question about it holds up its binding.
    const KsApDocManager* documents = ksDocManagerPtr();
    const KsApDocument* current = documents ? documents->curDocument() : nullptr;
    if (!current || current->database() != m_pDb)
        return;
    const bool isWhole =
        IsAllFilterSelected() && !m_bInvert && LayerSearch::isEverything(pattern());
    if (isWhole || grid()->database() != m_pDb)
        grid()->fill(m_pDb);
    if (!isWhole)
        grid()->fillFromList(layers);
}

bool CLayerPaneView::isListed(const LayerSearch::Ids& layers) const
{
    return grid()->database() == m_pDb
        && static_cast<int>(layers.size()) == grid()->layerModel().rowCount()
        && std::all_of(layers.begin(), layers.end(),
                       [this](OdDbObjectId layer) { return grid()->findRow(layer) >= 0; });
}

void CLayerPaneView::refill()
{
    if (!m_pDb)
        return;
    m_search.forget();
    m_treeView->UpdateUnreconciledNode();
    list(wantedLayers());
}

void CLayerPaneView::followFilter()
{
    if (!m_pDb)
        return;
    m_search.forgetFilter();
    if (const QString name = m_treeView->selectedName(); name != m_listedFilter) {
        m_listedFilter = name;
        grid()->forgetChanges();
    }
    UpdateStatusLine();
    const LayerSearch::Ids layers = wantedLayers();
    if (isListed(layers))
        return;
    // Listing anew would take away what the user is typing.
    if (grid()->editor())
        grid()->requestRefresh();
    else
        list(layers);
}

void CLayerPaneView::layersChangedByTree()
{
    grid()->refreshAllRows();
    if (IKestServicesManager* services = getServicesManagerInterface())
        services->refreshView();
    followFilter();
}
