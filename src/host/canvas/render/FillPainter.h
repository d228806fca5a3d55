#pragma once

#include "host/canvas/display/DisplayList.h"
#include "host/canvas/render/ErasedFilter.h"

#include <QRgb>

class QPainter;

/// Paints filled areas.
class FillPainter
{
public:
    void setVisible(const Box2& visible) { m_visible = visible; }
    void paint(QPainter& painter, const DisplayList& list, const FillItem& fill, const Affine2& map,
               QRgb colour);

private:
    Box2 m_visible;
    std::vector<Vec2> m_points;
};
