#pragma once

#include "sdk/KestPoint.h"

#include <QStringList>

#include <memory>

class OdDbDatabase;
class QWidget;

/// How to ask for a file.
struct KestFileRequest
{
    QString title;
    QString start; ///< a folder, a suggested file name, or empty: the folder used last
    /// Pairs of description and extension: "Drawing|dwg,Layer states|las". Empty: all files.
    QString filters;
    bool toSave = false;
    QWidget* parent = nullptr; ///< null: the main window
};

/// Text in and out of the host's command line. Calls that ask answer kest::kNormal, kest::kNone
/// (empty answer) or kest::kCancel.
class IKestIOManager
{
public:
    virtual ~IKestIOManager() = default;

    /// A line in the command history.
    virtual void print(const QString& line) = 0;
    virtual int getInt(const QString& prompt, int& value) = 0;
    virtual int getString(const QString& prompt, QString& value) = 0;
    /// Typed, or picked in the drawing. A line from `from`, which "@" counts from, to the cursor is
    /// shown meanwhile.
    virtual int getPoint(const QString& prompt, KestPoint& point,
                         const KestPoint* from = nullptr) = 0;
    /// One of the words, each spelled with the capitals that suffice ("LOck"); they are shown
    /// behind the prompt. Any unique beginning answers, whatever its case.
    virtual int getKeyword(const QString& prompt, const QStringList& words, int& index) = 0;

    /// Reads a drawing file as a database of its own, without opening it as a document.
    /// kest::kError for a file that cannot be read, with a sentence that says why; nothing is
    /// shown.
    virtual int openDrawing(const QString& path, std::unique_ptr<OdDbDatabase>& drawing,
                            QString& why) = 0;

    /// The file dialog. `filterIndex` is the filter to start with, counted from 0, -1 for none; it
    /// is the one in force at the end afterwards. To save, the extension of that filter is added
    /// to a name without one, and the user is asked before a file is overwritten. Answers
    /// kest::kNormal with the full path, or kest::kCancel; kest::kError where nobody can be asked.
    virtual int selectFile(const KestFileRequest& request, QString& path, int& filterIndex) = 0;
};

/// The host's input/output manager, or null while there is no host.
IKestIOManager* getIOManagerInterface();
