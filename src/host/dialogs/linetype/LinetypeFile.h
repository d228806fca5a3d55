#pragma once

#include "toolkit/PickQuestions.h"

#include <QByteArray>

/// A file of linetypes, as CAD programs exchange them: a line "*NAME,description" and a line
/// "A,12,-3,0,-3" below it, dashes positive, gaps negative, dots 0. Lines that begin with a
/// semicolon are remarks.
struct LinetypeFile
{
    QList<LinetypeItem> linetypes;
    QStringList problems; ///< what was left out, as sentences with line numbers

    /// Never fails; what cannot be understood, or holds shapes, is told in the problems.
    static LinetypeFile parse(const QByteArray& bytes);
    /// Reads a file; a file that cannot be read is a problem.
    static LinetypeFile read(const QString& path);
};
