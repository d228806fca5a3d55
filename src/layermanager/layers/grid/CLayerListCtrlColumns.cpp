// Columns of the layer grid: their records, widths and order of rows.

#include "database/drawing/OdDbDatabase.h"
#include "layermanager/layers/grid/CLayerListCtrl.h"
#include "layermanager/layers/grid/UpdatesOff.h"
#include "sdk/IKestServicesManager.h"

#include <QHeaderView>
#include <QScopedValueRollback>

#include <algorithm>
#include <stdexcept>

namespace {
constexpr int kLeastWidth = 5; // pixels; as narrow as an editor opens on
constexpr int kMostWidth = 5000;
} // namespace

void CLayerListCtrl::buildColumns()
{
    m_columns.reserve(kLayerColumnCount);
    for (const LayerColumnInfo& info : layerColumns()) {
        const auto number = static_cast<qint32>(info.column);
        m_columns.push_back({info.identifier, info.headerText(), info.width, number, number, true});
    }
    loadWidths();
    m_inLayout = !m_database->getTILEMODE();
    applyColumns();
    horizontalHeader()->setSortIndicator(static_cast<int>(m_sortOrder.column),
                                         m_sortOrder.ascending ? Qt::AscendingOrder
                                                               : Qt::DescendingOrder);
}

/// Widths as pairs "identifier:pixels" with blanks between them.
void CLayerListCtrl::loadWidths()
{
    const IKestServicesManager* services = getServicesManagerInterface();
    if (!services || m_widthsKey.isEmpty())
        return;
    for (const QByteArray& pair : services->userState(m_widthsKey).split(' ')) {
        const qsizetype colon = pair.indexOf(':');
        const int identifier = pair.first(std::max<qsizetype>(colon, 0)).toInt();
        const int width = pair.sliced(colon + 1).toInt();
        const auto column =
            std::find_if(m_columns.begin(), m_columns.end(),
                         [&](const auto& known) { return known.identifier == identifier; });
        // Kept by another version, or edited by hand: what makes no sense is passed over.
        if (colon > 0 && column != m_columns.end() && width >= kLeastWidth && width <= kMostWidth)
            column->width = width;
    }
}

void CLayerListCtrl::storeWidths() const
{
    IKestServicesManager* services = getServicesManagerInterface();
    if (!services || m_widthsKey.isEmpty() || m_columns.empty())
        return;
    QByteArrayList pairs;
    for (const ListCtrlColumnData& column : m_columns)
        pairs.append(QByteArray::number(column.identifier) + ':'
                     + QByteArray::number(column.width));
    services->setUserState(m_widthsKey, pairs.join(' '));
}

void CLayerListCtrl::applyColumns()
{
    const QScopedValueRollback<bool> setting(m_settingWidths, true);
    for (const ListCtrlColumnData& column : m_columns) {
        setColumnHidden(column.subItem, !column.shown);
        if (column.shown)
            setColumnWidth(column.subItem, column.width);
    }
    stretchDescription();
}

ListCtrlColumnData& CLayerListCtrl::record(int column)
{
    return const_cast<ListCtrlColumnData&>(columnData(column));
}

const ListCtrlColumnData& CLayerListCtrl::columnData(int column) const
{
    if (column < 0 || column >= static_cast<int>(m_columns.size()))
        throw std::invalid_argument("The grid has no such column.");
    return m_columns[static_cast<std::size_t>(column)];
}

void CLayerListCtrl::hideGridColumn(int column)
{
    ListCtrlColumnData& kept = record(column);
    const UpdatesOff still(*this);
    const QScopedValueRollback<bool> setting(m_settingWidths, true);
    kept.displayOrder = -1;
    if (columnWidth(kept.subItem) > 0)
        kept.width = columnWidth(kept.subItem);
    setColumnHidden(kept.subItem, true); // a hidden column's width is 0
    kept.shown = false;
    stretchDescription();
}

void CLayerListCtrl::showGridColumn(int column)
{
    ListCtrlColumnData& kept = record(column);
    const UpdatesOff still(*this);
    const QScopedValueRollback<bool> setting(m_settingWidths, true);
    kept.displayOrder = kept.subItem;
    setColumnHidden(kept.subItem, false);
    setColumnWidth(kept.subItem, kept.width);
    kept.shown = true;
    stretchDescription();
}

void CLayerListCtrl::setSpace()
{
    m_inLayout = !m_database->getTILEMODE();
    const UpdatesOff still(*this);
    for (const LayerColumnInfo& info : layerColumns()) {
        if (!info.layoutsOnly)
            continue;
        if (m_inLayout)
            showGridColumn(static_cast<int>(info.column));
        else
            hideGridColumn(static_cast<int>(info.column));
    }
}

void CLayerListCtrl::sectionResized(int section, int width)
{
    if (m_settingWidths || m_columns.empty())
        return;
    // The user's width; a later fill keeps it.
    if (width > 0)
        record(section).width = width;
    stretchDescription();
}

/// Gives the descriptions the room that the other columns leave; their own width is the least.
void CLayerListCtrl::stretchDescription()
{
    const int number = static_cast<int>(LayerColumn::Description);
    if (m_columns.empty() || !columnData(number).shown)
        return;
    const QScopedValueRollback<bool> setting(m_settingWidths, true);
    const int others = horizontalHeader()->length() - columnWidth(number);
    setColumnWidth(number, std::max(columnData(number).width, viewport()->width() - others));
}

void CLayerListCtrl::resizeEvent(QResizeEvent* event)
{
    CKestListCtrl::resizeEvent(event);
    stretchDescription();
}

void CLayerListCtrl::columnClicked(int subItem)
{
    const auto clicked = static_cast<LayerColumn>(columnData(subItem).subItem);
    m_sortOrder.ascending = clicked != m_sortOrder.column || !m_sortOrder.ascending;
    m_sortOrder.column = clicked;
    closeInPlaceEditor();
    discardInPlaceEditor(); // one that refuses to close would stay over another row
    m_model.reorder(m_sortOrder);
    horizontalHeader()->setSortIndicator(
        subItem, m_sortOrder.ascending ? Qt::AscendingOrder : Qt::DescendingOrder);
}
