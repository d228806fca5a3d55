#include "toolkit/docking/CFlyoutGrip.h"

#include <QMouseEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOption>

CFlyoutGrip::CFlyoutGrip(QWidget* parent)
    : QWidget(parent)
{
    setDirection(Qt::Horizontal);
}

void CFlyoutGrip::setDirection(Qt::Orientation direction)
{
    m_direction = direction;
    const bool horizontal = direction == Qt::Horizontal;
    setCursor(horizontal ? Qt::SplitHCursor : Qt::SplitVCursor);
    setSizePolicy(horizontal ? QSizePolicy::Fixed : QSizePolicy::Preferred,
                  horizontal ? QSizePolicy::Preferred : QSizePolicy::Fixed);
    updateGeometry();
}

QSize CFlyoutGrip::sizeHint() const
{
    const int extent = style()->pixelMetric(QStyle::PM_DockWidgetSeparatorExtent, nullptr, this);
    return QSize(extent, extent);
}

void CFlyoutGrip::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return event->ignore();
    m_pressedAt = event->globalPosition().toPoint();
    emit pressed();
}

void CFlyoutGrip::mouseMoveEvent(QMouseEvent* event)
{
    if (event->buttons() & Qt::LeftButton)
        emit dragged(event->globalPosition().toPoint() - m_pressedAt);
}

void CFlyoutGrip::paintEvent(QPaintEvent* /*event*/)
{
    QStyleOption option;
    option.initFrom(this);
    // To the style an edge that is dragged sideways is an upright one.
    option.state.setFlag(QStyle::State_Horizontal, m_direction == Qt::Vertical);
    QPainter painter(this);
    style()->drawPrimitive(QStyle::PE_IndicatorDockWidgetResizeHandle, &option, &painter, this);
}
