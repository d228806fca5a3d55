#pragma once

#include "host/batch/ExitCode.h"

#include <cstdio>

class BatchFrontEnd;
class HostCore;
class QIODevice;

/// A script run over the host. Complaints go to the error stream as "SCRIPT:LINE: sentence".
class BatchSession
{
public:
    BatchSession(HostCore& core, BatchFrontEnd& frontEnd, std::FILE* errors);

    /// Loads the layer palette's module where it is there. A module that is refused, and settings
    /// that cannot be understood, are complained about.
    void start();
    /// Opens the drawing to work on, "-" being standard input, from which it comes as a drawing
    /// without a file; "kest: sentence" on failure.
    ExitCode openDrawing(const QString& path);
    /// Runs the script of that file, "-" being standard input.
    ExitCode runFile(const QString& path);
    /// Runs a script; `name` stands for it in complaints. A failed command does not end it; a line
    /// that cannot be read does, and so does a stop signal.
    ExitCode run(QIODevice& script, const QString& name);

private:
    void tellUnsavedEdits();
    void openStandardInput();
    ExitCode runLine(const QString& line, const QString& place);
    void complain(const QString& place, const QString& sentence);

    HostCore& m_core;
    BatchFrontEnd& m_frontEnd;
    std::FILE* m_errors;
};
