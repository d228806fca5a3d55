#include "io/dwg/groups/RecordGroups.h"
#include "io/dwg/groups/entities/FitCurve.h"
#include "io/dwg/records/DwgFormat.h"
#include "io/dwg/support/NoNames.h"

#include <cmath>
#include <gtest/gtest.h>
#include <random>

namespace {

constexpr DrawingVersion kVersions[] = {
    DrawingVersion::R13,   DrawingVersion::R14,   DrawingVersion::V2000, DrawingVersion::V2004,
    DrawingVersion::V2007, DrawingVersion::V2010, DrawingVersion::V2013, DrawingVersion::V2018};
constexpr const char* kClasses[] = {
    "LWPOLYLINE",  "HATCH",      "IMAGE",         "WIPEOUT",
    "MULTILEADER", "ACAD_TABLE", "ARC_DIMENSION", "LARGE_RADIAL_DIMENSION"};
constexpr quint16 kFixedTypes = 83;
constexpr quint16 kFirstClass = 500;
constexpr int kSize = 600;

/// A record of that type with random bits behind its number, and readable bytes behind it.
QByteArray record(DrawingVersion version, quint16 type, std::mt19937& random)
{
    QByteArray bytes;
    bytes.append(static_cast<char>(kSize & 0xFF)).append(static_cast<char>(kSize >> 8));
    if (version >= DrawingVersion::V2010) {
        bytes.append(char(0x40)); // bits of references: 64
        // The number in full behind two bits.
        const quint32 spelled = 0x800000u | quint32(type & 0xFF) << 14 | quint32(type >> 8) << 6;
        for (int shift = 16; shift >= 0; shift -= 8)
            bytes.append(static_cast<char>(spelled >> shift));
    } else {
        const quint32 spelled = quint32(type & 0xFF) << 14 | quint32(type >> 8) << 6;
        for (int shift = 16; shift >= 0; shift -= 8)
            bytes.append(static_cast<char>(spelled >> shift));
    }
    // Three of four bits are zeros: with them the numbers stay small enough to go on.
    while (bytes.size() < kSize + 64) {
        const auto bits = static_cast<quint32>(random());
        bytes.append(static_cast<char>(bits & bits >> 8))
            .append(static_cast<char>(bits >> 16 & bits >> 24));
    }
    return bytes;
}

TEST(DwgDamage, AnyBitsGiveNoMoreGroupsThanThereAreBits)
{
    std::mt19937 random(20240607);
    const NoNames names;
    GroupSink groups;
    int failed = 0;
    int made = 0;
    for (const DrawingVersion version : kVersions) {
        const DwgFormat format = DwgFormat::of(version, 30);
        const auto decode = [&](quint16 type, QByteArrayView name) {
            const QByteArray bytes = record(version, type, random);
            DwgRecord reader(format, bytes);
            ASSERT_TRUE(reader.open(0));
            ASSERT_EQ(reader.type(), type);
            if (version < DrawingVersion::V2010)
                reader.handles = BitReader(QByteArrayView(bytes).sliced(kSize / 2, kSize / 4));
            groups.clear();
            RecordGroups::entity({reader, DwgHead(), DwgEntityHead(), names, groups}, name);
            // Three coordinates take six bits at least.
            ASSERT_LE(groups.size(), kSize * 8u) << type << name.toByteArray().constData();
            failed += reader.hasFailed() ? 1 : 0;
            made += groups.size() > 0 ? 1 : 0;
        };
        for (int round = 0; round < 8; ++round) {
            for (quint16 type = 1; type < kFixedTypes; ++type)
                decode(type, {});
            for (const char* name : kClasses)
                decode(kFirstClass, name);
        }
    }
    EXPECT_GT(made, 2000);
    EXPECT_GT(failed, 200);
}

double distance(const FitCurve::Point& a, const FitCurve::Point& b)
{
    return std::hypot(a.at[0] - b.at[0], a.at[1] - b.at[1], a.at[2] - b.at[2]);
}

/// The point of a cubic B-spline at a parameter.
FitCurve::Point pointAt(const FitCurve& curve, double parameter)
{
    const std::vector<double>& knots = curve.knots();
    std::size_t span = 3;
    while (span + 5 < knots.size() && knots[span + 1] <= parameter)
        ++span;
    FitCurve::Point points[4];
    for (std::size_t i = 0; i < 4; ++i)
        points[i] = curve.controlPoints()[span - 3 + i];
    for (std::size_t level = 1; level < 4; ++level) {
        for (std::size_t i = 3; i >= level; --i) {
            const double low = knots[span - 3 + i];
            const double share = (parameter - low) / (knots[span + 1 + i - level] - low);
            for (int axis = 0; axis < 3; ++axis)
                points[i].at[axis] =
                    points[i - 1].at[axis] * (1 - share) + points[i].at[axis] * share;
        }
    }
    return points[3];
}

TEST(FitCurve, GoesThroughItsPointsAndLeavesAlongItsTangents)
{
    const std::vector<FitCurve::Point> points = {{{0, 0, 0}},  {{4, 3, 1}},   {{9, 3, -2}},
                                                 {{9, 3, -2}}, {{12, -4, 0}}, {{20, 0, 5}}};
    const FitCurve::Point start{{1, 2, 0}};
    const FitCurve curve(points, start, {}, FitCurve::Spacing::Chord);
    ASSERT_TRUE(curve.isValid());
    ASSERT_EQ(curve.knots().size(), 5u + 6u);
    ASSERT_EQ(curve.controlPoints().size(), 5u + 2u);
    for (std::size_t i = 0; i < 5; ++i) {
        const FitCurve::Point& expected = points[i < 3 ? i : i + 1];
        EXPECT_LT(distance(pointAt(curve, curve.knots()[i + 3]), expected), 1e-12) << i;
    }
    // A chord of length 5 and 1 more in depth, of which the tangent holds for a third.
    const double third = curve.knots()[4] / 3;
    EXPECT_NEAR(curve.knots()[4], std::sqrt(26), 1e-12);
    for (int axis = 0; axis < 3; ++axis)
        EXPECT_NEAR(curve.controlPoints()[1].at[axis], start.at[axis] * third, 1e-12);
    // Without a tangent the end is straight: no second derivative.
    const double last = curve.knots().back();
    const double step = 1e-3;
    const FitCurve::Point a = pointAt(curve, last);
    const FitCurve::Point b = pointAt(curve, last - step);
    const FitCurve::Point c = pointAt(curve, last - 2 * step);
    for (int axis = 0; axis < 3; ++axis)
        EXPECT_NEAR((a.at[axis] - 2 * b.at[axis] + c.at[axis]) / (step * step), 0, 2e-3);
}

TEST(FitCurve, OfOnePointIsNone)
{
    EXPECT_FALSE(FitCurve({{{1, 2, 3}}, {{1, 2, 3}}}, {}, {}, FitCurve::Spacing::Even).isValid());
}

} // namespace
