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
    /// Nothing for a text of another shape, or one that multiplies out to too many rows.
    std::optional<FilterRows> rows();

private:
    static constexpr std::size_t kMostRows = 256;
    static constexpr int kDeepest = 32;

    bool parseOr(FilterRows& rows, int depth);
    bool parseAnd(FilterRows& rows, int depth);
    bool parseFactor(FilterRows& rows, int depth);
    bool parseCriterion(FilterRows& rows);
    void skipBlanks();
    /// Takes a keyword in any case that ends at a word's end.
    bool takeWord(QLatin1String word);
    bool takeChar(QLatin1Char c);
    bool atDescription() const;

    const QString& m_text;
    qsizetype m_at = 0;
};
