#pragma once

#include "host/canvas/render/LineRaster.h"

#include <QLineF>

#include <unordered_map>
#include <vector>

class QPainter;

/// Takes the lines of a picture. Plain ones go straight into the image; smooth ones are collected
/// by colour and painted many at a time, since changing the pen for every line would cost more than
/// the lines do.
class LineBatcher
{
public:
    /// Lines of one colour.
    class Bucket
    {
    public:
        explicit Bucket(QRgb colour)
            : m_colour(colour)
        { }

    private:
        friend class LineBatcher;
        QRgb m_colour;
        std::vector<QLineF> m_waiting;
    };

    /// `penWidth` in pixels of the image.
    LineBatcher(QImage& image, int penWidth, bool isSmooth)
        : m_raster(image, penWidth)
        , m_penWidth(penWidth)
        , m_isSmooth(isSmooth)
    { }

    /// To be painted with from now on; null ends painting, everything must be flushed before.
    void setPainter(QPainter* painter) { m_painter = painter; }
    /// Part of the image that lines may touch; the painter's clipping is its owner's business.
    void setClip(const QRect& clip) { m_raster.setClip(clip); }
    /// The bucket of a colour; it stays.
    Bucket& bucket(QRgb colour) { return m_buckets.try_emplace(colour, colour).first->second; }
    void add(Bucket& bucket, double x1, double y1, double x2, double y2)
    {
        if (!m_isSmooth) {
            m_raster.line(x1, y1, x2, y2, bucket.m_colour);
            return;
        }
        bucket.m_waiting.emplace_back(x1, y1, x2, y2);
        if (bucket.m_waiting.size() >= kFull)
            paint(bucket);
    }
    void addDot(Bucket& bucket, double x, double y) { m_raster.line(x, y, x, y, bucket.m_colour); }
    /// Paints everything that waits.
    void flush();

private:
    static constexpr std::size_t kFull = 4096;
    void paint(Bucket& bucket);

    LineRaster m_raster;
    int m_penWidth;
    bool m_isSmooth;
    QPainter* m_painter = nullptr;
    std::unordered_map<QRgb, Bucket> m_buckets;
};
