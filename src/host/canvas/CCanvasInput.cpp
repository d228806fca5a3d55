#include "host/canvas/CCanvas.h"
#include "host/canvas/CanvasContents.h"
#include "host/canvas/Crosshair.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QWheelEvent>

// The part of the canvas that answers mouse and keyboard.

namespace {

constexpr double kWheelFactor = 1.25; ///< per notch
constexpr double kNotch = 120;
constexpr double kKeyPanShare = 0.1; ///< of the window

} // namespace

void CCanvas::wheelEvent(QWheelEvent* event)
{
    const double notches = event->angleDelta().y() / kNotch;
    if (notches == 0)
        return;
    ViewTransform view = m_view;
    view.zoomAbout(event->position(), std::pow(kWheelFactor, notches));
    applyView(view);
    event->accept();
}

void CCanvas::setPanning(Qt::MouseButton button, QPointF at)
{
    m_panButton = button;
    m_panFrom = at;
    updatePointer();
}

/// The drawing's own crosshair, or a hand where dragging moves the drawing.
void CCanvas::updatePointer()
{
    if (m_panButton != Qt::NoButton)
        setCursor(Qt::ClosedHandCursor);
    else
        setCursor(m_isSpaceHeld ? Qt::OpenHandCursor : Qt::BlankCursor);
    if (m_crosshair->isShown() && cursor().shape() != Qt::BlankCursor) {
        update(m_crosshair->region());
        m_crosshair->hide();
    }
}

void CCanvas::moveCrosshair(QPointF to)
{
    update(m_crosshair->region());
    if (cursor().shape() == Qt::BlankCursor)
        m_crosshair->show(to);
    update(m_crosshair->region());
    const Vec2 world = m_view.toWorld(to);
    emit cursorMoved(QPointF(world.x, world.y));
}

void CCanvas::mousePressEvent(QMouseEvent* event)
{
    const bool isPan =
        event->button() == Qt::MiddleButton || (event->button() == Qt::LeftButton && m_isSpaceHeld);
    if (isPan && m_panButton == Qt::NoButton)
        setPanning(event->button(), event->position());
    else
        QWidget::mousePressEvent(event);
}

void CCanvas::mouseMoveEvent(QMouseEvent* event)
{
    if (m_panButton != Qt::NoButton) {
        ViewTransform view = m_view;
        view.pan(event->position() - m_panFrom);
        m_panFrom = event->position();
        applyView(view);
    }
    moveCrosshair(event->position());
}

void CCanvas::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() != m_panButton) {
        QWidget::mouseReleaseEvent(event);
        return;
    }
    setPanning(Qt::NoButton, {});
    moveCrosshair(event->position());
}

void CCanvas::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (event->button() == Qt::MiddleButton)
        zoomExtents();
    else
        mousePressEvent(event);
}

bool CCanvas::navigateByKey(const QKeyEvent& event)
{
    ViewTransform view = m_view;
    const double dx = width() * kKeyPanShare;
    const double dy = height() * kKeyPanShare;
    switch (event.key()) {
    case Qt::Key_Left:
        view.pan({dx, 0});
        break;
    case Qt::Key_Right:
        view.pan({-dx, 0});
        break;
    case Qt::Key_Up:
        view.pan({0, dy});
        break;
    case Qt::Key_Down:
        view.pan({0, -dy});
        break;
    case Qt::Key_Plus:
        view.zoomAbout(QRectF(rect()).center(), kWheelFactor);
        break;
    case Qt::Key_Minus:
        view.zoomAbout(QRectF(rect()).center(), 1 / kWheelFactor);
        break;
    case Qt::Key_Home:
        zoomExtents();
        return true;
    default:
        return false;
    }
    applyView(view);
    return true;
}

void CCanvas::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Space) {
        m_isSpaceHeld = true;
        updatePointer();
        return;
    }
    if (!navigateByKey(*event))
        QWidget::keyPressEvent(event);
}

void CCanvas::keyReleaseEvent(QKeyEvent* event)
{
    if (event->key() != Qt::Key_Space) {
        QWidget::keyReleaseEvent(event);
        return;
    }
    if (!event->isAutoRepeat()) {
        m_isSpaceHeld = false;
        updatePointer();
    }
}

void CCanvas::focusOutEvent(QFocusEvent* event)
{
    m_isSpaceHeld = false;
    updatePointer();
    QWidget::focusOutEvent(event);
}

void CCanvas::leaveEvent(QEvent* event)
{
    update(m_crosshair->region());
    m_crosshair->hide();
    QWidget::leaveEvent(event);
}
