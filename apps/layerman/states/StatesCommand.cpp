#include "layerman/states/StatesCommand.h"

#include "database/drawing/OdDbDatabase.h"
#include "database/states/LayerStates.h"
#include "io/files/FileIdentity.h"
#include "io/las/LasWriter.h"
#include "layerman/CompanionHost.h"
#include "layerman/CompanionText.h"
#include "layerman/DrawingLoop.h"
#include "layerman/Output.h"
#include "layerman/arguments/FileList.h"
#include "layerman/arguments/Operands.h"
#include "layerman/arguments/UsageError.h"
#include "layerman/editing/EditedDrawings.h"
#include "layerman/listing/DrawingsPrinter.h"
#include "layerman/states/StateEdit.h"
#include "layerman/states/StateList.h"

namespace {
void list(const ParsedCommand& command, const StateOperands& operands, Output& output,
          Report& report)
{
    const bool isJson = formatOf(command) == QLatin1String("json");
    const bool several = operands.files.size() > 1 || operands.files.first() == QLatin1String("-");
    const QStringList files = fileList(operands.files);
    CompanionHost host(true);
    DrawingsPrinter printer(isJson, several, QStringLiteral("states"), output);
    const auto print = [&](const QString& file) {
        const auto drawing = DrawingLoop::read(file);
        host.setDrawing(drawing.get());
        const std::vector<ListedState> states = listedStates(*drawing);
        host.setDrawing(nullptr);
        printer.drawing(file, isJson ? statesJson(states) : stateTable(states));
        report.statesDone(static_cast<int>(states.size()));
    };
    DrawingLoop(output, report).run(files, print, [&](const QString& file, const QString& why) {
        host.setDrawing(nullptr);
        printer.failed(file, why);
    });
    printer.finish();
}

void exportState(const StateOperands& operands, Output& output, Report& report)
{
    const QStringList files = fileList(operands.files);
    if (files.size() != 1)
        throw UsageError(CompanionText::tr("export takes one drawing."));
    const QString& target = operands.arguments[1];
    const FileIdentity there = FileIdentity::of(target);
    if (there.exists && there == FileIdentity::of(files.first()))
        throw UsageError(CompanionText::tr("%1 is the drawing itself.").arg(target));
    DrawingLoop(output, report).run(files, [&](const QString& file) {
        const auto drawing = DrawingLoop::read(file);
        LasWriter::writeFile({LayerStates(*drawing).exported(operands.arguments.first())}, target);
        report.statesDone(1);
    });
}

/// Answers whether it was a dry run.
bool edit(const ParsedCommand& command, const StateOperands& operands, Output& output,
          Report& report)
{
    const QStringList files = fileList(operands.files);
    const EditedDrawings drawings(command, files);
    const StateEdit stateEdit(command, operands);
    CompanionHost host(true);
    const auto run = [&](const QString& file) {
        StateEditOutcome outcome;
        drawings.edit(file, host, output, [&](OdDbDatabase& drawing) {
            outcome = stateEdit.apply(drawing, file, output);
            return outcome.done > 0;
        });
        report.statesDone(outcome.done);
        report.statesRefused(outcome.refused);
    };
    DrawingLoop(output, report).run(files, run, [&](const QString&, const QString&) {
        host.setDrawing(nullptr);
    });
    return drawings.isDryRun();
}
} // namespace

void runStatesCommand(const ParsedCommand& command, Output& output, Report& report)
{
    const StateOperands operands(command);
    const StateActionInfo& action = *operands.action;
    bool isDryRun = false;
    if (action.action == StateAction::List)
        list(command, operands, output, report);
    else if (action.action == StateAction::Export)
        exportState(operands, output, report);
    else
        isDryRun = edit(command, operands, output, report);
    output.complain(report.statesSummary(isDryRun ? action.wouldBeDone : action.done));
}
