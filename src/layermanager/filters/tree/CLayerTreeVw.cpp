#include "layermanager/filters/tree/CLayerTreeVw.h"

#include "database/OdDbDatabase.h"
#include "database/OdDbLayerTable.h"
#include "database/OdError.h"
#include "database/filters/FilterRecords.h"
#include "layermanager/filter_editor/CDlgLayPropFilter.h"
#include "layermanager/filters/LayersOfFilter.h"
#include "layermanager/filters/tree/ExternalReferences.h"
#include "layermanager/filters/tree/FilterCommands.h"
#include "layermanager/filters/tree/FilterEdits.h"
#include "layermanager/filters/tree/FilterTreeDatabaseReactor.h"
#include "layermanager/filters/tree/FilterTreeDelegate.h"
#include "layermanager/filters/tree/FilterTreeMenu.h"
#include "layermanager/filters/tree/GroupLayers.h"
#include "layermanager/filters/tree/UnreconciledFilter.h"
#include "layermanager/layers/HostVariables.h"
#include "layermanager/layers/LayerUndoRecord.h"
#include "layermanager/module/LayerModuleState.h"
#include "sdk/IKestIOManager.h"
#include "sdk/KsApDocManager.h"
#include "toolkit/Prompts.h"

#include <QContextMenuEvent>
#include <QKeyEvent>

namespace {

constexpr int kIndentation = 14; ///< pixels for each level

bool isModelSpace()
{
    return readHostInt(QStringLiteral("TILEMODE")).value_or(1) == 1;
}

FilterKey rootKey()
{
    return {FilterRecords::kAll};
}

} // namespace

CLayerTreeVw::CLayerTreeVw(QWidget* parent)
    : QTreeView(parent)
    , m_filterEditor(CDlgLayPropFilter::edit)
    , m_reactor(std::make_unique<FilterTreeDatabaseReactor>(*this))
{
    setObjectName(QStringLiteral("filterTree"));
    setAccessibleName(tr("Layer filters"));
    setHeaderHidden(true);
    setUniformRowHeights(true);
    setIndentation(kIndentation);
    setEditTriggers(NoEditTriggers);
    setModel(&m_model);
    auto* delegate = new FilterTreeDelegate(this);
    setItemDelegate(delegate);
    connect(delegate, &FilterTreeDelegate::labelTyped, this, [this](const QString& text) {
        if (const FilterNode* node = selectedNode())
            m_typed = TypedLabel{node->key, text};
    });
    connect(this, &QTreeView::collapsed, this,
            [this](const QModelIndex& index) { noteExpansion(index, false); });
    connect(this, &QTreeView::expanded, this,
            [this](const QModelIndex& index) { noteExpansion(index, true); });
    m_refreshTimer.setSingleShot(true);
    m_refreshTimer.setInterval(0);
    m_refreshTimer.setObjectName(QStringLiteral("filterRefresh"));
    connect(&m_refreshTimer, &QTimer::timeout, this, &CLayerTreeVw::refresh);
}

CLayerTreeVw::~CLayerTreeVw()
{
    bind(nullptr);
    if (LayerModuleState::s_groupFilterReceiver == this) {
        LayerModuleState::s_groupFilterReceiver = nullptr;
        LayerModuleState::s_bGroupFilterPickPending = false;
    }
    // The view outlives its members by a little.
    setModel(nullptr);
}

// The tree as it is shown

void CLayerTreeVw::bind(OdDbDatabase* database)
{
    if (m_database == database)
        return;
    if (m_database)
        m_database->removeReactor(m_reactor.get());
    m_refreshTimer.stop();
    m_collapsed.clear();
    m_database = database;
    const ShowingScope showing(m_showing);
    m_model.show(nullptr);
    if (!m_database)
        return;
    m_database->addReactor(m_reactor.get());
    updateUnreconciledFilter(*m_database);
    showTree();
}

void CLayerTreeVw::showTree()
{
    const ShowingScope showing(m_showing);
    const FilterNode* before = selectedNode();
    const bool onReference = before && before->kind == FilterNodeKind::ExternalReference;
    const FilterKey reference = onReference ? before->key : FilterKey();
    FilterNodes nodes = readFilterNodes(*m_database);
    const FilterKey current = nodes.current->key;
    if (m_model.show(std::move(nodes.root)))
        restoreExpansion({});
    QModelIndex index = onReference ? m_model.find(reference, true) : QModelIndex();
    if (!index.isValid())
        index = m_model.find(current);
    setCurrentIndex(index);
}

void CLayerTreeVw::refresh()
{
    if (!m_database)
        return;
    updateUnreconciledFilter(*m_database);
    showTree();
    emit selectedLayersChanged();
}

void CLayerTreeVw::UpdateUnreconciledNode()
{
    if (!m_database || !updateUnreconciledFilter(*m_database))
        return;
    showTree();
    emit selectedLayersChanged();
}

void CLayerTreeVw::noteExpansion(const QModelIndex& index, bool expanded)
{
    if (m_showing)
        return;
    const QString name = index.data().toString().toCaseFolded();
    if (expanded)
        m_collapsed.remove(name);
    else
        m_collapsed.insert(name);
}

void CLayerTreeVw::restoreExpansion(const QModelIndex& parent)
{
    for (int row = 0; row < m_model.rowCount(parent); ++row) {
        const QModelIndex index = m_model.index(row, 0, parent);
        if (m_model.rowCount(index) == 0)
            continue;
        setExpanded(index, !m_collapsed.contains(index.data().toString().toCaseFolded()));
        restoreExpansion(index);
    }
}

// Selection

const FilterNode* CLayerTreeVw::selectedNode() const
{
    return m_model.node(currentIndex());
}

QString CLayerTreeVw::selectedName() const
{
    return currentIndex().data().toString();
}

bool CLayerTreeVw::IsAllFilterSelected() const
{
    return selectedName().compare(FilterRecords::kAll, Qt::CaseInsensitive) == 0;
}

FilterLayers CLayerTreeVw::layersOfSelected() const
{
    FilterLayers layers;
    if (!m_database)
        return layers;
    const FilterNode* node = selectedNode();
    if (node && node->kind == FilterNodeKind::ExternalReference) {
        layersOfExternalReference(*m_database, node->block, layers.in, layers.other);
        return layers;
    }
    const FilterTreeEdit tree(*m_database);
    const OdLyLayerFilterPtr filter = node ? tree.find(node->key) : tree.root();
    if (filter)
        GetLayersOfFilter(*m_database, *filter, layers.in, &layers.other);
    return layers;
}

void CLayerTreeVw::select(const FilterKey& filter)
{
    setCurrentIndex(m_model.find(filter));
}

void CLayerTreeVw::currentChanged(const QModelIndex& current, const QModelIndex& previous)
{
    QTreeView::currentChanged(current, previous);
    const FilterNode* node = m_model.node(current);
    if (m_showing || !m_database || !node)
        return;
    if (node->kind != FilterNodeKind::ExternalReference)
        setCurrentFilter(*m_database, node->key);
    emit selectedLayersChanged();
}

// Commands

void CLayerTreeVw::command(int id)
{
    if (!m_database)
        return;
    if (id == kToolbarNewGroupFilter) {
        newGroupFilter(rootKey());
        return;
    }
    if (id == kToolbarNewPropertyFilter) {
        newPropertyFilter(rootKey());
        return;
    }
    const FilterNode* node = selectedNode();
    if (!node || filterCommandState(id, *node, isModelSpace()) != FilterCommandState::Enabled)
        return;
    if (isFilterLayerCommand(id)) {
        if (changeLayersOfFilter(*m_database, id, layersOfSelected()))
            emit layersChanged();
        return;
    }
    changeFilters(id, node->key);
}

void CLayerTreeVw::changeFilters(int id, const FilterKey& filter)
{
    switch (id) {
    case kNewPropertyFilter:
        return newPropertyFilter(filter);
    case kNewGroupFilter:
        return newGroupFilter(filter);
    case kConvertToGroup:
        return showResult(convertToGroup(*m_database, filter));
    case kRenameFilter:
        return edit(currentIndex());
    case kDeleteFilter:
        return showResult(deleteFilter(*m_database, filter));
    case kEditPropertyFilter:
        return editFilter(filter);
    case kReplaceFromDrawing:
        return pickLayers(filter, QStringLiteral("0"));
    case kAddFromDrawing:
        return pickLayers(filter, QStringLiteral("1"));
    default:
        return;
    }
}

void CLayerTreeVw::showResult(const std::optional<FilterKey>& selected)
{
    if (!selected)
        return;
    {
        const ShowingScope showing(m_showing);
        showTree();
    }
    if (m_model.find(*selected) == currentIndex())
        emit selectedLayersChanged();
    else
        select(*selected);
}

void CLayerTreeVw::newGroupFilter(const FilterKey& parent)
{
    try {
        const std::optional<FilterKey> group = addGroupFilter(*m_database, parent);
        showResult(group);
        if (group)
            edit(currentIndex());
    } catch (const OdError&) {
        if (IKestIOManager* io = getIOManagerInterface())
            io->print(tr("Invalid Filter"));
    }
}

void CLayerTreeVw::newPropertyFilter(const FilterKey& parent)
{
    const OdLyLayerFilterPtr root = FilterTreeEdit(*m_database).root();
    const auto filter =
        odrxCreate<OdLyLayerFilter>(MakeDefaultFilterName(root, FilterKind::Property));
    if (m_filterEditor(this, *m_database, *filter))
        showResult(addFilter(*m_database, parent, filter));
}

void CLayerTreeVw::editFilter(const FilterKey& key)
{
    FilterTreeEdit tree(*m_database);
    const OdLyLayerFilterPtr filter = tree.find(key);
    if (!filter || !m_filterEditor(this, *m_database, *filter))
        return;
    beginLayerUndoRecord(*m_database);
    tree.write();
    showResult(keyOfFilter(tree.root(), *filter));
}

void CLayerTreeVw::pickLayers(const FilterKey& group, const QString& mode)
{
    KsApDocManager* documents = ksDocManagerPtr();
    if (!documents)
        return;
    m_pickGroup = group.name;
    LayerModuleState::s_bGroupFilterPickPending = true;
    LayerModuleState::s_groupFilterReceiver = this;
    for (const QString& text :
         {QStringLiteral("^C^C^C^P"), QStringLiteral("__ZTR_LAYER_GROUP_FILTER"), mode,
          QStringLiteral("^P")})
        documents->sendStringToExecute(text);
}

void CLayerTreeVw::entitiesPicked(OdDbDatabase& database, const KestSelectionSet& selection,
                                  bool answer)
{
    if (FillGroupFromSelection(database, m_pickGroup, selection, answer ? 1 : 0)
        && &database == m_database)
        refresh();
}

// Labels

void CLayerTreeVw::closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint)
{
    QTreeView::closeEditor(editor, hint);
    if (const auto typed = std::exchange(m_typed, std::nullopt))
        endLabelEdit(*typed);
}

void CLayerTreeVw::endLabelEdit(const TypedLabel& typed)
{
    if (!m_database)
        return;
    const FilterNameVerdict verdict = renameFilter(*m_database, typed.filter, typed.text);
    if (verdict == FilterNameVerdict::Accepted)
        refresh();
    else if (const QString refusal = filterNameRefusal(verdict); !refusal.isEmpty())
        Prompts::current().message(this, refusal);
}

// Input

void CLayerTreeVw::keyPressEvent(QKeyEvent* event)
{
    if (event->modifiers() == Qt::NoModifier && event->key() == Qt::Key_F2)
        command(kRenameFilter);
    else if (event->modifiers() == Qt::NoModifier && event->key() == Qt::Key_Delete)
        command(kDeleteFilter);
    else
        QTreeView::keyPressEvent(event);
}

std::unique_ptr<QMenu> CLayerTreeVw::contextMenu()
{
    const FilterNode* node = selectedNode();
    if (!node)
        return nullptr;
    return makeFilterMenu(*node, isModelSpace(), [this](int id) { command(id); });
}

void CLayerTreeVw::contextMenuEvent(QContextMenuEvent* event)
{
    QPoint place = event->globalPos();
    if (event->reason() == QContextMenuEvent::Keyboard) {
        place = viewport()->mapToGlobal(visualRect(currentIndex()).bottomLeft());
    } else {
        const QModelIndex index = indexAt(viewport()->mapFromGlobal(event->globalPos()));
        if (!index.isValid())
            return;
        setCurrentIndex(index);
    }
    if (const std::unique_ptr<QMenu> menu = contextMenu())
        menu->exec(place);
}
