#include "layerman/listing/JsonText.h"

#include "layerman/Output.h"

QString json_text::string(const QString& text)
{
    QString result;
    result.reserve(text.size() + 2);
    result += QLatin1Char('"');
    for (const QChar c : text) {
        if (c == QLatin1Char('"') || c == QLatin1Char('\\'))
            result += QLatin1Char('\\');
        if (Output::isUnsafe(c))
            result += QStringLiteral("\\u")
                + QString::number(c.unicode(), 16).rightJustified(4, QLatin1Char('0'));
        else
            result += c;
    }
    return result + QLatin1Char('"');
}
