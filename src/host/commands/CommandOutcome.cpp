#include "host/commands/CommandOutcome.h"

CommandOutcome CommandOutcome::of(const OdError& error)
{
    switch (error.code()) {
    case OdResult::Cancelled:
        return {Kind::Cancelled, error.description()};
    case OdResult::CantOpenFile:
    case OdResult::InvalidDrawing:
        return {Kind::BadInput, error.description()};
    case OdResult::CantWriteFile:
        return {Kind::CannotWrite, error.description()};
    default:
        return {Kind::Failed, error.description()};
    }
}
