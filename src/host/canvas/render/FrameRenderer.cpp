#include "host/canvas/render/FrameRenderer.h"

#include "host/canvas/scene/Scene.h"
#include "host/canvas/strokes/LineClip.h"

#include <QPainter>
#include <QPainterPath>

namespace {

constexpr int kStepsBetweenLooksAtTheClock = 16;
constexpr double kBeyondTheEdge = 2; ///< pixels
// Lineweights of model space: about their true size on a usual screen, however close one looks.
constexpr double kPixelsPerMillimetre = 4.0;

/// A box that is empty may have any numbers, which pixels have not.
QRect pixelRect(const Box2& box)
{
    if (box.isEmpty())
        return {};
    return QRectF(QPointF(box.minX, box.minY), QPointF(box.maxX, box.maxY)).toAlignedRect();
}

} // namespace

FrameRenderer::FrameRenderer(const FrameRequest& request)
    : m_request(request)
    , m_image(request.pixels, QImage::Format_RGB32)
    , m_batcher(m_image, request.penWidth, request.isSmooth)
    , m_strokes(m_batcher, *request.erased)
    , m_texts(request.scene->texts(), *request.shaper, m_batcher)
{
    m_image.fill(request.background);
    if (!request.paper.isEmpty())
        paintPaper();
}

void FrameRenderer::paintPaper()
{
    m_image.fill(m_request.desk);
    const Box2 image{0, 0, double(m_image.width()), double(m_image.height())};
    const Box2 seen =
        m_request.view.mapBox(m_request.paper).intersected(image.grown(kBeyondTheEdge));
    if (seen.isEmpty())
        return;
    QPainter painter(&m_image);
    const QRect paper = pixelRect(seen);
    painter.fillRect(paper, QColor::fromRgb(m_request.background));
    painter.setPen(QPen(QColor::fromRgb(m_request.paperEdge), m_request.penWidth));
    painter.drawRect(paper);
}

bool FrameRenderer::run(QDeadlineTimer until)
{
    QPainter painter(&m_image);
    m_batcher.setPainter(&painter);
    painter.setRenderHint(QPainter::Antialiasing, m_request.isSmooth);
    if (m_part > 0 && !isDone())
        beginPart(painter);
    bool more = !isDone();
    while (more && !until.hasExpired()) {
        for (int i = 0; more && i < kStepsBetweenLooksAtTheClock; ++i)
            more = advance(painter);
    }
    m_batcher.flush();
    m_batcher.setPainter(nullptr);
    return !more;
}

/// Clips to the part that is being painted.
void FrameRenderer::beginPart(QPainter& painter)
{
    const ScenePart& part = m_request.parts[m_part - 1];
    const Box2 image{0, 0, double(m_image.width()), double(m_image.height())};
    m_visible = image.grown(kBeyondTheEdge);
    painter.setClipping(false);
    if (part.isPlaced) {
        const Box2 frame = m_request.view.mapBox(part.frame);
        m_visible = m_visible.intersected(frame);
        painter.setClipRect(pixelRect(m_visible.intersected(image)));
    }
    m_batcher.setClip(pixelRect(m_visible.intersected(image)));
    clipToOutline(painter, part);
    StyleResolver::Surroundings around{m_request.background, m_request.isDark, part.lines};
    around.thinnest = m_request.penWidth;
    around.pixelsPerMillimetre = part.lines.paperUnits > 0
        ? part.lines.paperUnits * m_request.view.scale()
        : kPixelsPerMillimetre * m_request.penWidth;
    m_styles.emplace(*part.looks, *m_request.scene, around);
    m_strokes.setVisible(m_visible);
    m_fills.setVisible(m_visible);
    m_texts.setVisible(m_visible);
}

/// Clips to the outline of a viewport that is no rectangle, besides its frame.
void FrameRenderer::clipToOutline(QPainter& painter, const ScenePart& part)
{
    if (part.clip.empty()) {
        m_batcher.setMask({});
        return;
    }
    // Cut off first: pixels far away are too many for a painter.
    std::vector<Vec2> outline;
    for (const Vec2 p : part.clip)
        outline.push_back(m_request.view.map(p));
    clipContour(Box2{0, 0, double(m_image.width()), double(m_image.height())}, outline);
    QPainterPath path;
    if (!outline.empty())
        path.moveTo(outline.front().x, outline.front().y);
    for (const Vec2 p : outline)
        path.lineTo(p.x, p.y);
    path.closeSubpath();
    painter.setClipPath(path, Qt::IntersectClip);
    QImage mask(m_image.size(), QImage::Format_Alpha8);
    mask.fill(0);
    QPainter(&mask).fillPath(path, Qt::white);
    m_batcher.setMask(mask);
}

Affine2 FrameRenderer::rootMap(const ScenePart& part) const
{
    return part.isPlaced ? m_request.view.after(part.placement) : m_request.view;
}

/// Starts the next pass, or the first pass of the next part; false after the last one.
bool FrameRenderer::nextPass(QPainter& painter)
{
    m_batcher.flush();
    if (m_pass == Pass::End || m_pass == Pass::Texts) {
        if (++m_part > m_request.parts.size())
            return false;
        beginPart(painter);
        m_pass = Pass::Fills;
    } else {
        m_pass = m_pass == Pass::Fills ? Pass::Strokes : Pass::Texts;
    }
    if (m_visible.isEmpty())
        return true;
    const ScenePart& part = m_request.parts[m_part - 1];
    const DisplayList& list = m_request.scene->block(part.block);
    Level root{&list, {}};
    root.context.map = rootMap(part);
    if (isWanted(list))
        m_stack.push_back(root);
    return true;
}

bool FrameRenderer::isWanted(const DisplayList& list) const
{
    switch (m_pass) {
    case Pass::Fills:
        return list.totals().hasFills;
    case Pass::Texts:
        return list.totals().hasTexts;
    default:
        return true;
    }
}

/// One small piece of work; false when there is none left.
bool FrameRenderer::advance(QPainter& painter)
{
    if (m_stack.empty())
        return nextPass(painter);
    Level& level = m_stack.back();
    if (!paintOwn(painter, level) && !descend(level))
        m_stack.pop_back();
    return true;
}

bool FrameRenderer::paintOwn(QPainter& painter, Level& level)
{
    switch (m_pass) {
    case Pass::Fills:
        return paintFills(painter, level);
    case Pass::Strokes:
        return paintStrokes(level);
    case Pass::Texts:
        return paintTexts(painter, level);
    case Pass::End:
        break;
    }
    return false;
}

bool FrameRenderer::paintStrokes(Level& level)
{
    if (level.group >= level.list->groups().size())
        return false;
    const DisplayList::StrokeGroup& group = level.list->groups()[level.group];
    const Affine2& map = level.context.map;
    if (level.chunk == 0 && !level.isArcs)
        beginGroup(level, group.style);
    if (level.bucket && !level.isArcs && level.chunk < group.segments.chunks().size()) {
        if (level.look.pattern)
            m_dashes.segments(group.segments, level.chunk++, map, level.look, *level.bucket);
        else
            m_strokes.segments(group.segments, level.chunk++, map, *level.bucket);
        return true;
    }
    if (level.bucket && !level.isArcs) {
        level.isArcs = true;
        level.chunk = 0;
    }
    if (level.bucket && level.chunk < group.arcs.chunks().size()) {
        if (level.look.pattern)
            m_dashes.arcs(group.arcs, level.chunk++, map, level.look, *level.bucket);
        else
            m_strokes.arcs(group.arcs, level.chunk++, map, *level.bucket);
        return true;
    }
    if (level.bucket && level.look.pattern)
        m_dashes.rays(group.rays, map, level.look, *level.bucket);
    else if (level.bucket)
        m_strokes.rays(group.rays, map, *level.bucket);
    ++level.group;
    level.chunk = 0;
    level.isArcs = false;
    return true;
}

void FrameRenderer::beginGroup(Level& level, Style style)
{
    level.bucket = nullptr;
    const auto look = m_styles->visibleStroke(style, level.context);
    if (!look)
        return;
    level.bucket = &m_batcher.bucket(look->colour, look->width);
    level.look = *look;
    if (!DashedPainter::isWorthIt(*look, level.context.map))
        level.look.pattern = nullptr;
}

bool FrameRenderer::paintFills(QPainter& painter, Level& level)
{
    const ChunkedList<FillItem>& fills = level.list->fills();
    if (level.chunk >= fills.chunks().size())
        return false;
    const auto& chunk = fills.chunks()[level.chunk];
    if (level.context.map.mapBox(chunk.box).meets(m_visible)) {
        const bool hasErased = m_request.erased->touches(chunk);
        for (std::size_t i = fills.chunkBegin(level.chunk); i < fills.chunkEnd(level.chunk); ++i) {
            if (hasErased && m_request.erased->isErased(fills.owner(i)))
                continue;
            if (const auto colour = m_styles->visibleFill(fills[i].style, level.context))
                m_fills.paint(painter, *level.list, fills[i], level.context.map, *colour);
        }
    }
    ++level.chunk;
    return true;
}

bool FrameRenderer::paintTexts(QPainter& painter, Level& level)
{
    const ChunkedList<TextItem>& texts = level.list->texts();
    if (level.chunk >= texts.chunks().size())
        return false;
    const auto& chunk = texts.chunks()[level.chunk];
    if (level.context.map.mapBox(chunk.box).meets(m_visible)) {
        // Letters are always smooth, or small ones could not be read.
        painter.setRenderHint(QPainter::Antialiasing, true);
        const bool hasErased = m_request.erased->touches(chunk);
        for (std::size_t i = texts.chunkBegin(level.chunk); i < texts.chunkEnd(level.chunk); ++i) {
            const TextItem& text = texts[i];
            const bool isGated = text.gate != kNoIndex
                && m_styles->isFrozen(m_styles->layerOf({text.gate}, level.context));
            if (isGated || (hasErased && m_request.erased->isErased(texts.owner(i))))
                continue;
            if (const auto colour = m_styles->visibleColour(text.style, level.context))
                m_texts.paint(painter, text, level.context.map, *colour);
        }
        painter.setRenderHint(QPainter::Antialiasing, m_request.isSmooth);
    }
    ++level.chunk;
    return true;
}

/// At the start of a chunk of references: passes over it when none of them can be seen.
bool FrameRenderer::skipChunk(Level& level) const
{
    const ChunkedList<BlockInstance>& instances = level.list->instances();
    constexpr std::size_t kSize = ChunkedList<BlockInstance>::kChunkSize;
    if (level.cell != 0 || level.instance % kSize != 0)
        return false;
    const std::size_t chunk = level.instance / kSize;
    if (level.context.map.mapBox(instances.chunks()[chunk].box).meets(m_visible))
        return false;
    level.instance = instances.chunkEnd(chunk);
    return true;
}

/// Goes on with the references of a list; false behind the last one.
bool FrameRenderer::descend(Level& level)
{
    const ChunkedList<BlockInstance>& instances = level.list->instances();
    if (level.instance >= instances.size())
        return false;
    if (skipChunk(level))
        return true;
    const std::size_t index = level.instance;
    const BlockInstance& instance = instances[index];
    const bool isSkipped = instance.block == kNoIndex
        || !isWanted(m_request.scene->block(instance.block))
        || m_request.erased->isErased(instances.owner(index))
        || !level.context.map.mapBox(instance.bounds).meets(m_visible);
    if (isSkipped) {
        ++level.instance;
        return true;
    }
    const quint64 cell = level.cell++;
    if (level.cell >= instance.count()) {
        level.cell = 0;
        ++level.instance;
    }
    enterCell(level, instance, cell);
    return true;
}

void FrameRenderer::enterCell(const Level& level, const BlockInstance& instance, quint64 cell)
{
    const DisplayList& list = m_request.scene->block(instance.block);
    const auto column = static_cast<quint32>(cell % instance.columns);
    const auto row = static_cast<quint32>(cell / instance.columns);
    const Affine2 map = level.context.map.after(instance.cell(column, row));
    const Box2 box = map.mapBox(list.totals().box);
    if (!box.meets(m_visible))
        return;
    auto context = m_styles->inside(instance.style, level.context);
    if (!context)
        return;
    if (box.width() < StrokePainter::kDot && box.height() < StrokePainter::kDot) {
        const auto colour = m_styles->visibleColour(instance.style, level.context);
        if (colour && m_pass == Pass::Strokes)
            m_batcher.addDot(m_batcher.bucket(*colour), box.minX, box.minY);
        return;
    }
    context->map = map;
    m_stack.push_back({&list, *context});
}
