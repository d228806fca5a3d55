#include "host/canvas/CCanvas.h"
#include "host/canvas/CanvasContents.h"
#include "host/canvas/Crosshair.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QNativeGestureEvent>
#include <QWheelEvent>

// The part of the canvas that answers mouse and keyboard.

namespace {

constexpr double kWheelFactor = 1.25; ///< per notch
constexpr double kNotch = 120;
constexpr double kPixelsPerNotch = 60; ///< of touchpads that tell pixels only
constexpr double kKeyPanShare = 0.1; ///< of the window

} // namespace

namespace {

/// How far a wheel or a touchpad was turned, in notches; fine ones turn by fractions.
QPointF notchesOf(const QWheelEvent& event)
{
    if (!event.angleDelta().isNull())
        return QPointF(event.angleDelta()) / kNotch;
    return QPointF(event.pixelDelta()) / kPixelsPerNotch;
}

} // namespace

void CCanvas::wheelEvent(QWheelEvent* event)
{
    const QPointF notches = notchesOf(*event);
    if (notches.isNull())
        return;
    ViewTransform view = m_view;
    if (event->modifiers() & Qt::ShiftModifier) {
        view.pan(event->pixelDelta().isNull() ? notches * kPixelsPerNotch
                                              : QPointF(event->pixelDelta()));
    } else {
        view.zoomAbout(event->position(), std::pow(kWheelFactor, notches.y()));
    }
    driftTo(view);
    moveCrosshair(event->position());
    event->accept();
}

bool CCanvas::zoomByGesture(const QNativeGestureEvent& gesture)
{
    if (gesture.gestureType() != Qt::ZoomNativeGesture || !(gesture.value() > -1))
        return false;
    ViewTransform view = m_view;
    view.zoomAbout(gesture.position(), 1 + gesture.value());
    driftTo(view);
    return true;
}

bool CCanvas::event(QEvent* event)
{
    if (event->type() == QEvent::NativeGesture)
        return zoomByGesture(*static_cast<QNativeGestureEvent*>(event));
    return QWidget::event(event);
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
        setCursor(m_isSpaceHeld || m_isDragging ? Qt::OpenHandCursor : Qt::BlankCursor);
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
    const Vec2 point = userPoint(to);
    const bool hadRubber = m_pointer.rubber().kind != PointerTool::Rubber::Kind::None;
    m_pointer.move(point);
    if (hadRubber)
        update();
    emit cursorMoved(QPointF(point.x, point.y));
}

void CCanvas::mousePressEvent(QMouseEvent* event)
{
    const bool isPan = event->button() == Qt::MiddleButton
        || (event->button() == Qt::LeftButton && (m_isSpaceHeld || m_isDragging));
    if (isPan && m_panButton == Qt::NoButton)
        setPanning(event->button(), event->position());
    else if (event->button() == Qt::LeftButton && m_panButton == Qt::NoButton)
        pressAt(*event);
    else
        QWidget::mousePressEvent(event);
}

void CCanvas::mouseMoveEvent(QMouseEvent* event)
{
    if (m_panButton != Qt::NoButton) {
        ViewTransform view = m_view;
        view.pan(event->position() - m_panFrom);
        m_panFrom = event->position();
        driftTo(view);
    }
    moveCrosshair(event->position());
}

void CCanvas::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton && m_panButton != Qt::LeftButton) {
        const QPointF way = event->position() - m_pressedAt;
        m_pointer.release(userPoint(event->position()),
                          way.manhattanLength() >= QApplication::startDragDistance(),
                          event->modifiers() & Qt::ShiftModifier);
        update();
        return;
    }
    if (event->button() != m_panButton) {
        QWidget::mouseReleaseEvent(event);
        return;
    }
    setPanning(Qt::NoButton, {});
    moveCrosshair(event->position());
}

void CCanvas::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (event->button() == Qt::MiddleButton) {
        zoomExtents();
        return;
    }
    const bool isIdle = m_pointer.isIdle() && !m_isSpaceHeld && !m_isDragging;
    if (event->button() == Qt::LeftButton && isIdle) {
        cancelRectangle();
        emit doubleClicked(m_view.toWorld(event->position()));
    } else {
        mousePressEvent(event);
    }
}

bool CCanvas::navigateByKey(const QKeyEvent& event)
{
    ViewTransform view = m_view;
    const double dx = width() * kKeyPanShare;
    const double dy = height() * kKeyPanShare;
    // Without Ctrl they begin what is typed: "-5,3".
    const bool isZoom = event.key() == Qt::Key_Plus || event.key() == Qt::Key_Minus;
    if (isZoom && !(event.modifiers() & Qt::ControlModifier))
        return false;
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
    driftTo(view);
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
