#pragma once

#include <QDockWidget>
#include <QPointer>
#include <QRect>

class CXTPDockingPaneManager;
class CPaneTitleBar;

/// Docking states of a pane.
enum XTPDockingPaneState : int {
    xtpPaneDocked = 0,
    xtpPaneFloating = 1,
    xtpPaneHidden = 2, ///< hidden to the side: an auto-hide tab at the window's edge
};

/// A pane of the docking manager: an identifier, a title and a view. Its object name, "pane_<id>",
/// is what the window's saved state knows it by.
class CXTPDockingPane : public QDockWidget
{
    Q_OBJECT
public:
    ~CXTPDockingPane() override;

    int GetID() const { return m_id; }
    void SetTitle(const QString& title);
    QString GetTitle() const { return windowTitle(); }
    /// Limits of the size while tracking, in device-independent pixels. A docked pane fills its
    /// side, so there the maximum limits only how far it reaches into the window: the width at the
    /// left and right, the height at the top and bottom. A floating pane keeps to both.
    void SetMinTrackSize(QSize size);
    void SetMaxTrackSize(QSize size);
    QSize GetMinTrackSize() const { return m_minTrack; }
    QSize GetMaxTrackSize() const { return m_maxTrack; }
    /// Gives the pane its view; the pane owns it while attached. A view that was attached before
    /// and was not taken out ends.
    void AttachView(QWidget* view);
    QWidget* GetView() const { return m_view; }
    /// Takes the view out of the pane; it belongs to the caller again. Null when there is none.
    QWidget* Detach();
    bool IsClosed() const;
    XTPDockingPaneState GetPaneState() const;
    /// Pins a pane that is hidden to the side, or hides a docked one.
    void ToggleAutoHide();

protected:
    bool event(QEvent* event) override;

private:
    friend class CXTPDockingPaneManager;
    friend class AutoHideSides;
    CXTPDockingPane(CXTPDockingPaneManager& manager, int id, QRect initial);
    void connectTitleBar();
    void toggleFloating();
    void applyTrackSizes();
    /// The first time the pane is shown it gets its initial size, unless a saved state gave it
    /// another.
    void takeInitialSize();
    /// Hands the view over to the flyout, and takes it back.
    QWidget* lendView();
    void returnView();

    CXTPDockingPaneManager& m_manager;
    int m_id;
    QRect m_initial;
    QRect m_floating; ///< where it floated before it was docked by its title
    QSize m_minTrack;
    QSize m_maxTrack;
    bool m_hasSize = false;
    QPointer<QWidget> m_view;
    CPaneTitleBar* m_titleBar;
};
