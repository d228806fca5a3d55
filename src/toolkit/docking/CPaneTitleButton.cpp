#include "toolkit/docking/CPaneTitleButton.h"

#include <QPainter>
#include <QPainterPath>
#include <QStyle>
#include <QStyleOptionToolButton>

namespace {

/// Signs are drawn on a grid of 16 x 16, whatever the size of the button.
constexpr qreal kButtonGrid = 16.0;
constexpr qreal kPenWidth = 1.25;

QPainterPath crossPath()
{
    QPainterPath path;
    path.moveTo(4.5, 4.5);
    path.lineTo(11.5, 11.5);
    path.moveTo(11.5, 4.5);
    path.lineTo(4.5, 11.5);
    return path;
}

/// Two windows, one before the other.
QPainterPath floatPath()
{
    QPainterPath path;
    path.addRect(3.5, 6.5, 6.0, 6.0);
    path.moveTo(6.5, 6.5);
    path.lineTo(6.5, 3.5);
    path.lineTo(12.5, 3.5);
    path.lineTo(12.5, 9.5);
    path.lineTo(9.5, 9.5);
    return path;
}

/// A window with a column at its left.
QPainterPath dockPath()
{
    QPainterPath path;
    path.addRect(3.5, 3.5, 9.0, 9.0);
    path.moveTo(6.5, 3.5);
    path.lineTo(6.5, 12.5);
    return path;
}

QPainterPath pinPath()
{
    QPainterPath path;
    path.addRect(6.0, 3.0, 4.0, 5.5);
    path.moveTo(4.0, 8.5);
    path.lineTo(12.0, 8.5);
    path.moveTo(8.0, 8.5);
    path.lineTo(8.0, 13.0);
    return path;
}

/// The pin lying on its side.
QPainterPath loosePinPath()
{
    QTransform turn;
    turn.translate(kButtonGrid / 2, kButtonGrid / 2);
    turn.rotate(90);
    turn.translate(-kButtonGrid / 2, -kButtonGrid / 2);
    return turn.map(pinPath());
}

QPainterPath signPath(CPaneTitleButton::Sign sign)
{
    switch (sign) {
    case CPaneTitleButton::Sign::Close:
        return crossPath();
    case CPaneTitleButton::Sign::Float:
        return floatPath();
    case CPaneTitleButton::Sign::Dock:
        return dockPath();
    case CPaneTitleButton::Sign::AutoHide:
        return pinPath();
    case CPaneTitleButton::Sign::Pin:
        break;
    }
    return loosePinPath();
}

QString signName(CPaneTitleButton::Sign sign)
{
    switch (sign) {
    case CPaneTitleButton::Sign::Close:
        return CPaneTitleButton::tr("Close");
    case CPaneTitleButton::Sign::Float:
        return CPaneTitleButton::tr("Float");
    case CPaneTitleButton::Sign::Dock:
        return CPaneTitleButton::tr("Dock");
    case CPaneTitleButton::Sign::AutoHide:
        return CPaneTitleButton::tr("Auto Hide");
    case CPaneTitleButton::Sign::Pin:
        break;
    }
    return CPaneTitleButton::tr("Pin");
}

} // namespace

CPaneTitleButton::CPaneTitleButton(Sign sign, QWidget* parent)
    : QToolButton(parent)
    , m_sign(sign)
{
    setAutoRaise(true);
    setFocusPolicy(Qt::TabFocus);
    setSign(sign);
}

void CPaneTitleButton::setSign(Sign sign)
{
    m_sign = sign;
    setToolTip(signName(sign));
    setAccessibleName(signName(sign));
    update();
}

QSize CPaneTitleButton::sizeHint() const
{
    const int icon = style()->pixelMetric(QStyle::PM_SmallIconSize, nullptr, this);
    const int margin =
        style()->pixelMetric(QStyle::PM_DockWidgetTitleBarButtonMargin, nullptr, this);
    return QSize(icon + 2 * margin, icon + 2 * margin);
}

void CPaneTitleButton::paintEvent(QPaintEvent* /*event*/)
{
    QStyleOptionToolButton option;
    initStyleOption(&option);
    option.icon = QIcon();
    option.text.clear();
    QPainter painter(this);
    style()->drawComplexControl(QStyle::CC_ToolButton, &option, &painter, this);

    const int icon = style()->pixelMetric(QStyle::PM_SmallIconSize, nullptr, this);
    const QRect box =
        QStyle::alignedRect(layoutDirection(), Qt::AlignCenter, QSize(icon, icon), rect());
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(box.topLeft());
    painter.scale(box.width() / kButtonGrid, box.height() / kButtonGrid);
    painter.setPen(QPen(palette().color(QPalette::WindowText), kPenWidth));
    painter.drawPath(signPath(m_sign));
}
