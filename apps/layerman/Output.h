#pragma once

#include <QString>

#include <cstdio>

/// The two streams of the program. What goes to the error stream may hold texts of drawings, so its
/// control characters are escaped.
class Output
{
public:
    Output(std::FILE* output, std::FILE* errors)
        : m_output(output)
        , m_errors(errors)
    { }

    void print(const QString& text);
    /// One line.
    void complain(const QString& line);
    /// "FILE: sentence"; "FILE: LAYER: sentence".
    void complain(const QString& file, const QString& sentence);
    void complain(const QString& file, const QString& layer, const QString& sentence);
    /// Whether everything printed so far got out.
    bool isWhole();

    /// Control characters, line separators and marks of direction as "\n", "\x1b", "\u202e" and so
    /// on: no text of a drawing breaks a line, turns it around or reaches a terminal as a command.
    static QString escaped(const QString& text);
    static bool isUnsafe(QChar c);

private:
    std::FILE* m_output;
    std::FILE* m_errors;
    bool m_isWhole = true;
};
