#pragma once

#include <QRgb>

#include <algorithm>
#include <cmath>

/// A line as wide as a lineweight asks for, with round ends: how much of a pixel it covers.
class WideLine
{
public:
    /// Ends in pixels, `width` at least 1.
    WideLine(double x1, double y1, double x2, double y2, double width)
        : m_x(x1)
        , m_y(y1)
        , m_dx(x2 - x1)
        , m_dy(y2 - y1)
        , m_radius(width / 2)
    {
        const double square = m_dx * m_dx + m_dy * m_dy;
        m_perSquare = square > 0 ? 1 / square : 0;
    }

    bool isFlat() const { return std::abs(m_dx) >= std::abs(m_dy); }
    /// Share of the pixel around that point, 0 to 1.
    double coverage(double x, double y) const
    {
        const double ox = x - m_x;
        const double oy = y - m_y;
        const double t = std::clamp((ox * m_dx + oy * m_dy) * m_perSquare, 0.0, 1.0);
        const double ex = ox - t * m_dx;
        const double ey = oy - t * m_dy;
        const double square = ex * ex + ey * ey;
        const double inner = m_radius - 0.5;
        if (inner > 0 && square <= inner * inner)
            return 1;
        return std::clamp(m_radius + 0.5 - std::sqrt(square), 0.0, 1.0);
    }

    /// The pixels across the line that it may touch at a place along its major axis.
    struct Reach
    {
        double low, high;
    };
    Reach across(double along) const
    {
        const double major = isFlat() ? m_dx : m_dy;
        const double minor = isFlat() ? m_dy : m_dx;
        const double start = isFlat() ? m_x : m_y;
        const double t = major != 0 ? std::clamp((along - start) / major, 0.0, 1.0) : 0;
        const double middle = (isFlat() ? m_y : m_x) + t * minor;
        // At most as slanted as a diagonal.
        const double half = (m_radius + 1) * 1.4143;
        return {middle - half, middle + half};
    }
    /// Its extent along the major axis.
    Reach along() const
    {
        const double a = isFlat() ? m_x : m_y;
        const double b = a + (isFlat() ? m_dx : m_dy);
        return {std::min(a, b) - m_radius - 1, std::max(a, b) + m_radius + 1};
    }

private:
    double m_x, m_y;
    double m_dx, m_dy;
    double m_radius;
    double m_perSquare;
};

/// `share` of the colour over what is there.
inline QRgb blended(QRgb below, QRgb colour, double share)
{
    const int part = static_cast<int>(share * 256);
    const auto mix = [part](int a, int b) { return a + ((b - a) * part >> 8); };
    return qRgb(mix(qRed(below), qRed(colour)), mix(qGreen(below), qGreen(colour)),
                mix(qBlue(below), qBlue(colour)));
}
