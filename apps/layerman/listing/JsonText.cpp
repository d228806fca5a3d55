#include "layerman/listing/JsonText.h"

namespace {
/// DEL and what stands behind it are control characters too.
bool isControl(QChar c)
{
    return c.unicode() < 0x20 || (c.unicode() >= 0x7F && c.unicode() < 0xA0);
}
} // namespace

QString json_text::string(const QString& text)
{
    QString result;
    result.reserve(text.size() + 2);
    result += QLatin1Char('"');
    for (const QChar c : text) {
        if (c == QLatin1Char('"') || c == QLatin1Char('\\'))
            result += QLatin1Char('\\');
        if (isControl(c))
            result += QStringLiteral("\\u")
                + QString::number(c.unicode(), 16).rightJustified(4, QLatin1Char('0'));
        else
            result += c;
    }
    return result + QLatin1Char('"');
}
