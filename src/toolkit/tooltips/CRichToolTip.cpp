#include "toolkit/tooltips/CRichToolTip.h"

#include <QApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>
#include <QStyle>
#include <QStyleHintReturnMask>
#include <QStyleOptionFrame>
#include <QToolTip>

#include <algorithm>

namespace {
constexpr int kFrame = 1;
constexpr int kPadding = 2;
constexpr int kGap = 3; ///< between the control and the tooltip
constexpr int kCursorHeight = 20;
constexpr int kLargeControl = 64; ///< a higher one is explained where the cursor is
constexpr int kShortest = 10000; // milliseconds
constexpr int kPerCharacter = 40; // milliseconds

const QColor kFrameColour(118, 118, 128);
} // namespace

CRichToolTip::CRichToolTip(const ToolTipElement& contents, const QColor& background, int margin)
    : QWidget(nullptr, Qt::ToolTip | Qt::FramelessWindowHint | Qt::BypassGraphicsProxyWidget)
    , m_layout(contents, QToolTip::font())
    , m_background(background)
    , m_inset(kFrame + std::max(kPadding + margin, 0))
{
    setObjectName(QStringLiteral("richToolTip"));
    setAttribute(Qt::WA_DeleteOnClose);
    setAttribute(Qt::WA_ShowWithoutActivating);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setAccessibleName(m_layout.plainText());
    setFixedSize(m_layout.size() + QSize(2 * m_inset, 2 * m_inset));
    const qreal opacity = style()->styleHint(QStyle::SH_ToolTipLabel_Opacity, nullptr, this);
    setWindowOpacity(opacity / 255.0);
    m_expiry.setSingleShot(true);
    const auto length = static_cast<int>(m_layout.plainText().size());
    m_expiry.setInterval(kShortest + kPerCharacter * std::max(0, length - 100));
    connect(&m_expiry, &QTimer::timeout, this, &QWidget::close);
}

QPoint CRichToolTip::placeFor(QSize size, const QRect& control, QPoint cursor, const QRect& screen)
{
    const bool isLarge = control.height() > kLargeControl;
    const int below = isLarge ? cursor.y() + kCursorHeight : control.bottom() + 1 + kGap;
    const int above = (isLarge ? cursor.y() : control.top()) - kGap - size.height();
    const bool fitsBelow = below + size.height() - 1 <= screen.bottom();
    const int lowest = std::max(screen.top(), screen.bottom() + 1 - size.height());
    const int rightmost = std::max(screen.left(), screen.right() + 1 - size.width());
    return QPoint(std::clamp(cursor.x(), screen.left(), rightmost),
                  std::clamp(fitsBelow ? below : above, screen.top(), lowest));
}

void CRichToolTip::showFor(QWidget& control, const QRect& rect, QPoint cursor)
{
    m_control = &control;
    m_rect = rect;
    const QScreen* screen = QGuiApplication::screenAt(cursor);
    if (!screen)
        screen = control.screen();
    move(placeFor(size(), rect, cursor, screen->availableGeometry()));
    qApp->installEventFilter(this);
    show();
    m_expiry.start();
}

void CRichToolTip::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.fillRect(rect(), m_background);
    painter.setPen(kFrameColour);
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
    painter.translate(m_inset, m_inset);
    m_layout.paint(painter, m_background);
}

bool CRichToolTip::ends(const QEvent& event, const QObject* watched) const
{
    switch (event.type()) {
    case QEvent::KeyPress:
    case QEvent::ShortcutOverride:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::Wheel:
    case QEvent::ApplicationDeactivate:
    case QEvent::WindowDeactivate:
    case QEvent::FocusOut:
        return true;
    case QEvent::MouseMove:
        return !m_rect.contains(static_cast<const QMouseEvent&>(event).globalPosition().toPoint());
    case QEvent::Leave:
    case QEvent::Hide:
    case QEvent::EnabledChange:
        return watched == m_control;
    default:
        return !m_control;
    }
}

bool CRichToolTip::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != this && isVisible() && ends(*event, watched))
        close();
    return QWidget::eventFilter(watched, event);
}
