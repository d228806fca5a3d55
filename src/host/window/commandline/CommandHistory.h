#pragma once

#include <QStringList>

/// Lines that were typed, to walk through with the arrow keys. What stood in the line before the
/// walk comes back at its end.
class CommandHistory
{
public:
    static constexpr int kMaxLines = 200;
    static constexpr int kLongestLine = 4096;

    /// Starts with lines of another session, the newest of them where there are too many.
    void restore(const QStringList& lines);
    /// Remembers a line; the same line twice in a row is kept once, an overlong one not at all.
    void add(const QString& line);
    /// The line before, starting from `typed`; the oldest one stays.
    QString previous(const QString& typed);
    /// The line after; behind the newest comes what was typed.
    QString next(const QString& typed);
    const QStringList& lines() const { return m_lines; }

private:
    QStringList m_lines;
    qsizetype m_at = 0; ///< the size of the list: not walking
    QString m_draft;
};
