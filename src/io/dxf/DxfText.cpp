#include "io/dxf/DxfText.h"

#include <QStringDecoder>
#include <QStringEncoder>

#include <algorithm>

namespace {

/// Converter for a code page name such as "ANSI_1251" or "dos932"; numbers are those of the
/// platform the names come from.
QByteArray converterFor(QByteArrayView codePage)
{
    struct Special
    {
        const char* number;
        const char* converter;
    };
    constexpr Special kSpecials[] = {{"932", "Shift_JIS"},   {"936", "GBK"},
                                     {"949", "windows-949"}, {"950", "Big5"},
                                     {"1361", "x-Johab"},    {"874", "windows-874"}};
    QByteArray number;
    std::copy_if(codePage.begin(), codePage.end(), std::back_inserter(number),
                 [](char c) { return c >= '0' && c <= '9'; });
    for (const Special& special : kSpecials) {
        if (number == special.number)
            return special.converter;
    }
    if (number.startsWith("125") && number.size() == 4)
        return "windows-" + number;
    if (number.size() == 3)
        return "IBM" + number;
    return "windows-1252";
}

/// Converters of the \M+n escapes.
const char* multibyteConverter(char kind)
{
    switch (kind) {
    case '1':
        return "Shift_JIS";
    case '2':
        return "Big5";
    case '3':
        return "windows-949";
    case '4':
        return "x-Johab";
    case '5':
        return "GBK";
    default:
        return nullptr;
    }
}

std::optional<uint> hexAt(QByteArrayView bytes, qsizetype at)
{
    if (at + 4 > bytes.size())
        return std::nullopt;
    bool ok = false;
    const uint value = bytes.sliced(at, 4).toByteArray().toUInt(&ok, 16);
    return ok ? std::optional<uint>(value) : std::nullopt;
}

/// An escape at `at`: the text it stands for and its length; length 0 where there is none.
struct Escape
{
    QString text;
    qsizetype length = 0;
};

Escape backslashEscape(QByteArrayView bytes, qsizetype at)
{
    const QByteArrayView rest = bytes.sliced(at);
    if (rest.size() >= 7 && (rest[1] == 'U' || rest[1] == 'u') && rest[2] == '+') {
        if (const auto unit = hexAt(rest, 3))
            return {QString(QChar(static_cast<char16_t>(*unit))), 7};
    }
    if (rest.size() >= 8 && rest[1] == 'M' && rest[2] == '+' && multibyteConverter(rest[3])) {
        if (const auto pair = hexAt(rest, 4)) {
            QStringDecoder decoder(multibyteConverter(rest[3]));
            const char both[2] = {static_cast<char>(*pair >> 8), static_cast<char>(*pair & 0xFF)};
            return {decoder.isValid() ? QString(decoder(QByteArrayView(both, 2)))
                                      : QString(QChar(0xFFFD)),
                    8};
        }
    }
    return {};
}

Escape caretEscape(QByteArrayView bytes, qsizetype at)
{
    if (at + 1 >= bytes.size())
        return {};
    const char next = bytes[at + 1];
    if (next == ' ')
        return {QStringLiteral("^"), 2};
    if (next >= '@' && next <= '_')
        return {QString(QChar(next - '@')), 2};
    return {};
}

} // namespace

DxfText::DxfText(QByteArrayView version, QByteArrayView codePage)
{
    const bool utf8 = version.size() == 6 && version.toByteArray() >= QByteArrayLiteral("AC1021");
    if (!utf8)
        m_codec = converterFor(codePage);
}

QString DxfText::decodePlain(QByteArrayView bytes) const
{
    if (isUtf8())
        return QString::fromUtf8(bytes);
    if (std::none_of(bytes.begin(), bytes.end(), [](char c) { return (c & 0x80) != 0; }))
        return QString::fromLatin1(bytes);
    QStringDecoder decoder(m_codec.constData());
    return decoder.isValid() ? QString(decoder(bytes)) : QString::fromLatin1(bytes);
}

QString DxfText::decode(QByteArrayView bytes) const
{
    const auto isMark = [](char c) { return c == '\\' || c == '^'; };
    if (std::none_of(bytes.begin(), bytes.end(), isMark))
        return decodePlain(bytes);
    QString text;
    qsizetype plainFrom = 0;
    for (qsizetype at = 0; at < bytes.size(); ++at) {
        if (!isMark(bytes[at]))
            continue;
        const Escape escape =
            bytes[at] == '^' ? caretEscape(bytes, at) : backslashEscape(bytes, at);
        if (escape.length == 0)
            continue;
        text += decodePlain(bytes.sliced(plainFrom, at - plainFrom)) + escape.text;
        plainFrom = at + escape.length;
        at = plainFrom - 1;
    }
    return text + decodePlain(bytes.sliced(plainFrom));
}

QByteArray DxfText::encode(QStringView text) const
{
    QByteArray bytes;
    QStringEncoder encoder =
        isUtf8() ? QStringEncoder(QStringEncoder::Utf8) : QStringEncoder(m_codec.constData());
    for (const QChar c : text) {
        const char16_t unit = c.unicode();
        if (unit == u'^') {
            bytes += "^ ";
        } else if (unit < 0x20) {
            bytes += '^';
            bytes += static_cast<char>('@' + unit);
        } else if (unit < 0x80) {
            bytes += static_cast<char>(unit);
        } else if (isUtf8()) {
            bytes += QByteArray(encoder(QStringView(&c, 1)));
        } else {
            QStringEncoder single(m_codec.constData());
            const QByteArray encoded =
                single.isValid() ? QByteArray(single(QStringView(&c, 1))) : QByteArray();
            if (single.isValid() && !single.hasError() && decodePlain(encoded) == QString(c))
                bytes += encoded;
            else
                bytes += "\\U+" + QByteArray::number(unit, 16).toUpper().rightJustified(4, '0');
        }
    }
    return bytes;
}
