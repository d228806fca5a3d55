#pragma once

#include <QColor>
#include <QHash>
#include <QPixmap>

/// The icons of the layer grid, the filter tree and the toolbars.
enum class LayerIcon {
    StatusCurrent,
    StatusNotInUse,
    StatusInUse,
    On,
    Off,
    Thawed,
    Frozen,
    Unlocked,
    Locked,
    Plot,
    NoPlot,
    NewViewportThawed,
    NewViewportFrozen,
    ViewportThawed,
    ViewportFrozen,
    FilterAll,
    FilterUsed,
    FilterProperty,
    FilterGroup,
    FilterReference,
    FilterUnreconciled,
    ToolNewPropertyFilter,
    ToolNewGroupFilter,
    ToolLayerStates,
    ToolNewLayer,
    ToolNewLayerFrozen,
    ToolDeleteLayer,
    ToolSetCurrent,
    ToolRefresh,
    ToolSettings,
    ToolFilterTree,
    ToolSearch,
};

/// What an icon is drawn on.
enum class LayerIconGround { Light, Dark, Selection };

inline bool isDark(const QColor& color)
{
    return qGray(color.rgb()) < 128;
}

inline LayerIconGround iconGround(const QColor& ground)
{
    return isDark(ground) ? LayerIconGround::Dark : LayerIconGround::Light;
}
/// Of a selection, whose texts tell how dark it is: an accent is often neither.
inline LayerIconGround iconGroundOfSelection(const QColor& text)
{
    return isDark(text) ? LayerIconGround::Light : LayerIconGround::Selection;
}

/// Draws the icons from their SVG files in tints that suit the background, and keeps the pictures.
class LayerIcons
{
public:
    /// `size`: width and height in device-independent pixels. `ratio`: device pixels for each of
    /// them.
    QPixmap pixmap(LayerIcon icon, int size, qreal ratio, LayerIconGround ground) const;

    static int count();
    /// File name without extension.
    static QString name(LayerIcon icon);

private:
    static QPixmap render(LayerIcon icon, int size, qreal ratio, LayerIconGround ground);

    mutable QHash<quint64, QPixmap> m_pixmaps;
};
