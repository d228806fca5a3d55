#pragma once

#include <QString>
#include <QStringList>

/// The words of one command line: the command, then its answers. Blanks separate words; quotes hold
/// a word with blanks together, "" is an empty word, a doubled quote inside quotes is a quote; a
/// semicolon outside of quotes starts a comment.
struct CommandLine
{
    QStringList words;
    QString error; ///< a sentence when the line cannot be read, else empty

    static CommandLine parse(const QString& line);
    /// The word in quotes, so that parse() gives it back whatever it holds.
    static QString quoted(const QString& word);
};
