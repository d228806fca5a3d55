#include "layerman/states/LayerChanges.h"

#include "database/drawing/OdDbDatabase.h"
#include "database/store/HeaderVariables.h"
#include "database/tables/OdDbLayerTable.h"
#include "database/tables/OdDbLayerTableRecord.h"
#include "layerman/Output.h"
#include "layerman/editing/ChangeLine.h"

namespace {
/// Columns that a layer state can change. Plot styles that follow the color say nothing of their
/// own.
ListColumns columnsOf(const OdDbDatabase& drawing)
{
    const bool hasNamedStyles = drawing.header().intValue(QStringLiteral("$PSTYLEMODE"), 1) == 0;
    ListColumns columns;
    for (const ListColumn& column : listColumns()) {
        const bool isPlotStyle =
            column.cell == LayerColumn::PlotStyle || column.cell == LayerColumn::VpPlotStyle;
        if (column.cell && column.cell != LayerColumn::Status && (hasNamedStyles || !isPlotStyle))
            columns.push_back(&column);
    }
    return columns;
}
} // namespace

LayerChanges::LayerChanges(OdDbDatabase& drawing, const QString& file, bool isWanted)
    : m_drawing(drawing)
    , m_columns(columnsOf(drawing))
    , m_file(file)
    , m_isWanted(isWanted)
{
    if (m_isWanted)
        m_before = cells();
}

QHash<quint32, QStringList> LayerChanges::cells() const
{
    const LayerCellContext context = LayerCellContext::of(m_drawing);
    QHash<quint32, QStringList> result;
    for (const OdDbObjectId id : m_drawing.layerTable().records()) {
        const auto layer = id.safeOpenObject<OdDbLayerTableRecord>();
        QStringList texts;
        for (const ListColumn* column : m_columns)
            texts << cellText(*column, {*layer, context, m_file});
        result.insert(id.slot(), texts);
    }
    return result;
}

void LayerChanges::tell(Output& output) const
{
    if (!m_isWanted)
        return;
    const QHash<quint32, QStringList> after = cells();
    for (const OdDbObjectId id : m_drawing.layerTable().records()) {
        const QStringList before = m_before.value(id.slot());
        const QStringList now = after.value(id.slot());
        if (before == now)
            continue;
        const QString name = id.safeOpenObject<OdDbLayerTableRecord>()->getName();
        qsizetype i = 0;
        for (const ListColumn* column : m_columns) {
            if (before.value(i) != now[i])
                output.print(
                    changeLine(m_file, name, QLatin1String(column->name), before.value(i), now[i]));
            ++i;
        }
    }
}
