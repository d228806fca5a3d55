#include "io/dxf/text/GroupSpelling.h"

#include "base/NumberText.h"
#include "io/dxf/text/GroupCode.h"

#include <QtEndian>

#include <algorithm>
#include <optional>

namespace {

/// One byte for a code up to 254; this one says that the code follows in two.
constexpr int kWideCodeMark = 255;

/// Columns of a padded number; 0 for values that are not padded.
qsizetype columns(GroupKind kind)
{
    switch (kind) {
    case GroupKind::Int16:
    case GroupKind::Bool:
        return 6;
    case GroupKind::Int32:
        return 9;
    case GroupKind::Int64:
        return 18;
    default:
        return 0;
    }
}

template <typename Number>
void appendNumber(QByteArray& out, Number number)
{
    char bytes[sizeof(Number)];
    qToLittleEndian(number, bytes);
    out.append(bytes, sizeof bytes);
}

/// The next line without its line feed, taken off `rest`; nothing at the end.
std::optional<QByteArrayView> takeLine(QByteArrayView& rest)
{
    if (rest.isEmpty())
        return std::nullopt;
    const qsizetype feed = rest.indexOf('\n');
    const QByteArrayView line = feed < 0 ? rest : rest.first(feed);
    rest = feed < 0 ? QByteArrayView() : rest.sliced(feed + 1);
    return line;
}

} // namespace

GroupSpelling GroupSpelling::text(QByteArray lineEnd, int codeWidth, bool padsNumbers)
{
    GroupSpelling spelling;
    spelling.m_lineEnd = std::move(lineEnd);
    spelling.m_codeWidth = codeWidth;
    spelling.m_padsNumbers = padsNumbers;
    return spelling;
}

GroupSpelling GroupSpelling::binary(int codeBytes)
{
    GroupSpelling spelling;
    spelling.m_codeBytes = codeBytes;
    return spelling;
}

GroupSpelling GroupSpelling::sample(QByteArrayView groups)
{
    const auto withoutReturn = [](QByteArrayView line) {
        return line.endsWith('\r') ? line.chopped(1) : line;
    };
    std::optional<QByteArrayView> code = takeLine(groups);
    if (!code)
        return text("\n", 3, true);
    const QByteArray lineEnd = code->endsWith('\r') ? "\r\n" : "\n";
    const auto codeWidth = static_cast<int>(withoutReturn(*code).size());
    bool padsNumbers = codeWidth > 1; // unless a number says otherwise
    while (code) {
        const std::optional<QByteArrayView> value = takeLine(groups);
        if (!value)
            break;
        const GroupKind kind = groupKind(static_cast<int>(NumberText::integer(*code).value_or(0)));
        const QByteArrayView number = withoutReturn(*value);
        // A number that fills its columns would look the same either way.
        if (columns(kind) > 0 && number.trimmed().size() < columns(kind)) {
            padsNumbers = number.startsWith(' ');
            break;
        }
        code = takeLine(groups);
    }
    return text(lineEnd, codeWidth, padsNumbers);
}

void GroupSpelling::append(QByteArray& out, int code, QByteArrayView value) const
{
    if (isBinary() && groupKind(code) == GroupKind::Chunk) {
        while (value.size() > 2 * kLongestChunk) {
            append(out, code, value.first(2 * kLongestChunk));
            value = value.sliced(2 * kLongestChunk);
        }
    }
    appendCode(out, code);
    out += this->value(code, value);
}

QByteArray GroupSpelling::value(int code, QByteArrayView value) const
{
    return isBinary() ? binaryValue(code, value) : textValue(code, value);
}

void GroupSpelling::appendCode(QByteArray& out, int code) const
{
    if (!isBinary()) {
        out += QByteArray::number(code).rightJustified(m_codeWidth) + m_lineEnd;
    } else if (m_codeBytes == 1 && code < kWideCodeMark) {
        out += static_cast<char>(code);
    } else {
        if (m_codeBytes == 1)
            out += static_cast<char>(kWideCodeMark);
        appendNumber(out, static_cast<quint16>(code));
    }
}

QByteArray GroupSpelling::textValue(int code, QByteArrayView value) const
{
    const qsizetype width = m_padsNumbers ? columns(groupKind(code)) : 0;
    return value.toByteArray().rightJustified(width) + m_lineEnd;
}

QByteArray GroupSpelling::binaryValue(int code, QByteArrayView value)
{
    QByteArray out;
    const auto integer = [&] { return NumberText::integer(value).value_or(0); };
    switch (groupKind(code)) {
    case GroupKind::Text:
    case GroupKind::Handle:
        out.append(value.data(), value.size());
        out += '\0';
        break;
    case GroupKind::Real:
        appendNumber(out, NumberText::real(value).value_or(0.0));
        break;
    case GroupKind::Int16:
        appendNumber(out, static_cast<quint16>(integer()));
        break;
    case GroupKind::Int32: // some programs spell these signed, some unsigned: the bits are the same
        appendNumber(out, static_cast<quint32>(integer()));
        break;
    case GroupKind::Int64:
        appendNumber(out, static_cast<quint64>(integer()));
        break;
    case GroupKind::Bool:
        out += static_cast<char>(integer());
        break;
    case GroupKind::Chunk: {
        const QByteArray bytes = QByteArray::fromHex(value.toByteArray());
        out += static_cast<char>(std::min<qsizetype>(bytes.size(), 255));
        out += bytes.first(std::min<qsizetype>(bytes.size(), 255));
        break;
    }
    }
    return out;
}
