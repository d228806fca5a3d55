#include "layermanager/layer_states/parts/CLayerStateListCtrl.h"

#include "layermanager/layer_states/parts/StateDialogParts.h"
#include "layermanager/layer_states/parts/StateRowDelegate.h"

#include <QHeaderView>
#include <QKeyEvent>

#include <algorithm>

namespace {

bool isEnter(const QKeyEvent& event)
{
    return event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
}

} // namespace

CLayerStateListCtrl::CLayerStateListCtrl(QWidget* parent)
    : QTreeView(parent)
{
    setModel(&m_states);
    setItemDelegate(new StateRowDelegate(this));
    setRootIsDecorated(false);
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    setAlternatingRowColors(true);
    setSelectionMode(ExtendedSelection);
    setEditTriggers(EditKeyPressed);
    setTextElideMode(Qt::ElideRight);
    header()->setSectionsMovable(false);
    fitColumns();
}

QSize CLayerStateListCtrl::sizeHint() const
{
    constexpr int kCharacters = 74;
    constexpr int kLines = 20;
    return sizeInCharacters(*this, kCharacters, kLines);
}

std::vector<int> CLayerStateListCtrl::chosenRows() const
{
    std::vector<int> rows;
    const QItemSelection selection = selectionModel()->selection();
    for (const QItemSelectionRange& range : selection) {
        for (int row = range.top(); row <= range.bottom(); ++row)
            rows.push_back(row);
    }
    std::ranges::sort(rows);
    rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
    return rows;
}

void CLayerStateListCtrl::chooseOnly(int row)
{
    selectionModel()->setCurrentIndex(
        m_states.index(row, 0), QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    scrollTo(m_states.index(row, 0));
}

void CLayerStateListCtrl::fitColumns()
{
    const int most = sizeInCharacters(*this, kWidestStateColumn, 1).width();
    const auto columns = LayerStateListModel::columns();
    for (int column = 0; column < static_cast<int>(columns.size()); ++column) {
        // Descriptions have what the other columns leave.
        const bool isLast = column == LayerStateListModel::Description;
        const int text = isLast ? 0 : std::min(most, sizeHintForColumn(column));
        setColumnWidth(column,
                       std::max({columns[static_cast<size_t>(column)].width, text,
                                 header()->sectionSizeHint(column)}));
    }
}

void CLayerStateListCtrl::mouseReleaseEvent(QMouseEvent* event)
{
    QTreeView::mouseReleaseEvent(event);
    emit picked(); // whichever button: all of them select
}

void CLayerStateListCtrl::keyPressEvent(QKeyEvent* event)
{
    if (state() == EditingState && isEnter(*event)) {
        event->accept(); // it ends the edit and is not for the dialog's default button
        return;
    }
    const QItemSelection before = selectionModel()->selection();
    QTreeView::keyPressEvent(event);
    if (selectionModel()->selection() != before)
        emit picked();
}
