#include "host/canvas/strokes/LineBatcher.h"

#include <QPainter>
#include <QPen>

LineBatcher::Bucket& LineBatcher::bucket(QRgb colour, int width)
{
    const quint64 key = quint64(static_cast<quint32>(width)) << 32 | colour;
    const bool isThin = width <= m_penWidth;
    Bucket::Way way = isThin ? Bucket::Way::Collected : Bucket::Way::Wide;
    if (!m_isSmooth && (isThin || width <= kWidestPlain))
        way = Bucket::Way::Plain;
    return m_buckets.try_emplace(key, colour, width, way).first->second;
}

void LineBatcher::flush()
{
    for (auto& [key, bucket] : m_buckets)
        paint(bucket);
}

void LineBatcher::paint(Bucket& bucket)
{
    if (bucket.m_waiting.empty())
        return;
    m_painter->setPen(QPen(QColor::fromRgb(bucket.m_colour), bucket.m_width));
    m_painter->drawLines(bucket.m_waiting.data(), static_cast<int>(bucket.m_waiting.size()));
    bucket.m_waiting.clear();
}
