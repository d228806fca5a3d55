#include "host/batch/ExitCode.h"

ExitCode exitCodeOf(const CommandOutcome& outcome)
{
    switch (outcome.kind) {
    case CommandOutcome::Kind::Done:
        return ExitCode::Ok;
    case CommandOutcome::Kind::BadInput:
        return ExitCode::BadInput;
    case CommandOutcome::Kind::CannotWrite:
        return ExitCode::CannotWrite;
    case CommandOutcome::Kind::Cancelled:
    case CommandOutcome::Kind::Failed:
        break;
    }
    return ExitCode::CommandFailed;
}

ExitCode worse(ExitCode a, ExitCode b)
{
    for (const ExitCode code :
         {ExitCode::Usage, ExitCode::CannotWrite, ExitCode::BadInput, ExitCode::CommandFailed})
    {
        if (code == a || code == b)
            return code;
    }
    return ExitCode::Ok;
}
