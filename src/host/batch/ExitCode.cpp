#include "host/batch/ExitCode.h"

#include <algorithm>
#include <iterator>

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
    constexpr ExitCode kWorstFirst[] = {ExitCode::Usage, ExitCode::CannotWrite, ExitCode::BadInput,
                                        ExitCode::CommandFailed, ExitCode::Ok};
    return *std::find_if(std::begin(kWorstFirst), std::end(kWorstFirst),
                         [&](ExitCode code) { return code == a || code == b; });
}
