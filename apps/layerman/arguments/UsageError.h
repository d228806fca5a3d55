#pragma once

#include <QString>

#include <exception>

/// The program was called in a way that it does not understand.
class UsageError : public std::exception
{
public:
    explicit UsageError(const QString& sentence)
        : m_sentence(sentence)
    { }

    const QString& sentence() const { return m_sentence; }

private:
    QString m_sentence;
};
