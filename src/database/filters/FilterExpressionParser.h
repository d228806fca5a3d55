#pragma once

#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

/// The criteria of one row as key and value, in the order of the text. Keys are upper case.
struct FilterCriterion
{
    QString key;
    QString value;
};
using FilterRow = std::vector<FilterCriterion>;
/// A layer passes when it passes one of the rows.
using FilterRows = std::vector<FilterRow>;

/// Parses KEY == "value" terms with AND, OR and parentheses, and multiplies out what is nested.
class FilterExpressionParser
{
public:
    explicit FilterExpressionParser(const QString& text)
        : m_text(text)
    { }
    static constexpr std::size_t kMostRows = 256;
    static constexpr std::size_t kMostCriteria = 64; ///< of one row
    static constexpr int kDeepest = 32; ///< parentheses in parentheses

    /// Nothing for a text of another shape, or one that goes beyond one of the limits.
    std::optional<FilterRows> rows();
    /// After rows(): whether a limit was the reason.
    bool isTooLarge() const { return m_isTooLarge; }

private:
    bool parseOr(FilterRows& rows, int depth);
    bool parseAnd(FilterRows& rows, int depth);
    bool parseFactor(FilterRows& rows, int depth);
    /// Each row with each of the other rows behind it.
    bool multiply(FilterRows& rows, const FilterRows& factor);
    bool parseCriterion(FilterRows& rows);
    void skipBlanks();
    /// Takes a keyword in any case that ends at a word's end.
    bool takeWord(QLatin1String word);
    bool takeChar(QLatin1Char c);
    bool atDescription() const;
    /// False where it is not.
    bool isWithin(bool limit);

    const QString& m_text;
    qsizetype m_at = 0;
    bool m_isTooLarge = false;
};
