#include "io/dwg/groups/entities/Carry.h"
#include "io/dwg/groups/entities/EntityDecoders.h"

namespace {

enum Flag { kClosed = 1, kPeriodic = 2, kRational = 4 };
enum class Form { ControlPoints, FitPoints };

// The shortest numbers, and points of three of them, in bits.
constexpr quint64 kLeastReal = 2;
constexpr quint64 kLeastPoint = 6;

struct Start
{
    Form form = Form::ControlPoints;
    bool closed = false; ///< of a curve through fit points
};

Start readStart(DwgRecord& record)
{
    constexpr int kFitForm = 2;
    constexpr int kThroughFitPoints = 1;
    constexpr int kClosedFit = 4;
    constexpr int kCustomKnots = 15;
    BitReader& data = record.data;
    Start start;
    const int form = data.bitLong();
    start.form = form == kFitForm ? Form::FitPoints : Form::ControlPoints;
    if (record.since(DwgVersion::V2013)) {
        // These win over the number before them.
        const int flags = data.bitLong();
        const int knots = data.bitLong();
        start.form = (flags & kThroughFitPoints) != 0 && knots != kCustomKnots
            ? Form::FitPoints
            : Form::ControlPoints;
        start.closed = (flags & kClosedFit) != 0;
    }
    return start;
}

void controlPoints(const GroupContext& context, int degree)
{
    DwgRecord& record = context.record;
    BitReader& data = record.data;
    GroupSink& out = context.out;
    int flags = data.bit() ? kRational : 0;
    flags |= data.bit() ? kClosed : 0;
    flags |= data.bit() ? kPeriodic : 0;
    const double knotTolerance = data.bitDouble();
    const double pointTolerance = data.bitDouble();
    const quint32 knots = record.count(kLeastReal);
    const quint32 points = record.count(kLeastPoint);
    const bool weighted = data.bit();
    out.integer(70, flags);
    out.integer(71, degree);
    out.integer(72, knots);
    out.integer(73, points);
    out.integer(74, 0);
    out.real(42, knotTolerance);
    out.real(43, pointTolerance);
    for (quint32 i = 0; i < knots && !data.hasFailed(); ++i)
        Carry::real(context, 40);
    for (quint32 i = 0; i < points && !data.hasFailed(); ++i) {
        Carry::point(context, 10);
        if (weighted)
            Carry::real(context, 41);
    }
}

void fitPoints(const GroupContext& context, int degree, bool closed)
{
    DwgRecord& record = context.record;
    GroupSink& out = context.out;
    double tangents[2][3];
    const double tolerance = record.number();
    record.point(tangents[0]);
    record.point(tangents[1]);
    const quint32 points = record.count(kLeastPoint);
    out.integer(70, closed ? kClosed : 0);
    out.integer(71, degree);
    out.integer(72, 0);
    out.integer(73, 0);
    out.integer(74, points);
    out.real(44, tolerance);
    out.point(12, tangents[0]);
    out.point(13, tangents[1]);
    for (quint32 i = 0; i < points && !record.data.hasFailed(); ++i)
        Carry::point(context, 11);
}

} // namespace

void decodeSpline(const GroupContext& context)
{
    const Start start = readStart(context.record);
    const int degree = context.record.data.bitLong();
    context.out.mark(100, "AcDbSpline");
    if (start.form == Form::FitPoints)
        fitPoints(context, degree, start.closed);
    else
        controlPoints(context, degree);
}
