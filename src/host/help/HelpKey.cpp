#include "host/help/HelpKey.h"

#include "host/help/HelpTopics.h"
#include "sdk/LocalSearch.h"
#include "toolkit/CXTPDockingPane.h"

#include <QApplication>
#include <QKeyEvent>
#include <QWidget>

namespace {
constexpr char kProperty[] = "helpTopic";
}

HelpKey::HelpKey(QObject* parent)
    : QObject(parent)
{
    qApp->installEventFilter(this);
}

void HelpKey::setTopic(QWidget& widget, int topic)
{
    widget.setProperty(kProperty, topic);
}

int HelpKey::topicOf(const QWidget* widget)
{
    for (; widget; widget = widget->parentWidget()) {
        const QVariant topic = widget->property(kProperty);
        if (topic.isValid())
            return topic.toInt();
        if (const auto* pane = qobject_cast<const CXTPDockingPane*>(widget))
            return pane->GetID();
        if (widget->isWindow())
            break;
    }
    return help_topics::kContents;
}

bool HelpKey::eventFilter(QObject* watched, QEvent* event)
{
    const auto* widget = qobject_cast<QWidget*>(watched);
    if (event->type() != QEvent::KeyPress || !widget)
        return QObject::eventFilter(watched, event);
    const auto* key = static_cast<QKeyEvent*>(event);
    if (key->key() != Qt::Key_F1 || key->modifiers() != Qt::NoModifier)
        return QObject::eventFilter(watched, event);
    LocalSearch::CommandRefHelp(topicOf(widget));
    return true;
}
