#include "io/dwg/write/Spelling.h"

#include "base/NumberText.h"
#include "database/values/OdError.h"
#include "io/dwg/records/DwgRecord.h"
#include "io/dwg/records/GroupForm.h"

#include <QCoreApplication>
#include <QRegularExpression>
#include <QtEndian>

#include <limits>
#include <vector>

namespace {

constexpr qsizetype kLongest = std::numeric_limits<qint16>::max();
constexpr qsizetype kLongestChunk = 0xFF;
constexpr qsizetype kLongestXDataText = 0xFF;

QString tr(const char* text)
{
    return QCoreApplication::translate("Spelling", text);
}

void requireLength(qsizetype length)
{
    if (length > kLongest)
        throw OdError(
            OdResult::InvalidInput,
            tr("A text of %1 characters is longer than DWG drawings can hold.").arg(length));
}

/// A text that a reader, which looks for escapes here too, takes for what it is.
QString withEscapes(QString text)
{
    static const QRegularExpression escape(QStringLiteral("\\\\(?=[UM]\\+)"),
                                           QRegularExpression::CaseInsensitiveOption);
    return text.replace(escape, QStringLiteral("\\U+005C"));
}

/// A text whose length and characters stand in the data stream. False where it is too long.
bool plainText(const DwgFormat& format, const QString& text, qsizetype longest, BitWriter& out)
{
    if (hasTextStream(format.version)) {
        if (text.size() > longest)
            return false;
        out.rawShort(static_cast<quint16>(text.size()));
        for (const QChar unit : text)
            out.rawShort(unit.unicode());
        return true;
    }
    const QByteArray bytes = format.text.encode(text);
    if (bytes.size() > longest)
        return false;
    out.rawShort(static_cast<quint16>(bytes.size()));
    out.rawChar(static_cast<quint8>(format.codePage));
    out.raw(bytes);
    return true;
}

qint64 integer(QByteArrayView value)
{
    return NumberText::integer(value).value_or(0);
}
double real(QByteArrayView value)
{
    return NumberText::real(value).value_or(0.0);
}
quint64 handle(QByteArrayView value)
{
    return NumberText::handle(value).value_or(0);
}

bool chunk(QByteArrayView value, BitWriter& out)
{
    const QByteArray bytes = QByteArray::fromHex(value.toByteArray());
    if (bytes.size() > kLongestChunk)
        return false;
    out.rawChar(static_cast<quint8>(bytes.size()));
    out.raw(bytes);
    return true;
}

using Groups = std::vector<GroupList::Group>;

/// The other two coordinates of a point that starts at `at`; goes to the last of them.
bool point(const Groups& groups, std::size_t& at, BitWriter& out)
{
    const int code = groups[at].code;
    out.rawDouble(real(groups[at].value));
    for (int axis = 1; axis < 3; ++axis) {
        const bool follows = at + 1 < groups.size() && groups[at + 1].code == code + 10 * axis;
        out.rawDouble(follows ? real(groups[++at].value) : 0.0);
    }
    return true;
}

bool appendItem(const DwgFormat& format, const Groups& groups, std::size_t& at,
                const Spelling::HandleOf& handleOf, BitWriter& out)
{
    const auto& [code, value] = groups[at];
    out.rawChar(static_cast<quint8>(code - 1000));
    switch (code) {
    case 1000:
        return plainText(format, QString::fromUtf8(value), kLongestXDataText, out);
    case 1002:
        out.rawChar(value == "{" ? 0 : 1);
        return true;
    case 1003:
        out.rawLongLong(qbswap(handleOf(code, QString::fromUtf8(value))));
        return true;
    case 1004:
        return chunk(value, out);
    case 1005:
        out.rawLongLong(qbswap(handle(value)));
        return true;
    case 1010:
    case 1011:
    case 1012:
    case 1013:
        return point(groups, at, out);
    case 1040:
    case 1041:
    case 1042:
        out.rawDouble(real(value));
        return true;
    case 1070:
        out.rawShort(static_cast<quint16>(integer(value)));
        return true;
    case 1071:
        out.rawLong(static_cast<quint32>(integer(value)));
        return true;
    default:
        return false;
    }
}

bool appendGroup(const DwgFormat& format, const Groups& groups, std::size_t& at, BitWriter& out)
{
    const auto& [code, value] = groups[at];
    out.rawShort(static_cast<quint16>(code));
    switch (groupForm(code)) {
    case GroupForm::Text:
        return plainText(format, QString::fromUtf8(value), kLongest, out);
    case GroupForm::Point:
        return point(groups, at, out);
    case GroupForm::Real:
        out.rawDouble(real(value));
        return true;
    case GroupForm::Int8:
        out.rawChar(static_cast<quint8>(integer(value)));
        return true;
    case GroupForm::Int16:
        out.rawShort(static_cast<quint16>(integer(value)));
        return true;
    case GroupForm::Int32:
        out.rawLong(static_cast<quint32>(integer(value)));
        return true;
    case GroupForm::Int64:
        out.rawLongLong(static_cast<quint64>(integer(value)));
        return true;
    case GroupForm::Handle:
        out.rawLongLong(handle(value));
        return true;
    case GroupForm::Chunk:
        return chunk(value, out);
    default:
        return false;
    }
}

} // namespace

BitWriter Spelling::text(const DwgFormat& format, const QString& text)
{
    BitWriter out;
    if (hasTextStream(format.version)) {
        const QString literal = withEscapes(text);
        requireLength(literal.size());
        out.bitShort(static_cast<qint16>(literal.size()));
        for (const QChar unit : literal)
            out.rawShort(unit.unicode());
        return out;
    }
    QByteArray bytes = format.text.encode(text);
    if (!bytes.isEmpty())
        bytes.append('\0'); // counted, but no empty text has one
    requireLength(bytes.size());
    out.bitShort(static_cast<qint16>(bytes.size()));
    out.raw(bytes);
    return out;
}

Spelling::Color Spelling::color(const DwgFormat& format, const OdCmColor& color)
{
    Color spelled;
    if (format.version < DrawingVersion::V2004) {
        spelled.data.bitShort(static_cast<qint16>(color.colorIndex()));
        return spelled;
    }
    const QString& full = color.bookName();
    const qsizetype mark = full.indexOf(QLatin1Char('$'));
    const QString book = mark < 0 ? QString() : full.first(mark);
    const QString name = full.sliced(mark + 1);
    constexpr quint8 kHasName = 1;
    constexpr quint8 kHasBook = 2;
    spelled.data.bitShort(0);
    spelled.data.bitLong(static_cast<qint32>(color.color()));
    spelled.data.rawChar(
        static_cast<quint8>((name.isEmpty() ? 0 : kHasName) | (book.isEmpty() ? 0 : kHasBook)));
    if (!name.isEmpty())
        spelled.names.append(text(format, name));
    if (!book.isEmpty())
        spelled.names.append(text(format, book));
    return spelled;
}

bool Spelling::xData(const DwgFormat& format, const GroupList& groups, const HandleOf& handleOf,
                     BitWriter& out)
{
    const Groups all(groups.begin(), groups.end());
    for (std::size_t at = 0; at < all.size(); ++at) {
        if (!appendItem(format, all, at, handleOf, out))
            return false;
    }
    return out.size() / 8 <= kMostXData;
}

bool Spelling::freeGroups(const DwgFormat& format, const GroupList& groups, BitWriter& out)
{
    const Groups all(groups.begin(), groups.end());
    for (std::size_t at = 0; at < all.size(); ++at) {
        if (!appendGroup(format, all, at, out))
            return false;
    }
    return true;
}
