#include "layermanager/filters/LeadingNumber.h"

#include <QLocale>

#include <algorithm>
#include <limits>

namespace {

bool isBlank(QChar c)
{
    return c == QLatin1Char(' ') || (c >= QLatin1Char('\t') && c <= QLatin1Char('\r'));
}

bool isDigit(QChar c)
{
    return c >= QLatin1Char('0') && c <= QLatin1Char('9');
}

bool isSign(QChar c)
{
    return c == QLatin1Char('-') || c == QLatin1Char('+');
}

QStringView withoutBlanks(QStringView text)
{
    return text.sliced(std::find_if_not(text.begin(), text.end(), isBlank) - text.begin());
}

/// Moves over digits; how many there are.
qsizetype skipDigits(QStringView text, qsizetype& at)
{
    const qsizetype start = at;
    while (at < text.size() && isDigit(text[at]))
        ++at;
    return at - start;
}

/// The part of a text that is a decimal number; empty without digits.
QStringView leadingDecimal(QStringView text)
{
    qsizetype at = !text.isEmpty() && isSign(text[0]) ? 1 : 0;
    qsizetype digits = skipDigits(text, at);
    if (at < text.size() && text[at] == QLatin1Char('.'))
        digits += skipDigits(text, ++at);
    if (digits == 0)
        return {};
    const qsizetype end = at;
    if (at < text.size() && (text[at] == QLatin1Char('e') || text[at] == QLatin1Char('E'))) {
        ++at;
        if (at < text.size() && isSign(text[at]))
            ++at;
        if (skipDigits(text, at) > 0)
            return text.first(at);
    }
    return text.first(end);
}

} // namespace

qint32 leadingInteger(QStringView text)
{
    using Limits = std::numeric_limits<qint32>;
    const QStringView number = withoutBlanks(text);
    qsizetype at = !number.isEmpty() && isSign(number[0]) ? 1 : 0;
    const bool isNegative = at == 1 && number[0] == QLatin1Char('-');
    qint64 value = 0;
    for (; at < number.size() && isDigit(number[at]); ++at) {
        value = value * 10 + (number[at].unicode() - '0');
        if (value > Limits::max())
            return isNegative ? Limits::min() : Limits::max();
    }
    return static_cast<qint32>(isNegative ? -value : value);
}

double leadingReal(QStringView text)
{
    return QLocale::c().toDouble(leadingDecimal(withoutBlanks(text)));
}
