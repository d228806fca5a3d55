#pragma once

#include "host/canvas/display/DisplayItems.h"
#include "host/canvas/strokes/LineBatcher.h"
#include "host/canvas/text/TextShaper.h"

/// Paints texts: readable ones by their outlines, smaller ones as a line where they stand.
class TextPainter
{
public:
    TextPainter(const TextPool& pool, TextShaper& shaper, LineBatcher& batcher)
        : m_pool(pool)
        , m_shaper(shaper)
        , m_batcher(batcher)
    { }

    void setVisible(const Box2& visible) { m_visible = visible; }
    void paint(QPainter& painter, const TextItem& text, const Affine2& map, QRgb colour);

private:
    void paintLines(const TextItem& text, const Affine2& place, LineBatcher::Bucket& bucket);

    const TextPool& m_pool;
    TextShaper& m_shaper;
    LineBatcher& m_batcher;
    Box2 m_visible;
};
