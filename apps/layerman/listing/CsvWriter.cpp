#include "layerman/listing/CsvWriter.h"

#include "database/tables/OdDbLayerTableRecord.h"
#include "layerman/Output.h"

#include <algorithm>

QString CsvWriter::field(const QString& text)
{
    const bool needsQuotes = std::any_of(text.begin(), text.end(), [](QChar c) {
        return c == QLatin1Char(',') || c == QLatin1Char('"') || c == QLatin1Char('\n')
            || c == QLatin1Char('\r');
    });
    if (!needsQuotes)
        return text;
    QString quoted = text;
    quoted.replace(QLatin1Char('"'), QStringLiteral("\"\""));
    return QLatin1Char('"') + quoted + QLatin1Char('"');
}

CsvWriter::CsvWriter(ListColumns columns, Output& output)
    : m_columns(std::move(columns))
    , m_output(output)
{
    QStringList names;
    for (const ListColumn* column : m_columns)
        names << QLatin1String(column->name);
    m_output.print(names.join(QLatin1Char(',')) + QLatin1Char('\n'));
}

void CsvWriter::drawing(const QString& file, const std::vector<OdDbObjectId>& layers,
                        const LayerCellContext& context)
{
    QString text;
    for (const OdDbObjectId id : layers) {
        const auto layer = id.safeOpenObject<OdDbLayerTableRecord>();
        const ListRow row{*layer, context, file};
        for (std::size_t i = 0; i < m_columns.size(); ++i) {
            if (i > 0)
                text += QLatin1Char(',');
            text += field(cellText(*m_columns[i], row));
        }
        text += QLatin1Char('\n');
    }
    m_output.print(text);
}
