#include "host/canvas/tools/SelectionGlow.h"

#include "host/canvas/picking/ItemWalk.h"
#include "host/canvas/picking/ShapeTests.h"
#include "host/canvas/strokes/LineClip.h"
#include "host/canvas/strokes/LineRaster.h"

#include <QPainter>
#include <QPainterPath>

namespace {

constexpr double kOpacity = 0.7;
constexpr int kThickness = 3; ///< window pixels
constexpr double kTolerance = 0.25; ///< pixels between an arc and its chords
constexpr double kBeyondTheEdge = 8; ///< pixels

/// Draws the strokes of selected entities.
class GlowItems : public ItemVisitor
{
public:
    GlowItems(QImage& image, const Affine2& toPixels, const Box2& clip, int thickness, QRgb colour)
        : m_raster(image)
        , m_thickness(thickness)
        , m_toPixels(toPixels)
        , m_clip(clip)
        , m_colour(colour)
    {
        const Box2 whole{0, 0, double(image.width()), double(image.height())};
        const Box2 inside = clip.intersected(whole);
        m_raster.setClip(inside.isEmpty() ? QRect()
                                          : QRectF(QPointF(inside.minX, inside.minY),
                                                   QPointF(inside.maxX, inside.maxY))
                                                .toRect());
    }
    void setSelected(const std::vector<bool>& isSelected) { m_isSelected = &isSelected; }

    Box2 region() const override
    {
        return m_toPixels.isInvertible() ? m_toPixels.inverted().mapBox(m_clip) : Box2();
    }
    Interest interest(const Box2& box) const override
    {
        return m_toPixels.mapBox(box).meets(m_clip) ? Interest::Items : Interest::None;
    }
    bool wants(quint32 owner) const override
    {
        return owner < m_isSelected->size() && (*m_isSelected)[owner];
    }
    void whole(quint32) override { }
    void segment(quint32, Vec2 from, Vec2 to) override
    {
        line(m_toPixels.map(from), m_toPixels.map(to));
    }
    void arc(quint32, const CurveArc& arc) override
    {
        shape_tests::anyChord(arc.mapped(m_toPixels), m_clip, kTolerance, [this](Vec2 a, Vec2 b) {
            line(a, b);
            return false;
        });
    }
    void ray(quint32, const Ray& ray) override
    {
        const Vec2 from = m_toPixels.map(ray.from);
        const Vec2 direction = m_toPixels.mapVector(ray.direction);
        const double length = direction.length();
        if (!(length > 0))
            return;
        const double reach = (m_clip.centre() - from).length() + m_clip.width() + m_clip.height();
        const Vec2 end = direction * (reach / length);
        line(ray.isTwoSided ? from - end : from, from + end);
    }
    void text(quint32, const std::array<Vec2, 4>& corners) override
    {
        outline(corners, m_toPixels);
    }
    void fill(quint32, const DisplayList& list, const FillItem& fill, const Affine2& map) override
    {
        for (quint32 i = fill.firstContour; i < fill.endContour; ++i)
            outline(list.contour(i), m_toPixels.after(map));
    }

private:
    void outline(std::span<const Vec2> contour, const Affine2& map)
    {
        for (std::size_t i = 0; i < contour.size(); ++i)
            line(map.map(contour[i]), map.map(contour[(i + 1) % contour.size()]));
    }
    void line(Vec2 from, Vec2 to)
    {
        if (clipLine(m_clip, from, to))
            m_raster.line(from.x, from.y, to.x, to.y, m_colour, m_thickness);
    }

    LineRaster m_raster;
    int m_thickness;
    Affine2 m_toPixels;
    Box2 m_clip;
    QRgb m_colour;
    const std::vector<bool>* m_isSelected = nullptr;
};

QRgb glowColour(bool isDark)
{
    return isDark ? qRgb(0x3f, 0xa7, 0xff) : qRgb(0x2f, 0x8f, 0xff);
}

} // namespace

void SelectionGlow::setSelected(const std::vector<quint32>& entities)
{
    m_isSelected.clear();
    for (const quint32 slot : entities) {
        if (m_isSelected.size() <= slot)
            m_isSelected.resize(std::max<std::size_t>(slot + 1, 2 * m_isSelected.size()));
        m_isSelected[slot] = true;
    }
    m_count = entities.size();
    invalidate();
}

void SelectionGlow::render(const PickScene& picks, const ViewTransform& view, double pixelRatio,
                           bool isDark)
{
    m_view = view;
    m_image = QImage((view.size() * pixelRatio).toSize(), QImage::Format_ARGB32_Premultiplied);
    m_image.fill(Qt::transparent);
    const Affine2 toPixels{{pixelRatio, 0}, {0, pixelRatio}, {}, {}};
    const Affine2 windowMap = toPixels.after(view.toWindow());
    Box2 clip = Box2{0, 0, double(m_image.width()), double(m_image.height())}.grown(kBeyondTheEdge);
    if (!picks.frame.isEmpty())
        clip = clip.intersected(windowMap.mapBox(picks.frame));
    if (clip.isEmpty())
        return;
    GlowItems items(m_image, windowMap.after(picks.placement), clip,
                    static_cast<int>(std::lround(kThickness * pixelRatio)), glowColour(isDark));
    items.setSelected(m_isSelected);
    ItemWalk(picks, items).run();
}

void SelectionGlow::paint(QPainter& painter, const PickScene& picks, const ViewTransform& view,
                          double pixelRatio, bool isDark)
{
    if (isEmpty() || picks.isEmpty())
        return;
    if (m_image.isNull() || m_view != view)
        render(picks, view, pixelRatio, isDark);
    painter.save();
    if (!picks.clip.empty()) {
        QPolygonF outline;
        for (const Vec2 point : picks.clip)
            outline << view.toWindow(point);
        QPainterPath path;
        path.addPolygon(outline);
        painter.setClipPath(path);
    }
    painter.setOpacity(kOpacity);
    painter.drawImage(QRectF(QPointF(0, 0), view.size()), m_image);
    painter.restore();
}
