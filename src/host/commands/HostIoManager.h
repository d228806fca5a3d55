#pragma once

#include "sdk/IKestIOManager.h"

class CommandProcessor;
class HostDialogs;
class HostFrontEnd;
struct HostQuestion;

/// Text in and out of the command line, for modules.
class HostIoManager : public IKestIOManager
{
public:
    explicit HostIoManager(CommandProcessor& commands)
        : m_commands(commands)
    { }
    void setFrontEnd(HostFrontEnd& frontEnd) { m_frontEnd = &frontEnd; }

    /// Null takes the dialogs away.
    void setDialogs(HostDialogs* dialogs) { m_dialogs = dialogs; }

    void print(const QString& line) override;
    /// An answer that is no integer, or no keyword, is asked for again; where nobody can answer the
    /// running command fails.
    int getInt(const QString& prompt, int& value) override;
    int getString(const QString& prompt, QString& value) override;
    int getKeyword(const QString& prompt, const QStringList& words, int& index) override;
    int getPoint(const QString& prompt, KestPoint& point, const KestPoint* from) override;
    int openDrawing(const QString& path, std::unique_ptr<OdDbDatabase>& drawing,
                    QString& why) override;
    int selectFile(const KestFileRequest& request, QString& path, int& filterIndex) override;

private:
    int textOf(const HostQuestion& question, QString& value);
    /// Tells that an answer is of no use: false where there is nobody to ask again.
    bool mayAskAgain(const QString& sentence);

    CommandProcessor& m_commands;
    HostFrontEnd* m_frontEnd = nullptr;
    HostDialogs* m_dialogs = nullptr;
};
