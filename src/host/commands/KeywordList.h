#pragma once

#include <QStringList>

#include <span>

/// Words that answer a question, each spelled with the capitals that suffice: "LOck" is answered by
/// LO, by LOCK, and by any beginning that no other word has; case does not count. Behind an
/// underscore the word is taken in English, whatever the program's language.
class KeywordList
{
public:
    struct Choice
    {
        int index = -1; ///< -1: none, or several
        QStringList candidates = {}; ///< the words that it could be, when there are several
    };

    /// Words as they are shown.
    explicit KeywordList(const QStringList& words)
        : m_words(words)
        , m_global(words)
    { }
    /// English words, shown as translated in the context "Host".
    explicit KeywordList(std::span<const char* const> words);

    const QStringList& words() const { return m_words; }
    Choice find(const QString& answer) const;
    /// The index of the word; raises OdError with InvalidInput and the complaint for none.
    int require(const QString& answer) const;
    /// Why an answer is none of the words: "One of Yes, No is needed; "x" is none."
    QString complaint(const QString& answer) const;
    /// "text [Yes/No] <Yes>:", without brackets where there are no words, without a default where
    /// that is empty.
    QString prompt(const QString& text, const QString& fallback = {}) const;

private:
    QStringList m_words;
    QStringList m_global;
};
