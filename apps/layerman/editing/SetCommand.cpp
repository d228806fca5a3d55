#include "layerman/editing/SetCommand.h"

#include "base/StopSignal.h"
#include "io/DrawingFile.h"
#include "io/files/DrawingLock.h"
#include "layerman/CompanionHost.h"
#include "layerman/CompanionText.h"
#include "layerman/DrawingLoop.h"
#include "layerman/Output.h"
#include "layerman/arguments/FileList.h"
#include "layerman/arguments/Operands.h"
#include "layerman/arguments/UsageError.h"
#include "layerman/choice/LayerPicker.h"
#include "layerman/editing/LayerEditRun.h"
#include "layerman/editing/SaveTargets.h"

#include <memory>

namespace {
[[noreturn]] void refuseToWrite(const QString& sentence)
{
    throw OdError_FileAccess(OdResult::CantWriteFile, sentence);
}

/// Marks a drawing as being edited, where a mark can be made.
std::unique_ptr<DrawingLock> lockOf(const QString& target)
{
    if (target.isEmpty())
        return nullptr;
    auto lock = std::make_unique<DrawingLock>(target);
    if (lock->state() == DrawingLock::State::Elsewhere)
        refuseToWrite(lock->refusal(target));
    return lock;
}

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

/// Edits one drawing after the other and writes it.
class DrawingEditor
{
public:
    DrawingEditor(const ParsedCommand& command, const LayerPicker& picker,
                  const SaveTargets& targets, std::vector<PropertyEdit> properties)
        : m_picker(picker)
        , m_targets(targets)
        , m_properties(std::move(properties))
        , m_options{command.has(OptionId::KeepCurrentOn), !targets.isWritten()}
        , m_saving{command.has(OptionId::Backup)}
    { }

    void edit(const QString& file, CompanionHost& host, Output& output, Report& report) const
    {
        const QString target = m_targets.targetOf(file);
        // Locked before it is read: what is read is then what will be replaced.
        const auto lock = m_targets.isInPlace() ? lockOf(target) : nullptr;
        const FileIdentity identity = FileIdentity::of(file);
        const auto drawing = DrawingLoop::read(file);
        host.setDrawing(drawing.get());
        LayerEditRun run(*drawing, file, m_properties);
        run.apply(m_picker.pick(*drawing, file).layers, m_options, output);
        host.setDrawing(nullptr);
        if (m_targets.isInPlace() && run.changed() > 0) {
            requireUnchanged(file, identity);
            write(*drawing, file, file, output);
        } else if (!m_targets.isInPlace()) {
            copy(*drawing, file, target, output);
        }
        report.edited(run.changed(), run.refused());
    }

private:
    void copy(const OdDbDatabase& drawing, const QString& file, const QString& target,
              Output& output) const
    {
        if (m_targets.isWritten())
            m_targets.makeFolder();
        const auto lock = lockOf(target);
        write(drawing, file, target, output);
    }

    void write(const OdDbDatabase& drawing, const QString& file, const QString& target,
               Output& output) const
    {
        if (!m_targets.isWritten())
            return;
        const auto goesOn = [](quint64, quint64) { return StopSignal::number() == 0; };
        const SaveReport saved = writeDrawing(drawing, target, goesOn, m_saving);
        for (const QString& sentence : saved.notKept + saved.warnings)
            output.complain(file, sentence);
    }

    const LayerPicker& m_picker;
    const SaveTargets& m_targets;
    std::vector<PropertyEdit> m_properties;
    LayerEditOptions m_options;
    SaveOptions m_saving;
};
} // namespace

void runSetCommand(const ParsedCommand& command, Output& output, Report& report)
{
    SetOperands operands(command);
    const LayerPicker picker(command);
    if (!picker.isChoosy()) {
        throw UsageError(CompanionText::tr(
            "set needs --filter, --expr or --search; --search \"*\" takes all layers."));
    }
    const QStringList files = fileList(operands.files);
    const SaveTargets targets(command, files);
    const DrawingEditor editor(command, picker, targets, std::move(operands.properties));

    CompanionHost host(true);
    DrawingLoop(output, report)
        .run(
            files, [&](const QString& file) { editor.edit(file, host, output, report); },
            [&](const QString&, const QString&) { host.setDrawing(nullptr); });
    output.complain(report.setSummary(!targets.isWritten()));
}
