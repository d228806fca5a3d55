#include "layerman/listing/DrawingsPrinter.h"

#include "layerman/Output.h"
#include "layerman/listing/JsonText.h"

DrawingsPrinter::DrawingsPrinter(bool isJson, bool several, const QString& listed, Output& output)
    : m_isJson(isJson)
    , m_isSeveral(several)
    , m_listed(listed)
    , m_output(output)
{
    if (m_isJson)
        m_output.print(QStringLiteral("["));
}

void DrawingsPrinter::drawing(const QString& file, const QString& list)
{
    if (m_isJson) {
        m_output.print(head(file) + json_text::key(m_listed) + QLatin1Char('[') + list
                       + QStringLiteral("]}"));
        return;
    }
    if (!m_isFirst)
        m_output.print(QStringLiteral("\n"));
    m_isFirst = false;
    if (m_isSeveral)
        m_output.print(Output::escaped(file) + QStringLiteral(":\n"));
    m_output.print(list);
}

void DrawingsPrinter::failed(const QString& file, const QString& sentence)
{
    if (m_isJson)
        m_output.print(head(file) + json_text::key(QStringLiteral("error"))
                       + json_text::string(sentence) + QLatin1Char('}'));
}

void DrawingsPrinter::finish()
{
    if (m_isJson)
        m_output.print(QStringLiteral("\n]\n"));
}

QString DrawingsPrinter::head(const QString& file)
{
    const QString before = m_isFirst ? QStringLiteral("\n{") : QStringLiteral(",\n{");
    m_isFirst = false;
    return before + json_text::key(QStringLiteral("file")) + json_text::string(file)
        + QStringLiteral(", ");
}
