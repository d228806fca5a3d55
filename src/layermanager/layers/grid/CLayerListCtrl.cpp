#include "layermanager/layers/grid/CLayerListCtrl.h"

#include "database/drawing/OdDbDatabase.h"
#include "database/store/NameIndex.h"
#include "database/tables/OdDbLayerTable.h"
#include "database/tables/OdDbLayerTableRecord.h"
#include "layermanager/layers/HostVariables.h"
#include "layermanager/layers/LayerListing.h"
#include "layermanager/layers/grid/CLayerListCtrlDatabaseReactor.h"
#include "layermanager/layers/grid/LayerCellDelegate.h"
#include "layermanager/layers/grid/UpdatesOff.h"
#include "sdk/KsApDocManager.h"

#include <QHeaderView>
#include <QScrollBar>

#include <algorithm>

namespace {

/// Layers with this character in their names belong to the program that made the drawing.

/// So many rows are taken away one by one, with the selection and the focus around them.
constexpr std::size_t kFewRows = 32;

OdDbDatabase* activeDatabase()
{
    const KsApDocManager* documents = ksDocManagerPtr();
    const KsApDocument* document = documents ? documents->curDocument() : nullptr;
    return document ? document->database() : nullptr;
}

/// Rows of the layers that are listed, ascending.
std::vector<int> rowsOf(const LayerListModel& model, const LayerListModel::Ids& layers)
{
    std::vector<int> rows;
    for (const OdDbObjectId layer : layers) {
        if (const int row = model.rowOf(layer); row >= 0)
            rows.push_back(row);
    }
    std::sort(rows.begin(), rows.end());
    return rows;
}

LayerListModel::Ids shownLayers(const OdDbDatabase& database)
{
    const OdDbLayerTable& table = database.layerTable();
    const NameIndex& names = table.names();
    LayerListModel::Ids layers;
    layers.reserve(names.size());
    for (quint32 position = 0; position < names.size(); ++position) {
        if (names.isActive(position) && !names.key(position).contains(kHiddenLayerMark))
            layers.push_back(database.idOfSlot(table.slotsInOrder()[position]));
    }
    return layers;
}

} // namespace

CLayerListCtrl::CLayerListCtrl(QWidget* parent)
    : CKestListCtrl(parent)
    , m_reactor(std::make_unique<CLayerListCtrlDatabaseReactor>(*this))
{
    setObjectName(QStringLiteral("layerGrid"));
    setAccessibleName(tr("Layers"));
    setModel(&m_model);
    setItemDelegate(new LayerCellDelegate(m_model, this));
    connect(horizontalHeader(), &QHeaderView::sectionClicked, this, &CLayerListCtrl::columnClicked);
    connect(horizontalHeader(), &QHeaderView::sectionResized, this,
            [this](int section, int, int width) { sectionResized(section, width); });
    connect(this, &CKestListCtrl::endLabelEdit, this,
            [this](int row, int subItem, const QString& text) {
                endTextEdit(row, static_cast<LayerColumn>(columnData(subItem).subItem), text);
            });
    const auto setUp = [this](QTimer& timer, int id, void (CLayerListCtrl::*expire)()) {
        timer.setSingleShot(true);
        timer.setInterval(kTimerDelay);
        timer.setObjectName(QStringLiteral("timer_%1").arg(id));
        connect(&timer, &QTimer::timeout, this, expire);
    };
    setUp(m_refreshTimer, kRefreshTimer, &CLayerListCtrl::refreshTimeout);
    setUp(m_erasureTimer, kErasureTimer, &CLayerListCtrl::erasureTimeout);
    setUp(m_typeAheadTimer, kTypeAheadTimer, &CLayerListCtrl::forgetTypedAhead);
    m_refreshTimer.start();
}

CLayerListCtrl::~CLayerListCtrl()
{
    storeWidths();
    attach(nullptr);
    // The view outlives its members by a little.
    setModel(nullptr);
}

void CLayerListCtrl::attach(OdDbDatabase* database)
{
    if (m_database == database)
        return;
    if (m_database)
        m_database->removeReactor(m_reactor.get());
    m_database = database;
    m_refreshPending = false;
    m_orderPending = false;
    m_burst = {};
    m_erasureTimer.stop();
    if (m_database)
        m_database->addReactor(m_reactor.get());
}

// Rows

bool CLayerListCtrl::fill(OdDbDatabase* database)
{
    if (m_switchedOff || !database)
        return false;
    const UpdatesOff still(*this);
    attach(database);
    setSelectionBehavior(SelectRows);
    if (m_columns.empty())
        buildColumns();
    else
        applyColumns();
    if (readHostInt(QStringLiteral("SHOWLAYERUSAGE")).value_or(0) != 0)
        database->layerTable().generateUsageData();
    m_model.setContext(LayerCellContext::of(*database));
    list(shownLayers(*database));
    selectCurrentRow();
    setSpace();
    return true;
}

bool CLayerListCtrl::fillFromList(const LayerListModel::Ids& layers)
{
    OdDbDatabase* database = activeDatabase();
    if (m_switchedOff || !database)
        return false;
    const UpdatesOff still(*this);
    attach(database);
    if (m_columns.empty())
        buildColumns();
    database->layerTable().generateUsageData();
    m_model.setContext(LayerCellContext::of(*database));
    LayerListModel::Ids rows;
    rows.reserve(layers.size());
    try {
        for (const OdDbObjectId layer : layers) {
            if (layer.isNull())
                continue;
            layer.safeOpenObject<OdDbLayerTableRecord>();
            rows.push_back(layer);
        }
    } catch (const OdError&) {
        list(std::move(rows));
        throw;
    }
    list(std::move(rows));
    return true;
}

void CLayerListCtrl::list(LayerListModel::Ids layers)
{
    sortLayers(layers, m_sortOrder, m_model.context());
    showRows(std::move(layers));
}

void CLayerListCtrl::listOrdered(LayerListModel::Ids layers)
{
    if (m_switchedOff || !m_database || layers == m_model.layers())
        return;
    const UpdatesOff still(*this);
    changeAllRows([&] { showRows(std::move(layers)); });
    scrollRowIntoView(currentIndex().row());
}

/// Selection and focus stay on their layers.
void CLayerListCtrl::changeAllRows(const std::function<void()>& change)
{
    const LayerListModel::Ids chosen = chosenLayers();
    const OdDbObjectId focused = m_model.layerId(currentIndex().row());
    const int column = currentIndex().column();
    change();
    chooseRows(rowsOf(m_model, chosen));
    if (const int row = findRow(focused); row >= 0)
        focusCell(row, column);
}

void CLayerListCtrl::showRows(LayerListModel::Ids ordered)
{
    m_newLayerFlag = false;
    m_newLayer = {};
    m_orderPending = false;
    m_burst.come.clear();
    m_burst.gone.clear();
    forgetListing();
    m_model.forgetNewLayers();
    m_model.resetOrdered(std::move(ordered));
    m_displayedCount = m_model.rowCount();
    emit listChanged();
}

void CLayerListCtrl::unbind()
{
    attach(nullptr);
    m_model.setContext({});
    list({});
}

bool CLayerListCtrl::insertRow(OdDbObjectId layer, int row)
{
    if (layer.isNull() || row < 0 || row > m_model.rowCount())
        return false;
    if (m_newLayerFlag)
        m_model.markAsNew(layer);
    m_model.insertLayer(layer, row);
    return true;
}

bool CLayerListCtrl::refreshRow(int row, OdDbObjectId layer)
{
    if (!m_model.refreshRow(row, layer))
        return false;
    if (layer == currentLayer())
        emit currentLayerChanged();
    return true;
}

void CLayerListCtrl::refreshAllRows()
{
    if (m_database)
        m_model.setContext(LayerCellContext::of(*m_database));
    m_newLayerFlag = false;
    m_newLayer = {};
    m_model.refreshAll();
    viewport()->update();
}

void CLayerListCtrl::selectCurrentRow()
{
    const int row = findRow(currentLayer());
    if (row < 0) {
        clearSelection();
        return;
    }
    const int column =
        currentIndex().isValid() ? currentIndex().column() : static_cast<int>(LayerColumn::Name);
    chooseOnly(row);
    focusCell(row, column);
    scrollRowIntoView(row);
}

// What the drawing tells

void CLayerListCtrl::sysVarChanged(const OdDbDatabase* database, const QString& name)
{
    if (m_switchedOff || database != m_database || database != activeDatabase())
        return;
    const auto is = [&](QLatin1String variable) {
        return name.compare(variable, Qt::CaseInsensitive) == 0;
    };
    if (is(QLatin1String("CLAYER"))) {
        currentLayerMoved();
    } else if (is(QLatin1String("TILEMODE"))) {
        setSpace();
        refreshAllRows();
    } else if (is(QLatin1String("CTAB")) || is(QLatin1String("CVPORT"))) {
        refreshAllRows();
    }
}

void CLayerListCtrl::currentLayerMoved()
{
    const OdDbObjectId before = currentLayer();
    LayerCellContext context = m_model.context();
    context.currentLayer = m_database->getCLAYER();
    if (context.currentLayer == before)
        return;
    m_model.setContext(context);
    for (const OdDbObjectId layer : {before, context.currentLayer})
        m_model.refreshRow(findRow(layer), layer);
    selectCurrentRow();
    emit currentLayerChanged();
}

void CLayerListCtrl::removeRows(const LayerListModel::Ids& layers)
{
    const bool listed = std::any_of(layers.begin(), layers.end(),
                                    [this](OdDbObjectId layer) { return findRow(layer) >= 0; });
    if (!listed)
        return;
    discardInPlaceEditor();
    if (layers.size() <= kFewRows) {
        for (const OdDbObjectId layer : layers) {
            if (const int row = findRow(layer); row >= 0)
                m_model.removeLayer(row);
        }
    } else {
        const UpdatesOff still(*this);
        const int scrolled = verticalScrollBar()->value();
        changeAllRows([&] { m_model.removeLayers(layers); });
        executeDelayedItemsLayout();
        verticalScrollBar()->setValue(scrolled);
    }
    m_displayedCount = m_model.rowCount();
    emit listChanged();
}
