#pragma once

#include "host/canvas/geometry/Affine2.h"
#include "host/canvas/scene/LayerLooks.h"
#include "host/canvas/scene/Style.h"

#include <QRgb>

#include <optional>

/// Where a display list stands while it is painted.
struct PaintContext
{
    Affine2 map; ///< to pixels of the image
    bool isNested = false; ///< inside a block reference
    quint32 layer = 0; ///< of the reference
    QRgb colour = 0; ///< of the reference
    bool isFaded = false;
};

/// Decides whether and in which colour items are painted.
///
/// A reference on a frozen layer hides all it contains; one on a layer that is off hides only what
/// stands on layer "0" of the block and so takes the reference's layer. Colour "by block" is the
/// reference's. What stands on a locked layer, or in a reference that does, is faded.
class StyleResolver
{
public:
    StyleResolver(const LayerLooks& looks, QRgb background, bool isDark)
        : m_looks(looks)
        , m_background(background)
        , m_isDark(isDark)
    { }

    quint32 layerOf(Style style, const PaintContext& context) const
    {
        return style.layer == 0 && context.isNested ? context.layer : style.layer;
    }
    bool isFrozen(quint32 layer) const { return m_looks[layer].isFrozen; }
    /// Colour to paint with, or none for what is hidden.
    std::optional<QRgb> visibleColour(Style style, const PaintContext& context) const;
    /// The context inside a reference; none when it hides all it contains.
    std::optional<PaintContext> inside(Style reference, const PaintContext& context) const;

private:
    QRgb plainColour(Style style, const PaintContext& context) const;

    const LayerLooks& m_looks;
    QRgb m_background;
    bool m_isDark;
};
