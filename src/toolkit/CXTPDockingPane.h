#pragma once

#include <QDockWidget>
#include <QPointer>
#include <QRect>

class CXTPDockingPaneManager;

/// Docking states of a pane.
enum XTPDockingPaneState : int {
    xtpPaneDocked = 0,
    xtpPaneFloating = 1,
    xtpPaneHidden = 2, ///< hidden to the side: an auto-hide tab at the window's edge
};

/// A pane of the docking manager: an identifier, a title and a view.
class CXTPDockingPane : public QDockWidget
{
    Q_OBJECT
public:
    int GetID() const { return m_id; }
    void SetTitle(const QString& title);
    QString GetTitle() const { return windowTitle(); }
    /// Limits of the size while tracking, in device-independent pixels.
    void SetMinTrackSize(QSize size);
    void SetMaxTrackSize(QSize size);
    /// Gives the pane its view; the pane keeps it alive while attached.
    void AttachView(QWidget* view);
    QWidget* GetView() const { return m_view; }
    /// Takes the view out of the pane; it belongs to the caller again.
    QWidget* Detach();
    bool IsClosed() const;
    XTPDockingPaneState GetPaneState() const;
    /// Pins a pane that is hidden to the side, or hides a docked one.
    void ToggleAutoHide();

private:
    friend class CXTPDockingPaneManager;
    CXTPDockingPane(CXTPDockingPaneManager& manager, int id, QRect initial);
    QSize sizeHint() const override;

    CXTPDockingPaneManager& m_manager;
    int m_id;
    QRect m_initial;
    QPointer<QWidget> m_view;
};
