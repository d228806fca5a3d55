#pragma once

#include <QPointer>
#include <QVariantAnimation>
#include <QWidget>

class CFlyoutGrip;
class CPaneTitleBar;
class QFrame;
class QGridLayout;
class QVBoxLayout;

/// Shows the view of a pane that is hidden to the side over the window's contents. It slides out
/// from behind the side's bar: its own rectangle grows, and clips a frame of full size that moves
/// with the edge.
class CPaneFlyout : public QWidget
{
    Q_OBJECT
public:
    explicit CPaneFlyout(QWidget* window);

    void setTitle(const QString& title);
    /// Null takes the view out again; the caller gives it another parent.
    void setView(QWidget* view);
    /// Puts it beside the bar; the extent is kept within the limits and the window.
    void place(Qt::DockWidgetArea side, const QRect& bar, int extent, QSize minimum, QSize maximum);
    void slideOut();
    void slideIn();
    /// Hides it at once, without slidIn().
    void stop();
    bool isSlidingIn() const { return m_slidingIn; }

signals:
    void slidIn();
    void closeRequested();
    void pinRequested();
    /// Esc was pressed and nothing inside used it.
    void leaveRequested();
    void extentDragged(int extent);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void placeGrip();
    void reveal(qreal share);
    void focusView();
    void dragTo(QPoint distance);

    Qt::DockWidgetArea m_side = Qt::LeftDockWidgetArea;
    QRect m_full;
    qreal m_share = 0;
    bool m_slidingIn = false;
    int m_extentAtPress = 0;
    QVariantAnimation m_slide;
    QFrame* m_frame;
    QGridLayout* m_grid;
    QVBoxLayout* m_column;
    CPaneTitleBar* m_titleBar;
    CFlyoutGrip* m_grip;
    QPointer<QWidget> m_view;
};
