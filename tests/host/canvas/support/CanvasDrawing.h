#pragma once

#include <QByteArray>
#include <QByteArrayList>

/// Writes small drawings for tests. Entities are given one per line as the type and then code=value
/// words: "LINE 8=Walls 10=0 20=0 11=5 21=5". A tilde stands for a blank in a value.
class CanvasDrawing
{
public:
    /// `colour` negative: the layer is off; `flags`: 1 frozen, 4 locked.
    CanvasDrawing& layer(const char* name, int colour, int flags = 0, const char* handle = nullptr);
    /// The same with further groups: "6=DASHED 370=50".
    CanvasDrawing& layerWith(const char* name, int colour, const QByteArray& words);
    CanvasDrawing& textStyle(const char* words);
    /// A linetype of those lengths: "10 -5 0 -5"; `words`: further groups at the end.
    CanvasDrawing& linetype(const char* name, const QByteArray& lengths,
                            const QByteArray& words = {});
    /// A header variable: "$LTSCALE", "40=2".
    CanvasDrawing& variable(const char* name, const QByteArray& word);
    /// A block whose base point is (`x`, `y`).
    CanvasDrawing& block(const QByteArray& name, double x, double y, const QByteArray& entities);
    CanvasDrawing& add(const QByteArray& entities);
    /// A layout of that name for the sheet "*Paper_Space", with that paper: width, height, the
    /// margins on the left, below, on the right and above in millimetres, and quarter turns of the
    /// plot.
    CanvasDrawing& paper(const char* name, const QByteArray& words);
    /// One entity of those tags.
    static QByteArray tags(const QByteArray& words);

    QByteArray bytes() const;

private:
    QByteArray m_header;
    QByteArray m_linetypes;
    QByteArray m_layers;
    QByteArray m_styles;
    QByteArray m_blocks;
    QByteArray m_entities;
    QByteArray m_objects;
};
