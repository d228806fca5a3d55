#include "layermanager/filters/view/CLayerTreeVw.h"

#include "database/drawing/OdDbDatabase.h"
#include "database/filters/FilterRecords.h"
#include "database/tables/OdDbLayerTable.h"
#include "database/values/OdError.h"
#include "layermanager/filter_editor/CDlgLayPropFilter.h"
#include "layermanager/filters/LayersOfFilter.h"
#include "layermanager/filters/tree/ExternalReferences.h"
#include "layermanager/filters/tree/FilterCommands.h"
#include "layermanager/filters/tree/FilterEdits.h"
#include "layermanager/filters/tree/GroupLayers.h"
#include "layermanager/filters/tree/UnreconciledFilter.h"
#include "layermanager/filters/view/FilterTreeDatabaseReactor.h"
#include "layermanager/filters/view/FilterTreeDelegate.h"
#include "layermanager/filters/view/FilterTreeMenu.h"
#include "layermanager/layers/HostVariables.h"
#include "layermanager/layers/LayerUndoRecord.h"
#include "layermanager/module/LayerModuleState.h"
#include "sdk/IKestIOManager.h"
#include "sdk/KsApDocManager.h"
#include "toolkit/Prompts.h"

#include <QContextMenuEvent>
#include <QDialog>
#include <QHeaderView>
#include <QKeyEvent>
#include <QScrollBar>

#include <algorithm>

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
    header()->setStretchLastSection(false);
    setModel(&m_model);
    auto* delegate = new FilterTreeDelegate(this);
    setItemDelegate(delegate);
    connect(delegate, &FilterTreeDelegate::labelTyped, this,
            [this](const QModelIndex& index, const QString& text) {
                if (const FilterNode* node = m_model.node(index))
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
    m_typed.reset();
    // What is open belongs to the drawing before.
    if (m_menu)
        m_menu->close();
    for (QDialog* dialog : findChildren<QDialog*>())
        dialog->reject();
    m_database = database;
    const FlagScope showing(m_showing);
    m_model.show(nullptr);
    if (!m_database)
        return;
    m_database->addReactor(m_reactor.get());
    updateUnreconciledFilter(*m_database);
    showTree();
}

void CLayerTreeVw::showTree()
{
    const FlagScope showing(m_showing);
    const FilterNode* before = selectedNode();
    const bool onReference = before && before->kind == FilterNodeKind::ExternalReference;
    const FilterKey reference = onReference ? before->key : FilterKey();
    FilterNodes nodes = readFilterNodes(*m_database);
    const FilterKey current = nodes.current->key;
    if (m_model.show(std::move(nodes.root))) {
        restoreExpansion({});
        updateGeometries();
    }
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

void CLayerTreeVw::updateGeometries()
{
    QTreeView::updateGeometries();
    if (m_fitting)
        return;
    const FlagScope fitting(m_fitting);
    // A wider column may need a scroll bar, or spare one, which changes the room once more.
    for (int round = 0; round < 2; ++round) {
        const int width = std::max(viewport()->width(), sizeHintForColumn(0));
        if (width == columnWidth(0))
            return;
        setColumnWidth(0, width);
        QTreeView::updateGeometries();
    }
}

void CLayerTreeVw::scrollTo(const QModelIndex& index, ScrollHint hint)
{
    QTreeView::scrollTo(index, hint);
    // That sees to the column; the label may begin far inside of it.
    const int left = visualRect(index).left() - indentation();
    const int right = left + indentation() + sizeHintForIndex(index).width();
    if (right > viewport()->width())
        horizontalScrollBar()->setValue(horizontalScrollBar()->value()
                                        + std::min(left, right - viewport()->width()));
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
    const FilterNode* node = selectedNode();
    return node && node->kind == FilterNodeKind::All;
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
    {
        const FlagScope changing(m_changingCurrent);
        QTreeView::currentChanged(current, previous);
    }
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

void CLayerTreeVw::changeFilters(int id, FilterKey filter)
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
        const FlagScope showing(m_showing);
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
    const FilterTreeEdit tree(*m_database); // holds the parent
    const auto filter =
        odrxCreate<OdLyLayerFilter>(MakeDefaultFilterName(tree.root(), FilterKind::Property));
    if (!askFor({filter, tree.find(parent), false}))
        return;
    const std::optional<FilterKey> added = addFilter(*m_database, parent, filter);
    showResult(added);
    if (!added)
        Prompts::current().message(this,
                                   tr("The filter \"%1\" was not made: \"%2\", which it was to "
                                      "stand below, is no longer in the drawing.")
                                       .arg(filter->name(), parent.name));
}

void CLayerTreeVw::editFilter(const FilterKey& key)
{
    const FilterTreeEdit tree(*m_database); // a copy, which holds the parent
    const OdLyLayerFilterPtr filter = tree.find(key);
    const QString before = filter ? filter->filterExpression() : QString();
    if (!filter || !askFor({filter, filter->parent(), true}))
        return;
    // Conditions that the user left alone stay as a script may have made them meanwhile.
    const OdLyLayerFilterPtr present = FilterTreeEdit(*m_database).find(key);
    const bool isLeft = present && filter->filterExpression() == before;
    const std::optional<FilterKey> changed = changeFilter(
        *m_database, key, filter->name(), (isLeft ? present : filter)->filterExpression());
    showResult(changed);
    if (!changed)
        Prompts::current().message(
            this,
            tr("The filter \"%1\" was not changed: it is no longer in the drawing.").arg(key.name));
}

bool CLayerTreeVw::askFor(const FilterToEdit& task)
{
    const QPointer<CLayerTreeVw> view(this);
    const OdDbDatabase* database = m_database;
    return m_filterEditor(this, *m_database, task) && view && m_database == database;
}

void CLayerTreeVw::pickLayers(const FilterKey& group, const QString& mode)
{
    KsApDocManager* documents = ksDocManagerPtr();
    if (!documents)
        return;
    m_pickGroup = group;
    m_pickDatabase = m_database;
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
    if (&database == m_pickDatabase
        && FillGroupFromSelection(database, m_pickGroup, selection, answer ? 1 : 0)
        && &database == m_database)
        refresh();
}

// Labels

void CLayerTreeVw::closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint)
{
    const bool isCancelled = hint == QAbstractItemDelegate::RevertModelCache;
    // Tab ends editing like Enter, and does not go on with the next label.
    QTreeView::closeEditor(editor, isCancelled ? hint : QAbstractItemDelegate::NoHint);
    if (m_changingCurrent)
        QTimer::singleShot(0, this, &CLayerTreeVw::endLabelEdit);
    else
        endLabelEdit();
}

void CLayerTreeVw::endLabelEdit()
{
    const auto typed = std::exchange(m_typed, std::nullopt);
    if (!typed || !m_database)
        return;
    const FilterNameVerdict verdict = renameFilter(*m_database, typed->filter, typed->text);
    if (verdict == FilterNameVerdict::Accepted)
        refresh();
    else if (const QString refusal = filterNameRefusal(verdict); !refusal.isEmpty())
        Prompts::current().message(this, refusal);
}

// Input

void CLayerTreeVw::keyPressEvent(QKeyEvent* event)
{
    // What a label's editor has no use for is not meant for the tree either.
    if (state() == EditingState)
        return;
    const bool isPlain = (event->modifiers() & ~Qt::KeypadModifier) == 0;
    if (isPlain && event->key() == Qt::Key_F2)
        command(kRenameFilter);
    else if (isPlain && event->key() == Qt::Key_Delete)
        command(kDeleteFilter);
    else
        QTreeView::keyPressEvent(event);
}

std::unique_ptr<QMenu> CLayerTreeVw::contextMenu()
{
    const FilterNode* node = selectedNode();
    if (!node)
        return nullptr;
    return makeFilterMenu(
        *node, isModelSpace(),
        [view = QPointer(this), database = m_database, filter = node->key](int id) {
            if (view)
                view->commandOn(database, filter, id);
        });
}

void CLayerTreeVw::commandOn(const OdDbDatabase* database, const FilterKey& filter, int id)
{
    const FilterNode* node = selectedNode();
    if (m_database == database && node && node->key == filter)
        command(id);
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
    const std::unique_ptr<QMenu> menu = contextMenu();
    if (!menu)
        return;
    m_menu = menu.get();
    menu->exec(place);
}
