// Names and descriptions, edited in the cells of the layer grid.

#include "database/drawing/OdDbDatabase.h"
#include "database/tables/OdDbLayerTable.h"
#include "layermanager/layers/LayerUndoRecord.h"
#include "layermanager/layers/grid/CLayerListCtrl.h"
#include "layermanager/layers/grid/control/CInPlaceEdit.h"
#include "layermanager/layers/operations/LayerEdits.h"

#include <QPointer>
#include <QScopedValueRollback>

#include <utility>

bool CLayerListCtrl::isStartOfTextEdit(int row, LayerColumn column) const
{
    const bool isNew = column == LayerColumn::Name && m_model.layerId(row) == m_newLayer;
    return isRowChosen(row) || isNew;
}

void CLayerListCtrl::startTextEdit(int row, LayerColumn column)
{
    if (column == LayerColumn::Name && !mayChange(m_model.layerId(row), column))
        return;
    if (chosenRowCount() > 1)
        selectionModel()->select(m_model.index(row, 0),
                                 QItemSelectionModel::Select | QItemSelectionModel::Rows);
    else
        chooseOnly(row);
    focusCell(row, static_cast<int>(column));
    if (CInPlaceEdit* opened = openInPlaceEditor(row, columnData(static_cast<int>(column)).subItem))
        opened->selectAll();
}

void CLayerListCtrl::editFocusedCell()
{
    const int row = currentIndex().row();
    if (!m_database || m_model.layerId(row).isNull() || preCheck() || !leaveEditor())
        return;
    const bool onDescription =
        currentIndex().column() == static_cast<int>(LayerColumn::Description);
    startTextEdit(row, onDescription ? LayerColumn::Description : LayerColumn::Name);
}

void CLayerListCtrl::endTextEdit(int row, LayerColumn column, const QString& text)
{
    const bool isName = column == LayerColumn::Name;
    if (m_model.layerId(row).isNull() || (!isName && column != LayerColumn::Description))
        return;
    const QString shown = m_model.index(row, static_cast<int>(column)).data().toString();
    // The layer may have got another text since the editor opened, which one left alone keeps.
    const bool isTyped = text != shown && !(editor() && editor()->textBefore() == text);
    const QPointer<CLayerListCtrl> self(this); // it may go while a refusal is shown
    // Whatever changes nothing asks nothing.
    if (!text.isEmpty() && isTyped && m_database && !preCheck()) {
        if (isName)
            renameRow(row, text);
        else
            describeRow(row, text);
    }
    if (self && isName && m_model.layerId(row) == m_newLayer && CInPlaceEdit::isClean(text))
        settleNewLayer();
}

void CLayerListCtrl::renameRow(int row, const QString& name)
{
    const OdDbObjectId layer = m_model.layerId(row);
    if (layer == m_database->getLayerZeroId())
        return;
    const OdDbObjectId holder = m_database->layerTable().getAt(name);
    const bool isFree = holder.isNull() || holder == layer;
    if (isFree && layerNameRefusal(name).isEmpty())
        beginLayerUndoRecord(*m_database);
    LayerOutcome outcome;
    {
        const QScopedValueRollback<bool> renaming(m_renaming, true);
        const LayerEditOutcome renamed = renameLayer(layer, name);
        outcome.message = renamed.refusal;
        if (renamed.changed)
            outcome.changed.push_back(layer);
    }
    finishEdit(outcome);
}

void CLayerListCtrl::describeRow(int row, const QString& text)
{
    const OdDbObjectId layer = m_model.layerId(row);
    beginLayerUndoRecord(*m_database);
    const LayerEditOutcome described = describeLayer(layer, text);
    LayerOutcome outcome;
    outcome.message = described.refusal;
    if (described.changed)
        outcome.changed.push_back(layer);
    finishEdit(outcome);
}

/// A new layer's row goes to its place once its name is settled.
void CLayerListCtrl::settleNewLayer()
{
    const OdDbObjectId layer = std::exchange(m_newLayer, {});
    if (endsByMouse()) {
        // The press is meant for the row that it hits, which must not go away from under it.
        m_orderPending = true;
        m_refreshTimer.start();
        return;
    }
    m_model.reorder(m_sortOrder);
    scrollRowIntoView(findRow(layer));
}
