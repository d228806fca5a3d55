#include "layerman/listing/TableWriter.h"

#include "database/tables/OdDbLayerTableRecord.h"
#include "host/text/TextTable.h"
#include "layerman/Output.h"

void TableWriter::drawing(const QString& file, const std::vector<OdDbObjectId>& layers,
                          const LayerCellContext& context)
{
    QStringList titles;
    for (const ListColumn* column : m_columns)
        titles << columnTitle(*column);
    TextTable table(titles);
    for (const OdDbObjectId id : layers) {
        const auto layer = id.safeOpenObject<OdDbLayerTableRecord>();
        const ListRow row{*layer, context, file};
        QStringList cells;
        cells.reserve(titles.size());
        for (const ListColumn* column : m_columns)
            cells << Output::escaped(cellText(*column, row));
        table.addRow(std::move(cells));
    }
    QString text = table.toString();
    if (m_isSeveral)
        text.prepend(Output::escaped(file) + QStringLiteral(":\n"));
    if (!m_isFirst)
        text.prepend(QLatin1Char('\n'));
    m_isFirst = false;
    m_output.print(text);
}
