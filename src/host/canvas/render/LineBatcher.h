#pragma once

#include <QLineF>
#include <QRgb>

#include <unordered_map>
#include <vector>

class QPainter;

/// Collects lines by colour and paints them many at a time: changing the pen for every line would
/// cost more than the lines do.
class LineBatcher
{
public:
    /// Lines of one colour that wait for being painted.
    class Bucket
    {
    public:
        explicit Bucket(QRgb colour)
            : m_colour(colour)
        { }

    private:
        friend class LineBatcher;
        QRgb m_colour;
        std::vector<QLineF> m_lines;
    };

    /// `penWidth` in pixels of the image.
    explicit LineBatcher(double penWidth)
        : m_penWidth(penWidth)
    { }

    /// To be painted with from now on; null ends painting, everything must be flushed before.
    void setPainter(QPainter* painter) { m_painter = painter; }
    /// The bucket of a colour; it stays.
    Bucket& bucket(QRgb colour) { return m_buckets.try_emplace(colour, colour).first->second; }
    void add(Bucket& bucket, double x1, double y1, double x2, double y2)
    {
        bucket.m_lines.emplace_back(x1, y1, x2, y2);
        if (bucket.m_lines.size() >= kFull)
            paint(bucket);
    }
    void addDot(Bucket& bucket, double x, double y) { add(bucket, x, y, x, y); }
    /// Paints everything that waits.
    void flush();

private:
    static constexpr std::size_t kFull = 4096;
    void paint(Bucket& bucket);

    double m_penWidth;
    QPainter* m_painter = nullptr;
    std::unordered_map<QRgb, Bucket> m_buckets;
};
