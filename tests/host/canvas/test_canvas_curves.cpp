#include "host/canvas/support/CanvasFixture.h"

#include <QTest>

/// Strokes of every kind of line and curve are where they must be, and nowhere else.
class CanvasCurves : public CanvasFixture
{
    Q_OBJECT

    using P = CanvasPicture;

private slots:
    void lineIsWhereItsEndsAre()
    {
        show(CanvasDrawing().add("LINE 8=0 10=-50 20=-20 30=7 11=60 21=40 31=-9"));
        QCOMPARE(picture().mismatch(P::line({-50, -20}, {60, 40})), QString());
    }

    void pointIsOneDot()
    {
        show(CanvasDrawing().add("POINT 8=0 10=20 20=30"));
        QVERIFY(picture().isLit({20, 30}));
        QCOMPARE(picture().litCount(), 1);
    }

    void circleIsRoundAtEveryZoom()
    {
        show(CanvasDrawing().add("CIRCLE 8=0 10=10 20=-5 40=50"));
        QCOMPARE(picture().mismatch(P::arc({10, -5}, 50, 0, 360)), QString());
        // Close to its rightmost point it is as good as a vertical line.
        look({60, -5}, 1e5);
        QCOMPARE(picture().mismatch(P::line({60, -5.003}, {60, -4.997})), QString());
    }

    void arcRunsCounterClockwise()
    {
        show(CanvasDrawing().add("ARC 8=0 10=0 20=0 40=40 50=300 51=60"));
        QCOMPARE(picture().mismatch(P::arc({0, 0}, 40, -60, 60)), QString());
    }

    void arcWithADownwardExtrusionIsMirrored()
    {
        show(CanvasDrawing().add("ARC 8=0 10=20 20=0 40=40 50=300 51=60 210=0 220=0 230=-1"));
        QCOMPARE(picture().mismatch(P::arc({-20, 0}, 40, 120, 240)), QString());
    }

    void ellipseFollowsItsAxesAndParameters()
    {
        show(CanvasDrawing().add(
            "ELLIPSE 8=0 10=5 20=5 11=30 21=30 31=0 40=0.5 41=0 42=3.14159265358979"));
        P::Path path;
        for (int i = 0; i <= 4000; ++i) {
            const double t = std::numbers::pi * i / 4000;
            path.push_back(Vec2{5, 5} + Vec2{30, 30} * std::cos(t) + Vec2{-15, 15} * std::sin(t));
        }
        QCOMPARE(picture().mismatch(path), QString());
    }

    void lightweightPolylineHasStraightAndRoundSegments()
    {
        show(
            CanvasDrawing().add("LWPOLYLINE 8=0 90=3 70=1 10=-40 20=0 42=1 10=40 20=0 10=0 20=50"));
        QCOMPARE(picture().mismatch(P::together(
                     {P::arc({0, 0}, 40, 180, 360), P::polyline({{40, 0}, {0, 50}, {-40, 0}})})),
                 QString());
    }

    void widePolylineIsFilledAndMitred()
    {
        show(CanvasDrawing().add(
            "LWPOLYLINE 8=0 90=3 70=0 43=10 10=-40 20=-40 10=40 20=-40 10=40 20=40"));
        const CanvasPicture seen = picture();
        QVERIFY(seen.coverage({-39, -44, 44, -36}) > 0.99);
        QVERIFY(seen.coverage({36, -44, 44, 39}) > 0.99);
        QVERIFY(!seen.isLit({0, -46}) && !seen.isLit({0, -34}));
    }

    void donutIsAFilledRing()
    {
        show(
            CanvasDrawing().add("LWPOLYLINE 8=0 90=2 70=1 43=20 10=-30 20=0 42=1 10=30 20=0 42=1"));
        const CanvasPicture seen = picture();
        for (int degrees = 0; degrees < 360; degrees += 5) {
            const double angle = degrees * std::numbers::pi / 180;
            const Vec2 out{std::cos(angle), std::sin(angle)};
            QVERIFY(seen.isLit(out * 39.5) && seen.isLit(out * 30) && seen.isLit(out * 20.5));
            QVERIFY(!seen.isLit(out * 41) && !seen.isLit(out * 19));
        }
        QVERIFY(!seen.isLit({0, 0}));
        // Its edge is round close by, too.
        look({40, 0}, 1e4);
        QVERIFY(picture().isLit({40, 0.02}) && picture().isLit({40, -0.02}));
    }

    void taperedSegmentIsAWedge()
    {
        show(CanvasDrawing().add("LWPOLYLINE 8=0 90=2 70=0 10=-40 20=0 40=20 41=0 10=40 20=0"));
        const CanvasPicture seen = picture();
        QVERIFY(seen.isLit({-38, 9}) && seen.isLit({-38, -9}) && seen.isLit({30, 0}));
        QVERIFY(!seen.isLit({20, 5}) && !seen.isLit({20, -5}));
    }

    void oldPolylineReadsItsVertices()
    {
        show(CanvasDrawing().add("POLYLINE 8=0 66=1 10=0 20=0 30=0 70=0\n"
                                 "VERTEX 8=0 10=-30 20=-30\n"
                                 "VERTEX 8=0 10=30 20=-30 42=-1\n"
                                 "VERTEX 8=0 10=30 20=30\n"
                                 "SEQEND 8=0\n"
                                 "POINT 8=0 10=0 20=60"));
        QCOMPARE(picture().mismatch(P::together(
                     {P::line({-30, -30}, {30, -30}), P::arc({30, 0}, 30, 90, 270), {{0, 60}}})),
                 QString());
    }

    void polyline3dIsSeenFromAbove()
    {
        show(CanvasDrawing().add("POLYLINE 8=0 66=1 10=0 20=0 30=0 70=9\n"
                                 "VERTEX 8=0 10=0 20=0 30=50 70=32\n"
                                 "VERTEX 8=0 10=40 20=0 30=-80 70=32\n"
                                 "VERTEX 8=0 10=40 20=40 30=5 70=32\n"
                                 "SEQEND 8=0"));
        QCOMPARE(picture().mismatch(P::polyline({{0, 0}, {40, 0}, {40, 40}}, true)), QString());
    }

    void meshIsAWireGrid()
    {
        show(CanvasDrawing().add("POLYLINE 8=0 66=1 70=16 71=2 72=3\n"
                                 "VERTEX 8=0 10=0 20=0 70=64\n"
                                 "VERTEX 8=0 10=30 20=0 70=64\n"
                                 "VERTEX 8=0 10=60 20=0 70=64\n"
                                 "VERTEX 8=0 10=0 20=40 70=64\n"
                                 "VERTEX 8=0 10=30 20=40 70=64\n"
                                 "VERTEX 8=0 10=60 20=40 70=64\n"
                                 "SEQEND 8=0"));
        QCOMPARE(
            picture().mismatch(P::together({P::line({0, 0}, {60, 0}), P::line({0, 40}, {60, 40}),
                                            P::line({0, 0}, {0, 40}), P::line({30, 0}, {30, 40}),
                                            P::line({60, 0}, {60, 40})})),
            QString());
    }

    void polyfaceMeshDrawsVisibleEdgesOnly()
    {
        show(CanvasDrawing().add("POLYLINE 8=0 66=1 70=64 71=3 72=1\n"
                                 "VERTEX 8=0 10=0 20=0 70=192\n"
                                 "VERTEX 8=0 10=50 20=0 70=192\n"
                                 "VERTEX 8=0 10=50 20=50 70=192\n"
                                 "VERTEX 8=0 10=0 20=0 70=128 71=1 72=-2 73=3\n"
                                 "SEQEND 8=0"));
        QCOMPARE(
            picture().mismatch(P::together({P::line({0, 0}, {50, 0}), P::line({50, 50}, {0, 0})})),
            QString());
    }

    void splineFollowsItsKnotsAndWeights()
    {
        show(
            CanvasDrawing().add("SPLINE 8=0 70=4 71=2 72=6 73=3 40=0 40=0 40=0 40=1 40=1 40=1 41=1 "
                                "41=0.70710678118654757 41=1 10=50 20=0 30=0 10=50 20=50 30=0 10=0 "
                                "20=50 30=0"));
        QCOMPARE(picture().mismatch(P::arc({0, 0}, 50, 0, 90)), QString());
    }

    void splineWithFitPointsOnlyPassesThroughThem()
    {
        show(CanvasDrawing().add(
            "SPLINE 8=0 70=1024 71=3 74=3 11=-40 21=0 31=0 11=0 21=30 31=0 11=40 "
            "21=0 31=0"));
        const CanvasPicture seen = picture();
        QVERIFY(seen.isLit({-40, 0}) && seen.isLit({0, 30}) && seen.isLit({40, 0}));
    }

    void leaderIsAPolyline()
    {
        show(CanvasDrawing().add(
            "LEADER 8=0 71=1 72=0 76=3 10=0 20=0 30=0 10=30 20=30 30=0 10=60 20=30"));
        QCOMPARE(picture().mismatch(P::polyline({{0, 0}, {30, 30}, {60, 30}})), QString());
    }

    void multilineDrawsItsElements()
    {
        show(CanvasDrawing().add(
            "MLINE 8=0 40=1 70=0 71=1 72=2 73=2 10=0 20=0 30=0 "
            "11=-40 21=0 31=0 12=1 22=0 32=0 13=0 23=1 33=0 74=2 41=5 41=0 75=0 "
            "74=2 41=-5 41=0 75=0 "
            "11=40 21=0 31=0 12=1 22=0 32=0 13=0 23=1 33=0 74=2 41=5 41=0 75=0 "
            "74=2 41=-5 41=0 75=0"));
        QCOMPARE(picture().mismatch(
                     P::together({P::line({-40, 5}, {40, 5}), P::line({-40, -5}, {40, -5})})),
                 QString());
    }

    void raysRunToTheEdgeAndDoNotCountForExtents()
    {
        show(CanvasDrawing().add("RAY 8=0 10=0 20=10 30=0 11=1 21=0 31=0\n"
                                 "XLINE 8=0 10=-20 20=5 30=0 11=0 21=1 31=0\n"
                                 "LINE 8=0 10=0 20=0 11=10 21=0"));
        QCOMPARE(picture().mismatch(
                     P::together({P::line({0, 10}, {99.9, 10}), P::line({-20, -74.9}, {-20, 74.9}),
                                  P::line({0, 0}, {10, 0})})),
                 QString());
        canvas().zoomExtents();
        QVERIFY(canvas().view().scale() > 50);
        look({1e6, 10}, 100);
        QVERIFY(picture().isLit({1e6, 10}));
    }

    void multileaderHasItsLinesLandingArrowAndText()
    {
        show(CanvasDrawing().add(
            "MULTILEADER 8=0 270=2 300=CONTEXT_DATA{ 40=1 10=20 20=30 30=0 41=10 140=6 145=2 290=1 "
            "304=HH 11=0 21=0 31=1 12=30 22=35 32=0 13=1 23=0 33=0 42=0 43=0 171=1 "
            "302=LEADER{ 290=1 291=1 10=20 20=30 30=0 11=1 21=0 31=0 90=0 40=8 "
            "304=LEADER_LINE{ 10=-40 20=-30 30=0 91=0 305=} 303=} 301=} 170=1 10=99 41=77"));
        const CanvasPicture seen = picture();
        for (const Vec2 point : P::line({-40, -30}, {20, 30}))
            QVERIFY(seen.isLit(point));
        for (const Vec2 point : P::line({20, 30}, {28, 30}))
            QVERIFY(seen.isLit(point));
        // The arrow is six units long and two wide at its end.
        QVERIFY(seen.coverage({-37.2, -26.6, -36.8, -26.2}) > 0.5);
        QVERIFY(!seen.isLit({-40, -27}));
        const double width = seen.litBox().maxX - 30;
        QVERIFY(width > 10 && width < 40);
        QVERIFY(std::abs(seen.litBox().maxY - 35) < 0.6);
        QCOMPARE(canvas().undrawnSummary(), QString());
    }

    void invisibleEntitiesAreNotDrawnAndNotMissed()
    {
        show(CanvasDrawing().add("LINE 8=0 60=1 10=-50 20=0 11=50 21=0"));
        QVERIFY(picture().isEmpty());
        QCOMPARE(canvas().undrawnSummary(), QString());
    }

    void absurdCoordinatesAreCountedAndHurtNothing()
    {
        show(CanvasDrawing().add("LINE 8=0 10=0 20=0 11=1e300 21=0\n"
                                 "LINE 8=0 10=nan 20=0 11=5 21=0\n"
                                 "CIRCLE 8=0 10=0 20=0 40=inf\n"
                                 "CIRCLE 8=0 10=-1e300 20=0 40=5\n"
                                 "LWPOLYLINE 8=0 90=2 70=0 10=0 20=1e200 42=5 10=3 20=4\n"
                                 "LINE 8=0 10=-50 20=-20 11=60 21=40"));
        QVERIFY(canvas().undrawnSummary().contains(QStringLiteral("CIRCLE")));
        canvas().zoomExtents();
        const CanvasPicture seen = picture();
        QVERIFY(seen.isLit({60, 40}));
        QVERIFY(canvas().view().scale() > 1);
    }

    void farFromZeroNothingTrembles()
    {
        // A metre-sized square with survey coordinates, each side 1 unit.
        show(CanvasDrawing().add(
            "LWPOLYLINE 8=0 90=4 70=1 10=35000000.25 20=56000000.5 10=35000001.25 "
            "20=56000000.5 10=35000001.25 20=56000001.5 10=35000000.25 20=56000001.5"));
        canvas().zoomExtents();
        const Vec2 o{35000000.25, 56000000.5};
        QCOMPARE(picture().mismatch(
                     P::polyline({o, o + Vec2{1, 0}, o + Vec2{1, 1}, o + Vec2{0, 1}}, true)),
                 QString());
    }

    void whatIsNotDrawnIsCountedByType()
    {
        show(CanvasDrawing().add("OLE2FRAME 8=0 70=2\nOLE2FRAME 8=0 70=2\nOLE2FRAME 8=0 70=2\n"
                                 "3DSOLID 8=0 70=1\nLINE 8=0 10=0 20=0 11=5 21=5"));
        QCOMPARE(canvas().undrawnSummary(), QStringLiteral("3 OLE2FRAME, 1 3DSOLID not drawn"));
    }
};

QTEST_MAIN(CanvasCurves)
#include "test_canvas_curves.moc"
