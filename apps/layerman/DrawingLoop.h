#pragma once

#include "layerman/Report.h"

#include <QStringList>

#include <functional>
#include <memory>

class OdDbDatabase;
class Output;

/// Runs a command's work over drawings, one after the other, until a stop signal comes. A drawing
/// whose work raises OdError has failed; it is told, counted, and the others go on.
class DrawingLoop
{
public:
    using Work = std::function<void(const QString& file)>;
    using Failure = std::function<void(const QString& file, const QString& sentence)>;

    DrawingLoop(Output& output, Report& report)
        : m_output(output)
        , m_report(report)
    { }

    void run(const QStringList& files, const Work& work, const Failure& failed = {});

    /// Reads a drawing; a stop signal ends that with OdError.
    static std::unique_ptr<OdDbDatabase> read(const QString& file);

private:
    Output& m_output;
    Report& m_report;
};
