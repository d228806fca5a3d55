#pragma once

#include "host/application/HostQuestion.h"
#include "host/canvas/geometry/Box2.h"

#include <QObject>

/// What the left button of the mouse means over a drawing: a point that was asked for, an entity,
/// or the corners of a rectangle, dragged or clicked one after the other. Knows points of the
/// drawing only, so that the view may move meanwhile.
class PointerTool : public QObject
{
    Q_OBJECT
public:
    using Wants = HostQuestion::Wants;

    /// A shape that follows the cursor.
    struct Rubber
    {
        enum class Kind { None, Line, Corner, Window, Crossing };
        Kind kind = Kind::None;
        Vec2 from;
        Vec2 to;
    };

    using QObject::QObject;

    /// A question is open, or none; another one than before ends a rectangle that was begun. False
    /// when it is the same.
    bool setQuestion(const HostQuestion* question);
    Wants wants() const { return m_wants; }
    bool isIdle() const { return !m_isAsked; }
    bool isSelecting() const { return m_wants == Wants::Objects || !m_isAsked; }

    /// `hits`: something can be picked there. `removes`: Shift is held.
    void press(Vec2 point, bool hits, bool removes);
    void move(Vec2 point);
    /// `dragged`: the cursor went away from where the button was pressed.
    void release(Vec2 point, bool dragged, bool removes);
    /// Gives a begun rectangle up; false when there is none.
    bool cancel();

    Rubber rubber() const;

signals:
    void pointPicked(Vec2 point);
    void entityPicked(Vec2 point, bool removes);
    void boxPicked(const Box2& box, bool isCrossing, bool removes);

private:
    void finish(Vec2 corner, bool removes);

    Wants m_wants = Wants::Text;
    bool m_isAsked = false;
    std::optional<Vec2> m_from; ///< of the question
    bool m_isCorner = false;
    std::optional<Vec2> m_start; ///< of a rectangle
    bool m_isPressed = false;
    Vec2 m_at;
};
