#include "host/canvas/tools/PointerTool.h"

bool PointerTool::setQuestion(const HostQuestion* question)
{
    std::optional<Vec2> from;
    if (question && question->from)
        from = Vec2{question->from->x(), question->from->y()};
    const bool isAsked = question != nullptr;
    const Wants wants = question ? question->wants : Wants::Text;
    if (isAsked == m_isAsked && wants == m_wants && from == m_from)
        return false;
    m_isAsked = isAsked;
    m_wants = wants;
    m_from = from;
    m_isCorner = question && question->isCorner;
    cancel();
    return true;
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
