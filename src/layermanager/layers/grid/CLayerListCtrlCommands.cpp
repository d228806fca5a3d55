// Commands on the rows of the layer grid: context menu, keys, selection.

#include "database/drawing/OdDbDatabase.h"
#include "database/tables/OdDbLayerTableRecord.h"
#include "layermanager/layers/grid/CLayerListCtrl.h"
#include "layermanager/layers/grid/LayerListMenu.h"
#include "layermanager/layers/grid/UpdatesOff.h"
#include "layermanager/layers/grid/control/CInPlaceEdit.h"
#include "layermanager/layers/operations/LayerCommandRun.h"

#include <QContextMenuEvent>
#include <QItemSelection>
#include <QPointer>
#include <QScopedValueRollback>

#include <algorithm>

namespace {

bool makesLayer(int id)
{
    return id == kNewLayer || id == kNewLayerVpFrozen || id == kToolbarNewLayer
        || id == kToolbarNewLayerVpFrozen;
}

} // namespace

CLayerListCtrl::Redraw CLayerListCtrl::redrawAfterCommand(int id)
{
    switch (id) {
    case kRemoveListedInViewport:
    case kRemoveListedInAllViewports:
    case kRemoveSelectedInViewport:
    case kRemoveSelectedInAllViewports:
    case kRemovePropertiesInViewport:
    case kRemovePropertiesInLayouts:
    case kNewLayerVpFrozen:
    case kFreezeInAllViewports:
    case kThawInAllViewports:
        return Redraw::RegenerateAll;
    default:
        return Redraw::Refresh;
    }
}

LayerListModel::Ids CLayerListCtrl::chosenLayers()
{
    settle();
    LayerListModel::Ids layers;
    for (const int row : chosenRows())
        layers.push_back(m_model.layerId(row));
    return layers;
}

void CLayerListCtrl::command(int id)
{
    const bool isOwn = id >= kFirstLayerCommand && id <= kLastLayerCommand && layerGridCommand(id);
    if (!isOwn || !m_database || preCheck() || !leaveEditor() || !m_database)
        return;
    const std::vector<int> chosen = chosenRows();
    switch (id) {
    case kRenameLayer:
    case kDescribeLayer:
        if (!chosen.empty())
            startTextEdit(chosen.front(),
                          id == kRenameLayer ? LayerColumn::Name : LayerColumn::Description);
        return;
    case kClearSelection:
        return clearSelection();
    case kSelectAllButCurrent:
        return chooseAllBut({findRow(currentLayer())});
    case kInvertSelection:
        return chooseAllBut(chosen);
    case kNewLayerState:
    case kLayerStateManager:
        if (m_stateDialogs)
            m_stateDialogs(id);
        return;
    default:
        return operate(id);
    }
}

/// `rows` are ascending.
void CLayerListCtrl::chooseAllBut(const std::vector<int>& rows)
{
    std::vector<int> others;
    for (int row = 0; row < m_model.rowCount(); ++row) {
        if (!std::binary_search(rows.begin(), rows.end(), row))
            others.push_back(row);
    }
    chooseRows(others);
}

void CLayerListCtrl::operate(int id)
{
    if (!m_database || m_switchedOff)
        return;
    const LayerListModel::Ids chosen = chosenLayers();
    LayerListModel::Ids erased;
    std::optional<LayerOutcome> outcome;
    {
        const UpdatesOff still(*this);
        const QScopedValueRollback<LayerListModel::Ids*> collecting(m_erased, &erased);
        outcome = runLayerCommand(*m_database, id, {chosen, m_model.layers()},
                                  [this](OdDbObjectId layer) {
                                      setNewLayerFlag(true);
                                      m_newLayer = layer;
                                      m_model.markAsNew(layer);
                                      refreshRow(findRow(layer), layer);
                                      emit layerMade(layer);
                                  });
    }
    removeRows(erased);
    if (!outcome)
        return;
    if (id == kReconcileLayers) {
        removeRows(chosen);
        m_burst.takeChanges(); // the user asked for just that
    }
    const QPointer<CLayerListCtrl> self(this);
    finishEdit(*outcome, redrawAfterCommand(id));
    if (!self)
        return;
    if (id == kReconcileLayers && !chosen.empty())
        emit listStale(); // those that the selected filter shows come back
    if (makesLayer(id) && !outcome->isEmpty())
        editNewLayer();
}

void CLayerListCtrl::editNewLayer()
{
    const int row = findRow(m_newLayer);
    if (row < 0)
        return; // the selected filter does not show it
    chooseOnly(row);
    scrollRowIntoView(row);
    startTextEdit(row, LayerColumn::Name);
}

// Menu and keys

std::unique_ptr<QMenu> CLayerListCtrl::contextMenu()
{
    if (!m_database)
        return nullptr;
    LayerCommandState state = layerCommandState(*m_database, {chosenLayers(), m_model.layers()});
    state.switchedOff = m_switchedOff;
    state.hasStateDialogs = static_cast<bool>(m_stateDialogs);
    // It stands open for as long as the user likes.
    return makeLayerMenu(state, [self = QPointer(this), database = m_database](int id) {
        if (self && self->m_database == database)
            self->command(id);
    });
}

void CLayerListCtrl::contextMenuEvent(QContextMenuEvent* event)
{
    event->accept();
    if (m_switchedOff || !leaveEditor())
        return;
    QPoint place = event->globalPos();
    if (event->reason() == QContextMenuEvent::Keyboard) {
        const QRect cell = visualRect(currentIndex()).intersected(viewport()->rect());
        place = viewport()->mapToGlobal(cell.isEmpty() ? QPoint() : cell.bottomLeft());
    } else {
        const int row = hitTest(viewport()->mapFromGlobal(place)).row;
        if (row < 0)
            clearSelection();
        else if (!isRowChosen(row))
            chooseForMenu(row);
    }
    if (const std::unique_ptr<QMenu> menu = contextMenu())
        menu->exec(place);
}

/// The command of a key; 0 for other keys.
int CLayerListCtrl::commandOfKey(const QKeyEvent& event) const
{
    const QKeySequence pressed(QKeyCombination(event.modifiers() & ~Qt::KeypadModifier,
                                               static_cast<Qt::Key>(event.key())));
    for (const LayerGridCommand& command : layerGridCommands()) {
        if (!command.shortcut || pressed != QKeySequence(QLatin1String(command.shortcut)))
            continue;
        const bool onDescription =
            currentIndex().column() == static_cast<int>(LayerColumn::Description);
        // The key that edits a name edits the description where the focus is on one.
        return command.id == kRenameLayer && onDescription ? kDescribeLayer : command.id;
    }
    return 0;
}

bool CLayerListCtrl::event(QEvent* event)
{
    if (event->type() == QEvent::KeyPress)
        settle();
    // The grid's keys go before those that the host's window has for its own commands.
    if (event->type() == QEvent::ShortcutOverride
        && commandOfKey(*static_cast<QKeyEvent*>(event)) != 0) {
        event->accept();
        return true;
    }
    return CKestListCtrl::event(event);
}

bool CLayerListCtrl::viewportEvent(QEvent* event)
{
    // Whatever meets a row meets it where it is; painting waits for the end of the turn.
    if (event->type() != QEvent::Paint)
        settle();
    return CKestListCtrl::viewportEvent(event);
}

void CLayerListCtrl::keyPressEvent(QKeyEvent* event)
{
    if (const int id = commandOfKey(*event)) {
        event->accept();
        command(id);
        return;
    }
    CKestListCtrl::keyPressEvent(event);
}
