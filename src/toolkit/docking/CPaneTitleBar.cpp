#include "toolkit/docking/CPaneTitleBar.h"

#include "toolkit/docking/CPaneTitleButton.h"

#include <QContextMenuEvent>
#include <QFontMetrics>
#include <QHBoxLayout>
#include <QMenu>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionDockWidget>

CPaneTitleBar::CPaneTitleBar(QWidget* parent)
    : QWidget(parent)
    , m_autoHide(new CPaneTitleButton(CPaneTitleButton::Sign::AutoHide, this))
    , m_float(new CPaneTitleButton(CPaneTitleButton::Sign::Float, this))
    , m_close(new CPaneTitleButton(CPaneTitleButton::Sign::Close, this))
{
    m_autoHide->setObjectName(QStringLiteral("autoHideButton"));
    m_float->setObjectName(QStringLiteral("floatButton"));
    m_close->setObjectName(QStringLiteral("closeButton"));
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);

    auto* layout = new QHBoxLayout(this);
    layout->setSpacing(0);
    layout->addStretch();
    for (CPaneTitleButton* button : {m_autoHide, m_float, m_close})
        layout->addWidget(button);
    applyMetrics();

    connect(m_autoHide, &CPaneTitleButton::clicked, this, &CPaneTitleBar::autoHideRequested);
    connect(m_float, &CPaneTitleButton::clicked, this, &CPaneTitleBar::floatRequested);
    connect(m_close, &CPaneTitleButton::clicked, this, &CPaneTitleBar::closeRequested);
}

void CPaneTitleBar::setTitle(const QString& title)
{
    m_title = title;
    setAccessibleName(title);
    update();
}

void CPaneTitleBar::setMode(Mode mode)
{
    m_mode = mode;
    const bool hidden = mode == Mode::HiddenToSide;
    const bool floating = mode == Mode::Floating;
    m_autoHide->setVisible(!floating);
    m_autoHide->setSign(hidden ? CPaneTitleButton::Sign::Pin : CPaneTitleButton::Sign::AutoHide);
    m_float->setVisible(!hidden);
    m_float->setSign(floating ? CPaneTitleButton::Sign::Dock : CPaneTitleButton::Sign::Float);
}

QMenu* CPaneTitleBar::makeMenu()
{
    auto* menu = new QMenu(this);
    const auto add = [&](const QString& text, const char* name, bool isOffered, auto request) {
        QAction* action = menu->addAction(text);
        action->setObjectName(QLatin1String(name));
        action->setEnabled(isOffered);
        // After the menu is gone: what follows may take this title bar away.
        connect(action, &QAction::triggered, this, request, Qt::QueuedConnection);
    };
    const bool isHidden = m_mode == Mode::HiddenToSide;
    const bool isFloating = m_mode == Mode::Floating;
    if (isHidden)
        add(tr("&Dock"), "dock", true, &CPaneTitleBar::autoHideRequested);
    else
        add(tr("&Dock"), "dock", isFloating, &CPaneTitleBar::floatRequested);
    add(tr("&Float"), "float", m_mode == Mode::Docked, &CPaneTitleBar::floatRequested);
    add(tr("&Hide to Side"), "hide", m_mode == Mode::Docked, &CPaneTitleBar::autoHideRequested);
    menu->addSeparator();
    add(tr("&Close"), "close", true, &CPaneTitleBar::closeRequested);
    return menu;
}

void CPaneTitleBar::contextMenuEvent(QContextMenuEvent* event)
{
    QMenu* menu = makeMenu();
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const bool isByKey = event->reason() == QContextMenuEvent::Keyboard;
    menu->popup(isByKey ? mapToGlobal(rect().bottomLeft()) : event->globalPos());
}

QSize CPaneTitleBar::minimumSizeHint() const
{
    // The title is elided; the buttons and the height of the text are not.
    const int margin = style()->pixelMetric(QStyle::PM_DockWidgetTitleMargin, nullptr, this);
    const QSize buttons = layout()->minimumSize();
    return QSize(buttons.width(), qMax(buttons.height(), fontMetrics().height() + 2 * margin));
}

void CPaneTitleBar::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    QStyleOptionDockWidget option;
    option.initFrom(this);
    style()->drawControl(QStyle::CE_DockWidgetTitle, &option, &painter, this);

    const int margin = style()->pixelMetric(QStyle::PM_DockWidgetTitleMargin, nullptr, this);
    const int inset = style()->pixelMetric(QStyle::PM_ButtonMargin, nullptr, this);
    const CPaneTitleButton* first = m_autoHide->isHidden() ? m_float : m_autoHide;
    QRect place = rect();
    if (layoutDirection() == Qt::LeftToRight)
        place.setCoords(inset, 0, first->x() - margin, height() - 1);
    else
        place.setCoords(first->geometry().right() + margin, 0, width() - 1 - inset, height() - 1);
    const QString text = fontMetrics().elidedText(m_title, Qt::ElideRight, place.width());
    style()->drawItemText(&painter, place, Qt::AlignVCenter | Qt::AlignLeading, palette(),
                          isEnabled(), text, QPalette::WindowText);
}

void CPaneTitleBar::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::StyleChange)
        applyMetrics();
    if (event->type() == QEvent::FontChange)
        updateGeometry();
}

void CPaneTitleBar::applyMetrics()
{
    const int margin = style()->pixelMetric(QStyle::PM_DockWidgetTitleMargin, nullptr, this);
    layout()->setContentsMargins(margin, margin, margin, margin);
}
