#include "layerman/listing/JsonWriter.h"

#include "database/tables/OdDbLayerTableRecord.h"
#include "layerman/Output.h"
#include "layerman/listing/JsonText.h"

namespace {
bool isMissing(const ListColumn& column, const LayerCellContext& context)
{
    return column.cell && layerColumnInfo(*column.cell).layoutsOnly && !context.viewportReadable();
}

QString colorValue(const OdCmColor& color)
{
    const bool isIndex = color.colorMethod() == OdCmColor::kByACI && color.bookName().isEmpty();
    return isIndex ? QString::number(color.colorIndex())
                   : json_text::string(color.colorNameForDisplay());
}

/// The number of a width's text, without its unit.
QString widthValue(const QString& text)
{
    QString number = text;
    if (number.endsWith(QLatin1String(" mm")))
        number.chop(3);
    else if (number.endsWith(QLatin1Char('"')))
        number.chop(1);
    bool isNumber = false;
    const double width = number.toDouble(&isNumber);
    return isNumber ? QString::number(width) : json_text::string(text);
}
} // namespace

JsonWriter::JsonWriter(ListColumns columns, Output& output)
    : m_columns(std::move(columns))
    , m_output(output)
{
    m_output.print(QStringLiteral("["));
}

QString JsonWriter::value(const ListColumn& column, const ListRow& row)
{
    if (isMissing(column, row.context))
        return QStringLiteral("null");
    switch (column.kind) {
    case ColumnKind::Flag:
        return json_text::boolean(cellFlag(column, row).value_or(false));
    case ColumnKind::Color:
        return colorValue(layerCellColor(row.layer, *column.cell, row.context));
    case ColumnKind::Lineweight:
        return widthValue(cellText(column, row));
    case ColumnKind::Text:
        break;
    }
    return json_text::string(cellText(column, row));
}

QString JsonWriter::head(const QString& file)
{
    const QString before = m_isFirst ? QStringLiteral("\n{") : QStringLiteral(",\n{");
    m_isFirst = false;
    return before + json_text::key(QStringLiteral("file")) + json_text::string(file);
}

void JsonWriter::drawing(const QString& file, const std::vector<OdDbObjectId>& layers,
                         const LayerCellContext& context)
{
    QStringList keys;
    for (const ListColumn* column : m_columns)
        keys << json_text::key(QLatin1String(column->name));
    QString text = QStringLiteral(", \"layers\": [");
    for (const OdDbObjectId id : layers) {
        const auto layer = id.safeOpenObject<OdDbLayerTableRecord>();
        const ListRow row{*layer, context, file};
        text +=
            text.endsWith(QLatin1Char('[')) ? QStringLiteral("\n  {") : QStringLiteral(",\n  {");
        for (std::size_t i = 0; i < m_columns.size(); ++i) {
            if (i > 0)
                text += QStringLiteral(", ");
            text += keys[static_cast<qsizetype>(i)] + value(*m_columns[i], row);
        }
        text += QLatin1Char('}');
    }
    m_output.print(head(file) + text + QStringLiteral("]}"));
}

void JsonWriter::failed(const QString& file, const QString& sentence)
{
    m_output.print(head(file) + QStringLiteral(", ") + json_text::key(QStringLiteral("error"))
                   + json_text::string(sentence) + QLatin1Char('}'));
}

void JsonWriter::finish()
{
    m_output.print(QStringLiteral("\n]\n"));
}
