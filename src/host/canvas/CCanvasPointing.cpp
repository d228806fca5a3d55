#include "host/canvas/CCanvas.h"
#include "host/canvas/CanvasContents.h"
#include "host/canvas/Crosshair.h"
#include "host/canvas/picking/EntityPicker.h"
#include "host/canvas/picking/ShapeTests.h"
#include "host/canvas/tools/RubberPainter.h"

#include <QMouseEvent>
#include <QPainter>

// The part of the canvas that points at things and shows what was pointed at.

void CCanvas::refreshPicks() const
{
    if (!m_picks)
        m_picks = m_contents->pickScene();
}

Affine2 CCanvas::userMap() const
{
    refreshPicks();
    return m_picks->placement;
}

Vec2 CCanvas::userPoint(QPointF window) const
{
    const Vec2 seen = m_view.toWorld(window);
    const Affine2 map = userMap();
    return map.isInvertible() ? map.inverted().map(seen) : seen;
}

double CCanvas::pickReach() const
{
    return m_crosshair->boxSize() / 2 / (m_view.scale() * userMap().scale());
}

void CCanvas::setQuestion(const HostQuestion* question)
{
    if (!m_pointer.setQuestion(question))
        return;
    using Wants = HostQuestion::Wants;
    const Wants wants = question ? question->wants : Wants::Text;
    update(m_crosshair->region());
    m_crosshair->setShape(wants == Wants::Point         ? Crosshair::Shape::Cross
                              : wants == Wants::Objects ? Crosshair::Shape::Box
                                                        : Crosshair::Shape::Both);
    update();
}

void CCanvas::setSelected(const std::vector<quint32>& entities)
{
    m_glow.setSelected(entities);
    update();
}

bool CCanvas::cancelRectangle()
{
    const bool wasBegun = m_pointer.cancel();
    if (wasBegun)
        update();
    return wasBegun;
}

void CCanvas::setDragging(bool on)
{
    m_isDragging = on;
    updatePointer();
}

/// What a viewport cuts off is not there to be picked.
bool CCanvas::isSeen(QPointF window) const
{
    refreshPicks();
    const Vec2 at = m_view.toWorld(window);
    if (m_picks->frame.isEmpty())
        return true;
    return m_picks->frame.contains(at)
        && (m_picks->clip.empty() || shape_tests::isAround(m_picks->clip, at));
}

void CCanvas::pressAt(const QMouseEvent& event)
{
    m_pressedAt = event.position();
    const Vec2 point = userPoint(event.position());
    const bool hits = m_pointer.isSelecting() && m_contents->isReady() && isSeen(event.position())
        && EntityPicker(*m_picks).nearest(point, pickReach());
    m_pointer.press(point, hits, event.modifiers() & Qt::ShiftModifier);
    update();
}

Box2 CCanvas::seenPart(const Box2& box) const
{
    refreshPicks();
    if (m_picks->frame.isEmpty() || !m_picks->placement.isInvertible())
        return box;
    return box.intersected(m_picks->placement.inverted().mapBox(m_picks->frame));
}

void CCanvas::changeView(const ViewTransform& view)
{
    m_history.leave(m_view);
    setView(view);
}

void CCanvas::driftTo(const ViewTransform& view)
{
    m_history.drift(m_view);
    applyView(view);
}

bool CCanvas::showPreviousView()
{
    const auto view = m_history.takeLast();
    if (view)
        setView(*view);
    return view.has_value();
}

void CCanvas::paintSelection(QPainter& painter)
{
    if (m_glow.isEmpty())
        return;
    refreshPicks();
    m_glow.paint(painter, *m_picks, m_view, devicePixelRatioF(), isDark());
}

void CCanvas::paintRubber(QPainter& painter) const
{
    const PointerTool::Rubber rubber = m_pointer.rubber();
    // Without the cursor over the drawing there is no other end.
    if (rubber.kind == PointerTool::Rubber::Kind::None || !m_crosshair->isShown())
        return;
    const Affine2 map = userMap();
    RubberPainter::paint(painter, rubber.kind, m_view.toWindow(map.map(rubber.from)),
                         m_view.toWindow(map.map(rubber.to)), palette());
}
