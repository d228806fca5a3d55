#pragma once

#include <QStringList>

#include <memory>

class OdDbDatabase;
#include <QStringList>

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
    /// One of the words, each spelled with the capitals that suffice ("LOck"); they are shown
    /// behind the prompt. Any unique beginning answers, whatever its case.
    virtual int getKeyword(const QString& prompt, const QStringList& words, int& index) = 0;

    /// Reads a drawing file as a database of its own, without opening it as a document.
    /// kest::kError for a file that cannot be read, with a sentence that says why; nothing is
    /// shown.
    virtual int openDrawing(const QString& path, std::unique_ptr<OdDbDatabase>& drawing,
                            QString& why) = 0;
};

/// The host's input/output manager, or null while there is no host.
IKestIOManager* getIOManagerInterface();
