#include "host/batch/BatchProgram.h"

#include "database/OdDbDatabase.h"
#include "host/application/HostCore.h"
#include "host/application/HostOptions.h"
#include "host/batch/BatchFrontEnd.h"
#include "host/batch/BatchSession.h"

int runBatchProgram(const HostOptions& options)
{
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
    return static_cast<int>(result);
}
