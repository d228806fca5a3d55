#pragma once

#include <QIODevice>
#include <QString>

/// The lines of a script, decoded, one at a time. Nothing beyond one line is held in memory.
class ScriptReader
{
public:
    static constexpr qint64 kMaxLineBytes = 65'536;

    explicit ScriptReader(QIODevice& device)
        : m_device(device)
    { }

    /// Reads the next line; false at the end of the script and on a line that cannot be read.
    bool next(QString& line);
    /// Number of the line that was read last, from 1.
    int lineNumber() const { return m_line; }
    /// A sentence about the line that could not be read; empty at a regular end.
    const QString& error() const { return m_error; }

private:
    bool fail(const QString& sentence);

    QIODevice& m_device;
    int m_line = 0;
    QString m_error;
};
