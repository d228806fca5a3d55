#include "io/dwg/groups/entities/Carry.h"
#include "io/dwg/groups/entities/EntityDecoders.h"
#include "io/dwg/groups/entities/LeastBits.h"

namespace {

/// What a record says about itself ahead.
enum Has {
    kNormal = 1,
    kThickness = 2,
    kWidth = 4,
    kElevation = 8,
    kBulges = 16,
    kWidths = 32,
    kRunsOn = 256,
    kIsClosed = 512,
    kIdentifiers = 1024,
};

struct Counts
{
    quint32 points = 0;
    quint32 bulges = 0;
    quint32 identifiers = 0;
    quint32 widths = 0;
};

Counts readCounts(DwgRecord& record, int has)
{
    Counts counts;
    counts.points = record.count(LeastBits::kFlatPoint);
    if ((has & kBulges) != 0)
        counts.bulges = record.count(LeastBits::kReal);
    if ((has & kIdentifiers) != 0)
        counts.identifiers = record.count(LeastBits::kReal);
    if ((has & kWidths) != 0)
        counts.widths = record.count(2 * LeastBits::kReal);
    return counts;
}

/// Reads the points on from where `data` stands, each as far from the one before.
class Points
{
public:
    Points(const DwgRecord& record)
        : m_data(record.data)
        , m_compact(record.since(DrawingVersion::V2000))
    { }

    void next(double (&point)[2])
    {
        for (int axis = 0; axis < 2; ++axis) {
            m_last[axis] =
                m_compact && !m_isFirst ? m_data.bitDouble(m_last[axis]) : m_data.rawDouble();
            point[axis] = m_last[axis];
        }
        m_isFirst = false;
    }
    const BitReader& data() const { return m_data; }

private:
    BitReader m_data;
    bool m_compact;
    bool m_isFirst = true;
    double m_last[2] = {0, 0};
};

/// Groups have vertex after vertex, the record all points, all bulges and all widths: each has a
/// reader of its own.
void vertices(const GroupContext& context, const Counts& counts)
{
    DwgRecord& record = context.record;
    GroupSink& out = context.out;
    double point[2];
    Points points(record);
    Points ahead(record);
    for (quint32 i = 0; i < counts.points && !ahead.data().hasFailed(); ++i)
        ahead.next(point);
    record.data = ahead.data();
    BitReader bulges = record.data;
    for (quint32 i = 0; i < counts.bulges && !record.data.hasFailed(); ++i)
        record.data.bitDouble();
    BitReader identifiers = record.data;
    for (quint32 i = 0; i < counts.identifiers && !record.data.hasFailed(); ++i)
        record.data.bitLong();
    for (quint32 i = 0; i < counts.points && !points.data().hasFailed(); ++i) {
        points.next(point);
        out.point(10, point);
        if (i < counts.widths) {
            Carry::real(context, 40);
            Carry::real(context, 41);
        }
        const double bulge = i < counts.bulges ? bulges.bitDouble() : 0;
        if (bulge != 0)
            out.real(42, bulge);
        if (i < counts.identifiers)
            out.integer(91, identifiers.bitLong());
    }
}

} // namespace

void decodeLwPolyline(const GroupContext& context)
{
    DwgRecord& record = context.record;
    BitReader& data = record.data;
    GroupSink& out = context.out;
    double normal[3] = {0, 0, 1};
    const int has = data.bitShort();
    const double width = (has & kWidth) != 0 ? data.bitDouble() : 0;
    const double elevation = (has & kElevation) != 0 ? data.bitDouble() : 0;
    const double thickness = (has & kThickness) != 0 ? data.bitDouble() : 0;
    if ((has & kNormal) != 0)
        record.point(normal);
    const Counts counts = readCounts(record, has);
    out.mark(100, "AcDbPolyline");
    out.integer(90, counts.points);
    out.integer(70, ((has & kIsClosed) != 0 ? 1 : 0) | ((has & kRunsOn) != 0 ? 128 : 0));
    if ((has & kWidths) == 0)
        out.real(43, width);
    if (elevation != 0)
        out.real(38, elevation);
    if (thickness != 0)
        out.real(39, thickness);
    vertices(context, counts);
    Carry::putNormal(out, normal);
}
