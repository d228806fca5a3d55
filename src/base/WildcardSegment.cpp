#include "base/WildcardSegment.h"

#include <QChar>

void WildcardSegment::Word::set(std::size_t place, char16_t unit)
{
    units |= quint64(unit) << (16 * place);
    mask |= quint64(0xFFFF) << (16 * place);
}

void WildcardSegment::add(WildcardToken token)
{
    const std::size_t place = m_tokens.size();
    if (place % kUnitsPerWord == 0)
        m_words.emplace_back();
    if (token.kind == WildcardToken::Kind::Exactly) {
        // A flat name holds no surrogates, so that those of the pattern fit nowhere.
        const char16_t unit = QChar::requiresSurrogates(token.character)
            ? QChar::highSurrogate(token.character)
            : static_cast<char16_t>(token.character);
        m_words.back().set(place % kUnitsPerWord, unit);
        for (std::size_t i = 0; place < 2 && i < kUnitsPerWord; ++i)
            (place == 0 ? m_beginning.first : m_beginning.second).set(i, unit);
    } else if (token.kind != WildcardToken::Kind::AnyOne) {
        m_choices.push_back(place);
    }
    m_tokens.push_back(std::move(token));
}
