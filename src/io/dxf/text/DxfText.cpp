#include "io/dxf/text/DxfText.h"

#include "io/dxf/text/DxfVersion.h"

#include <algorithm>
#include <array>
#include <optional>

namespace {

/// Code pages of the \M+n escapes, n from 1.
constexpr std::array kMultibytePages = {"932", "950", "949", "1361", "936"};

/// An escape: the text it stands for and its bytes; length 0 where there is none.
struct Escape
{
    char16_t character = 0;
    qsizetype length = 0;
};

std::optional<char16_t> fourHexDigits(QByteArrayView bytes)
{
    if (bytes.size() < 4)
        return std::nullopt;
    unsigned value = 0;
    for (const char c : bytes.first(4)) {
        const unsigned digit = c >= '0' && c <= '9' ? unsigned(c - '0')
            : c >= 'A' && c <= 'F'                  ? unsigned(c - 'A') + 10
            : c >= 'a' && c <= 'f'                  ? unsigned(c - 'a') + 10
                                                    : 16;
        if (digit > 15)
            return std::nullopt;
        value = value << 4 | digit;
    }
    return static_cast<char16_t>(value);
}

char16_t multibyteCharacter(char kind, char16_t bytes)
{
    static const auto pages = [] {
        std::array<std::shared_ptr<const CodePage>, kMultibytePages.size()> made;
        std::transform(kMultibytePages.begin(), kMultibytePages.end(), made.begin(),
                       [](const char* name) { return CodePage::named(name); });
        return made;
    }();
    const CodePage& page = *pages[static_cast<std::size_t>(kind - '1')];
    const char lead = static_cast<char>(bytes >> 8);
    const char trail = static_cast<char>(bytes & 0xFF);
    return lead == 0 ? page.character(trail) : page.character(lead, trail);
}

Escape backslashEscape(QByteArrayView rest)
{
    if (rest.size() >= 7 && (rest[1] == 'U' || rest[1] == 'u') && rest[2] == '+') {
        if (const auto unit = fourHexDigits(rest.sliced(3)))
            return {*unit, 7};
    }
    if (rest.size() >= 8 && rest[1] == 'M' && rest[2] == '+' && rest[3] >= '1' && rest[3] <= '5') {
        if (const auto bytes = fourHexDigits(rest.sliced(4)))
            return {multibyteCharacter(rest[3], *bytes), 8};
    }
    return {};
}

Escape caretEscape(QByteArrayView rest)
{
    if (rest.size() < 2)
        return {};
    if (rest[1] == ' ')
        return {u'^', 2};
    if (rest[1] >= '@' && rest[1] <= '_')
        return {static_cast<char16_t>(rest[1] - '@'), 2};
    return {};
}

Escape escapeAt(QByteArrayView rest, bool carets)
{
    return rest.front() == '\\'         ? backslashEscape(rest)
        : carets && rest.front() == '^' ? caretEscape(rest)
                                        : Escape();
}

/// Text in UTF-8 between escapes.
QString decodeUtf8(QByteArrayView bytes)
{
    QString text;
    qsizetype plainFrom = 0;
    for (qsizetype at = 0; at < bytes.size();) {
        const Escape escape = escapeAt(bytes.sliced(at), true);
        if (escape.length == 0) {
            ++at;
            continue;
        }
        text += QString::fromUtf8(bytes.sliced(plainFrom, at - plainFrom));
        text += QChar(escape.character);
        at += escape.length;
        plainFrom = at;
    }
    return text + QString::fromUtf8(bytes.sliced(plainFrom));
}

QString decodePage(QByteArrayView bytes, const CodePage& page, bool carets)
{
    QString text;
    text.reserve(bytes.size());
    for (qsizetype at = 0; at < bytes.size();) {
        // The second byte of a pair may look like a backslash or a caret.
        if (page.isLead(bytes[at]) && at + 1 < bytes.size()) {
            const char16_t character = page.character(bytes[at], bytes[at + 1]);
            text += QChar(character);
            at += character == CodePage::kNoCharacter && (bytes[at + 1] & 0x80) == 0 ? 1 : 2;
            continue;
        }
        const Escape escape = escapeAt(bytes.sliced(at), carets);
        text += QChar(escape.length > 0 ? escape.character : page.character(bytes[at]));
        at += std::max<qsizetype>(escape.length, 1);
    }
    return text;
}

void appendEscape(QByteArray& bytes, char16_t unit)
{
    bytes += "\\U+" + QByteArray::number(unit, 16).toUpper().rightJustified(4, '0');
}

/// Whether the text, which starts with a backslash, would be read as an escape.
bool looksLikeEscape(QStringView text)
{
    const QByteArray start = text.first(std::min<qsizetype>(text.size(), 8)).toLatin1();
    return backslashEscape(start).length > 0;
}

bool isPair(QStringView text, qsizetype at)
{
    return text[at].isHighSurrogate() && at + 1 < text.size() && text[at + 1].isLowSurrogate();
}

} // namespace

DxfText::DxfText(QByteArrayView version, QByteArrayView codePage)
{
    if (dxfVersion(version) >= DrawingVersion::V2007)
        return;
    m_page = std::make_shared<Page>();
    m_page->name = codePage.toByteArray();
}

DxfText DxfText::ofBytes(QByteArrayView codePage)
{
    DxfText text(QByteArrayView(), codePage);
    text.m_carets = false;
    return text;
}

const CodePage& DxfText::page() const
{
    std::call_once(m_page->once, [this] { m_page->tables = CodePage::named(m_page->name); });
    return *m_page->tables;
}

QString DxfText::decode(QByteArrayView bytes) const
{
    const bool plain = std::none_of(bytes.begin(), bytes.end(), [](char c) {
        return (c & 0x80) != 0 || c == '\\' || c == '^';
    });
    if (plain)
        return QString::fromLatin1(bytes);
    return m_page ? decodePage(bytes, page(), m_carets) : decodeUtf8(bytes);
}

QByteArray DxfText::encode(QStringView text) const
{
    QByteArray bytes;
    bytes.reserve(text.size());
    for (qsizetype at = 0; at < text.size(); ++at) {
        const char16_t unit = text[at].unicode();
        if (m_carets && unit == u'^') {
            bytes += "^ ";
        } else if (m_carets && unit < 0x20) {
            bytes += '^';
            bytes += static_cast<char>('@' + unit);
        } else if (unit == u'\\' && looksLikeEscape(text.sliced(at))) {
            appendEscape(bytes, unit);
        } else if (unit < 0x80) {
            bytes += static_cast<char>(unit);
        } else if (!m_page && isPair(text, at)) {
            bytes += text.sliced(at++, 2).toUtf8();
        } else if (!m_page && !text[at].isSurrogate()) {
            bytes += text.sliced(at, 1).toUtf8();
        } else if (const quint16 pair = m_page ? page().bytesOf(unit) : quint16(0); pair != 0) {
            if (pair > 0xFF)
                bytes += static_cast<char>(pair >> 8);
            bytes += static_cast<char>(pair & 0xFF);
        } else {
            appendEscape(bytes, unit);
        }
    }
    return bytes;
}

bool DxfText::holds(QStringView text) const
{
    for (qsizetype at = 0; at < text.size(); ++at) {
        const char16_t unit = text[at].unicode();
        if (unit < 0x80)
            continue;
        if (m_page ? page().bytesOf(unit) == 0 : text[at].isSurrogate() && !isPair(text, at))
            return false;
        if (!m_page && text[at].isHighSurrogate())
            ++at;
    }
    return true;
}
