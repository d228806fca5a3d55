#pragma once

#include "host/commands/CommandOutcome.h"
#include "host/documents/ChangedFiles.h"
#include "host/window/RecentFiles.h"
#include "host/window/session/OpenFiles.h"

#include <QMainWindow>

#include <memory>

class CCommandLine;
class CDrawingTabs;
class CDrawingView;
class CXTPDockingPaneManager;
class DrawingInput;
class HostCore;
class HostDocument;
class QStackedWidget;
class StatusFields;
class WindowActions;
enum class WindowAction;
class WindowDialogs;

/// The host's main window: drawings in tabs, the command line below, palettes around.
class CMainWindow : public QMainWindow
{
    Q_OBJECT
public:
    static constexpr int kCommandLinePane = 2000; ///< id of the command line's docking pane

    explicit CMainWindow(HostCore& core);
    ~CMainWindow() override;

    /// Runs a command line as if the user had typed it, then what was queued. While a command asks
    /// something, the question is cancelled and the line runs once that command is over.
    void runCommand(const QString& line);
    /// The same for lines from menus: a refusal is shown in a message as well.
    void runAction(const QString& line);
    /// Lets the window close without asking again.
    void allowClose();

    CCommandLine& commandLine() const { return *m_commandLine; }
    CDrawingTabs& drawings() const { return *m_drawings; }
    /// Hands the user's variables about lines (LAYLOCKFADECTL, LWDEFAULT) to the views.
    void applyLineVariables();
    CXTPDockingPaneManager& panes() const { return *m_panes; }
    WindowActions& actions() const { return *m_actions; }
    RecentFiles& recentFiles() { return m_recent; }
    OpenFiles& openFiles() { return m_openFiles; }

protected:
    void closeEvent(QCloseEvent* event) override;
    bool event(QEvent* event) override;
    /// Files that are dropped on the window are opened.
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void makeCentralArea();
    void makeCommandLine();
    void makeDrawingsMenu();
    void connectParts();
    void restoreLayout();
    void storeLayout();
    void watchView(CDrawingView& view);
    void showCurrentDrawing();
    void cancelQuestion();
    CommandOutcome runAndReport(const QString& line);
    void drainQueue();
    void queuedWhileAsking();
    void showUserVariable();
    void report(const CommandOutcome& outcome);
    void runOwnAction(WindowAction id);
    void showDrawingBeside(int step);
    void showAbout();
    void lookForChangedFiles();

    HostCore& m_core;
    RecentFiles m_recent;
    OpenFiles m_openFiles;
    ChangedFiles m_changedFiles;
    std::unique_ptr<CXTPDockingPaneManager> m_panes;
    std::unique_ptr<WindowDialogs> m_dialogs;
    WindowActions* m_actions;
    StatusFields* m_status;
    QStackedWidget* m_center = nullptr;
    CDrawingTabs* m_drawings = nullptr;
    CCommandLine* m_commandLine = nullptr;
    DrawingInput* m_input = nullptr;
    bool m_mayClose = false;
};
