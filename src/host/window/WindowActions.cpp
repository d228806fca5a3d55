#include "host/window/WindowActions.h"

#include "host/commands/CommandLine.h"
#include "host/documents/HostDocument.h"
#include "host/window/RecentFiles.h"
#include "host/window/look/ThemedIcon.h"
#include "sdk/commands/OdEdCommandStack.h"

#include <QAction>
#include <QFileInfo>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QToolBar>

#include <vector>

namespace {
using Id = WindowAction;

/// What must be there for an action to be enabled.
enum class Needs { Nothing, Drawing, Undo, Redo, LayerCommand };

struct Row
{
    const char* text;
    const char* tip;
    const char* icon;
    const char* shortcut; ///< where there is no standard key
    const char* command; ///< null: the window's own
    Id id;
    QKeySequence::StandardKey key;
    Needs needs;
};

constexpr auto kNoKey = QKeySequence::UnknownKey;
#define TEXT(text) QT_TRANSLATE_NOOP("WindowActions", text)

const Row kRows[] = {
    {TEXT("&New"), TEXT("Start a new drawing"), "new", "", "NEW", Id::New, QKeySequence::New,
     Needs::Nothing},
    {TEXT("&Open..."), TEXT("Open a drawing"), "open", "", "OPEN", Id::Open, QKeySequence::Open,
     Needs::Nothing},
    {TEXT("&Save"), TEXT("Save the drawing"), "save", "", "SAVE", Id::Save, QKeySequence::Save,
     Needs::Drawing},
    {TEXT("Save &As..."), TEXT("Save the drawing to another file"), "", "Ctrl+Shift+S", "SAVEAS",
     Id::SaveAs, kNoKey, Needs::Drawing},
    {TEXT("&Close"), TEXT("Close the drawing"), "close", "", "CLOSE", Id::Close,
     QKeySequence::Close, Needs::Drawing},
    {TEXT("Close A&ll"), TEXT("Close all drawings"), "", "", "CLOSEALL", Id::CloseAll, kNoKey,
     Needs::Drawing},
    {TEXT("&Next Drawing"), TEXT("Show the drawing in the next tab"), "", "Ctrl+Tab", nullptr,
     Id::NextDrawing, kNoKey, Needs::Drawing},
    {TEXT("&Previous Drawing"), TEXT("Show the drawing in the tab before"), "", "Ctrl+Shift+Tab",
     nullptr, Id::PreviousDrawing, kNoKey, Needs::Drawing},
    {TEXT("&Quit"), TEXT("End the program"), "quit", "Ctrl+Q", "QUIT", Id::Quit, QKeySequence::Quit,
     Needs::Nothing},
    {TEXT("&Undo"), TEXT("Take the last change back"), "undo", "", "U", Id::Undo,
     QKeySequence::Undo, Needs::Undo},
    {TEXT("&Redo"), TEXT("Bring back what was undone"), "redo", "", "REDO", Id::Redo,
     QKeySequence::Redo, Needs::Redo},
    {TEXT("Zoom &Extents"), TEXT("Show everything"), "zoom-extents", "Ctrl+0", "ZOOM E",
     Id::ZoomExtents, kNoKey, Needs::Drawing},
    {TEXT("Re&generate"), TEXT("Draw the view again from the drawing"), "regen", "F5", "REGEN",
     Id::Regen, QKeySequence::Refresh, Needs::Drawing},
    {TEXT("&Layer Properties Manager"), TEXT("Show the layer palette"), "layers", "",
     "_LAYERPALETTE", Id::LayerPalette, kNoKey, Needs::LayerCommand},
    {TEXT("&Layer..."), TEXT("Show the layer palette"), "layers", "Ctrl+L", "_LAYER", Id::Layer,
     kNoKey, Needs::LayerCommand},
    {TEXT("&Help"), TEXT("Explain what has the keyboard focus"), "", "F1", nullptr, Id::Help,
     QKeySequence::HelpContents, Needs::Nothing},
    {TEXT("&Contents"), TEXT("Open the help at its contents"), "", "", nullptr, Id::HelpContents,
     kNoKey, Needs::Nothing},
    {TEXT("&Layer Properties Manager"), TEXT("Open the help about the layer palette"), "", "",
     nullptr, Id::HelpPalette, kNoKey, Needs::Nothing},
    {TEXT("Command &Line"), TEXT("Open the help about the command line"), "", "", nullptr,
     Id::HelpCommandLine, kNoKey, Needs::Nothing},
    {TEXT("&Erase"), TEXT("Erase objects"), "", "", "ERASE", Id::Erase, kNoKey, Needs::Drawing},
    {TEXT("Zoom &Window"), TEXT("Show what is inside a rectangle"), "", "", "ZOOM Window",
     Id::ZoomWindow, kNoKey, Needs::Drawing},
    {TEXT("Zoom &Previous"), TEXT("Go back to the view before"), "", "", "ZOOM Previous",
     Id::ZoomPrevious, kNoKey, Needs::Drawing},
    {TEXT("P&an"), TEXT("Drag the drawing"), "", "", "PAN Drag", Id::Pan, kNoKey, Needs::Drawing},
    {TEXT("&Line"), TEXT("Draw lines from point to point"), "", "", "LINE", Id::Line, kNoKey,
     Needs::Drawing},
    {TEXT("&Circle"), TEXT("Draw a circle"), "", "", "CIRCLE", Id::Circle, kNoKey, Needs::Drawing},
    {TEXT("&Text"), TEXT("Write a line of text"), "", "", "TEXT", Id::TextLine, kNoKey,
     Needs::Drawing},
    {TEXT("&About kest"), TEXT("Version and purpose of the program"), "about", "", nullptr,
     Id::About, kNoKey, Needs::Nothing},
};

struct Surface
{
    const char* name; ///< object name
    const char* title;
    std::vector<Id> ids;
};

const Surface kMenus[] = {
    {"fileMenu",
     TEXT("&File"),
     {Id::New, Id::Open, Id::RecentMenu, Id::Separator, Id::Save, Id::SaveAs, Id::Separator,
      Id::Close, Id::CloseAll, Id::Quit}},
    {"editMenu", TEXT("&Edit"), {Id::Undo, Id::Redo, Id::Separator, Id::Erase}},
    {"viewMenu",
     TEXT("&View"),
     {Id::ZoomExtents, Id::ZoomWindow, Id::ZoomPrevious, Id::Pan, Id::Regen, Id::Separator,
      Id::LayerPalette}},
    {"drawMenu", TEXT("&Draw"), {Id::Line, Id::Circle, Id::TextLine}},
    {"formatMenu", TEXT("F&ormat"), {Id::Layer}},
    {"helpMenu",
     TEXT("&Help"),
     {Id::Help, Id::HelpContents, Id::Separator, Id::HelpPalette, Id::HelpCommandLine,
      Id::Separator, Id::About}},
};

const Surface kToolBars[] = {
    {"fileToolBar", TEXT("File"), {Id::New, Id::Open, Id::Save}},
    {"editToolBar", TEXT("Edit"), {Id::Undo, Id::Redo}},
    {"viewToolBar", TEXT("View"), {Id::ZoomExtents, Id::Regen, Id::Separator, Id::Layer}},
};

#undef TEXT

// Not every desktop has a key for each of the standard ones.
QList<QKeySequence> shortcuts(const Row& row)
{
    QList<QKeySequence> standard = QKeySequence::keyBindings(row.key);
    if (!standard.isEmpty() || !*row.shortcut)
        return standard;
    return {QKeySequence(QLatin1String(row.shortcut))};
}

bool isMet(Needs needs, const HostDocument* document, const QString& undo, const QString& redo)
{
    switch (needs) {
    case Needs::Nothing:
        return true;
    case Needs::Drawing:
        return document != nullptr;
    case Needs::Undo:
        return !undo.isEmpty();
    case Needs::Redo:
        return !redo.isEmpty();
    case Needs::LayerCommand:
        break;
    }
    return document && odedRegCmds()->lookup(QStringLiteral("_LAYER"));
}
} // namespace

WindowActions::WindowActions(QMainWindow& window, RecentFiles& recent)
    : QObject(&window)
    , m_window(window)
    , m_recent(recent)
{
    makeActions();
    makeMenus();
    makeToolBars();
    refresh(nullptr);
}

void WindowActions::makeActions()
{
    for (const Row& row : kRows) {
        auto* action = new QAction(tr(row.text), this);
        action->setObjectName(QStringLiteral("action%1").arg(static_cast<int>(row.id)));
        action->setToolTip(tr(row.tip));
        action->setStatusTip(tr(row.tip));
        if (*row.icon)
            action->setIcon(themedIcon(QLatin1String(row.icon)));
        action->setShortcuts(shortcuts(row));
        connect(action, &QAction::triggered, this, [this, &row] {
            if (row.command)
                emit commandWanted(QLatin1String(row.command));
            else
                emit ownActionWanted(row.id);
        });
        m_actions.insert(row.id, action);
    }
    // The roles decide where some systems move these entries.
    action(Id::Quit)->setMenuRole(QAction::QuitRole);
    action(Id::About)->setMenuRole(QAction::AboutRole);
}

void WindowActions::makeMenus()
{
    m_recentMenu = new QMenu(tr("Open &Recent"), &m_window);
    connect(m_recentMenu, &QMenu::aboutToShow, this, &WindowActions::fillRecentMenu);
    for (const Surface& surface : kMenus) {
        QMenu* menu = m_window.menuBar()->addMenu(tr(surface.title));
        menu->setObjectName(QLatin1String(surface.name));
        for (const Id id : surface.ids) {
            if (id == Id::Separator)
                menu->addSeparator();
            else if (id == Id::RecentMenu)
                menu->addMenu(m_recentMenu);
            else
                menu->addAction(action(id));
        }
    }
}

void WindowActions::makeToolBars()
{
    for (const Surface& surface : kToolBars) {
        QToolBar* bar = m_window.addToolBar(tr(surface.title));
        bar->setObjectName(QLatin1String(surface.name));
        for (const Id id : surface.ids) {
            if (id == Id::Separator)
                bar->addSeparator();
            else
                bar->addAction(action(id));
        }
    }
}

void WindowActions::fillRecentMenu()
{
    m_recentMenu->clear();
    int position = 0;
    bool anyMissing = false;
    for (const QString& path : m_recent.files()) {
        const bool exists = QFileInfo(path).isFile();
        anyMissing = anyMissing || !exists;
        QAction* entry = m_recentMenu->addAction(RecentFiles::menuText(++position, path, exists));
        entry->setEnabled(exists);
        entry->setStatusTip(path);
        connect(entry, &QAction::triggered, this, [this, path] {
            emit commandWanted(QStringLiteral("OPEN ") + CommandLine::quoted(path));
        });
    }
    if (position == 0)
        m_recentMenu->addAction(tr("No files yet"))->setEnabled(false);
    if (!anyMissing)
        return;
    m_recentMenu->addSeparator();
    m_recentMenu->addAction(tr("&Forget Missing Files"), this, [this] {
        for (const QString& path : m_recent.files()) {
            if (!QFileInfo(path).isFile())
                m_recent.remove(path);
        }
    });
}

void WindowActions::refresh(HostDocument* document) const
{
    const QString undo = document ? document->undoNames().undoName() : QString();
    const QString redo = document ? document->undoNames().redoName() : QString();
    for (const Row& row : kRows)
        action(row.id)->setEnabled(isMet(row.needs, document, undo, redo));
    action(Id::Undo)->setText(undo.isEmpty() ? tr("&Undo") : tr("&Undo %1").arg(undo));
    action(Id::Redo)->setText(redo.isEmpty() ? tr("&Redo") : tr("&Redo %1").arg(redo));
}
