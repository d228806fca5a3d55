#include "io/dwg/groups/entities/Carry.h"
#include "io/dwg/groups/entities/EntityDecoders.h"
#include "io/dwg/groups/entities/FitCurve.h"
#include "io/dwg/groups/entities/LeastBits.h"

namespace {

enum Flag { kClosedSpline = 1, kPeriodic = 2, kRational = 4 };
enum class Form { ControlPoints, FitPoints };

// The shortest numbers, and points of three of them, in bits.

struct Start
{
    Form form = Form::ControlPoints;
    // Of a curve through fit points
    bool closed = false;
    FitCurve::Spacing spacing = FitCurve::Spacing::Chord;
};

Start readStart(DwgRecord& record)
{
    constexpr int kFitForm = 2;
    constexpr int kThroughFitPoints = 1;
    constexpr int kClosedFit = 4;
    constexpr int kRootOfChordKnots = 1;
    constexpr int kEvenKnots = 2;
    constexpr int kCustomKnots = 15;
    BitReader& data = record.data;
    Start start;
    const int form = data.bitLong();
    start.form = form == kFitForm ? Form::FitPoints : Form::ControlPoints;
    if (record.since(DrawingVersion::V2013)) {
        // These win over the number before them.
        const int flags = data.bitLong();
        const int knots = data.bitLong();
        start.form = (flags & kThroughFitPoints) != 0 && knots != kCustomKnots
            ? Form::FitPoints
            : Form::ControlPoints;
        start.closed = (flags & kClosedFit) != 0;
        start.spacing = knots == kEvenKnots ? FitCurve::Spacing::Even
            : knots == kRootOfChordKnots    ? FitCurve::Spacing::RootOfChord
                                            : FitCurve::Spacing::Chord;
    }
    return start;
}

void controlPoints(const GroupContext& context, int degree)
{
    DwgRecord& record = context.record;
    BitReader& data = record.data;
    GroupSink& out = context.out;
    int flags = data.bit() ? kRational : 0;
    flags |= data.bit() ? kClosedSpline : 0;
    flags |= data.bit() ? kPeriodic : 0;
    const double knotTolerance = data.bitDouble();
    const double pointTolerance = data.bitDouble();
    const quint32 knots = record.count(LeastBits::kReal);
    const quint32 points = record.count(LeastBits::kPoint);
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

/// Groups have the curve, which is left here to whoever draws it, beside the points.
void fitPoints(const GroupContext& context, int degree, const Start& start)
{
    constexpr int kCubic = 3;
    DwgRecord& record = context.record;
    GroupSink& out = context.out;
    FitCurve::Point tangents[2];
    std::vector<FitCurve::Point> points;
    const double tolerance = record.number();
    record.point(tangents[0].at);
    record.point(tangents[1].at);
    const quint32 count = record.count(LeastBits::kPoint);
    for (quint32 i = 0; i < count && !record.data.hasFailed(); ++i)
        record.point(points.emplace_back().at);
    const bool computes = !start.closed && degree == kCubic;
    const FitCurve curve(computes ? points : std::vector<FitCurve::Point>(), tangents[0],
                         tangents[1], start.spacing);
    out.integer(70, start.closed ? kClosedSpline : 0);
    out.integer(71, degree);
    out.integer(72, static_cast<qint64>(curve.knots().size()));
    out.integer(73, static_cast<qint64>(curve.controlPoints().size()));
    out.integer(74, count);
    out.real(44, tolerance);
    if (tangents[0] != FitCurve::Point())
        out.point(12, tangents[0].at);
    if (tangents[1] != FitCurve::Point())
        out.point(13, tangents[1].at);
    for (const double knot : curve.knots())
        out.real(40, knot);
    for (const FitCurve::Point& point : curve.controlPoints())
        out.point(10, point.at);
    for (const FitCurve::Point& point : points)
        out.point(11, point.at);
}

} // namespace

void decodeSpline(const GroupContext& context)
{
    const Start start = readStart(context.record);
    const int degree = context.record.data.bitLong();
    context.out.mark(100, "AcDbSpline");
    if (start.form == Form::FitPoints)
        fitPoints(context, degree, start);
    else
        controlPoints(context, degree);
}
