#include "io/las/LasText.h"

#include <QStringDecoder>
#include <QStringEncoder>

#include <algorithm>

namespace {

/// The system's code page; where that is UTF-8, which the bytes are not, the one that most files of
/// other systems are in.
QString decodeCodePage(QByteArrayView bytes)
{
    QStringDecoder system(QStringDecoder::System);
    QString text = system(bytes);
    if (!system.hasError() && !text.contains(QChar::ReplacementCharacter))
        return text;
    QStringDecoder western("windows-1252");
    return western.isValid() ? QString(western(bytes)) : QString::fromLatin1(bytes);
}

bool startsEscape(QStringView text)
{
    return text.startsWith(QLatin1String("\\U+")) || text.startsWith(QLatin1String("\\u+"));
}

int hexDigit(QChar c)
{
    const char16_t unit = c.unicode();
    if (unit >= '0' && unit <= '9')
        return unit - '0';
    const char16_t lower = unit | 0x20;
    return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

/// The value of four hexadecimal digits at the start, or -1.
int fourDigits(QStringView text)
{
    if (text.size() < 4)
        return -1;
    int value = 0;
    for (const QChar c : text.first(4)) {
        const int digit = hexDigit(c);
        if (digit < 0)
            return -1;
        value = value * 16 + digit;
    }
    return value;
}

QByteArray escapeOf(QChar c)
{
    return "\\U+" + QByteArray::number(c.unicode(), 16).toUpper().rightJustified(4, '0');
}

bool needsEscape(QStringView value, qsizetype at)
{
    return value[at] < QLatin1Char(' ') || startsEscape(value.sliced(at));
}

} // namespace

QString LasText::decodeFile(const QByteArray& bytes)
{
    const auto encoding = QStringConverter::encodingForData(bytes);
    QStringDecoder decoder(encoding.value_or(QStringConverter::Utf8));
    const QString text = decoder(bytes);
    return encoding || !decoder.hasError() ? text : decodeCodePage(bytes);
}

QString LasText::unescaped(QStringView value)
{
    constexpr qsizetype kEscapeLength = 7;
    QString text;
    text.reserve(value.size());
    for (qsizetype at = 0; at < value.size();) {
        const QStringView rest = value.sliced(at);
        const int unit = startsEscape(rest) ? fourDigits(rest.sliced(3)) : -1;
        text += unit < 0 ? rest[0] : QChar(static_cast<char16_t>(unit));
        at += unit < 0 ? 1 : kEscapeLength;
    }
    // A mark of byte order in front says nothing, and conversions on the way would drop it.
    while (text.startsWith(QChar::ByteOrderMark))
        text.remove(0, 1);
    return text;
}

QByteArray LasText::escaped(QStringView value)
{
    QByteArray bytes;
    for (qsizetype at = 0; at < value.size(); ++at) {
        const QChar c = value[at];
        if (c > QLatin1Char('~') || needsEscape(value, at))
            bytes += escapeOf(c);
        else
            bytes += static_cast<char>(c.unicode());
    }
    return bytes;
}

QByteArray LasText::plainName(const QString& name)
{
    QStringEncoder encoder(QStringEncoder::System);
    QByteArray bytes = encoder(name);
    if (encoder.hasError() || QString::fromLocal8Bit(bytes) != name)
        return escaped(name);
    for (qsizetype at = 0; at < name.size(); ++at) {
        if (needsEscape(name, at))
            return escaped(name);
    }
    return bytes;
}
