#pragma once

#include <QStringView>

/// Reads the characters of a text in both directions, surrogate pairs as one, folded where case
/// does not matter. Places are those of units.
class CharacterReader
{
public:
    CharacterReader(QStringView text, Qt::CaseSensitivity sensitivity)
        : m_text(text)
        , m_folds(sensitivity == Qt::CaseInsensitive)
    { }

    qsizetype size() const { return m_text.size(); }

    /// The character at a place, which moves behind it.
    char32_t next(qsizetype& at) const
    {
        const QChar unit = m_text[at++];
        if (unit.isHighSurrogate() && at < m_text.size() && m_text[at].isLowSurrogate())
            return folded(QChar::surrogateToUcs4(unit, m_text[at++]));
        return folded(unit.unicode());
    }
    /// The character in front of a place, which moves before it.
    char32_t previous(qsizetype& at) const
    {
        const QChar unit = m_text[--at];
        if (unit.isLowSurrogate() && at > 0 && m_text[at - 1].isHighSurrogate())
            return folded(QChar::surrogateToUcs4(m_text[--at], unit));
        return folded(unit.unicode());
    }

private:
    char32_t folded(char32_t c) const { return m_folds ? QChar::toCaseFolded(c) : c; }

    QStringView m_text;
    bool m_folds;
};
