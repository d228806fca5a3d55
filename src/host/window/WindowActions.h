#pragma once

#include <QHash>
#include <QObject>

class HostDocument;
class QAction;
class QMainWindow;
class QMenu;
class RecentFiles;

/// What the main window's menus and toolbars offer.
enum class WindowAction {
    Separator, ///< in menus and toolbars only
    RecentMenu, ///< in menus only
    New,
    Open,
    Save,
    SaveAs,
    Close,
    CloseAll,
    NextDrawing,
    PreviousDrawing,
    Quit,
    Undo,
    Redo,
    ZoomExtents,
    Regen,
    LayerPalette,
    Layer,
    Help,
    HelpContents,
    HelpPalette,
    HelpCommandLine,
    About,
    Erase,
    ZoomWindow,
    ZoomPrevious,
    Pan,
    Line,
    Circle,
    TextLine,
};

/// The actions of the main window, made from one table; menus and toolbars from two others.
class WindowActions : public QObject
{
    Q_OBJECT
public:
    WindowActions(QMainWindow& window, RecentFiles& recent);

    QAction* action(WindowAction id) const { return m_actions.value(id); }
    QMenu* recentMenu() const { return m_recentMenu; }
    /// Enables and names the actions for that document, or for none.
    void refresh(HostDocument* document) const;

signals:
    /// An action that stands for a command line was triggered.
    void commandWanted(const QString& line);
    /// One that the window itself sees to.
    void ownActionWanted(WindowAction id);

private:
    void makeActions();
    void makeMenus();
    void makeToolBars();
    void fillRecentMenu();

    QMainWindow& m_window;
    RecentFiles& m_recent;
    QHash<WindowAction, QAction*> m_actions;
    QMenu* m_recentMenu = nullptr;
};
