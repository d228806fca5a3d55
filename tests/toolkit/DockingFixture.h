#pragma once

#include "support/GuardedTest.h"
#include "toolkit/CXTPDockingPaneManager.h"

#include <QMainWindow>
#include <QTextEdit>

#include <memory>

class CPaneFlyout;
class QAbstractButton;
class CSideTabButton;

/// A main window with a text in its middle, a docking manager, and pane 1000 as the layer palette
/// makes it.
class DockingFixture : public GuardedTest
{
    Q_OBJECT
protected:
    static constexpr int kPaletteId = 1000;

    void prepare() override;
    void finish() override;

    /// Pane 1000: left, 550 x 200 at first, at least 355 x 200, at most 1280 x 700; hidden.
    CXTPDockingPane* createPalette();
    /// A pane of that id with a text for a view; hidden.
    CXTPDockingPane* createPane(int id, XTPDockingPaneDirection direction);
    /// Moves the edge of a docked pane, as a user drags it.
    void resizeDock(CXTPDockingPane* pane, int extent, Qt::Orientation along = Qt::Horizontal);
    /// Shows the window at that size and waits until it is active.
    void showWindow(QSize size = QSize(1400, 900));
    /// The palette, hidden to the left.
    CXTPDockingPane* hiddenPalette();
    /// The palette, slid out by a click on its tab.
    CXTPDockingPane* outPalette();

    CPaneFlyout* flyout() const;
    QAbstractButton* flyoutButton(const char* name) const;
    /// The tab of a pane that is hidden to a side, or null.
    CSideTabButton* tab(int id) const;
    /// The bar of a side: "left", "right", "top" or "bottom".
    QWidget* bar(const char* side) const;
    /// True while the pane's view shows in the flyout.
    bool isOut(const CXTPDockingPane* pane) const;

    /// Another window of the same kind, without panes.
    void replaceWindow();

    std::unique_ptr<QMainWindow> m_window;
    QTextEdit* m_canvas = nullptr;
    std::unique_ptr<CXTPDockingPaneManager> m_manager;
};
