#include "toolkit/docking/CSideTabButton.h"

#include <QEvent>
#include <QStyle>
#include <QStyleOptionFocusRect>
#include <QStyleOptionToolButton>
#include <QStylePainter>

CSideTabButton::CSideTabButton(Qt::DockWidgetArea side, QWidget* parent)
    : QAbstractButton(parent)
    , m_side(side)
{
    setCheckable(true);
    setFocusPolicy(Qt::TabFocus);
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

bool CSideTabButton::isUpright() const
{
    return m_side == Qt::LeftDockWidgetArea || m_side == Qt::RightDockWidgetArea;
}

QSize CSideTabButton::sizeHint() const
{
    const int along = style()->pixelMetric(QStyle::PM_TabBarTabHSpace, nullptr, this);
    const int across = style()->pixelMetric(QStyle::PM_TabBarTabVSpace, nullptr, this);
    const QSize size(fontMetrics().horizontalAdvance(text()) + along,
                     fontMetrics().height() + across);
    return isUpright() ? size.transposed() : size;
}

void CSideTabButton::paintEvent(QPaintEvent* /*event*/)
{
    QStylePainter painter(this);
    QStyleOptionToolButton option;
    option.initFrom(this);
    option.state |= QStyle::State_AutoRaise;
    option.state.setFlag(QStyle::State_On, isChecked());
    option.state.setFlag(QStyle::State_Sunken, isDown());
    option.state.setFlag(QStyle::State_Raised,
                         underMouse() && isEnabled() && !isDown() && !isChecked());
    if (option.state & (QStyle::State_On | QStyle::State_Sunken | QStyle::State_Raised))
        painter.drawPrimitive(QStyle::PE_PanelButtonTool, option);

    QRect place = rect();
    if (isUpright()) {
        // Read from below at the left, from above at the right: the text's foot is towards the
        // contents.
        const bool left = m_side == Qt::LeftDockWidgetArea;
        painter.translate(left ? 0 : width(), left ? height() : 0);
        painter.rotate(left ? -90 : 90);
        place = QRect(0, 0, height(), width());
    }
    painter.drawItemText(place, Qt::AlignCenter, palette(), isEnabled(), text(),
                         QPalette::WindowText);
    if (option.state & QStyle::State_HasFocus) {
        QStyleOptionFocusRect focus;
        focus.initFrom(this);
        const int inset = style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, this);
        focus.rect = place.adjusted(inset, inset, -inset, -inset);
        focus.backgroundColor = palette().color(QPalette::Window);
        painter.drawPrimitive(QStyle::PE_FrameFocusRect, focus);
    }
}

void CSideTabButton::changeEvent(QEvent* event)
{
    QAbstractButton::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        updateGeometry();
}
