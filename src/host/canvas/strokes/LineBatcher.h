#pragma once

#include "host/canvas/strokes/LineRaster.h"

#include <QLineF>

#include <unordered_map>
#include <vector>

class QPainter;

/// Takes the lines of a picture. Plain and wide ones go straight into the image; smooth thin ones
/// are collected by colour and painted many at a time, since changing the pen for every line would
/// cost more than the lines do.
class LineBatcher
{
public:
    /// Lines of one colour and width.
    class Bucket
    {
    public:
        enum class Way { Plain, Collected, Wide };
        Bucket(QRgb colour, int width, Way way)
            : m_colour(colour)
            , m_width(width)
            , m_way(way)
        { }

    private:
        friend class LineBatcher;
        QRgb m_colour;
        int m_width; ///< pixels
        Way m_way;
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
        switch (bucket.m_way) {
        case Bucket::Way::Plain:
            m_raster.line(x1, y1, x2, y2, bucket.m_colour, bucket.m_width);
            break;
        case Bucket::Way::Wide:
            m_raster.wideLine(x1, y1, x2, y2, bucket.m_colour, bucket.m_width);
            break;
        case Bucket::Way::Collected:
            bucket.m_waiting.emplace_back(x1, y1, x2, y2);
            if (bucket.m_waiting.size() >= kFull)
                paint(bucket);
            break;
        }
    }
    void addDot(Bucket& bucket, double x, double y)
    {
        if (bucket.m_way == Bucket::Way::Wide)
            m_raster.wideLine(x, y, x, y, bucket.m_colour, bucket.m_width);
        else
            m_raster.line(x, y, x, y, bucket.m_colour, bucket.m_width);
    }
    /// Paints everything that waits.
    void flush();

private:
    static constexpr std::size_t kFull = 4096;
    /// Wider ones need proper ends even while everything moves.
    static constexpr int kWidestPlain = 4;
    void paint(Bucket& bucket);

    LineRaster m_raster;
    int m_penWidth;
    bool m_isSmooth;
    QPainter* m_painter = nullptr;
    std::unordered_map<quint64, Bucket> m_buckets;
};
