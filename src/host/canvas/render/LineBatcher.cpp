#include "host/canvas/render/LineBatcher.h"

#include <QPainter>
#include <QPen>

void LineBatcher::flush()
{
    for (auto& [colour, bucket] : m_buckets)
        paint(bucket);
}

void LineBatcher::paint(Bucket& bucket)
{
    if (bucket.m_waiting.empty())
        return;
    m_painter->setPen(QPen(QColor::fromRgb(bucket.m_colour), m_penWidth));
    m_painter->drawLines(bucket.m_waiting.data(), static_cast<int>(bucket.m_waiting.size()));
    bucket.m_waiting.clear();
}
