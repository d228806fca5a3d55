#include "database/OdDbDatabase.h"
#include "host/application/HostCore.h"
#include "host/commands/HostCommand.h"
#include "host/text/HostText.h"

namespace {
using Step = bool (HostDocument::*)();
using Name = QString (UndoNames::*)();

int stepCount(const QString& text)
{
    bool isNumber = false;
    const int count = text.toInt(&isNumber);
    if (!isNumber || count < 1) {
        throw OdError(OdResult::InvalidInput,
                      HostText::tr("A number of steps is needed; \"%1\" is none.").arg(text));
    }
    return count;
}

// Steps until the count is reached or nothing is left; names what moved.
void steps(const HostCommandRun& run, int count, Step step, Name name)
{
    HostDocument& document = run.document();
    int done = 0;
    for (; done < count; ++done) {
        const QString moved = (document.undoNames().*name)();
        if (!(document.*step)())
            break;
        run.tell(moved);
    }
    if (done > 0)
        return;
    const bool undoing = step == &HostDocument::undo;
    throw OdError(OdResult::NotApplicable,
                  undoing ? HostText::tr("There is nothing to undo.")
                          : HostText::tr("There is nothing to redo."));
}

void undo(const HostCommandRun& run)
{
    HostDocument& document = run.document();
    const QString answer =
        run.answerOr(HostText::tr("Number of steps, or [Begin/End] <1>:"), QStringLiteral("1"));
    if (answer.compare(QStringLiteral("Begin"), Qt::CaseInsensitive) == 0)
        document.beginUndoGroup();
    else if (answer.compare(QStringLiteral("End"), Qt::CaseInsensitive) == 0)
        document.endUndoGroup();
    else
        steps(run, stepCount(answer), &HostDocument::undo, &UndoNames::undoName);
}

void undoOne(const HostCommandRun& run)
{
    steps(run, 1, &HostDocument::undo, &UndoNames::undoName);
}

void redo(const HostCommandRun& run)
{
    const int count = run.hasAnswer() ? stepCount(run.answer(HostText::tr("Number of steps:"))) : 1;
    steps(run, count, &HostDocument::redo, &UndoNames::redoName);
}

constexpr HostCommandDefinition kCommands[] = {
    {"REDO", OdEd::kSession, redo},
    {"U", OdEd::kSession, undoOne},
    {"UNDO", OdEd::kSession, undo},
};
} // namespace

std::span<const HostCommandDefinition> undoCommands()
{
    return kCommands;
}
