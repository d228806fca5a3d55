// Mouse, keyboard and selection of the grid.

#include "layermanager/layers/grid/control/CKestListCtrl.h"

#include <QApplication>
#include <QHeaderView>
#include <QItemSelection>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointer>

#include <algorithm>
#include <optional>
#include <utility>

namespace {

constexpr Qt::KeyboardModifiers kSelecting = Qt::ControlModifier | Qt::ShiftModifier;

/// Margin above a row that a step leads to, in pixels.
constexpr int kMarginAboveStep = 22;

/// Where a key leads to, possibly beyond the ends; nothing for keys that do not move.
std::optional<int> targetRow(int key, int from, int last, int page)
{
    switch (key) {
    case Qt::Key_Up:
        return from - 1;
    case Qt::Key_Down:
        return from + 1;
    case Qt::Key_PageUp:
        return from - page;
    case Qt::Key_PageDown:
        return from + page;
    case Qt::Key_Home:
        return 0;
    case Qt::Key_End:
        return last;
    default:
        return std::nullopt;
    }
}

} // namespace

// Selection

bool CKestListCtrl::isRowChosen(int row) const
{
    return selectionModel() && selectionModel()->isSelected(model()->index(row, 0));
}

std::vector<int> CKestListCtrl::chosenRows() const
{
    std::vector<int> rows;
    if (!selectionModel())
        return rows;
    const QItemSelection selection = selectionModel()->selection();
    for (const QItemSelectionRange& range : selection) {
        for (int row = range.top(); row <= range.bottom(); ++row)
            rows.push_back(row);
    }
    std::sort(rows.begin(), rows.end());
    rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
    return rows;
}

int CKestListCtrl::chosenRowCount() const
{
    return static_cast<int>(chosenRows().size());
}

void CKestListCtrl::chooseOnly(int row)
{
    chooseRange(row, row);
}

void CKestListCtrl::chooseRange(int from, int to)
{
    const int last = model()->columnCount() - 1;
    const QItemSelection range(model()->index(std::min(from, to), 0),
                               model()->index(std::max(from, to), last));
    selectionModel()->select(range, QItemSelectionModel::ClearAndSelect);
}

void CKestListCtrl::chooseRows(const std::vector<int>& rows)
{
    // Neighbours become one range: painting asks every range about every cell.
    const int last = model()->columnCount() - 1;
    QItemSelection selection;
    for (std::size_t i = 0; i < rows.size();) {
        std::size_t end = i + 1;
        while (end < rows.size() && rows[end] == rows[end - 1] + 1)
            ++end;
        selection.append(
            QItemSelectionRange(model()->index(rows[i], 0), model()->index(rows[end - 1], last)));
        i = end;
    }
    selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
}

void CKestListCtrl::chooseForMenu(int row)
{
    chooseOnly(row);
    focusCell(row, std::max(0, currentIndex().column()));
    setAnchorRow(row);
}

void CKestListCtrl::focusCell(int row, int column)
{
    selectionModel()->setCurrentIndex(model()->index(row, column), QItemSelectionModel::NoUpdate);
}

// Mouse

void CKestListCtrl::mousePressEvent(QMouseEvent* event)
{
    event->accept();
    m_press.reset();
    if (event->button() != Qt::LeftButton || !model())
        return;
    const QPoint place = event->position().toPoint();
    const Cell cell = hitTest(place);
    const bool drags = cell.isValid() && isDragColumn(cell.column);
    const bool waits = drags && isRowChosen(cell.row) && !(event->modifiers() & kSelecting);
    const QPointer<CKestListCtrl> self(this);
    if (!waits)
        clickCell(cell, event->modifiers());
    if (self && drags && hitTest(place) == cell && isRowChosen(cell.row))
        m_press = Press{cell, place, waits};
}

void CKestListCtrl::clickCell(Cell cell, Qt::KeyboardModifiers modifiers, bool isDouble)
{
    m_clickModifiers = modifiers & kSelecting;
    const QPointer<CKestListCtrl> self(this); // it may go while a message is shown
    if (!cell.isValid()) {
        closeInPlaceEditor();
        if (self && !m_clickModifiers)
            selectionModel()->clearSelection();
        return;
    }
    if (preCheck() || (isDouble && cellDoubleClicked(cell.row, cell.column)))
        return;
    const bool taken = cellAction(cell.row, cell.column);
    if (!self || cell.row >= model()->rowCount())
        return; // the action took the row away
    m_lastClicked = cell;
    selectClicked(cell, taken);
    focusCell(cell.row, cell.column);
}

void CKestListCtrl::selectClicked(Cell cell, bool taken)
{
    if (m_clickModifiers & Qt::ShiftModifier) {
        if (anchorRow() < 0)
            setAnchorRow(cell.row);
        chooseRange(anchorRow(), cell.row);
        return;
    }
    if (m_clickModifiers & Qt::ControlModifier)
        selectionModel()->select(model()->index(cell.row, 0),
                                 QItemSelectionModel::Toggle | QItemSelectionModel::Rows);
    else if (!taken)
        chooseOnly(cell.row);
    setAnchorRow(cell.row);
}

// Presses do all of the work; the base class would change the selection again.
void CKestListCtrl::mouseMoveEvent(QMouseEvent* event)
{
    event->accept();
    if (!m_press || !(event->buttons() & Qt::LeftButton))
        return;
    const QPoint way = event->position().toPoint() - m_press->place;
    if (way.manhattanLength() < QApplication::startDragDistance())
        return;
    m_press.reset();
    beginDrag();
}

void CKestListCtrl::mouseReleaseEvent(QMouseEvent* event)
{
    event->accept();
    const std::optional<Press> press = std::exchange(m_press, std::nullopt);
    if (event->button() == Qt::LeftButton && press && press->waits
        && hitTest(press->place) == press->cell)
        clickCell(press->cell, Qt::NoModifier);
}

void CKestListCtrl::mouseDoubleClickEvent(QMouseEvent* event)
{
    event->accept();
    m_press.reset();
    if (event->button() == Qt::LeftButton && model())
        clickCell(hitTest(event->position().toPoint()), event->modifiers(), true);
}

// Keyboard

void CKestListCtrl::keyPressEvent(QKeyEvent* event)
{
    if (!model() || model()->rowCount() == 0)
        event->ignore();
    else if (pressKey(event->key(), event->modifiers() & kSelecting))
        event->accept();
    else
        QTableView::keyPressEvent(event);
}

/// True for the keys that the grid handles by itself.
bool CKestListCtrl::pressKey(int key, Qt::KeyboardModifiers modifiers)
{
    switch (key) {
    case Qt::Key_Space:
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (!currentIndex().isValid())
            return false;
        clickCell({currentIndex().row(), currentIndex().column()}, modifiers);
        return true;
    case Qt::Key_Left:
    case Qt::Key_Right:
        stepColumn((key == Qt::Key_Right) != isRightToLeft() ? 1 : -1);
        return true;
    default:
        return moveRow(key, modifiers);
    }
}

bool CKestListCtrl::moveRow(int key, Qt::KeyboardModifiers modifiers)
{
    const int last = model()->rowCount() - 1;
    const int from = currentIndex().row();
    const std::optional<int> target = targetRow(key, from, last, rowsPerPage());
    if (!target)
        return false;
    const int to = std::clamp(*target, 0, last);
    focusCell(to, std::max(0, currentIndex().column()));
    if (modifiers & Qt::ShiftModifier) {
        if (anchorRow() < 0)
            setAnchorRow(std::max(0, from));
        chooseRange(anchorRow(), to);
    } else {
        if (!(modifiers & Qt::ControlModifier))
            chooseOnly(to);
        setAnchorRow(to);
    }
    scrollTo(currentIndex());
    return true;
}

void CKestListCtrl::stepRow(int step)
{
    const int to = currentIndex().row() + step;
    if (!model() || to < 0 || to >= model()->rowCount())
        return;
    focusCell(to, std::max(0, currentIndex().column()));
    chooseOnly(to);
    setAnchorRow(to);
    scrollRowIntoView(to, kMarginAboveStep);
}

bool CKestListCtrl::stepColumn(int step)
{
    if (!model() || model()->rowCount() == 0)
        return false;
    const int count = model()->columnCount();
    const int row = std::max(0, currentIndex().row());
    int column = currentIndex().column() + step;
    while (column >= 0 && column < count && isColumnHidden(column))
        column += step;
    if (column < 0 || column >= count)
        return false;
    focusCell(row, column);
    scrollTo(currentIndex());
    return true;
}

bool CKestListCtrl::focusNextPrevChild(bool next)
{
    if (stepColumn(next ? 1 : -1))
        return true;
    return QTableView::focusNextPrevChild(next);
}
