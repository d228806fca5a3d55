#pragma once

#include <QString>

#include <memory>
#include <optional>

class HostDocument;
class OdDbDatabase;
struct SaveReport;

/// The face that the host shows: a window, or the streams of a batch run. Everything that a command
/// prints, asks or shows goes through here.
class HostFrontEnd
{
public:
    enum class CloseAnswer { Save, Discard, Cancel };

    virtual ~HostFrontEnd() = default;

    virtual void print(const QString& line) = 0;
    /// One answer from the user; null when cancelled, or when there is nobody to ask.
    virtual std::optional<QString> ask(const QString& prompt) = 0;
    /// True when somebody is there to answer.
    virtual bool isInteractive() const = 0;

    /// Reads and writes drawings; raises OdError like readDrawing() and writeDrawing().
    virtual std::unique_ptr<OdDbDatabase> readDrawingFile(const QString& path) = 0;
    virtual SaveReport writeDrawingFile(const OdDbDatabase& drawing, const QString& path) = 0;

    /// A path picked in a dialog; empty when cancelled. Asked only when isInteractive().
    virtual QString chooseFileToOpen() = 0;
    virtual QString chooseFileToSave(const QString& suggestion) = 0;
    /// What to do about unsaved changes. Asked only when isInteractive().
    virtual CloseAnswer askToSave(const HostDocument& document) = 0;

    /// A drawing was opened from, or saved to, that file.
    virtual void fileUsed(const QString& path) = 0;
    virtual void regen(bool allViews) = 0;
    virtual void zoomExtents() = 0;
    /// Ends the program once the running command is over; all documents are closed.
    virtual void quit() = 0;
};
