#pragma once

#include "host/canvas/render/ViewTransform.h"

#include <QImage>

#include <vector>

class CCanvas;

/// What a canvas shows, pixel by pixel, asked in coordinates of the drawing.
class CanvasPicture
{
public:
    using Path = std::vector<Vec2>;

    /// Completes the canvas and takes its picture.
    explicit CanvasPicture(CCanvas& canvas);

    const QImage& image() const { return m_image; }
    bool isEmpty() const { return litCount() == 0; }
    int litCount() const;
    /// Box around all lit pixels, in the drawing's coordinates.
    Box2 litBox() const;
    /// Whether a pixel within one of the point's differs from the background.
    bool isLit(Vec2 point) const;
    /// Colour of the pixel nearest the point that differs from the background; else the background.
    QRgb colourAt(Vec2 point) const;
    QRgb background() const { return m_background; }
    /// Share of lit pixels in a box, 0 to 1.
    double coverage(const Box2& box) const;
    /// In words what is wrong when the strokes seen are not those of the path: points that are not
    /// lit, or lit pixels away from it. Empty when all is well.
    QString mismatch(const Path& path) const;

    /// Points along shapes, less than a pixel apart.
    static Path line(Vec2 from, Vec2 to);
    static Path polyline(const std::vector<Vec2>& corners, bool closed = false);
    /// Angles in degrees.
    static Path arc(Vec2 centre, double radius, double from, double to);
    static Path together(const std::vector<Path>& paths);

private:
    bool isLitPixel(int x, int y) const;

    QImage m_image;
    QRgb m_background;
    ViewTransform m_view;
};
