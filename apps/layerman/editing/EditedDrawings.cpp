#include "layerman/editing/EditedDrawings.h"

#include "base/StopSignal.h"
#include "io/files/DrawingLock.h"
#include "layerman/CompanionHost.h"
#include "layerman/DrawingLoop.h"
#include "layerman/Output.h"
#include "layerman/arguments/ParsedCommand.h"

#include <memory>

namespace {
/// Marks a drawing as being edited, where a mark can be made.
std::unique_ptr<DrawingLock> lockOf(const QString& target)
{
    if (target.isEmpty())
        return nullptr;
    auto lock = std::make_unique<DrawingLock>(target);
    if (lock->state() == DrawingLock::State::Elsewhere)
        throw OdError_FileAccess(OdResult::CantWriteFile, lock->refusal(target));
    return lock;
}
} // namespace

EditedDrawings::EditedDrawings(const ParsedCommand& command, const QStringList& files)
    : m_targets(command, files)
    , m_saving{command.has(OptionId::Backup)}
{ }

void EditedDrawings::edit(const QString& file, CompanionHost& host, Output& output,
                          const Edit& edit) const
{
    // Locked before it is read: what is read is then what will be replaced.
    const auto lock = m_targets.isInPlace() ? lockOf(m_targets.targetOf(file)) : nullptr;
    const FileIdentity identity = FileIdentity::of(file);
    const auto drawing = DrawingLoop::read(file);
    host.setDrawing(drawing.get());
    const bool isChanged = edit(*drawing);
    host.setDrawing(nullptr);
    if (isChanged && !m_targets.isWritten())
        requireWritable(*drawing, m_targets.targetOf(file));
    if (m_targets.isInPlace() && isChanged) {
        requireUnchanged(file, identity);
        write(*drawing, file, file, output);
    } else if (!m_targets.isInPlace()) {
        copy(*drawing, file, output);
    }
}

void EditedDrawings::copy(const OdDbDatabase& drawing, const QString& file, Output& output) const
{
    const QString target = m_targets.targetOf(file);
    if (m_targets.isWritten())
        m_targets.makeFolder();
    const auto lock = lockOf(target);
    write(drawing, file, target, output);
}

void EditedDrawings::write(const OdDbDatabase& drawing, const QString& file, const QString& target,
                           Output& output) const
{
    if (!m_targets.isWritten())
        return;
    const auto goesOn = [](quint64, quint64) { return StopSignal::number() == 0; };
    const SaveReport saved = writeDrawing(drawing, target, goesOn, m_saving);
    for (const QString& sentence : saved.notKept + saved.warnings)
        output.complain(file, sentence);
}
