#include "host/canvas/CanvasContents.h"
#include "host/canvas/support/CanvasFixture.h"

#include <QTest>

/// Sheets: their own entities, and model space through viewports.
class CanvasSheets : public CanvasFixture
{
    Q_OBJECT

    using P = CanvasPicture;
    static constexpr QRgb kBlack = 0xFF000000;

    /// A cross in model space; a sheet whose left viewport shows it in full size, whose right one
    /// shows it doubled with layer A frozen.
    static CanvasDrawing twoViewports()
    {
        CanvasDrawing text;
        text.layer("A", 1, 0, "B1").layer("B", 3, 0, "B2").layer("Border", 6, 0, "B3");
        text.add(
            "LINE 8=A 10=980 20=1000 11=1020 21=1000\nLINE 8=B 10=1000 20=980 11=1000 21=1020\n"
            "VIEWPORT 5=C1 67=1 8=0 10=0 20=0 40=200 41=150 68=1 69=1 12=0 22=0 16=0 26=0 36=1 "
            "45=150\n"
            "VIEWPORT 5=C2 67=1 8=Border 10=-40 20=0 40=60 41=60 68=2 69=2 12=1000 22=1000 16=0 "
            "26=0 36=1 45=60 90=0\n"
            "VIEWPORT 5=C3 67=1 8=Border 100=AcDbViewport 10=40 20=0 40=60 41=60 68=3 69=3 12=1000 "
            "22=1000 16=0 "
            "26=0 "
            "36=1 45=30 331=B1 90=0\n"
            "LINE 67=1 8=0 10=-70 20=50 11=70 21=50");
        return text;
    }
    void showSheet(const CanvasDrawing& text)
    {
        show(text);
        database().setTILEMODE(false);
        picture();
        look({0, 0}, 4);
    }
    static P::Path frame(Vec2 centre)
    {
        return P::polyline({centre + Vec2{-30, -30}, centre + Vec2{30, -30}, centre + Vec2{30, 30},
                            centre + Vec2{-30, 30}},
                           true);
    }

private slots:
    void modelSpaceDoesNotShowTheSheet()
    {
        show(twoViewports());
        QVERIFY(picture().isEmpty());
        look({1000, 1000}, 4);
        QCOMPARE(picture().mismatch(P::together(
                     {P::line({980, 1000}, {1020, 1000}), P::line({1000, 980}, {1000, 1020})})),
                 QString());
    }

    void sheetShowsItselfAndModelSpaceThroughItsViewports()
    {
        showSheet(twoViewports());
        QCOMPARE(picture().mismatch(
                     P::together({P::line({-70, 50}, {70, 50}), frame({-40, 0}), frame({40, 0}),
                                  P::line({-60, 0}, {-20, 0}), P::line({-40, -20}, {-40, 20}),
                                  // Doubled, and cut off at the frame.
                                  P::line({40, -30}, {40, 30})})),
                 QString());
    }

    void layersFreezeInOneViewportOnly()
    {
        showSheet(twoViewports());
        QVERIFY(picture().isLit({-50, 0}));
        QVERIFY(!picture().isLit({50, 0}));
    }

    void layerTogglesReachTheViewports()
    {
        showSheet(twoViewports());
        const int builds = canvas().contents().geometryBuilds();
        changeLayer("B", [](auto& layer) { layer.setIsOff(true); });
        QVERIFY(!picture().isLit({-40, 10}) && !picture().isLit({40, 10}));
        changeLayer("B", [](auto& layer) { layer.setIsOff(false); });
        QVERIFY(picture().isLit({-40, 10}) && picture().isLit({40, 10}));
        QCOMPARE(canvas().contents().geometryBuilds(), builds);
    }

    void coloursMayDifferInAViewport()
    {
        show(twoViewports());
        LayerOverride blue;
        blue.color = OdCmColor::fromIndex(5);
        layer("B").openObject<OdDbLayerTableRecord>()->stateForLoading().overrides = {
            {byHandle(0xC3).slot(), blue}};
        canvas().setDatabase(&database());
        database().setTILEMODE(false);
        picture();
        look({0, 0}, 4);
        QCOMPARE(picture().colourAt({-40, 10}), qRgb(0, 255, 0));
        QCOMPARE(picture().colourAt({40, 10}), qRgb(0, 0, 255));
    }

    void bordersHideWithTheirLayerAndTheContentsStay()
    {
        showSheet(twoViewports());
        changeLayer("Border", [](auto& layer) { layer.setIsOff(true); });
        const CanvasPicture seen = picture();
        QVERIFY(!seen.isLit({-70, 0}));
        QVERIFY(seen.isLit({-50, 0}));
    }

    void twistTurnsThePicture()
    {
        // An upright line lies on its side after a quarter turn; the lower end comes to the right.
        CanvasDrawing text;
        text.add("LINE 8=0 10=0 20=-20 11=0 21=10\n"
                 "VIEWPORT 67=1 8=0 10=0 20=0 40=200 41=150 68=1 69=1 12=0 22=0 36=1 45=150\n"
                 "VIEWPORT 67=1 8=0 10=0 20=0 40=80 41=60 68=2 69=2 12=0 22=0 16=0 26=0 36=1 "
                 "45=60 51=90 90=0");
        showSheet(text);
        QCOMPARE(picture().mismatch(P::together(
                     {P::line({-10, 0}, {20, 0}),
                      P::polyline({{-40, -30}, {40, -30}, {40, 30}, {-40, 30}}, true)})),
                 QString());
    }

    void viewCentreIsTakenInTheTurnedPicture()
    {
        // Target at the cross, view centre 10 to the right in the turned picture: the cross stands
        // 20 sheet units to the left of the viewport's centre.
        CanvasDrawing text;
        text.add("POINT 8=0 10=1000 20=1000\n"
                 "VIEWPORT 67=1 8=0 10=0 20=0 40=200 41=150 68=1 69=1 12=0 22=0 36=1 45=150\n"
                 "VIEWPORT 67=1 8=0 10=0 20=0 40=60 41=60 68=2 69=2 12=10 22=0 16=0 26=0 36=1 "
                 "17=1000 27=1000 "
                 "45=30 51=90 90=0");
        showSheet(text);
        QVERIFY(picture().isLit({-20, 0}));
    }

    void viewportsThatAreOffShowTheirBorderOnly()
    {
        showSheet(twoViewports().add("VIEWPORT 67=1 8=Border 10=0 20=-60 40=20 41=20 68=0 69=4 "
                                     "12=1000 22=1000 36=1 45=20 90=131072"));
        const CanvasPicture seen = picture();
        QVERIFY(seen.isLit({10, -60}));
        QVERIFY(!seen.isLit({0, -60}));
    }

    void viewsFromTheSideAreCountedAsNotDrawn()
    {
        showSheet(twoViewports().add("VIEWPORT 67=1 8=Border 10=0 20=-60 40=20 41=20 68=4 69=4 "
                                     "12=0 22=0 16=1 26=1 36=1 45=20 90=0"));
        QVERIFY(picture().isLit({10, -60}));
        QCOMPARE(canvas().undrawnSummary(), QStringLiteral("1 VIEWPORT not drawn"));
    }

    void viewportsOfNoSizeAreCountedAsNotDrawn()
    {
        showSheet(twoViewports().add(
            "VIEWPORT 67=1 8=0 10=0 20=-60 40=inf 41=20 68=4 69=4 12=0 22=0 36=1 45=20 90=0\n"
            "VIEWPORT 67=1 8=0 10=1e300 20=0 40=9 41=9 68=5 69=5 12=0 22=0 36=1 45=9 90=0\n"
            "VIEWPORT 67=1 8=0 10=0 20=0 40=9 41=9 68=6 69=6 12=0 22=0 36=1 45=nan 90=0"));
        canvas().zoomExtents();
        QVERIFY(picture().isLit({-50, 0}));
        QCOMPARE(canvas().undrawnSummary(), QStringLiteral("3 VIEWPORT not drawn"));
    }

    void eachSpaceKeepsItsView()
    {
        showSheet(twoViewports());
        look({5, 6}, 9);
        database().setTILEMODE(true);
        picture();
        look({1000, 1000}, 3);
        database().setTILEMODE(false);
        picture();
        QCOMPARE(canvas().view().centre(), (Vec2{5, 6}));
        QCOMPARE(canvas().view().scale(), 9.0);
        database().setTILEMODE(true);
        picture();
        QCOMPARE(canvas().view().centre(), (Vec2{1000, 1000}));
        QCOMPARE(canvas().contents().geometryBuilds(), 2);
    }

    void theViewportWorkedInHasAThickBorder()
    {
        showSheet(twoViewports());
        const int thin = picture().litCount();
        database().setActiveViewport(byHandle(0xC2));
        QVERIFY(picture().litCount() > thin + 100);
        QVERIFY(picture().isLit({-70.2, 0}));
    }

    void paperLiesWhereTheMarginsPutIt_data()
    {
        QTest::addColumn<QByteArray>("settings");
        QTest::addColumn<double>("left");
        QTest::addColumn<double>("bottom");
        QTest::addColumn<double>("width");
        const QByteArray paper = "40=1 41=2 42=3 43=4 44=60 45=80 46=0 47=0 72=1 142=1 143=1 ";
        QTest::newRow("upright") << paper + "73=0" << -1.0 << -2.0 << 60.0;
        QTest::newRow("a quarter turn") << paper + "73=1" << -2.0 << -3.0 << 80.0;
        QTest::newRow("half a turn") << paper + "73=2" << -3.0 << -4.0 << 60.0;
        QTest::newRow("inches") << QByteArray("40=25.4 41=50.8 44=762 45=1016 72=0 73=0") << -1.0
                                << -2.0 << 30.0;
        QTest::newRow("scaled") << QByteArray("40=1 41=2 44=30 45=40 72=1 73=0 142=1 143=2") << -2.0
                                << -4.0 << 60.0;
    }
    void paperLiesWhereTheMarginsPutIt()
    {
        QFETCH(QByteArray, settings);
        QFETCH(double, left);
        QFETCH(double, bottom);
        QFETCH(double, width);
        showSheet(CanvasDrawing().paper("Sheet", settings));
        const QImage seen = picture().image();
        const auto at = [&](double x, double y) {
            return seen.pixel(canvas().view().toWindow({x, y}).toPoint());
        };
        const QRgb desk = canvas().palette().color(QPalette::Window).rgb();
        QCOMPARE(at(left + 1, bottom + 1), kBlack);
        QCOMPARE(at(left - 1, bottom + 1), desk);
        QCOMPARE(at(left + 1, bottom - 1), desk);
        QCOMPARE(at(left + width - 1, bottom + 1), kBlack);
        QCOMPARE(at(left + width + 1, bottom + 1), desk);
    }

    void summaryOfASheetIncludesTheModel()
    {
        showSheet(twoViewports().add(
            "OLE2FRAME 8=0 70=1\nOLE2FRAME 67=1 8=0 70=1\nREGION 67=1 8=0 70=1"));
        QCOMPARE(canvas().undrawnSummary(), QStringLiteral("2 OLE2FRAME, 1 REGION not drawn"));
        database().setTILEMODE(true);
        picture();
        QCOMPARE(canvas().undrawnSummary(), QStringLiteral("1 OLE2FRAME not drawn"));
    }
};

QTEST_MAIN(CanvasSheets)
#include "test_canvas_sheets.moc"
