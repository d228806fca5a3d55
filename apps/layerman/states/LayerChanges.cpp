#include "layerman/states/LayerChanges.h"

#include "database/OdDbDatabase.h"
#include "database/OdDbLayerTable.h"
#include "database/OdDbLayerTableRecord.h"
#include "layerman/Output.h"
#include "layerman/editing/ChangeLine.h"
#include "layerman/listing/ColumnTable.h"

LayerChanges::LayerChanges(OdDbDatabase& drawing, const QString& file, bool isWanted)
    : m_drawing(drawing)
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
        for (const ListColumn& column : listColumns()) {
            if (column.cell && *column.cell != LayerColumn::Status)
                texts << cellText(column, {*layer, context, m_file});
        }
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
        for (const ListColumn& column : listColumns()) {
            if (!column.cell || *column.cell == LayerColumn::Status)
                continue;
            if (before.value(i) != now[i])
                output.print(
                    changeLine(m_file, name, QLatin1String(column.name), before.value(i), now[i]));
            ++i;
        }
    }
}
