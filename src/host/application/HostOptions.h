#pragma once

#include <QString>
#include <QStringList>

/// What the program was asked to do on its command line.
struct HostOptions
{
    enum class Mode { Window, Batch, Screenshot, Help, Version, ManPage, Completion, Error };

    Mode mode = Mode::Window;
    QString script; ///< of Batch; "-" is standard input
    QString picture; ///< of Screenshot
    QString configFolder; ///< empty: the usual place
    QString shell; ///< of Completion
    QStringList files;
    QString error; ///< a sentence, in mode Error

    /// `arguments` without the program's name.
    static HostOptions parse(const QStringList& arguments);
    static QString usage();
};
