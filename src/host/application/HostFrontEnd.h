#pragma once

#include "host/application/HostQuestion.h"

#include <QString>

#include <memory>
#include <optional>

class HostDocument;
class HostView;
class OdDbDatabase;
class QDateTime;
struct SaveOptions;
struct SaveReport;

/// The face that the host shows: a window, or the streams of a batch run. Everything that a command
/// prints, asks or shows goes through here.
class HostFrontEnd
{
public:
    enum class CloseAnswer { Save, Discard, Cancel };
    enum class LockAnswer { ReadOnly, OpenAnyway, Cancel };
    enum class ChangeAnswer { Overwrite, SaveAs, Cancel };
    enum class RecoveryAnswer { Recover, Discard, Later };

    virtual ~HostFrontEnd() = default;

    virtual void print(const QString& line) = 0;
    /// One answer from the user; null when cancelled, or when there is nobody to ask.
    virtual std::optional<QString> ask(const HostQuestion& question) = 0;
    /// True when somebody is there to answer.
    virtual bool isInteractive() const = 0;

    /// Reads and writes drawings; raises OdError like readDrawing() and writeDrawing().
    virtual std::unique_ptr<OdDbDatabase> readDrawingFile(const QString& path) = 0;
    virtual SaveReport writeDrawingFile(const OdDbDatabase& drawing, const QString& path,
                                        const SaveOptions& options) = 0;

    /// A path picked in a dialog; empty when cancelled. Asked only when isInteractive().
    virtual QString chooseFileToOpen() = 0;
    /// `format`: the ending of the drawing's format, "dxf".
    virtual QString chooseFileToSave(const QString& suggestion, const QString& format) = 0;
    /// What to do about unsaved changes. Asked only when isInteractive().
    virtual CloseAnswer askToSave(const HostDocument& document) = 0;
    /// How to open a drawing that another process edits; `holder` names it, where that is known.
    /// Asked only when isInteractive(), like the next three.
    virtual LockAnswer askAboutLock(const QString& path, const QString& holder) = 0;
    /// How to save a drawing whose file somebody else changed.
    virtual ChangeAnswer askAboutChange(const HostDocument& document) = 0;
    /// Whether to read a drawing without changes again, since somebody else changed its file.
    virtual bool askToReload(const HostDocument& document) = 0;
    /// What to do with edits that were not saved before the program ended.
    virtual RecoveryAnswer askToRecover(const QString& drawing, const QDateTime& written) = 0;
    /// Tells something that must not be missed.
    virtual void notify(const QString& sentence) = 0;
    /// Shows something in passing.
    virtual void showStatus(const QString& sentence) = 0;

    /// A drawing was opened from, or saved to, that file.
    virtual void fileUsed(const QString& path) = 0;
    /// The view of the current drawing, or null where no window shows one.
    virtual HostView* view() { return nullptr; }
    virtual void regen(bool allViews) = 0;
    /// Paints the views again. They follow their drawings by themselves, so nothing is read.
    virtual void repaint() { }
    virtual void zoomExtents() = 0;
    /// Ends the program once the running command is over; all documents are closed.
    virtual void quit() = 0;
};
