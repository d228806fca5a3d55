// Mouse and keyboard of the filter table.

#include "layermanager/filter_editor/CLayPropFilterEdListCtrl.h"
#include "layermanager/layers/grid/control/CInPlaceEdit.h"

#include <QKeyEvent>
#include <QScopedValueRollback>

void CLayPropFilterEdListCtrl::mousePressEvent(QMouseEvent* event)
{
    const QScopedValueRollback<bool> byMouse(m_byMouse, true);
    CKestListCtrl::mousePressEvent(event);
}

void CLayPropFilterEdListCtrl::mouseDoubleClickEvent(QMouseEvent* event)
{
    const QScopedValueRollback<bool> byMouse(m_byMouse, true);
    CKestListCtrl::mouseDoubleClickEvent(event);
}

void CLayPropFilterEdListCtrl::focusInEvent(QFocusEvent* event)
{
    CKestListCtrl::focusInEvent(event);
    if (!currentIndex().isValid() && m_rows.rowCount() > 0)
        focusCell(0, 1);
}

void CLayPropFilterEdListCtrl::keyPressEvent(QKeyEvent* event)
{
    const QModelIndex cell = currentIndex();
    const bool alone = !(event->modifiers() & ~Qt::KeypadModifier);
    const bool opens = (event->key() == Qt::Key_F2 && alone)
        || (event->key() == Qt::Key_Down && event->modifiers() == Qt::AltModifier);
    if (opens) {
        event->accept();
        if (cell.isValid() && cellAction(cell.row(), cell.column()))
            return;
    } else if (event->key() == Qt::Key_Delete && alone) {
        event->accept();
        const FilterColumnInfo& info =
            filterColumns().at(static_cast<std::size_t>(std::max(0, cell.column())));
        if (cell.isValid() && info.isEditable())
            SetCellValue(cell.row(), cell.column(), info.unset, QString(), OdDbObjectId());
    } else if (!typeInto(*event)) {
        CKestListCtrl::keyPressEvent(event);
        // Enter belongs to the cells, never to the dialog.
        if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
            event->accept();
    }
}

/// Typing on a text cell replaces its text.
bool CLayPropFilterEdListCtrl::typeInto(const QKeyEvent& event)
{
    const QModelIndex cell = currentIndex();
    const QString text = event.text();
    // Both together are AltGr, which some keyboards need for wildcards.
    const bool isCommand = event.modifiers() & Qt::MetaModifier
        || event.modifiers().testFlag(Qt::ControlModifier)
            != event.modifiers().testFlag(Qt::AltModifier);
    const bool isTyped =
        !text.isEmpty() && text.at(0).isPrint() && !text.at(0).isSpace() && !isCommand;
    if (!isTyped || !cell.isValid()
        || filterColumns().at(static_cast<std::size_t>(cell.column())).editor
            != FilterCellEditor::Text)
        return false;
    cellAction(cell.row(), cell.column());
    if (editor())
        editor()->setText(text);
    return true;
}
