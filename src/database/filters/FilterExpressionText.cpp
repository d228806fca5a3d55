#include "database/filters/FilterExpressionText.h"

#include "database/filters/FilterCriteria.h"
#include "database/filters/FilterExpressionParser.h"

#include <QStringList>

namespace {

const QString& orMark()
{
    static const QString mark = QStringLiteral(" OR ");
    return mark;
}

/// One criterion in the own spelling at `at`; moves behind it. Group USED ends without a blank.
bool takeOwnCriterion(QStringView row, qsizetype& at)
{
    const qsizetype equals = row.indexOf(QLatin1String("==\""), at);
    if (equals < 0 || !FilterCriteria::find(row.sliced(at, equals - at)))
        return false;
    const qsizetype close = row.indexOf(QLatin1Char('"'), equals + 3);
    if (close < 0)
        return false;
    at = close + 1;
    return true;
}

bool isOwnRow(QStringView row)
{
    qsizetype at = 0;
    while (at < row.size()) {
        if (!takeOwnCriterion(row, at))
            return false;
        if (at < row.size() && row[at] == QLatin1Char(' '))
            ++at;
        constexpr QLatin1String kAnd(" AND ");
        if (row.sliced(at).startsWith(kAnd))
            at += kAnd.size();
        else if (row.sliced(at).startsWith(QLatin1String("AND "))) // behind group USED
            at += 4;
        else if (at < row.size() && !row.sliced(at).startsWith(QLatin1String("DESC==\"")))
            return false;
    }
    return true;
}

/// What the row editor writes, odd blanks included: it reads every row but the last without its
/// last character, which is the blank behind a criterion.
bool isOwnSpelling(const QString& expression)
{
    const QStringList rows = expression.split(orMark());
    for (qsizetype i = 0; i < rows.size(); ++i) {
        const QString& row = rows[i];
        const bool endsWell = i + 1 == rows.size() || row.isEmpty()
            || row.endsWith(QLatin1Char(' '))
            || row.lastIndexOf(QLatin1String("=="))
                == row.lastIndexOf(QLatin1String("VPOVERRIDES==")) + 11;
        if (!endsWell || !isOwnRow(row))
            return false;
    }
    return true;
}

} // namespace

FilterExpressionText::Spelling FilterExpressionText::spelled(const OdDbDatabase& database,
                                                             const QString& expression)
{
    const bool own = isOwnSpelling(expression);
    std::optional<FilterRows> rows = FilterExpressionParser(expression).rows();
    if (!rows)
        return {expression, own};
    const std::optional<QString> text = FilterCriteria::spelled(database, *rows);
    // A text of the own form keeps its blanks and order unless it says things in foreign words.
    if (!text)
        return {expression, false};
    const bool sameWords = own && FilterCriteria::usesOwnWords(database, *rows);
    return {sameWords ? expression : *text, true};
}
