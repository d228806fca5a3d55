#include "host/canvas/render/StyleResolver.h"

#include "database/values/OdCmColor.h"
#include "host/canvas/scene/Scene.h"

namespace {

constexpr int kByLayerWeight = -1;
constexpr int kByBlockWeight = -2;
constexpr int kWidest = 2000; ///< pixels
constexpr quint32 kByBlockTransparency = 0x01000000;

/// `share` of 255 of the colour, the rest background.
QRgb mixed(QRgb colour, QRgb background, int share)
{
    const auto mix = [share](int a, int b) { return (a * share + b * (255 - share)) / 255; };
    return qRgb(mix(qRed(colour), qRed(background)), mix(qGreen(colour), qGreen(background)),
                mix(qBlue(colour), qBlue(background)));
}

} // namespace

QRgb StyleResolver::plainColour(Style style, const PaintContext& context) const
{
    quint32 packed = style.colour;
    if (OdCmColor::fromPacked(packed).isByLayer())
        packed = m_looks[layerOf(style, context)].colour;
    const OdCmColor colour = OdCmColor::fromPacked(packed);
    if (colour.colorMethod() == OdCmColor::kByBlock && context.isNested)
        return context.colour;
    return colour.rgb(m_around.isDark);
}

quint32 StyleResolver::linetypeOf(const Pen& pen, quint32 layer, const PaintContext& context) const
{
    if (pen.linetype == Pen::kByLayer)
        return m_looks[layer].linetype;
    return pen.linetype == Pen::kByBlock ? context.linetype : pen.linetype;
}

int StyleResolver::weightOf(const Pen& pen, quint32 layer, const PaintContext& context) const
{
    if (pen.weight == kByLayerWeight)
        return m_looks[layer].weight;
    return pen.weight == kByBlockWeight ? context.weight : pen.weight;
}

quint8 StyleResolver::alphaOf(Style style, quint32 layer, const PaintContext& context) const
{
    const quint32 stated = style.pen == 0 ? 0 : m_scene.pens()[style.pen].transparency;
    if (stated == 0)
        return m_looks[layer].alpha;
    return stated == kByBlockTransparency ? context.alpha : ::alphaOf(stated);
}

int StyleResolver::widthOf(int weight) const
{
    const int stated = weight < 0 ? m_around.lines.defaultWeight : weight;
    const double pixels = stated / 100.0 * m_around.pixelsPerMillimetre;
    return std::max(m_around.thinnest,
                    static_cast<int>(std::lround(std::min(pixels, 1.0 * kWidest))));
}

std::optional<QRgb> StyleResolver::visibleFill(Style style, const PaintContext& context) const
{
    const quint32 layer = layerOf(style, context);
    const LayerLooks::Look& look = m_looks[layer];
    if (look.isFrozen || look.isOff)
        return std::nullopt;
    QRgb colour = plainColour(style, context);
    const int fade = m_around.lines.lockedFade;
    if (fade > 0 && (context.isFaded || look.isLocked))
        colour = mixed(colour, m_around.background, (100 - fade) * 255 / 100);
    return qRgba(qRed(colour), qGreen(colour), qBlue(colour), alphaOf(style, layer, context));
}

std::optional<QRgb> StyleResolver::visibleColour(Style style, const PaintContext& context) const
{
    const std::optional<QRgb> fill = visibleFill(style, context);
    if (!fill || qAlpha(*fill) == 255)
        return fill;
    return mixed(*fill, m_around.background, qAlpha(*fill));
}

std::optional<StrokeLook> StyleResolver::visibleStroke(Style style,
                                                       const PaintContext& context) const
{
    const auto colour = visibleColour(style, context);
    if (!colour)
        return std::nullopt;
    const Pen& pen = m_scene.pens()[style.pen];
    const quint32 layer = layerOf(style, context);
    StrokeLook look{*colour, m_around.thinnest};
    if (m_around.lines.showsWeights)
        look.width = widthOf(weightOf(pen, layer, context));
    const DashPattern& pattern = m_scene.linetypes()[linetypeOf(pen, layer, context)];
    if (!pattern.isContinuous()) {
        look.pattern = &pattern;
        look.patternScale = m_around.lines.patternScale * pen.scale;
    }
    return look;
}

std::optional<PaintContext> StyleResolver::inside(Style reference,
                                                  const PaintContext& context) const
{
    const quint32 layer = layerOf(reference, context);
    const LayerLooks::Look& look = m_looks[layer];
    if (look.isFrozen)
        return std::nullopt;
    const Pen& pen = m_scene.pens()[reference.pen];
    PaintContext result;
    result.isNested = true;
    result.layer = layer;
    result.colour = plainColour(reference, context);
    result.linetype = linetypeOf(pen, layer, context);
    result.weight = weightOf(pen, layer, context);
    result.alpha = alphaOf(reference, layer, context);
    result.isFaded = context.isFaded || look.isLocked;
    return result;
}
