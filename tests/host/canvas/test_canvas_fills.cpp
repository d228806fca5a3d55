#include "host/canvas/support/CanvasFixture.h"

#include <QTest>

/// Filled areas cover what they must and no more.
class CanvasFills : public CanvasFixture
{
    Q_OBJECT

    using P = CanvasPicture;

private slots:
    void solidTakesItsLastCornersCrosswise()
    {
        show(CanvasDrawing().add("SOLID 8=0 10=0 20=0 11=40 21=0 12=0 22=40 13=40 23=40"));
        QVERIFY(picture().coverage({1, 1, 39, 39}) > 0.99);
        QCOMPARE(picture().coverage({45, 0, 90, 40}), 0.0);
    }

    void solidOfThreeCornersIsATriangle()
    {
        show(CanvasDrawing().add("SOLID 8=0 10=0 20=0 11=40 21=0 12=0 22=40"));
        const CanvasPicture seen = picture();
        QVERIFY(seen.isLit({10, 10}));
        QVERIFY(!seen.isLit({30, 30}));
    }

    void traceIsFilledToo()
    {
        show(CanvasDrawing().add("TRACE 8=0 10=0 20=0 11=40 21=0 12=0 22=4 13=40 23=4"));
        QVERIFY(picture().coverage({1, 1, 39, 3}) > 0.99);
    }

    void faceIsAnOutlineWithoutItsInvisibleEdges()
    {
        show(CanvasDrawing().add(
            "3DFACE 8=0 10=0 20=0 30=0 11=40 21=0 31=9 12=40 22=40 32=9 13=0 23=40 "
            "33=0 70=2"));
        QCOMPARE(picture().mismatch(P::together(
                     {P::line({0, 0}, {40, 0}), P::polyline({{40, 40}, {0, 40}, {0, 0}})})),
                 QString());
    }

    void solidHatchLeavesItsIslandsOpen()
    {
        show(CanvasDrawing().add(
            "HATCH 8=0 10=0 20=0 30=0 2=SOLID 70=1 71=0 91=2 "
            "92=3 72=0 73=1 93=4 10=-40 20=-40 10=40 20=-40 10=40 20=40 10=-40 20=40 97=0 "
            "92=18 72=1 73=1 93=2 10=-10 20=0 42=1 10=10 20=0 42=1 97=0 75=0 76=1"));
        const CanvasPicture seen = picture();
        QVERIFY(seen.coverage({-39, -39, -12, 39}) > 0.99);
        QVERIFY(!seen.isLit({0, 0}));
        QVERIFY(!seen.isLit({0, 8}) && !seen.isLit({0, -8}));
        QVERIFY(seen.isLit({0, 14}));
    }

    void hatchFollowsEdgesOfEveryKind()
    {
        // A bottom line, a right half circle, a top line run backwards, and a left spline.
        show(CanvasDrawing().add(
            "HATCH 8=0 10=0 20=0 30=0 2=SOLID 70=1 71=0 91=1 92=1 93=4 "
            "72=1 10=-30 20=-20 11=30 21=-20 "
            "72=2 10=30 20=0 40=20 50=270 51=90 73=1 "
            "72=1 10=-30 20=20 11=30 21=20 "
            "72=4 94=1 73=0 74=0 95=4 96=2 40=0 40=0 40=1 40=1 10=-30 20=20 10=-30 20=-20 "
            "97=0 75=0 76=1"));
        const CanvasPicture seen = picture();
        QVERIFY(seen.coverage({-29, -19, 29, 19}) > 0.99);
        QVERIFY(seen.isLit({48, 0}) && !seen.isLit({52, 0}));
        QVERIFY(!seen.isLit({48, 12}));
        QVERIFY(!seen.isLit({-33, 0}));
    }

    void hatchReadsClockwiseArcs()
    {
        show(CanvasDrawing().add("HATCH 8=0 10=0 20=0 30=0 2=SOLID 70=1 71=0 91=1 92=1 93=2 "
                                 "72=2 10=0 20=0 40=40 50=180 51=360 73=0 "
                                 "72=1 10=40 20=0 11=-40 21=0 97=0 75=0 76=1"));
        const CanvasPicture seen = picture();
        QVERIFY(seen.isLit({0, 20}));
        QVERIFY(!seen.isLit({0, -20}));
    }

    void patternHatchDrawsItsLines()
    {
        show(CanvasDrawing().add(
            "HATCH 8=0 10=0 20=0 30=0 2=LINES 70=0 71=0 91=1 "
            "92=3 72=0 73=1 93=4 10=-40 20=-40 10=40 20=-40 10=40 20=40 10=-40 20=40 97=0 "
            "75=0 76=1 52=0 41=1 77=0 78=1 53=0 43=0 44=5 45=0 46=20 79=0"));
        QCOMPARE(picture().mismatch(
                     P::together({P::line({-40, -35}, {40, -35}), P::line({-40, -15}, {40, -15}),
                                  P::line({-40, 5}, {40, 5}), P::line({-40, 25}, {40, 25})})),
                 QString());
    }

    void patternTooDenseToDrawLeavesItsOutlineAndIsCounted()
    {
        show(CanvasDrawing().add(
            "HATCH 8=0 10=0 20=0 30=0 2=DENSE 70=0 71=0 91=1 "
            "92=3 72=0 73=1 93=4 10=-40 20=-40 10=40 20=-40 10=40 20=40 10=-40 20=40 97=0 "
            "75=0 76=1 52=0 41=1 77=0 78=1 53=0 43=0 44=0 45=0 46=0.000001 79=0"));
        QCOMPARE(
            picture().mismatch(P::polyline({{-40, -40}, {40, -40}, {40, 40}, {-40, 40}}, true)),
            QString());
        QCOMPARE(canvas().undrawnSummary(), QStringLiteral("1 HATCH pattern not drawn"));
    }

    void gradientsAreFilledHalfWay()
    {
        show(CanvasDrawing().add(
            "HATCH 8=0 10=0 20=0 30=0 2=SOLID 70=1 71=0 91=1 92=3 72=0 73=1 93=4 10=-40 20=-40 "
            "10=40 20=-40 10=40 20=40 10=-40 20=40 97=0 75=0 76=1 450=1 451=0 460=0 461=0 452=0 "
            "453=2 463=0 63=5 421=255 463=1 63=2 421=16711680 470=LINEAR"));
        QCOMPARE(picture().colourAt({0, 0}), qRgb(127, 0, 127));
    }

    void fillsLieBelowStrokes()
    {
        show(CanvasDrawing().add(
            "LINE 8=0 62=1 10=-20 20=0 11=20 21=0\n"
            "SOLID 8=0 62=3 10=-40 20=-40 11=40 21=-40 12=-40 22=40 13=40 23=40"));
        QCOMPARE(picture().colourAt({0, 0}), qRgb(255, 0, 0));
        QCOMPARE(picture().colourAt({0, 20}), qRgb(0, 255, 0));
    }

    void hugeAreasAreFilledCloseUp()
    {
        show(CanvasDrawing().add(
            "SOLID 8=0 10=-1000000 20=-1000000 11=1000000 21=-1000000 12=-1000000 "
            "22=1000000 13=1000000 23=1000000"));
        look({10, 10}, 1000);
        QVERIFY(picture().coverage({9.7, 9.8, 10.3, 10.2}) > 0.999);
    }

    void imagesShowTheirFrameAndAreCounted()
    {
        // 20 by 10 pixels of 3 units, turned by a quarter.
        show(CanvasDrawing().add("IMAGE 8=0 100=AcDbRasterImage 90=0 10=30 20=-30 11=0 21=3 12=-3 "
                                 "22=0 13=20 23=10 340=0 70=7 280=0 71=1 91=2 14=-0.5 24=-0.5 "
                                 "14=19.5 24=9.5"));
        QCOMPARE(picture().mismatch(P::polyline({{30, -30}, {0, -30}, {0, 30}, {30, 30}}, true)),
                 QString());
        QCOMPARE(canvas().undrawnSummary(), QStringLiteral("1 IMAGE not drawn"));
    }

    void wipeoutsShowTheOutlineThatClipsThem()
    {
        // A triangle: the middle of its upper edge, and the lower corners.
        show(CanvasDrawing().add("WIPEOUT 8=0 100=AcDbWipeout 90=0 10=-30 20=-30 11=60 21=0 12=0 "
                                 "22=60 13=1 23=1 340=0 70=7 280=1 71=2 91=4 14=0 24=-0.5 14=0.5 "
                                 "24=0.5 14=-0.5 24=0.5 14=0 24=-0.5"));
        QCOMPARE(picture().mismatch(P::polyline({{0, 30}, {30, -30}, {-30, -30}}, true)),
                 QString());
        QCOMPARE(canvas().undrawnSummary(), QStringLiteral("1 WIPEOUT not drawn"));
    }

    void sliversStayVisible()
    {
        show(CanvasDrawing().add(
            "SOLID 8=0 10=-40 20=10 11=40 21=10 12=-40 22=10.01 13=40 23=10.01"));
        QVERIFY(picture().isLit({0, 10}));
    }
};

QTEST_MAIN(CanvasFills)
#include "test_canvas_fills.moc"
