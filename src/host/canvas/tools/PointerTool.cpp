#include "host/canvas/tools/PointerTool.h"

void PointerTool::setQuestion(const HostQuestion* question)
{
    m_isAsked = question != nullptr;
    m_wants = question ? question->wants : Wants::Text;
    m_isCorner = question && question->isCorner;
    m_from.reset();
    if (question && question->from)
        m_from = Vec2{question->from->x(), question->from->y()};
    cancel();
}

void PointerTool::press(Vec2 point, bool hits, bool removes)
{
    m_at = point;
    if (m_wants == Wants::Point) {
        emit pointPicked(point);
    } else if (!isSelecting()) {
        return;
    } else if (m_start) {
        finish(point, removes);
    } else if (hits) {
        emit entityPicked(point, removes);
    } else {
        m_start = point;
        m_isPressed = true;
    }
}

void PointerTool::move(Vec2 point)
{
    m_at = point;
}

void PointerTool::release(Vec2 point, bool dragged, bool removes)
{
    m_at = point;
    if (m_start && m_isPressed && dragged)
        finish(point, removes);
    m_isPressed = false;
}

bool PointerTool::cancel()
{
    m_isPressed = false;
    const bool wasBegun = m_start.has_value();
    m_start.reset();
    return wasBegun;
}

/// From left to right it is a window, from right to left a crossing.
void PointerTool::finish(Vec2 corner, bool removes)
{
    const Vec2 start = *m_start;
    cancel();
    emit boxPicked(Box2::of(start, corner), corner.x < start.x, removes);
}

PointerTool::Rubber PointerTool::rubber() const
{
    using Kind = Rubber::Kind;
    if (m_start)
        return {m_at.x < m_start->x ? Kind::Crossing : Kind::Window, *m_start, m_at};
    if (!m_from || m_wants == Wants::Text)
        return {};
    return {m_isCorner ? Kind::Corner : Kind::Line, *m_from, m_at};
}
