#include "base/WildcardPattern.h"

#include "base/CharacterReader.h"

#include <algorithm>

namespace {
constexpr QLatin1Char kEscape('`');

/// Calls the sink with each unit and whether a back-quote takes it as it is.
template <class Sink>
void eachUnit(QStringView text, Sink sink)
{
    bool escaped = false;
    for (const QChar unit : text) {
        sink(unit, escaped);
        escaped = unit == kEscape && !escaped;
    }
}

std::vector<QStringView> split(QStringView pattern)
{
    std::vector<QStringView> parts;
    qsizetype begin = 0;
    qsizetype at = 0;
    eachUnit(pattern, [&](QChar unit, bool escaped) {
        if (unit == QLatin1Char(',') && !escaped) {
            parts.push_back(pattern.sliced(begin, at - begin));
            begin = at + 1;
        }
        ++at;
    });
    parts.push_back(pattern.sliced(begin));
    return parts;
}

template <class Name>
bool matchesAny(const std::vector<WildcardAlternative>& alternatives, const Name& name)
{
    return std::any_of(alternatives.begin(), alternatives.end(),
                       [&](const WildcardAlternative& a) { return a.matches(name); });
}
} // namespace

WildcardPattern::WildcardPattern(QStringView pattern, Qt::CaseSensitivity sensitivity)
    : m_sensitivity(sensitivity)
{
    for (const QStringView part : split(pattern))
        m_alternatives.emplace_back(part, sensitivity);
}

bool WildcardPattern::matches(QStringView name) const
{
    if (m_alternatives.size() == 1 && m_alternatives.front().isRuledOutAtSight(name))
        return m_alternatives.front().isNegated();
    const FlatName flat(name, m_sensitivity);
    if (flat.isFlat())
        return matchesAny(m_alternatives, flat);
    return matchesAny(m_alternatives, CharacterReader(name, m_sensitivity));
}

QStringList WildcardPattern::alternatives(QStringView pattern)
{
    QStringList result;
    for (const QStringView part : split(pattern)) {
        const QString text = part.trimmed().toString();
        if (!text.isEmpty())
            result << text;
    }
    return result;
}

bool WildcardPattern::isLiteral(QStringView alternative)
{
    static constexpr QLatin1String kWild("*?#@.[");
    bool literal = !alternative.startsWith(QLatin1Char('~'));
    eachUnit(alternative, [&](QChar unit, bool escaped) {
        literal = literal && (escaped || !kWild.contains(unit));
    });
    return literal;
}

QString WildcardPattern::unescaped(QStringView alternative)
{
    QString result;
    bool endsInEscape = false;
    eachUnit(alternative, [&](QChar unit, bool escaped) {
        endsInEscape = unit == kEscape && !escaped;
        if (!endsInEscape)
            result += unit;
    });
    return endsInEscape ? result + kEscape : result;
}
