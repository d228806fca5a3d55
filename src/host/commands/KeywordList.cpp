#include "host/commands/KeywordList.h"

#include "database/values/OdError.h"
#include "host/text/HostText.h"

#include <algorithm>

namespace {
QString capitals(const QString& word)
{
    QString result;
    std::copy_if(word.begin(), word.end(), std::back_inserter(result),
                 [](QChar c) { return c.isUpper(); });
    return result;
}

bool isSame(const QString& a, const QString& b)
{
    return !a.isEmpty() && a.compare(b, Qt::CaseInsensitive) == 0;
}

KeywordList::Choice findIn(const QStringList& words, const QString& answer)
{
    KeywordList::Choice begun;
    for (int i = 0; i < words.size(); ++i) {
        if (isSame(answer, words[i]) || isSame(answer, capitals(words[i])))
            return {i};
        if (!answer.isEmpty() && words[i].startsWith(answer, Qt::CaseInsensitive)) {
            begun.index = i;
            begun.candidates << words[i];
        }
    }
    if (begun.candidates.size() > 1)
        return {-1, begun.candidates};
    return {begun.index};
}
} // namespace

KeywordList::KeywordList(std::span<const char* const> words)
{
    for (const char* word : words) {
        m_words << HostText::tr(word);
        m_global << QLatin1String(word);
    }
}

KeywordList::Choice KeywordList::find(const QString& answer) const
{
    const QString word = answer.trimmed();
    return word.startsWith(QLatin1Char('_')) ? findIn(m_global, word.mid(1))
                                             : findIn(m_words, word);
}

int KeywordList::require(const QString& answer) const
{
    const int index = find(answer).index;
    if (index < 0)
        throw OdError(OdResult::InvalidInput, complaint(answer));
    return index;
}

QString KeywordList::complaint(const QString& answer) const
{
    const QStringList candidates = find(answer).candidates;
    if (!candidates.isEmpty()) {
        return HostText::tr("\"%1\" can stand for %2.")
            .arg(answer, candidates.join(QStringLiteral(", ")));
    }
    return HostText::tr("One of %1 is needed; \"%2\" is none.")
        .arg(m_words.join(QStringLiteral(", ")), answer);
}

QString KeywordList::prompt(const QString& text, const QString& fallback) const
{
    QString result = text;
    if (!m_words.isEmpty())
        result += QStringLiteral(" [") + m_words.join(QLatin1Char('/')) + QLatin1Char(']');
    if (!fallback.isEmpty())
        result += QStringLiteral(" <") + fallback + QLatin1Char('>');
    return result + QLatin1Char(':');
}
