#include "host/dialogs/SearchKeys.h"

#include <QAbstractItemView>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QLineEdit>

SearchKeys::SearchKeys(QLineEdit& search, QAbstractItemView& list)
    : QObject(&search)
    , m_list(list)
{
    search.installEventFilter(this);
}

bool SearchKeys::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::KeyPress)
        return QObject::eventFilter(watched, event);
    switch (static_cast<QKeyEvent*>(event)->key()) {
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
        QCoreApplication::sendEvent(&m_list, event);
        return true;
    default:
        return QObject::eventFilter(watched, event);
    }
}
