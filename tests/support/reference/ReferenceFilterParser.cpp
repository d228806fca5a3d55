#include "support/reference/ReferenceFilterParser.h"

#include <QRegularExpression>

#include <algorithm>
#include <cmath>
#include <limits>
#include <locale>
#include <sstream>

namespace {

constexpr double kLeast = std::numeric_limits<qint32>::min();
constexpr double kMost = std::numeric_limits<qint32>::max();

QString key(const char* name)
{
    return QString::fromLatin1(name) + QStringLiteral("==\"");
}

bool isTrue(const QString& value)
{
    return value.toUpper() == QStringLiteral("TRUE");
}

/// One row and where its keys stand.
class RowText
{
public:
    explicit RowText(const QString& text)
        : m_text(text)
    { }

    bool has(const char* name) const { return m_text.indexOf(key(name)) != -1; }
    /// The character before the first place of the key; a null one at the very start.
    QChar before(const char* name) const
    {
        const qsizetype at = m_text.indexOf(key(name));
        return at > 0 ? m_text.at(at - 1) : QChar();
    }
    bool hasNotBehindP(const char* name) const
    {
        return has(name) && before(name).toUpper() != QLatin1Char('P');
    }
    /// From behind the key's opening quote to the end of the row.
    QString rest(const char* name) const
    {
        return m_text.mid(m_text.indexOf(key(name)) + key(name).size());
    }
    QString value(const char* name) const
    {
        const qsizetype close = rest(name).indexOf(QLatin1Char('"'));
        return close == -1 ? QString() : rest(name).left(close);
    }
    bool truth(const char* name) const { return isTrue(value(name)); }
    qint32 oneIfTrue(const char* name) const { return truth(name) ? 1 : 2; }

private:
    QString m_text;
};

qint32 used(const RowText& text)
{
    const bool inUse = text.truth("USED");
    const bool overrides = text.has("VPOVERRIDES") && text.truth("VPOVERRIDES");
    if (inUse && !overrides)
        return 1;
    if (inUse && overrides)
        return 3;
    return overrides ? 4 : 2;
}

/// Without halves of characters, which regular expressions refuse to look at.
QString plain(const QString& text)
{
    return QString::fromLatin1(text.toLatin1());
}

qint32 color(const QString& value)
{
    static const QRegularExpression number(QStringLiteral("^[ \\t\\n\\v\\f\\r]*([+-]?)0*([0-9]*)"));
    const QRegularExpressionMatch match = number.match(plain(value));
    const bool isNegative = match.captured(1) == QStringLiteral("-");
    const QString digits = match.captured(2);
    if (digits.size() > 10)
        return static_cast<qint32>(isNegative ? kLeast : kMost);
    const double size = digits.isEmpty() ? 0 : static_cast<double>(digits.toLongLong());
    return static_cast<qint32>(std::clamp(isNegative ? -size : size, kLeast, kMost));
}

/// What stands at the start of a text; overflow gives the largest number there is.
double decimal(const QString& text)
{
    static const QRegularExpression number(QStringLiteral(
        "^[ \\t\\n\\v\\f\\r]*([+-]?(?:[0-9]+\\.?[0-9]*|\\.[0-9]+)(?:[eE][+-]?[0-9]+)?)"));
    const QRegularExpressionMatch match = number.match(plain(text));
    if (!match.hasMatch())
        return 0;
    std::istringstream stream(match.captured(1).toStdString());
    stream.imbue(std::locale::classic());
    double value = 0;
    stream >> value;
    return value;
}

} // namespace

LayerFilterRows ReferenceFilterParser::expression(const QString& text) const
{
    LayerFilterRows rows;
    if (text.isEmpty())
        return rows;
    QString remainder = text;
    while (true) {
        const qsizetype p = remainder.indexOf(QStringLiteral(" OR "));
        if (p == -1)
            break;
        const QString rowText = p < 1 ? QString() : remainder.left(p - 1);
        remainder = remainder.mid(p + 3);
        if (rowText.isEmpty())
            return rows;
        row(rowText, rows);
    }
    row(remainder, rows);
    return rows;
}

bool ReferenceFilterParser::row(const QString& rowText, LayerFilterRows& rows) const
{
    if (rowText.isEmpty())
        return false;
    const RowText text(rowText);
    LayerFilterRow row;
    if (text.has("USED"))
        row.m_nUsed = used(text);
    if (text.has("NAME"))
        row.m_strName =
            text.rest("NAME").contains(QLatin1Char('"')) ? text.value("NAME") : text.rest("NAME");
    if (text.has("OFF"))
        row.m_nOn = text.truth("OFF") ? 2 : 1;
    if (text.hasNotBehindP("FROZEN"))
        row.m_nFrozen = text.oneIfTrue("FROZEN");
    if (text.has("LOCKED"))
        row.m_nLocked = text.oneIfTrue("LOCKED");
    if (text.hasNotBehindP("COLOR"))
        row.m_nColor = color(text.value("COLOR"));
    if (text.hasNotBehindP("LINETYPE"))
        row.m_idLinetype = m_findLinetype(text.value("LINETYPE"));
    if (text.hasNotBehindP("LINEWEIGHT")) {
        QString value = text.value("LINEWEIGHT");
        if (text.rest("LINEWEIGHT").indexOf(QStringLiteral("mm")) != -1)
            value = value.size() < 3 ? QString() : value.left(value.size() - 3);
        row.m_nLineweight = value.toLower() == QStringLiteral("default") ? -3 : lineweight(value);
    }
    if (text.has("PLOTTABLE"))
        row.m_nPlottable = text.oneIfTrue("PLOTTABLE");
    if (text.has("NEWVPFROZEN"))
        row.m_nNewVpFrozen = text.oneIfTrue("NEWVPFROZEN");
    if (text.has("VPFROZEN") && text.before("VPFROZEN") != QLatin1Char('W'))
        row.m_nVpFrozen = text.oneIfTrue("VPFROZEN");
    if (text.has("VPCOLOR"))
        row.m_nVpColor = color(text.value("VPCOLOR"));
    if (text.has("VPLINETYPE"))
        row.m_idVpLinetype = m_findLinetype(text.value("VPLINETYPE"));
    if (text.has("VPLINEWEIGHT")) {
        const QString value = text.value("VPLINEWEIGHT");
        row.m_nVpLineweight = value.toLower() == QStringLiteral("default") ? -3 : lineweight(value);
    }
    if (text.has("DESC"))
        row.m_strDesc = text.value("DESC");
    if (!row.isEmpty())
        rows.push_back(row);
    return true;
}

qint32 ReferenceFilterParser::lineweight(const QString& text) const
{
    if (text.toLower() == QStringLiteral("bylayer"))
        return -1;
    if (text.toLower() == QStringLiteral("byblock"))
        return -2;
    if (!m_lineweightUnits)
        return 0;
    double number = decimal(text);
    if (*m_lineweightUnits == 0)
        number *= 25.4;
    return static_cast<qint32>(std::clamp(std::trunc(number / 0.01), kLeast, kMost));
}
