#include "host/window/views/CCanvasMenu.h"

#include "host/application/HostCore.h"
#include "host/commands/CommandLine.h"

CCanvasMenu::CCanvasMenu(HostCore& core, const HostQuestion* question, QWidget* parent)
    : QMenu(parent)
{
    setObjectName(QStringLiteral("canvasMenu"));
    if (question)
        addAnswers(*question);
    else
        addCommands(core);
}

void CCanvasMenu::addLine(const QString& text, const QString& line)
{
    addAction(text, this, [this, line] { emit lineWanted(line); });
}

void CCanvasMenu::addAnswers(const HostQuestion& question)
{
    addAction(tr("&Enter"), this, &CCanvasMenu::enterWanted);
    addAction(tr("&Cancel"), this, &CCanvasMenu::cancelWanted);
    if (!question.keywords.isEmpty())
        addSeparator();
    for (const QString& word : question.keywords)
        addLine(word, word);
    addSeparator();
    addView(true);
}

void CCanvasMenu::addView(bool isAsking)
{
    // The apostrophe lets a command run inside of the one that asks.
    const QString mark = isAsking ? QStringLiteral("'") : QString();
    addLine(tr("&Pan"), mark + QStringLiteral("PAN Drag"));
    addLine(tr("Zoom E&xtents"), mark + QStringLiteral("ZOOM Extents"));
    addLine(tr("Zoom P&revious"), mark + QStringLiteral("ZOOM Previous"));
}

void CCanvasMenu::addCommands(HostCore& core)
{
    HostDocument* document = core.documents().curDocument();
    const QString last = CommandLine::parse(core.commands().lastLine()).words.value(0);
    if (!last.isEmpty()) {
        addLine(tr("&Repeat %1").arg(last.toUpper()), core.commands().lastLine());
        addSeparator();
    }
    const QString undo = document ? document->undoNames().undoName() : QString();
    const QString redo = document ? document->undoNames().redoName() : QString();
    addLine(undo.isEmpty() ? tr("&Undo") : tr("&Undo %1").arg(undo), QStringLiteral("U"));
    actions().last()->setEnabled(!undo.isEmpty());
    addLine(redo.isEmpty() ? tr("Re&do") : tr("Re&do %1").arg(redo), QStringLiteral("REDO"));
    actions().last()->setEnabled(!redo.isEmpty());
    addSeparator();
    addView(false);
    addSeparator();
    addAction(tr("Select &All"), this, &CCanvasMenu::selectAllWanted);
    addAction(tr("De&select"), this, &CCanvasMenu::deselectWanted);
    actions().last()->setEnabled(document && !document->selection().isEmpty());
    addLine(tr("E&rase"), QStringLiteral("ERASE"));
    actions().last()->setEnabled(document && !document->selection().isEmpty());
}
