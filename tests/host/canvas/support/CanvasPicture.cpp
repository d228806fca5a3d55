#include "host/canvas/support/CanvasPicture.h"

#include "host/canvas/CCanvas.h"

#include <numbers>

namespace {

constexpr int kPoints = 4000;
constexpr int kNear = 1; ///< pixels: where a stroke may round to

} // namespace

CanvasPicture::CanvasPicture(CCanvas& canvas)
{
    canvas.completeNow();
    m_view = canvas.view();
    m_background = canvas.palette().color(QPalette::Base).rgb();
    m_image = canvas.grab().toImage().convertToFormat(QImage::Format_RGB32);
}

bool CanvasPicture::isLitPixel(int x, int y) const
{
    return m_image.valid(x, y) && m_image.pixel(x, y) != m_background;
}

int CanvasPicture::litCount() const
{
    int count = 0;
    for (int y = 0; y < m_image.height(); ++y) {
        for (int x = 0; x < m_image.width(); ++x)
            count += isLitPixel(x, y) ? 1 : 0;
    }
    return count;
}

Box2 CanvasPicture::litBox() const
{
    Box2 box;
    for (int y = 0; y < m_image.height(); ++y) {
        for (int x = 0; x < m_image.width(); ++x) {
            if (!isLitPixel(x, y))
                continue;
            box.add(m_view.toWorld(QPointF(x, y)));
            box.add(m_view.toWorld(QPointF(x + 1, y + 1)));
        }
    }
    return box;
}

QRgb CanvasPicture::colourAt(Vec2 point) const
{
    const QPointF at = m_view.toWindow(point);
    const QPoint pixel(static_cast<int>(std::floor(at.x())), static_cast<int>(std::floor(at.y())));
    QRgb colour = m_background;
    int nearest = 3 * kNear;
    for (int dy = -kNear; dy <= kNear; ++dy) {
        for (int dx = -kNear; dx <= kNear; ++dx) {
            const QPoint p = pixel + QPoint(dx, dy);
            if (isLitPixel(p.x(), p.y()) && std::abs(dx) + std::abs(dy) < nearest) {
                nearest = std::abs(dx) + std::abs(dy);
                colour = m_image.pixel(p);
            }
        }
    }
    return colour;
}

bool CanvasPicture::isLit(Vec2 point) const
{
    return colourAt(point) != m_background;
}

double CanvasPicture::coverage(const Box2& box) const
{
    const QRect pixels =
        QRectF(m_view.toWindow({box.minX, box.maxY}), m_view.toWindow({box.maxX, box.minY}))
            .toRect()
            .intersected(m_image.rect());
    int lit = 0;
    for (int y = pixels.top(); y <= pixels.bottom(); ++y) {
        for (int x = pixels.left(); x <= pixels.right(); ++x)
            lit += isLitPixel(x, y) ? 1 : 0;
    }
    return static_cast<double>(lit) / std::max(1, pixels.width() * pixels.height());
}

QString CanvasPicture::mismatch(const Path& path) const
{
    QImage near(m_image.size(), QImage::Format_Grayscale8);
    near.fill(0);
    for (const Vec2 point : path) {
        if (!isLit(point))
            return QStringLiteral("not lit: %1, %2").arg(point.x).arg(point.y);
        const QPointF at = m_view.toWindow(point);
        const int px = static_cast<int>(std::floor(at.x()));
        const int py = static_cast<int>(std::floor(at.y()));
        for (int y = py - kNear; y <= py + kNear; ++y) {
            for (int x = px - kNear; x <= px + kNear; ++x) {
                if (near.valid(x, y))
                    near.scanLine(y)[x] = 255;
            }
        }
    }
    for (int y = 0; y < m_image.height(); ++y) {
        for (int x = 0; x < m_image.width(); ++x) {
            if (!isLitPixel(x, y) || near.constScanLine(y)[x] != 0)
                continue;
            const Vec2 world = m_view.toWorld(QPointF(x + 0.5, y + 0.5));
            return QStringLiteral("lit aside: %1, %2").arg(world.x).arg(world.y);
        }
    }
    return {};
}

CanvasPicture::Path CanvasPicture::line(Vec2 from, Vec2 to)
{
    Path path;
    for (int i = 0; i <= kPoints; ++i)
        path.push_back(from + (to - from) * (static_cast<double>(i) / kPoints));
    return path;
}

CanvasPicture::Path CanvasPicture::polyline(const std::vector<Vec2>& corners, bool closed)
{
    Path path;
    for (std::size_t i = 1; i < corners.size() + (closed ? 1 : 0); ++i) {
        const Path part = line(corners[i - 1], corners[i % corners.size()]);
        path.insert(path.end(), part.begin(), part.end());
    }
    return path;
}

CanvasPicture::Path CanvasPicture::arc(Vec2 centre, double radius, double from, double to)
{
    Path path;
    for (int i = 0; i <= kPoints; ++i) {
        const double angle = (from + (to - from) * i / kPoints) * std::numbers::pi / 180;
        path.push_back(centre + Vec2{std::cos(angle), std::sin(angle)} * radius);
    }
    return path;
}

CanvasPicture::Path CanvasPicture::together(const std::vector<Path>& paths)
{
    Path all;
    for (const Path& path : paths)
        all.insert(all.end(), path.begin(), path.end());
    return all;
}
