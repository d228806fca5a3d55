#include "WindowPicture.h"

#include <QApplication>
#include <QDialog>
#include <QPainter>
#include <QStyleOptionTitleBar>
#include <QWidget>

#include <algorithm>

namespace {

constexpr int kTitleHeight = 28;

bool isPartOfPicture(const QWidget& widget)
{
    return widget.isVisible()
        && (qobject_cast<const QDialog*>(&widget) || widget.windowType() == Qt::Popup);
}

/// A dialog stands over the one that opened it, a list or menu over all of them.
int height(const QWidget& widget)
{
    int parents = 0;
    for (const QWidget* parent = widget.parentWidget(); parent; parent = parent->parentWidget())
        parents += parent->isWindow() ? 1 : 0;
    return parents + (widget.windowType() == Qt::Popup ? 100 : 0);
}

void paintTitleBar(QPainter& painter, QWidget& dialog, QRect place)
{
    QStyleOptionTitleBar bar;
    bar.initFrom(&dialog);
    bar.rect = place;
    bar.text = dialog.windowTitle();
    bar.icon = dialog.windowIcon();
    bar.titleBarFlags = Qt::Window | Qt::WindowTitleHint | Qt::WindowSystemMenuHint;
    bar.titleBarState = dialog.isActiveWindow() ? Qt::WindowActive : Qt::WindowNoState;
    bar.subControls = QStyle::SC_TitleBarLabel | QStyle::SC_TitleBarCloseButton;
    bar.state.setFlag(QStyle::State_Active, dialog.isActiveWindow());
    dialog.style()->drawComplexControl(QStyle::CC_TitleBar, &bar, &painter, &dialog);
}

} // namespace

WindowPicture::WindowPicture(QWidget& window)
    : m_window(window)
    , m_image(window.grab().toImage())
{
    QList<QWidget*> shown;
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        if (widget != &window && isPartOfPicture(*widget))
            shown.append(widget);
    }
    std::stable_sort(shown.begin(), shown.end(),
                     [](const QWidget* a, const QWidget* b) { return height(*a) < height(*b); });
    for (QWidget* widget : std::as_const(shown))
        add(*widget);
}

void WindowPicture::add(QWidget& shown)
{
    QPainter painter(&m_image);
    const QRect place = shown.geometry().translated(-m_window.geometry().topLeft());
    painter.drawPixmap(place.topLeft(), shown.grab());
    if (shown.windowType() == Qt::Popup)
        return;
    const QRect bar(place.left(), place.top() - kTitleHeight, place.width(), kTitleHeight);
    paintTitleBar(painter, shown, bar);
    painter.setPen(shown.palette().color(QPalette::Shadow));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(bar.united(place).adjusted(-1, -1, 0, 0));
}

void WindowPicture::addDragged(const QPixmap& pixmap, QPoint at)
{
    QPainter(&m_image).drawPixmap(at - m_window.geometry().topLeft(), pixmap);
}
