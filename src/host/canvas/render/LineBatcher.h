#pragma once

#include "host/canvas/render/LineRaster.h"

#include <QLineF>

#include <unordered_map>
#include <vector>

class QPainter;

/// Takes the lines of a picture. Plain ones go straight into the image; smooth and wide ones are
/// collected by colour and width and painted many at a time, since changing the pen for every line
/// would cost more than the lines do.
class LineBatcher
{
public:
    /// Lines of one colour and width.
    class Bucket
    {
    public:
        Bucket(QRgb colour, int width, bool isCollected)
            : m_colour(colour)
            , m_width(width)
            , m_isCollected(isCollected)
        { }

    private:
        friend class LineBatcher;
        QRgb m_colour;
        int m_width; ///< pixels
        bool m_isCollected;
        std::vector<QLineF> m_waiting;
    };

    /// `penWidth` in pixels of the image: that of thin lines.
    LineBatcher(QImage& image, int penWidth, bool isSmooth)
        : m_raster(image)
        , m_penWidth(penWidth)
        , m_isSmooth(isSmooth)
    { }

    /// To be painted with from now on; null ends painting, everything must be flushed before.
    void setPainter(QPainter* painter) { m_painter = painter; }
    /// Part of the image that lines may touch; the painter's clipping is its owner's business.
    void setClip(const QRect& clip) { m_raster.setClip(clip); }
    void setMask(const QImage& mask) { m_raster.setMask(mask); }
    /// The bucket of a colour and a width in pixels; it stays.
    Bucket& bucket(QRgb colour, int width);
    /// For thin lines.
    Bucket& bucket(QRgb colour) { return bucket(colour, m_penWidth); }
    void add(Bucket& bucket, double x1, double y1, double x2, double y2)
    {
        if (!bucket.m_isCollected) {
            m_raster.line(x1, y1, x2, y2, bucket.m_colour, bucket.m_width);
            return;
        }
        bucket.m_waiting.emplace_back(x1, y1, x2, y2);
        if (bucket.m_waiting.size() >= kFull)
            paint(bucket);
    }
    void addDot(Bucket& bucket, double x, double y)
    {
        if (bucket.m_width <= kWidestPlain)
            m_raster.line(x, y, x, y, bucket.m_colour, bucket.m_width);
        else
            bucket.m_waiting.emplace_back(x, y, x, y);
    }
    /// Paints everything that waits.
    void flush();

private:
    static constexpr std::size_t kFull = 4096;
    /// Wider lines need proper ends.
    static constexpr int kWidestPlain = 3;
    void paint(Bucket& bucket);

    LineRaster m_raster;
    int m_penWidth;
    bool m_isSmooth;
    QPainter* m_painter = nullptr;
    std::unordered_map<quint64, Bucket> m_buckets;
};
