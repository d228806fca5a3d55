#include "host/canvas/entities/HatchPattern.h"
#include "host/canvas/geometry/CurveArc.h"
#include "host/canvas/geometry/NurbsCurve.h"
#include "host/canvas/geometry/Ocs.h"
#include "host/canvas/render/ErasedFilter.h"
#include "host/canvas/render/ViewTransform.h"
#include "host/canvas/strokes/DashWalk.h"
#include "host/canvas/strokes/LineClip.h"
#include "host/canvas/strokes/LineRaster.h"
#include "host/canvas/strokes/WideLine.h"
#include "host/canvas/text/PlainText.h"

#include <QImage>
#include <QRectF>

#include <gtest/gtest.h>

namespace {

constexpr double kPi = std::numbers::pi;
using Group = EntityFields::Group;

void expectNear(Vec2 seen, Vec2 expected, double tolerance = 1e-9)
{
    EXPECT_NEAR(seen.x, expected.x, tolerance);
    EXPECT_NEAR(seen.y, expected.y, tolerance);
}

} // namespace

TEST(Ocs, LeavesTheDefaultDirectionExact)
{
    const Ocs ocs = Ocs::fromNormal({0, 0, 1});
    EXPECT_EQ(ocs.plan({0.1, 1e9 + 0.1}, 5), (Vec2{0.1, 1e9 + 0.1}));
}

TEST(Ocs, MirrorsAcrossTheYAxisWhenTheDirectionPointsDown)
{
    expectNear(Ocs::fromNormal({0, 0, -1}).plan({3, 4}, 0), {-3, 4});
}

TEST(Ocs, TakesXFromTheWorldVerticalForTiltedDirections)
{
    const Ocs ocs = Ocs::fromNormal({1, 0, 0});
    const Vec3 x = ocs.toWorld({1, 0, 0});
    EXPECT_NEAR(x.y, 1, 1e-12);
    const Vec3 y = ocs.toWorld({0, 1, 0});
    EXPECT_NEAR(y.z, 1, 1e-12);
}

TEST(Ocs, TreatsAMissingDirectionAsUp)
{
    EXPECT_EQ(Ocs::fromNormal({0, 0, 0}).plan({1, 2}, 0), (Vec2{1, 2}));
    EXPECT_EQ(Ocs::fromNormal({NAN, 0, 1}).plan({1, 2}, 0), (Vec2{1, 2}));
}

TEST(CurveArc, HasAnExactBox)
{
    const CurveArc quarter{{10, 10}, {5, 0}, {0, 5}, kPi / 4, kPi / 2};
    const Box2 box = quarter.box();
    EXPECT_NEAR(box.maxY, 15, 1e-12);
    EXPECT_NEAR(box.minX, 10 - 5 / std::sqrt(2.0), 1e-12);
    EXPECT_NEAR(box.maxX, 10 + 5 / std::sqrt(2.0), 1e-12);
    EXPECT_NEAR(box.minY, 10 + 5 / std::sqrt(2.0), 1e-12);
}

TEST(CurveArc, BoxOfATurnedEllipseTouchesItsExtremes)
{
    const CurveArc ellipse{{0, 0}, {3, 3}, {-1, 1}};
    EXPECT_NEAR(ellipse.box().maxX, std::hypot(3, 1), 1e-12);
    EXPECT_NEAR(ellipse.box().maxY, std::hypot(3, 1), 1e-12);
}

TEST(CurveArc, FollowsABulge)
{
    const CurveArc half = CurveArc::fromBulge({0, 0}, {10, 0}, 1);
    expectNear(half.first(), {0, 0});
    expectNear(half.last(), {10, 0});
    // Counter-clockwise from left to right runs below.
    expectNear(half.at(half.start + half.sweep / 2), {5, -5});

    const CurveArc clockwise = CurveArc::fromBulge({0, 0}, {10, 0}, -0.5);
    expectNear(clockwise.last(), {10, 0});
    expectNear(clockwise.at(clockwise.start + clockwise.sweep / 2), {5, 2.5});
}

TEST(NurbsCurve, OfDegreeOneFollowsItsPolygon)
{
    NurbsCurve curve;
    curve.degree = 1;
    curve.knots = {0, 0, 1, 2, 2};
    curve.controlPoints = {{0, 0, 0}, {5, 5, 0}, {10, 0, 0}};
    ASSERT_TRUE(curve.isValid());
    const std::vector<Vec3> points = curve.points();
    ASSERT_EQ(points.size(), 3u);
    expectNear(points[1].plan(), {5, 5});
}

TEST(NurbsCurve, DrawsAnExactQuarterCircleWithWeights)
{
    NurbsCurve curve;
    curve.degree = 2;
    curve.knots = {0, 0, 0, 1, 1, 1};
    curve.controlPoints = {{1, 0, 0}, {1, 1, 0}, {0, 1, 0}};
    curve.weights = {1, std::sqrt(0.5), 1};
    ASSERT_TRUE(curve.isValid());
    for (const Vec3& p : curve.points())
        EXPECT_NEAR(p.length(), 1, 1e-12);
}

TEST(NurbsCurve, MatchesABezierCurve)
{
    NurbsCurve curve;
    curve.knots = {0, 0, 0, 0, 1, 1, 1, 1};
    curve.controlPoints = {{0, 0, 0}, {0, 9, 0}, {9, 9, 0}, {9, 0, 0}};
    ASSERT_TRUE(curve.isValid());
    expectNear(curve.at(0.5).plan(), {4.5, 6.75});
}

TEST(NurbsCurve, RefusesCountsAndKnotsThatMakeNoCurve)
{
    NurbsCurve curve;
    curve.knots = {0, 0, 0, 0, 1, 1, 1};
    curve.controlPoints = {{}, {}, {}, {}};
    EXPECT_FALSE(curve.isValid());
    curve.knots = {0, 0, 0, 0, 1, 1, 0.5, 1};
    EXPECT_FALSE(curve.isValid());
    curve.knots = {0, 0, 0, 0, 1, 1, 1, 1};
    EXPECT_TRUE(curve.isValid());
    curve.degree = 1000;
    EXPECT_FALSE(curve.isValid());
}

TEST(SmoothThrough, PassesThroughEveryPoint)
{
    const std::vector<Vec3> fit{{0, 0, 0}, {5, 5, 0}, {10, 0, 0}, {15, 5, 0}};
    const std::vector<Vec3> points = smoothThrough(fit, false);
    for (const Vec3& wanted : fit) {
        EXPECT_TRUE(std::any_of(points.begin(), points.end(),
                                [&](const Vec3& p) { return (p - wanted).length() < 1e-12; }));
    }
    expectNear(smoothThrough(fit, true).back().plan(), {0, 0});
}

TEST(ClipLine, CutsAtTheEdges)
{
    Vec2 from{-10, 5};
    Vec2 to{30, 5};
    EXPECT_TRUE(clipLine({0, 0, 20, 10}, from, to));
    expectNear(from, {0, 5});
    expectNear(to, {20, 5});
}

TEST(ClipLine, RefusesLinesThatPassBy)
{
    Vec2 from{-5, 8};
    Vec2 to{5, 30};
    EXPECT_FALSE(clipLine({0, 0, 20, 10}, from, to));
}

namespace {

constexpr QRgb kLit = qRgb(255, 255, 255);

QImage blackImage()
{
    QImage image(20, 10, QImage::Format_RGB32);
    image.fill(Qt::black);
    return image;
}

int litPixels(const QImage& image)
{
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            count += image.pixel(x, y) == qRgb(255, 255, 255) ? 1 : 0;
    }
    return count;
}

} // namespace

TEST(LineRaster, SetsOnePixelPerStep)
{
    QImage image = blackImage();
    LineRaster(image).line(2.5, 3.5, 11.5, 6.5, kLit, 1);
    EXPECT_EQ(litPixels(image), 10);
    EXPECT_EQ(image.pixel(2, 3), qRgb(255, 255, 255));
    EXPECT_EQ(image.pixel(11, 6), qRgb(255, 255, 255));
}

TEST(LineRaster, DrawsTheSameLineBackwards)
{
    QImage forwards = blackImage();
    QImage backwards = blackImage();
    LineRaster(forwards).line(1.2, 8.9, 7.1, 0.4, kLit, 1);
    LineRaster(backwards).line(7.1, 0.4, 1.2, 8.9, kLit, 1);
    EXPECT_EQ(forwards, backwards);
    EXPECT_EQ(litPixels(forwards), 9);
}

TEST(LineRaster, StaysInsideItsClip)
{
    QImage image = blackImage();
    LineRaster raster(image);
    raster.setClip(QRect(5, 2, 4, 3));
    for (int i = -30; i < 50; ++i) {
        raster.line(i, -40, 20 - i, 60, kLit, 1);
        raster.line(-1e12, i, 1e12, 10 - i, kLit, 1);
        raster.wideLine(i, -40, 20 - i, 60, kLit, 5);
        raster.wideLine(-1e12, i, 1e12, 10 - i, kLit, 5);
    }
    for (const double none : {double(NAN), double(INFINITY), -double(INFINITY)}) {
        raster.line(none, 3, 6, 3, kLit, 1);
        raster.line(6, 3, none, 3, kLit, 1);
        raster.line(6, 3, 6, none, kLit, 3);
        raster.line(6, none, 7, none, kLit, 1);
        raster.wideLine(6, 3, none, 3, kLit, 5);
        raster.wideLine(none, none, none, none, kLit, 5);
    }
    EXPECT_EQ(litPixels(image), 12);
    EXPECT_EQ(litPixels(image.copy(5, 2, 4, 3)), 12);
}

TEST(LineRaster, WidensLinesOfMorePixels)
{
    QImage image = blackImage();
    LineRaster(image).line(2.5, 5.5, 11.5, 5.5, kLit, 3);
    EXPECT_EQ(litPixels(image), 30);
}

TEST(LineRaster, LeavesOutWhatIsMasked)
{
    QImage image = blackImage();
    QImage mask(image.size(), QImage::Format_Alpha8);
    mask.fill(0);
    for (int x = 4; x < 8; ++x)
        mask.scanLine(5)[x] = 255;
    LineRaster raster(image);
    raster.setMask(mask);
    raster.line(2.5, 5.5, 11.5, 5.5, kLit, 1);
    raster.wideLine(2.5, 5.5, 11.5, 5.5, kLit, 4);
    EXPECT_EQ(litPixels(image), 4);
    raster.setMask({});
    raster.line(2.5, 5.5, 11.5, 5.5, kLit, 1);
    EXPECT_EQ(litPixels(image), 10);
}

TEST(WideLine, HasRoundEndsAndSoftEdges)
{
    const WideLine line(10, 10, 30, 10, 6);
    EXPECT_EQ(line.coverage(20, 10), 1);
    EXPECT_EQ(line.coverage(20, 12.4), 1);
    EXPECT_NEAR(line.coverage(20, 13), 0.5, 1e-9);
    EXPECT_EQ(line.coverage(20, 13.6), 0);
    EXPECT_NEAR(line.coverage(7, 10), 0.5, 1e-9);
    EXPECT_EQ(line.coverage(7.2, 12.8), 0);
    const WideLine dot(5, 5, 5, 5, 2);
    EXPECT_NEAR(dot.coverage(6, 5), 0.5, 1e-9);
}

namespace {

using Dashes = std::vector<std::pair<double, double>>;

Dashes dashesOf(const std::vector<double>& lengths, double total, double from, double to)
{
    const DashPattern pattern(lengths, false);
    Dashes dashes;
    DashWalk(pattern, 1, total).between(from, to, [&](double a, double b) {
        dashes.emplace_back(a, b);
    });
    return dashes;
}

} // namespace

TEST(DashWalk, EndsALineWithDashesOfEqualLength)
{
    // Three patterns of 10 in 34 units: 4 are left over, and go to the ends.
    const Dashes expected{{0, 4.5}, {9.5, 14.5}, {19.5, 24.5}, {29.5, 34}};
    EXPECT_EQ(dashesOf({5, -5}, 34, 0, 34), expected);
}

TEST(DashWalk, CutsDashesOffWhereItIsAskedTo)
{
    const Dashes expected{{3, 4.5}, {9.5, 12}};
    EXPECT_EQ(dashesOf({5, -5}, 34, 3, 12), expected);
}

TEST(DashWalk, LeavesTheEndsOpenWhereAPatternBeginsWithADot)
{
    const Dashes expected{{2, 2}, {12, 12}, {22, 22}};
    EXPECT_EQ(dashesOf({0, -10}, 24, 0, 24), expected);
}

TEST(DashWalk, HasNoGapsInALineShorterThanItsPattern)
{
    EXPECT_EQ(dashesOf({5, -5}, 9, 0, 9), (Dashes{{0, 9}}));
}

TEST(DashWalk, BoundsTheNumberOfDashes)
{
    EXPECT_EQ(dashesOf({5, -5}, 1e9, 0, 1e9).size(), 1u);
    EXPECT_EQ(dashesOf({5, -5}, 1e9, 5e8, 5e8 + 100).size(), 11u);
}

TEST(ClipContour, KeepsTheCommonArea)
{
    std::vector<Vec2> contour{{-5, -5}, {5, -5}, {5, 5}, {-5, 5}};
    clipContour({0, 0, 20, 20}, contour);
    Box2 box;
    for (const Vec2 p : contour)
        box.add(p);
    EXPECT_EQ(contour.size(), 4u);
    expectNear({box.minX, box.minY}, {0, 0});
    expectNear({box.maxX, box.maxY}, {5, 5});
}

TEST(ViewTransform, PutsYUp)
{
    ViewTransform view;
    view.setSize(QSizeF(200, 100));
    EXPECT_EQ(view.toWindow(Vec2{0, 0}), QPointF(100, 50));
    EXPECT_LT(view.toWindow(Vec2{0, 10}).y(), 50);
}

TEST(ViewTransform, ZoomsAboutThePoint)
{
    ViewTransform view;
    view.setSize(QSizeF(200, 100));
    const Vec2 before = view.toWorld(QPointF(30, 20));
    view.zoomAbout(QPointF(30, 20), 7.5);
    expectNear(view.toWorld(QPointF(30, 20)), before);
    EXPECT_DOUBLE_EQ(view.scale(), 7.5);
}

TEST(ViewTransform, FitsABoxWithAMargin)
{
    ViewTransform view;
    view.setSize(QSizeF(200, 100));
    view.fit({1000, 1000, 1100, 1010});
    const QRectF seen(view.toWindow({1000, 1010}), view.toWindow({1100, 1000}));
    EXPECT_TRUE(QRectF(0, 0, 200, 100).contains(seen));
    EXPECT_GT(seen.width(), 180);
}

TEST(ViewTransform, DoesNotFitWhatIsNoBox)
{
    for (const Box2& box : {Box2{}, Box2{NAN, 0, 1, 1}, Box2{-INFINITY, 0, INFINITY, 1}}) {
        ViewTransform view;
        view.setSize(QSizeF(200, 100));
        view.fit(box);
        EXPECT_TRUE(isSane(view.centre()));
        EXPECT_GT(view.scale(), 1);
    }
}

TEST(ViewTransform, KeepsItsPrecisionFarFromZero)
{
    ViewTransform view;
    view.setSize(QSizeF(1000, 1000));
    view.setCentre({5e8, 5e8});
    view.zoomAbout(QPointF(500, 500), 1e5);
    const QPointF a = view.toWindow(Vec2{5e8 + 1e-3, 5e8});
    EXPECT_NEAR(a.x(), 600, 0.02);
}

TEST(ViewTransform, StopsZoomingWhereNumbersEnd)
{
    ViewTransform view;
    view.setSize(QSizeF(1000, 1000));
    for (int i = 0; i < 5000; ++i)
        view.zoomAbout(QPointF(1, 1), 2);
    EXPECT_TRUE(std::isfinite(view.scale()));
    for (int i = 0; i < 5000; ++i)
        view.zoomAbout(QPointF(1, 1), 0.5);
    EXPECT_GT(view.scale(), 0);
    EXPECT_TRUE(isSane(view.centre()) || std::isfinite(view.centre().x));
}

TEST(ErasedFilter, AnswersForRanges)
{
    ErasedFilter filter;
    filter.set(50, true);
    EXPECT_TRUE(filter.touches(40, 50));
    EXPECT_FALSE(filter.touches(51, 90));
    filter.set(50, false);
    EXPECT_FALSE(filter.touches(0, 100));
}

TEST(PlainText, ResolvesPercentCodes)
{
    EXPECT_EQ(plainSingleLine(QStringLiteral("%%uØ%%u %%c20 %%p0.5 90%%d %%065 100%%%")),
              QStringLiteral("Ø \u230020 \u00B10.5 90\u00B0 A 100%"));
    EXPECT_EQ(plainSingleLine(QStringLiteral("50% and 3%%")), QStringLiteral("50% and 3%%"));
}

TEST(PlainText, StripsFormattingCodes)
{
    EXPECT_EQ(
        plainMultiLine(QStringLiteral("{\\fArial|b0|i0;\\H2.5x;One}\\PTwo \\S1/2; \\LThree\\l")),
        QStringLiteral("One\nTwo 1/2 Three"));
    EXPECT_EQ(plainMultiLine(QStringLiteral("a\\~b \\{c\\} d\\\\e \\S+0.1^-0.2;")),
              QStringLiteral("a\u00A0b {c} d\\e +0.1/-0.2"));
    EXPECT_EQ(plainMultiLine(QStringLiteral("\\A1;\\C3;45%%d")), QStringLiteral("45\u00B0"));
}

TEST(PlainText, EndsWithAnUnfinishedCode)
{
    EXPECT_EQ(plainMultiLine(QStringLiteral("A\\")), QStringLiteral("A\\"));
    EXPECT_EQ(plainMultiLine(QStringLiteral("A\\H2.5")), QStringLiteral("A"));
    EXPECT_EQ(plainMultiLine(QStringLiteral("A\\S1")), QStringLiteral("A1"));
}

namespace {

std::vector<Group> square(double size)
{
    return {{91, 1},    {92, 3}, {72, 0},    {73, 1},    {93, 4}, {10, 0},   {20, 0},
            {10, size}, {20, 0}, {10, size}, {20, size}, {10, 0}, {20, size}};
}

std::vector<Group> lines(double angle, double dy)
{
    return {{53, angle}, {43, 0}, {44, 0.5}, {45, 0}, {46, dy}, {79, 0}};
}

} // namespace

TEST(HatchPattern, FillsTheBoundaryWithItsLines)
{
    const auto boundaryGroups = square(10);
    const HatchBoundary boundary(boundaryGroups);
    ASSERT_EQ(boundary.contours().size(), 1u);
    std::vector<std::pair<Vec2, Vec2>> strokes;
    ASSERT_TRUE(HatchPattern(lines(0, 1)).strokes(boundary, strokes));
    ASSERT_EQ(strokes.size(), 10u);
    expectNear(strokes.front().first, {0, 0.5});
    expectNear(strokes.front().second, {10, 0.5});
}

TEST(HatchPattern, BreaksItsLinesIntoDashes)
{
    const auto boundaryGroups = square(10);
    std::vector<Group> family = lines(0, 100);
    family.push_back({49, 2});
    family.push_back({49, -3});
    std::vector<std::pair<Vec2, Vec2>> strokes;
    ASSERT_TRUE(HatchPattern(family).strokes(HatchBoundary(boundaryGroups), strokes));
    ASSERT_EQ(strokes.size(), 2u);
    expectNear(strokes[1].first, {5, 0.5});
    expectNear(strokes[1].second, {7, 0.5});
}

TEST(HatchPattern, RefusesToDrawUnreasonablyManyLines)
{
    const auto boundaryGroups = square(10);
    std::vector<std::pair<Vec2, Vec2>> strokes;
    EXPECT_FALSE(HatchPattern(lines(0, 1e-9)).strokes(HatchBoundary(boundaryGroups), strokes));
    EXPECT_FALSE(HatchPattern(lines(0, 0)).strokes(HatchBoundary(boundaryGroups), strokes));
    EXPECT_FALSE(HatchPattern(lines(0, NAN)).strokes(HatchBoundary(boundaryGroups), strokes));
}

TEST(HatchPattern, EndsFarFromZeroWhereDashesAreLost)
{
    std::vector<Group> far = square(10);
    for (Group& group : far) {
        if (group.code == 10 || group.code == 20)
            group.value += 1e14;
    }
    std::vector<Group> family = lines(0, 1);
    family.push_back({49, 1e-3});
    family.push_back({49, -1e-3});
    std::vector<std::pair<Vec2, Vec2>> strokes;
    HatchPattern(family).strokes(HatchBoundary(far), strokes);
    EXPECT_LT(strokes.size(), 100000u);
}

TEST(HatchBoundary, DoesNotTrustCounts)
{
    const std::vector<Group> lying{{91, 2e9}, {92, 0}, {93, 2e9}, {72, 1},
                                   {10, 0},   {20, 0}, {11, 5},   {21, 0}};
    EXPECT_TRUE(HatchBoundary(lying).contours().empty());
}
