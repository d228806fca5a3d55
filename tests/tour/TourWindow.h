#pragma once

#include "WindowPicture.h"
#include "host/application/HostCore.h"
#include "host/window/CMainWindow.h"
#include "host/window/WindowFrontEnd.h"
#include "support/pictures/GoldenLook.h"

#include <QTemporaryDir>

#include <functional>
#include <memory>
#include <vector>

class CCanvas;
class HostPrompts;
class OdDbDatabase;

/// The program as its user has it: main window, real dialogs, the layer palette's library, settings
/// of its own, and a folder with a copy of the sample drawing.
class TourWindow
{
public:
    TourWindow();
    ~TourWindow();
    TourWindow(const TourWindow&) = delete;
    TourWindow& operator=(const TourWindow&) = delete;

    CMainWindow& window() const { return *m_window; }
    CCanvas& canvas() const;
    HostDocument* current() const { return m_core->documents().curDocument(); }
    OdDbDatabase& drawing() const { return *current()->database(); }
    QString path(const char* name) const { return m_folder.filePath(QString::fromUtf8(name)); }

    /// Opens a menu of the menu bar by a click and clicks on an entry.
    void chooseFrom(const char* menu, const QStringList& path) const;
    /// Opens a menu of the menu bar by a click, does the steps in it, and closes it.
    void inMenuOf(const char* menu, const std::function<void(QMenu&)>& steps) const;
    /// Presses keys where the focus is.
    void press(const QKeySequence& keys) const;
    /// Presses the left button, moves and releases.
    static void pull(QWidget& widget, QPoint from, QPoint to);
    /// Moves the pointer to where it points at nothing.
    void restPointer() const;
    /// Clicks on the tab of model space or a sheet.
    void clickLayout(const char* name) const;
    /// Does `open`, and the steps one by one each time the command line asks; returns when it asks
    /// no more.
    void whileAsked(const std::function<void()>& open,
                    const std::vector<std::function<void()>>& steps) const;
    /// Types a line into the command line and presses Enter.
    void typeLine(const char* line) const;
    /// A point of the sheet or of model space in the canvas.
    QPoint placeOf(double x, double y) const;
    /// Lets everything that waits happen.
    void settle() const;

    QString statusText() const;
    QString statusLayer() const;
    /// Texts of the menu "Edit", which say what would be undone and redone.
    QString undoText() const;
    QString redoText() const;

    /// What is on the screen once nothing moves any more.
    WindowPicture picture() const;
    /// Compares the picture with tests/golden/guide_NAME.png.
    bool looksLike(const char* name) const;
    bool looksLike(const WindowPicture& picture, const char* name) const;

private:
    GoldenLook m_look{GoldenLook::Theme::Light};
    QTemporaryDir m_folder;
    WindowFrontEnd m_frontEnd;
    std::unique_ptr<HostCore> m_core;
    std::unique_ptr<HostPrompts> m_prompts;
    std::unique_ptr<CMainWindow> m_window;
};
