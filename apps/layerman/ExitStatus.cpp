#include "layerman/ExitStatus.h"

#include <QtGlobal>

namespace {
constexpr ExitStatusInfo kStatuses[] = {
    {ExitStatus::Done, QT_TRANSLATE_NOOP("layerman", "Everything was done.")},
    {ExitStatus::Usage,
     QT_TRANSLATE_NOOP("layerman", "The program was called in a wrong way; nothing was done.")},
    {ExitStatus::BadInput,
     QT_TRANSLATE_NOOP("layerman",
                       "A drawing or a layer-state file could not be read, or a drawing does not "
                       "have the filter, layer state, linetype or plot style that was asked for.")},
    {ExitStatus::CannotWrite,
     QT_TRANSLATE_NOOP("layerman",
                       "A drawing, a layer-state file or the list could not be written, or a "
                       "drawing is being edited elsewhere.")},
    {ExitStatus::Refused,
     QT_TRANSLATE_NOOP("layerman",
                       "A rule kept a property of a layer, or a layer state, as it was; everything "
                       "else was done.")},
    {ExitStatus::SomeFailed,
     QT_TRANSLATE_NOOP("layerman",
                       "Of several drawings some failed and the others were done, or they failed "
                       "for different reasons.")},
};
} // namespace

std::span<const ExitStatusInfo> exitStatuses()
{
    return kStatuses;
}

const char* exitPrecedence()
{
    return QT_TRANSLATE_NOOP(
        "layerman",
        "A drawing that failed counts more than a rule that refused: 3, 4 and 6 go before 5. With "
        "one drawing, or when all failed for one reason, that reason's own code is given. A list "
        "that could not be printed is 4 whatever else happened. A signal ends the program between "
        "two drawings with 128 and the signal's number, 130 for Ctrl+C.");
}
