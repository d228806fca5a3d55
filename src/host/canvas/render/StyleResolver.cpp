#include "host/canvas/render/StyleResolver.h"

#include "database/OdCmColor.h"

namespace {

constexpr int kFadePercent = 50;

QRgb faded(QRgb colour, QRgb background)
{
    const auto mix = [](int a, int b) {
        return (a * (100 - kFadePercent) + b * kFadePercent) / 100;
    };
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
    return colour.rgb(m_isDark);
}

std::optional<QRgb> StyleResolver::visibleColour(Style style, const PaintContext& context) const
{
    const LayerLooks::Look& look = m_looks[layerOf(style, context)];
    if (look.isFrozen || look.isOff)
        return std::nullopt;
    const QRgb colour = plainColour(style, context);
    return context.isFaded || look.isLocked ? faded(colour, m_background) : colour;
}

std::optional<PaintContext> StyleResolver::inside(Style reference,
                                                  const PaintContext& context) const
{
    const quint32 layer = layerOf(reference, context);
    const LayerLooks::Look& look = m_looks[layer];
    if (look.isFrozen)
        return std::nullopt;
    PaintContext result;
    result.isNested = true;
    result.layer = layer;
    result.colour = plainColour(reference, context);
    result.isFaded = context.isFaded || look.isLocked;
    return result;
}
