#pragma once

#include <QImage>
#include <QRgb>

#include <vector>

/// Draws plain lines of one colour straight into an image: several times as fast as a painter for
/// the short lines that drawings consist of.
class LineRaster
{
public:
    /// The image has 32 bits a pixel, is not shared, and lives as long as this does.
    explicit LineRaster(QImage& image);

    /// Nothing is drawn outside of that part of the image.
    void setClip(const QRect& clip);
    /// Nothing is drawn where the mask, of 8 bits a pixel and the image's size, is 0. A null mask
    /// hides nothing.
    void setMask(const QImage& mask);
    /// Ends in pixels, anywhere; (0, 0) is the corner of the first pixel. `thickness` in pixels.
    void line(double x1, double y1, double x2, double y2, QRgb colour, int thickness)
    {
        if (thickness <= 1)
            thinLine(x1, y1, x2, y2, colour);
        else
            thickLine(x1, y1, x2, y2, colour, thickness);
    }

    /// The same with round ends and soft edges.
    void wideLine(double x1, double y1, double x2, double y2, QRgb colour, int width);

private:
    struct Span
    {
        double from, to; ///< along the major axis
        double first, last; ///< across it, at either end
    };
    bool isInside(double x, double y) const
    {
        return x >= m_left && x <= m_right && y >= m_top && y <= m_bottom;
    }
    void thickLine(double x1, double y1, double x2, double y2, QRgb colour, int thickness);
    void thinLine(double x1, double y1, double x2, double y2, QRgb colour);
    template <class Set>
    static void walk(const Span& span, std::ptrdiff_t majorStep, std::ptrdiff_t minorStep, Set set);

    QRgb* m_pixels;
    std::ptrdiff_t m_stride; ///< in pixels
    std::vector<uchar> m_mask; ///< a byte for each of m_pixels, or none
    double m_left = 0;
    double m_top = 0;
    double m_right = 0;
    double m_bottom = 0;
};
