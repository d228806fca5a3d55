#pragma once

#include "io/DrawingFile.h"
#include "layerman/editing/SaveTargets.h"

#include <QString>

#include <functional>

class CompanionHost;
class OdDbDatabase;
class Output;

/// Edits drawings, one at a time, and writes them where they go.
class EditedDrawings
{
public:
    /// Answers whether the drawing was changed.
    using Edit = std::function<bool(OdDbDatabase& drawing)>;

    EditedDrawings(const ParsedCommand& command, const QStringList& files);

    bool isDryRun() const { return !m_targets.isWritten(); }
    /// Reads, edits and writes a drawing; one that is edited in place is locked meanwhile. Raises
    /// OdError, and the file is as it was then.
    void edit(const QString& file, CompanionHost& host, Output& output, const Edit& edit) const;

private:
    void copy(const OdDbDatabase& drawing, const QString& file, Output& output) const;
    void write(const OdDbDatabase& drawing, const QString& file, const QString& target,
               Output& output) const;

    SaveTargets m_targets;
    SaveOptions m_saving;
};
