#include "layerman/editing/SetCommand.h"

#include "layerman/CompanionHost.h"
#include "layerman/CompanionText.h"
#include "layerman/DrawingLoop.h"
#include "layerman/Output.h"
#include "layerman/arguments/FileList.h"
#include "layerman/arguments/Operands.h"
#include "layerman/arguments/UsageError.h"
#include "layerman/choice/LayerPicker.h"
#include "layerman/editing/EditedDrawings.h"
#include "layerman/editing/LayerEditRun.h"

namespace {
/// Operands of set, sorted into files and properties.
struct SetOperands
{
    explicit SetOperands(const ParsedCommand& command)
    {
        QStringList edits;
        for (const QString& operand : command.operands())
            (looksLikeProperty(operand) ? edits : files) << operand;
        requiredFiles(command, files);
        if (edits.isEmpty())
            throw UsageError(CompanionText::tr("set needs something to set, such as locked=yes."));
        properties = propertiesFrom(edits);
    }

    QStringList files;
    std::vector<PropertyEdit> properties;
};
} // namespace

void runSetCommand(const ParsedCommand& command, Output& output, Report& report)
{
    const SetOperands operands(command);
    const LayerPicker picker(command);
    if (!picker.isChoosy()) {
        throw UsageError(CompanionText::tr(
            "set needs --filter, --expr or --search; --search \"*\" takes all layers."));
    }
    const QStringList files = fileList(operands.files);
    const EditedDrawings drawings(command, files);
    const LayerEditOptions options{command.has(OptionId::KeepCurrentOn), drawings.isDryRun()};

    CompanionHost host(true);
    const auto edit = [&](const QString& file) {
        int changed = 0;
        int refused = 0;
        drawings.edit(file, host, output, [&](OdDbDatabase& drawing) {
            LayerEditRun run(drawing, file, operands.properties);
            run.apply(picker.pick(drawing, file).layers, options, output);
            changed = run.changed();
            refused = run.refused();
            return changed > 0;
        });
        report.edited(changed, refused);
    };
    DrawingLoop(output, report).run(files, edit, [&](const QString&, const QString&) {
        host.setDrawing(nullptr);
    });
    output.complain(report.setSummary(drawings.isDryRun()));
}
