#pragma once

#include "host/canvas/geometry/Affine2.h"

#include <QPointF>
#include <QSizeF>

/// Which part of the drawing a window shows: the point in its centre and the scale. y points up in
/// the drawing and down in the window.
class ViewTransform
{
public:
    Vec2 centre() const { return m_centre; }
    /// Window pixels per drawing unit.
    double scale() const { return m_scale; }
    QSizeF size() const { return m_size; }

    /// The centre stays where it is.
    void setSize(QSizeF size) { m_size = size; }
    void setCentre(Vec2 centre) { m_centre = centre; }
    /// Moves the drawing by window pixels.
    void pan(QPointF by);
    /// Scales about a point of the window; stops where numbers would lose their meaning.
    void zoomAbout(QPointF point, double factor);
    /// Shows a box with a margin around it. An empty box shows the unit square, and so does
    /// one that no drawing can have.
    void fit(const Box2& box);

    Affine2 toWindow() const;
    QPointF toWindow(Vec2 world) const;
    Vec2 toWorld(QPointF window) const;

    friend bool operator==(const ViewTransform&, const ViewTransform&) = default;

private:
    Vec2 m_centre;
    double m_scale = 1;
    QSizeF m_size{1, 1};
};
