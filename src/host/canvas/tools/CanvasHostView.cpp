#include "host/canvas/tools/CanvasHostView.h"

#include "host/canvas/CCanvas.h"

double CanvasHostView::pickReach() const
{
    return m_canvas.pickReach();
}

double CanvasHostView::height() const
{
    return m_canvas.height() / (m_canvas.view().scale() * m_canvas.userMap().scale());
}

Vec2 CanvasHostView::centre() const
{
    return m_canvas.userMap().inverted().map(m_canvas.view().centre());
}

void CanvasHostView::showBox(const Box2& box)
{
    const double aspect = double(m_canvas.width()) / std::max(1, m_canvas.height());
    const double height = std::max(box.height(), box.width() / aspect);
    if (height > 0)
        centreOn(box.centre(), height);
}

void CanvasHostView::showAll(double factor)
{
    m_canvas.zoomExtents();
    ViewTransform view = m_canvas.view();
    view.zoomAbout(QRectF(m_canvas.rect()).center(), factor);
    m_canvas.setView(view);
}

void CanvasHostView::centreOn(Vec2 centre, double height)
{
    const Affine2 map = m_canvas.userMap();
    ViewTransform view = m_canvas.view();
    view.setCentre(map.map(centre));
    const double scale = m_canvas.height() / (height * map.scale());
    view.zoomAbout(QRectF(m_canvas.rect()).center(), scale / view.scale());
    m_canvas.changeView(view);
}

bool CanvasHostView::showPrevious()
{
    return m_canvas.showPreviousView();
}

void CanvasHostView::setDragging(bool on)
{
    m_canvas.setDragging(on);
}
