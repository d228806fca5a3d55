#include "toolkit/docking/PaneFocus.h"

#include <QWidget>

namespace {

bool takesKeys(const QWidget& widget, const QWidget& view)
{
    return (widget.focusPolicy() & Qt::TabFocus) && widget.isVisibleTo(&view) && widget.isEnabled();
}

/// The first widget inside that takes the focus by key; null when there is none.
QWidget* firstFocusable(QWidget& view)
{
    QWidget* widget = &view;
    do {
        const bool inside = widget == &view || view.isAncestorOf(widget);
        if (inside && takesKeys(*widget, view))
            return widget;
        widget = widget->nextInFocusChain();
    } while (widget && widget != &view);
    return nullptr;
}

} // namespace

bool focusInside(QWidget& view)
{
    QWidget* target = view.focusWidget();
    if (!target || !target->isVisibleTo(&view))
        target = firstFocusable(view);
    if (!target)
        return false;
    target->window()->activateWindow();
    target->setFocus(Qt::OtherFocusReason);
    return true;
}
