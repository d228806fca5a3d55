#include "database/filters/FilterExpressionParser.h"

std::optional<FilterRows> FilterExpressionParser::rows()
{
    FilterRows rows;
    if (!parseOr(rows, 0))
        return std::nullopt;
    skipBlanks();
    return m_at == m_text.size() ? std::optional(rows) : std::nullopt;
}

void FilterExpressionParser::skipBlanks()
{
    while (m_at < m_text.size() && m_text[m_at].isSpace())
        ++m_at;
}

bool FilterExpressionParser::takeWord(QLatin1String word)
{
    skipBlanks();
    const QStringView rest = QStringView(m_text).sliced(m_at);
    if (!rest.startsWith(word, Qt::CaseInsensitive)
        || (rest.size() > word.size() && rest[word.size()].isLetterOrNumber()))
        return false;
    m_at += word.size();
    return true;
}

bool FilterExpressionParser::takeChar(QLatin1Char c)
{
    skipBlanks();
    if (m_at >= m_text.size() || m_text[m_at] != c)
        return false;
    ++m_at;
    return true;
}

bool FilterExpressionParser::isWithin(bool limit)
{
    m_isTooLarge = m_isTooLarge || !limit;
    return limit;
}

bool FilterExpressionParser::parseOr(FilterRows& rows, int depth)
{
    if (!parseAnd(rows, depth))
        return false;
    while (takeWord(QLatin1String("OR"))) {
        FilterRows more;
        if (!parseAnd(more, depth) || !isWithin(rows.size() + more.size() <= kMostRows))
            return false;
        rows.insert(rows.end(), more.begin(), more.end());
    }
    return true;
}

bool FilterExpressionParser::atDescription() const
{
    return QStringView(m_text).sliced(m_at).startsWith(QLatin1String("DESC=="));
}

bool FilterExpressionParser::parseAnd(FilterRows& rows, int depth)
{
    if (!parseFactor(rows, depth))
        return false;
    for (;;) {
        const bool joined = takeWord(QLatin1String("AND"));
        // This system's rows put a description behind the others without a word between.
        if (!joined && !atDescription())
            return true;
        FilterRows factor;
        if (!parseFactor(factor, depth) || !multiply(rows, factor))
            return false;
    }
}

bool FilterExpressionParser::multiply(FilterRows& rows, const FilterRows& factor)
{
    if (!isWithin(rows.size() * factor.size() <= kMostRows))
        return false;
    FilterRows product;
    for (const FilterRow& left : rows) {
        for (const FilterRow& right : factor) {
            if (!isWithin(left.size() + right.size() <= kMostCriteria))
                return false;
            product.push_back(left);
            product.back().insert(product.back().end(), right.begin(), right.end());
        }
    }
    rows = std::move(product);
    return true;
}

bool FilterExpressionParser::parseFactor(FilterRows& rows, int depth)
{
    if (!takeChar(QLatin1Char('(')))
        return parseCriterion(rows);
    return isWithin(depth < kDeepest) && parseOr(rows, depth + 1) && takeChar(QLatin1Char(')'));
}

bool FilterExpressionParser::parseCriterion(FilterRows& rows)
{
    skipBlanks();
    const qsizetype begin = m_at;
    while (m_at < m_text.size() && m_text[m_at].isLetter())
        ++m_at;
    const QString key = m_text.mid(begin, m_at - begin).toUpper();
    if (key.isEmpty() || !takeChar(QLatin1Char('=')) || !takeChar(QLatin1Char('='))
        || !takeChar(QLatin1Char('"')))
        return false;
    const qsizetype close = m_text.indexOf(QLatin1Char('"'), m_at);
    if (close < 0)
        return false;
    rows = {{FilterCriterion{key, m_text.mid(m_at, close - m_at)}}};
    m_at = close + 1;
    return true;
}
