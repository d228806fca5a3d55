#pragma once

#include "host/canvas/display/Style.h"
#include "host/canvas/geometry/Affine2.h"
#include "host/canvas/scene/LayerLooks.h"
#include "host/canvas/scene/lines/LineSettings.h"
#include "host/canvas/scene/lines/Pen.h"
#include "host/canvas/strokes/StrokeLook.h"

#include <optional>

class Scene;

/// Where a display list stands while it is painted.
struct PaintContext
{
    Affine2 map; ///< to pixels of the image
    bool isNested = false; ///< inside a block reference
    quint32 layer = 0; ///< of the reference
    QRgb colour = 0; ///< of the reference, and so are its lines
    quint32 linetype = Pen::kContinuous;
    int weight = -3;
    quint8 alpha = 255;
    bool isFaded = false;
};

/// Decides whether, in which colour and with which lines items are painted.
///
/// A reference on a frozen layer hides all it contains; one on a layer that is off hides only what
/// stands on layer "0" of the block and so takes the reference's layer. Colour "by block" is the
/// reference's, and so are linetype, lineweight and transparency. What stands on a locked layer, or
/// in a reference that does, is faded.
class StyleResolver
{
public:
    struct Surroundings
    {
        QRgb background = 0;
        bool isDark = false;
        LineSettings lines;
        double pixelsPerMillimetre = 0; ///< of lineweights
        int thinnest = 1; ///< pixels
    };
    StyleResolver(const LayerLooks& looks, const Scene& scene, const Surroundings& surroundings)
        : m_looks(looks)
        , m_scene(scene)
        , m_around(surroundings)
    { }

    quint32 layerOf(Style style, const PaintContext& context) const
    {
        return style.layer == 0 && context.isNested ? context.layer : style.layer;
    }
    bool isFrozen(quint32 layer) const { return m_looks[layer].isFrozen; }
    /// Colour to paint with, or none for what is hidden. What is transparent is mixed with the
    /// background.
    std::optional<QRgb> visibleColour(Style style, const PaintContext& context) const;
    /// The same for areas, which let through what is below them: with alpha.
    std::optional<QRgb> visibleFill(Style style, const PaintContext& context) const;
    /// Line to paint with, or none for what is hidden.
    std::optional<StrokeLook> visibleStroke(Style style, const PaintContext& context) const;
    /// The context inside a reference; none when it hides all it contains.
    std::optional<PaintContext> inside(Style reference, const PaintContext& context) const;

private:
    QRgb plainColour(Style style, const PaintContext& context) const;
    quint32 linetypeOf(const Pen& pen, quint32 layer, const PaintContext& context) const;
    int weightOf(const Pen& pen, quint32 layer, const PaintContext& context) const;
    quint8 alphaOf(Style style, quint32 layer, const PaintContext& context) const;
    int widthOf(int weight) const;

    const LayerLooks& m_looks;
    const Scene& m_scene;
    Surroundings m_around;
};
