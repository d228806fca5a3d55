#include "host/canvas/render/LineBatcher.h"

#include <QPainter>
#include <QPen>

LineBatcher::Bucket& LineBatcher::bucket(QRgb colour, int width)
{
    const quint64 key = quint64(static_cast<quint32>(width)) << 32 | colour;
    return m_buckets.try_emplace(key, colour, width, m_isSmooth || width > kWidestPlain)
        .first->second;
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
    QPen pen(QColor::fromRgb(bucket.m_colour), bucket.m_width);
    // Lines that meet at an angle, and the chords of curves, would gape otherwise.
    if (bucket.m_width > m_penWidth)
        pen.setCapStyle(Qt::RoundCap);
    m_painter->setPen(pen);
    m_painter->drawLines(bucket.m_waiting.data(), static_cast<int>(bucket.m_waiting.size()));
    bucket.m_waiting.clear();
}
