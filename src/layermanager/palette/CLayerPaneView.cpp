#include "layermanager/palette/CLayerPaneView.h"

#include "database/OdDbDatabase.h"
#include "database/OdDbLayerTable.h"
#include "database/OdDbLayerTableRecord.h"
#include "layermanager/filters/view/CLayerTreeVw.h"
#include "layermanager/layer_states/LayerStateDialogs.h"
#include "layermanager/layers/FilledText.h"
#include "layermanager/layers/HostVariables.h"
#include "layermanager/layers/LayerUndoRecord.h"
#include "layermanager/layers/grid/CLayerListCtrl.h"
#include "layermanager/layers/operations/LayerCommandTable.h"
#include "layermanager/module/LayerPalette.h"
#include "layermanager/palette/CLayerListVw.h"
#include "sdk/IKestServicesManager.h"
#include "sdk/KestSharedGlobals.h"
#include "sdk/KsResString.h"
#include "toolkit/CXTPDockingPaneManager.h"
#include "toolkit/ControlRegistry.h"

#include <QLabel>
#include <QSplitter>
#include <QStyle>
#include <QVBoxLayout>

#include <algorithm>

namespace {

constexpr int kTreeWidth = 170;

} // namespace

CLayerPaneView::CLayerPaneView(QWidget* parent)
    : QWidget(parent)
    , m_docReactor(odrxCreate<CLayerDocMngrReactor>(*this))
{
    setObjectName(QStringLiteral("layerPane"));
    if (KsApDocManager* documents = ksDocManagerPtr())
        documents->addReactor(m_docReactor.get());
}

CLayerPaneView::~CLayerPaneView()
{
    if (KsApDocManager* documents = ksDocManagerPtr())
        documents->removeReactor(m_docReactor.get());
}

void CLayerPaneView::initialUpdate()
{
    if (m_bInitialised)
        return;
    auto* splitter = new QSplitter(this);
    splitter->setObjectName(QStringLiteral("layerSplitter"));
    splitter->setChildrenCollapsible(false);
    m_treeView = new CLayerTreeVw(splitter);
    m_listView = new CLayerListVw(splitter);
    m_treeView->setPaneView(this);
    m_listView->setPaneView(this);
    splitter->setStretchFactor(1, 1);
    splitter->setSizes({kTreeWidth, width() - kTreeWidth});
    m_statusLine = new QLabel(this);
    m_statusLine->setObjectName(QStringLiteral("statusLine"));
    m_statusLine->setAccessibleName(tr("Displayed layers"));
    m_statusLine->setTextFormat(Qt::PlainText);
    m_statusLine->setContentsMargins(style()->pixelMetric(QStyle::PM_LayoutLeftMargin) / 2, 0, 0,
                                     0);
    registerControl(this, kStatusLineId, m_statusLine);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->addWidget(splitter, 1);
    layout->addWidget(m_statusLine);
    setFocusProxy(m_listView);
    connect(grid(), &CLayerListCtrl::listChanged, this, &CLayerPaneView::UpdateStatusLine);
    connect(grid(), &CLayerListCtrl::listStale, this, &CLayerPaneView::refill);
    connect(grid(), &CLayerListCtrl::layersChanged, m_treeView,
            &CLayerTreeVw::UpdateUnreconciledNode);
    connect(m_treeView, &CLayerTreeVw::selectedLayersChanged, this, &CLayerPaneView::followFilter);
    connect(m_treeView, &CLayerTreeVw::layersChanged, this, &CLayerPaneView::layersChangedByTree);
    connect(grid(), &CLayerListCtrl::databaseGone, this, [this] {
        m_pDb = nullptr;
        m_treeView->bind(nullptr);
        m_statusLine->clear();
    });
    grid()->setStateDialogs([this](int id) {
        id == kNewLayerState ? openNewLayerState(this) : openLayerStateManager(this);
    });
    m_bInitialised = true;
}

CLayerListCtrl* CLayerPaneView::grid() const
{
    return m_listView ? &m_listView->grid() : nullptr;
}

void CLayerPaneView::BindToCurrentDatabase()
{
    const KsApDocManager* documents = ksDocManagerPtr();
    if (!documents || !m_listView)
        return;
    const KsApDocument* document = documents->curDocument();
    OdDbDatabase* database = document ? document->database() : nullptr;
    if (!database || database == m_pDb)
        return;
    m_pDb = database;
    m_treeView->bind(m_pDb);
    refill();
}

std::vector<OdDbObjectId> CLayerPaneView::wantedLayers() const
{
    std::vector<OdDbObjectId> layers = m_treeView->layersOfSelected().in;
    // Layers that belong to programs are never listed.
    std::erase_if(layers, [](OdDbObjectId id) {
        const auto layer = id.openObject<OdDbLayerTableRecord>();
        return !layer || layer->getName().contains(QLatin1Char('*'));
    });
    return layers;
}

void CLayerPaneView::list(const std::vector<OdDbObjectId>& layers)
{
    if (m_treeView->IsAllFilterSelected() || grid()->database() != m_pDb)
        grid()->fill(m_pDb);
    if (!m_treeView->IsAllFilterSelected())
        grid()->fillFromList(layers);
}

bool CLayerPaneView::isListed(const std::vector<OdDbObjectId>& layers) const
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
    m_treeView->UpdateUnreconciledNode();
    list(wantedLayers());
}

void CLayerPaneView::followFilter()
{
    if (!m_pDb)
        return;
    UpdateStatusLine();
    const std::vector<OdDbObjectId> layers = wantedLayers();
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

void CLayerPaneView::SyncPaneVisibility(const KsApDocument* document, bool show)
{
    const KsApDocManager* documents = ksDocManagerPtr();
    if (!documents || documents->isBusy() || documents->documentCount() > 1)
        return;
    // The last drawing takes the palette along; another one that goes does not.
    if (!show && documents->documentCount() == 1 && document != documents->curDocument())
        return;
    auto* manager = CXTPDockingPaneManager::of(KestSharedGlobals::GetCMainWindow());
    CXTPDockingPane* pane = manager ? manager->FindPane(kLayerPaneId) : nullptr;
    if (!pane)
        return;
    if (!show) {
        manager->ClosePane(pane);
        return;
    }
    const bool wanted = readHostInt(QStringLiteral("LayerManagerState")) == 1;
    if (!wanted || !pane->IsClosed())
        return;
    const bool wasHidden = pane->GetPaneState() == xtpPaneHidden;
    manager->ShowPane(pane);
    if (wasHidden)
        manager->ToggleAutoHide(pane);
}

void CLayerPaneView::showCurrentLayer()
{
    if (!m_pDb || grid()->editor())
        return;
    grid()->refreshAllRows();
    grid()->selectCurrentRow();
    grid()->setFocus(Qt::OtherFocusReason);
}

void CLayerPaneView::UpdateStatusLine()
{
    if (!m_statusLine || !m_pDb)
        return;
    const QString filter = m_treeView->selectedName();
    // The leading blank is deliberate.
    const QString pattern =
        KsResString(85988, QStringLiteral(" %s : %d layers displayed of %d total layers"));
    m_statusLine->setText(filledText(pattern,
                                     {filter.isEmpty() ? QStringLiteral("All") : filter,
                                      QString::number(grid()->displayedCount()),
                                      QString::number(m_pDb->layerTable().count())}));
}

void CLayerPaneView::BeginLayerUndoRecord(OdDbDatabase& database)
{
    beginLayerUndoRecord(database);
}
