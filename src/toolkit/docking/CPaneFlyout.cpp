#include "toolkit/docking/CPaneFlyout.h"

#include "toolkit/docking/CFlyoutGrip.h"
#include "toolkit/docking/CPaneTitleBar.h"
#include "toolkit/docking/PaneFocus.h"
#include "toolkit/docking/SideOrientation.h"

#include <QFrame>
#include <QGridLayout>
#include <QKeyEvent>
#include <QStyle>
#include <QVBoxLayout>

namespace {

/// The rectangle beside the bar, `extent` deep.
QRect besideBar(Qt::DockWidgetArea side, const QRect& bar, int extent)
{
    switch (side) {
    case Qt::RightDockWidgetArea:
        return QRect(bar.left() - extent, bar.top(), extent, bar.height());
    case Qt::TopDockWidgetArea:
        return QRect(bar.left(), bar.bottom() + 1, bar.width(), extent);
    case Qt::BottomDockWidgetArea:
        return QRect(bar.left(), bar.top() - extent, bar.width(), extent);
    default:
        return QRect(bar.right() + 1, bar.top(), extent, bar.height());
    }
}

/// How deep a rectangle beside the bar can be within the window.
int roomBeside(Qt::DockWidgetArea side, const QRect& bar, QSize window)
{
    switch (side) {
    case Qt::RightDockWidgetArea:
        return bar.left();
    case Qt::TopDockWidgetArea:
        return window.height() - bar.bottom() - 1;
    case Qt::BottomDockWidgetArea:
        return bar.top();
    default:
        return window.width() - bar.right() - 1;
    }
}

} // namespace

CPaneFlyout::CPaneFlyout(QWidget* window)
    : QWidget(window)
    , m_frame(new QFrame(this))
    , m_grid(new QGridLayout(m_frame))
    , m_column(new QVBoxLayout)
    , m_titleBar(new CPaneTitleBar(m_frame))
    , m_grip(new CFlyoutGrip(m_frame))
{
    setObjectName(QStringLiteral("paneFlyout"));
    m_frame->setFrameShape(QFrame::StyledPanel);
    m_frame->setAutoFillBackground(true);
    m_frame->setFocusPolicy(Qt::StrongFocus);
    m_grid->setContentsMargins(0, 0, 0, 0);
    m_grid->setSpacing(0);
    m_grid->addLayout(m_column, 1, 1);
    m_column->addWidget(m_titleBar);
    m_titleBar->setMode(CPaneTitleBar::Mode::HiddenToSide);
    hide();

    connect(m_titleBar, &CPaneTitleBar::closeRequested, this, &CPaneFlyout::closeRequested);
    connect(m_titleBar, &CPaneTitleBar::autoHideRequested, this, &CPaneFlyout::pinRequested);
    connect(m_grip, &CFlyoutGrip::pressed, this,
            [this] { m_extentAtPress = isUpright(m_side) ? m_full.width() : m_full.height(); });
    connect(m_grip, &CFlyoutGrip::dragged, this, &CPaneFlyout::dragTo);
    connect(&m_slide, &QVariantAnimation::valueChanged, this,
            [this](const QVariant& share) { reveal(share.toReal()); });
    connect(&m_slide, &QVariantAnimation::finished, this, [this] {
        if (!m_slidingIn)
            return;
        stop();
        emit slidIn();
    });
}

void CPaneFlyout::setTitle(const QString& title)
{
    m_titleBar->setTitle(title);
    setAccessibleName(title);
}

void CPaneFlyout::setView(QWidget* view)
{
    if (m_view)
        m_column->removeWidget(m_view);
    m_view = view;
    if (!view)
        return;
    m_column->addWidget(view, 1);
    view->show();
}

void CPaneFlyout::place(Qt::DockWidgetArea side, const QRect& bar, int extent, QSize minimum,
                        QSize maximum)
{
    m_side = side;
    const bool upright = isUpright(side);
    const int least = upright ? minimum.width() : minimum.height();
    const int most = qMin(upright ? maximum.width() : maximum.height(),
                          roomBeside(side, bar, parentWidget()->size()));
    m_full = besideBar(side, bar, qBound(least, extent, qMax(least, most)));
    placeGrip();
    m_frame->resize(m_full.size());
    reveal(m_share);
}

void CPaneFlyout::placeGrip()
{
    m_grip->setDirection(isUpright(m_side) ? Qt::Horizontal : Qt::Vertical);
    m_grid->removeWidget(m_grip);
    switch (m_side) {
    case Qt::RightDockWidgetArea:
        return m_grid->addWidget(m_grip, 1, 0);
    case Qt::TopDockWidgetArea:
        return m_grid->addWidget(m_grip, 2, 1);
    case Qt::BottomDockWidgetArea:
        return m_grid->addWidget(m_grip, 0, 1);
    default:
        return m_grid->addWidget(m_grip, 1, 2);
    }
}

void CPaneFlyout::reveal(qreal share)
{
    m_share = share;
    QRect shown = m_full;
    QPoint frameAt(0, 0);
    if (isUpright(m_side))
        shown.setWidth(qRound(m_full.width() * share));
    else
        shown.setHeight(qRound(m_full.height() * share));
    if (m_side == Qt::RightDockWidgetArea)
        shown.moveRight(m_full.right());
    else if (m_side == Qt::BottomDockWidgetArea)
        shown.moveBottom(m_full.bottom());
    else
        frameAt = QPoint(shown.width() - m_full.width(), shown.height() - m_full.height());
    setGeometry(shown);
    m_frame->move(frameAt);
}

void CPaneFlyout::slideOut()
{
    m_slidingIn = false;
    m_slide.stop();
    show();
    raise();
    focusView();
    m_slide.setDuration(style()->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, this));
    m_slide.setStartValue(m_share);
    m_slide.setEndValue(1.0);
    m_slide.start();
}

void CPaneFlyout::slideIn()
{
    if (isHidden() || m_slidingIn)
        return;
    m_slide.stop();
    m_slidingIn = true;
    m_slide.setDuration(style()->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, this));
    m_slide.setStartValue(m_share);
    m_slide.setEndValue(0.0);
    m_slide.start();
}

void CPaneFlyout::stop()
{
    m_slidingIn = false;
    m_slide.stop();
    hide();
    reveal(0);
}

void CPaneFlyout::focusView()
{
    if (!m_view || !focusInside(*m_view))
        m_frame->setFocus(Qt::OtherFocusReason);
}

void CPaneFlyout::dragTo(QPoint distance)
{
    const int along = isUpright(m_side) ? distance.x() : distance.y();
    const bool outwards = m_side == Qt::LeftDockWidgetArea || m_side == Qt::TopDockWidgetArea;
    emit extentDragged(m_extentAtPress + (outwards ? along : -along));
}

void CPaneFlyout::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape)
        emit leaveRequested();
    else
        QWidget::keyPressEvent(event);
}
