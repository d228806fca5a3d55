#pragma once

#include "database/drawing/OdDbDatabase.h"
#include "io/files/FileLayout.h"

#include <QString>
#include <QStringList>

#include <functional>
#include <memory>

/// Progress of reading or writing a drawing. Called from the thread that does the work, at most
/// every few megabytes; answering false cancels (OdError with OdResult::Cancelled is raised).
using IoProgress = std::function<bool(quint64 doneBytes, quint64 totalBytes)>;

/// What a save did.
struct SaveReport
{
    quint64 bytes = 0;
    quint64 recordsChanged = 0; ///< layers, others and settings
    quint64 recordsIdentical = 0;
    quint64 layerRecordsChanged = 0;
    quint64 otherRecordsChanged = 0;
    quint64 settingsChanged = 0; ///< header variables
    QStringList notKept; ///< what the version of the file cannot hold, in sentences
    QStringList warnings; ///< what failed although the drawing is saved, in sentences
    FileLayout file; ///< the file as it is on the disk
};

struct SaveOptions
{
    /// Keeps the old file under its name with "~" added.
    bool keepBackup = false;
};

/// Reads a drawing with the codec that recognises its first bytes. Raises OdError_FileAccess
/// (cannot be opened, is a directory, is empty, no known format) or OdError_InvalidDrawing (with
/// line and expectation).
std::unique_ptr<OdDbDatabase> readDrawing(const QString& path, const IoProgress& progress = {});

/// The ending that files of a drawing's format have, "dxf" or "dwg"; "dxf" for a drawing that was
/// not read from a file.
QString drawingSuffix(const OdDbDatabase& database);
/// Why a drawing can only be read, in sentences; empty for one that can be saved.
QString writingRefusal(const OdDbDatabase& database);
/// Raises OdError_FileAccess for a drawing that can only be read, and for a path with the ending of
/// another format.
void requireWritable(const OdDbDatabase& database, const QString& path);

/// Writes atomically: a temporary file in the same folder, synced, read back and compared, then
/// renamed over `path`. On any failure the file at `path` is as it was. A drawing keeps the format
/// it was read in: a path with the ending of another format is refused. Raises OdError_FileAccess.
SaveReport writeDrawing(const OdDbDatabase& database, const QString& path,
                        const IoProgress& progress = {}, const SaveOptions& options = {});

/// Reads a drawing from memory; `name` stands for the file in error sentences.
std::unique_ptr<OdDbDatabase> readDrawing(const QByteArray& bytes, const QString& name);
/// The bytes that writeDrawing would write.
QByteArray drawingBytes(const OdDbDatabase& database);
