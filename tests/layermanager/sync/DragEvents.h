#pragma once

#include <QApplication>
#include <QDragEnterEvent>
#include <QMimeData>
#include <QWidget>

/// The events of a drag over a widget, as the toolkit sends them. Only a widget that accepted the
/// drag when it entered hears of the rest.
class DragEvents
{
public:
    DragEvents(QWidget& target, const QMimeData& data)
        : m_target(target)
        , m_data(data)
    { }

    /// The action that a drop there would have; one that is refused has none.
    Qt::DropAction enter(QPoint place, Qt::KeyboardModifiers modifiers)
    {
        return send<QDragEnterEvent>(place, modifiers);
    }
    Qt::DropAction move(QPoint place, Qt::KeyboardModifiers modifiers)
    {
        return send<QDragMoveEvent>(place, modifiers);
    }
    bool drop(QPoint place, Qt::KeyboardModifiers modifiers)
    {
        return send<QDropEvent>(place, modifiers) != Qt::IgnoreAction;
    }
    void leave()
    {
        QDragLeaveEvent event;
        QApplication::sendEvent(&m_target, &event);
    }

private:
    template <class Event, class Place>
    Qt::DropAction send(Place place, Qt::KeyboardModifiers modifiers)
    {
        Event event(place, Qt::CopyAction | Qt::MoveAction | Qt::LinkAction, &m_data,
                    Qt::LeftButton, modifiers);
        QApplication::sendEvent(&m_target, &event);
        return event.isAccepted() ? event.dropAction() : Qt::IgnoreAction;
    }

    QWidget& m_target;
    const QMimeData& m_data;
};
