#pragma once

#include "host/application/HostCore.h"
#include "host/support/TestDrawing.h"
#include "host/window/CMainWindow.h"
#include "host/window/WindowFrontEnd.h"
#include "support/GuardedTest.h"
#include "support/RecordingPrompts.h"

#include <QTemporaryDir>

#include <memory>

class QAction;
enum class WindowAction;

/// Recorded prompts that also pick files.
class FilePrompts : public RecordingPrompts
{
public:
    QString openFile(QWidget*, const FileQuestion& question) override;
    QString saveFile(QWidget*, const FileQuestion& question) override;

    QString file; ///< what the next dialogs pick; empty: cancelled
    QList<FileQuestion> questions;
};

/// A host with its main window on the screen, settings of its own, and prompts that are recorded.
class WindowFixture : public GuardedTest
{
    Q_OBJECT
protected:
    void prepare() override;
    void finish() override;

    /// Ends the program and starts it again with the same settings.
    void restart();
    HostDocument* current() const { return core->documents().curDocument(); }
    /// Writes the drawing and opens it with the OPEN command.
    HostDocument& open(const TestDrawing& drawing,
                       const QString& name = QStringLiteral("plan.dxf"));
    QString path(const char* name) const { return folder->filePath(QString::fromUtf8(name)); }
    QAction& action(WindowAction id) const;
    QString variable(const char* name) const;
    QString history() const;
    /// Lets the changes of this turn of the event loop be shown.
    void settle();
    /// Types a line into the command line and presses Enter.
    void typeLine(const char* line);

private:
    void showWindow();
    void endHost();

protected:
    std::unique_ptr<QTemporaryDir> folder;
    std::unique_ptr<FilePrompts> prompts;
    std::unique_ptr<WindowFrontEnd> frontEnd;
    std::unique_ptr<HostCore> core;
    std::unique_ptr<CMainWindow> window;
};
