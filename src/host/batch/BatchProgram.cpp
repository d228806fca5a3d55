#include "host/batch/BatchProgram.h"

#include "base/StopSignal.h"
#include "database/drawing/OdDbDatabase.h"
#include "host/application/HostCore.h"
#include "host/application/HostOptions.h"
#include "host/batch/BatchFrontEnd.h"
#include "host/batch/BatchSession.h"

int runBatchProgram(const HostOptions& options)
{
    const StopSignal stop;
    BatchFrontEnd frontEnd(stdout);
    HostCore core(frontEnd, options.configFolder);
    BatchSession session(core, frontEnd, stderr);
    session.start();
    ExitCode result = ExitCode::Ok;
    if (!options.files.isEmpty())
        result = session.openDrawing(options.files.first());
    if (result == ExitCode::Ok)
        result = session.runFile(options.script);
    core.shutDown();
    // As shells tell it of a program that a signal ended.
    constexpr int kSignalled = 128;
    const int signal = StopSignal::number();
    return signal == 0 ? static_cast<int>(result) : kSignalled + signal;
}
