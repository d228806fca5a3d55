#include "database/drawing/OdDbDatabase.h"
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

void undoOne(const HostCommandRun& run)
{
    steps(run, 1, &HostDocument::undo, &UndoNames::undoName);
}

void begin(const HostCommandRun& run)
{
    run.document().beginUndoGroup();
}

void end(const HostCommandRun& run)
{
    run.document().endUndoGroup();
}

void mark(const HostCommandRun& run)
{
    run.document().setUndoMark();
}

void back(const HostCommandRun& run)
{
    HostDocument& document = run.document();
    if (document.undoMarkCount() == 0
        && !run.yes(HostText::tr("There is no mark. Undo everything?"), run.isInteractive()))
        throw OdError(OdResult::NotApplicable, HostText::tr("There is no mark to go back to."));
    const int count = document.undoToMark();
    run.tell((count == 1 ? HostText::tr("%1 step undone.") : HostText::tr("%1 steps undone."))
                 .arg(count));
}

void control(const HostCommandRun& run)
{
    static constexpr const char* kChoices[] = {QT_TRANSLATE_NOOP("Host", "All"),
                                               QT_TRANSLATE_NOOP("Host", "None")};
    if (run.askKeyword({HostText::tr("Changes that can be undone"), kChoices, 0}) != 0)
        throw OdError(OdResult::NotApplicable,
                      HostText::tr("All changes can be undone; that cannot be switched off."));
    run.tell(HostText::tr("All changes can be undone."));
}

constexpr const char* kWords[] = {
    QT_TRANSLATE_NOOP("Host", "BEgin"),   QT_TRANSLATE_NOOP("Host", "End"),
    QT_TRANSLATE_NOOP("Host", "Mark"),    QT_TRANSLATE_NOOP("Host", "Back"),
    QT_TRANSLATE_NOOP("Host", "Control"),
};
constexpr void (*kOptions[])(const HostCommandRun&) = {begin, end, mark, back, control};

void undo(const HostCommandRun& run)
{
    run.document();
    const KeywordList keywords(kWords);
    HostQuestion question(
        keywords.prompt(HostText::tr("Number of steps, or"), QStringLiteral("1")));
    question.keywords = keywords.words();
    if (!run.hasAnswer() && !run.isInteractive()) {
        undoOne(run);
        return;
    }
    // The word's index, or the number of steps below zero.
    const int choice = run.asked(question, [&](const QString& answer) {
        if (answer.trimmed().isEmpty())
            return -1;
        const int index = keywords.find(answer).index;
        return index >= 0 ? index : -stepCount(answer);
    });
    if (choice >= 0)
        kOptions[choice](run);
    else
        steps(run, -choice, &HostDocument::undo, &UndoNames::undoName);
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
