#include "database/objects/OdDbEntity.h"
#include "host/canvas/CanvasContents.h"
#include "host/canvas/support/CanvasFixture.h"

#include <QTest>

/// Linetypes, lineweights, fading and transparency, from layers, entities and references.
class CanvasLines : public CanvasFixture
{
    Q_OBJECT

    using P = CanvasPicture;

    /// Dashes of 10 and gaps of 10, on a layer of its own.
    static CanvasDrawing dashed()
    {
        return CanvasDrawing()
            .linetype("DASH", "10 -10")
            .linetype("DOTS", "0 -10")
            .layerWith("D", 7, "6=DASH")
            .layerWith("C", 7, "6=CONTINUOUS");
    }
    /// A line 90 long, in the middle of the picture: 4 patterns and a dash of 10 at either end.
    static constexpr const char* kLine = "10=-45 20=0 11=45 21=0";
    /// Whether it has that line's dashes.
    static QString mismatchOfDashes(const CanvasPicture& seen, double y = 0)
    {
        std::vector<P::Path> dashes;
        for (double x = -45; x < 45; x += 20)
            dashes.push_back(P::line({x, y}, {x + 10, y}));
        return seen.mismatch(P::together(dashes));
    }
    /// Rows of lit pixels around a point of a level line.
    int thickness(Vec2 at)
    {
        const QImage image = picture().image();
        const QPoint pixel = canvas().view().toWindow(at).toPoint();
        int count = 0;
        for (int y = pixel.y() - 100; y <= pixel.y() + 100; ++y)
            count += image.pixel(pixel.x(), y) != picture().background() ? 1 : 0;
        return count;
    }

private slots:
    void linetypeComesFromTheLayer()
    {
        show(dashed().add(QByteArray("LINE 8=D ") + kLine));
        QCOMPARE(mismatchOfDashes(picture()), QString());
    }

    void entityMayHaveALinetypeOfItsOwn()
    {
        show(dashed().add(QByteArray("LINE 8=C 6=dash ") + kLine));
        QCOMPARE(mismatchOfDashes(picture()), QString());
        show(dashed().add(QByteArray("LINE 8=D 6=CONTINUOUS ") + kLine));
        QCOMPARE(picture().mismatch(P::line({-45, 0}, {45, 0})), QString());
        show(dashed().add(QByteArray("LINE 8=D 6=BYLAYER ") + kLine));
        QCOMPARE(mismatchOfDashes(picture()), QString());
    }

    void linetypeByBlockIsThatOfTheReference()
    {
        show(dashed()
                 .block("B", 0, 0, QByteArray("LINE 8=C 6=BYBLOCK ") + kLine)
                 .add("INSERT 8=D 2=B 10=0 20=0\nINSERT 8=C 6=DASH 2=B 10=0 20=40"));
        const CanvasPicture seen = picture();
        QVERIFY(!seen.isLit({-30, 0}) && seen.isLit({-40, 0}));
        QVERIFY(!seen.isLit({-30, 40}) && seen.isLit({-40, 40}));
        show(dashed().add(QByteArray("LINE 8=D 6=BYBLOCK ") + kLine));
        QCOMPARE(picture().mismatch(P::line({-45, 0}, {45, 0})), QString());
    }

    void patternsGrowWithTheReference()
    {
        show(dashed()
                 .block("B", 0, 0, "LINE 8=D 10=0 20=0 11=45 21=0")
                 .add("INSERT 8=0 2=B 10=-45 20=0 41=2 42=2"));
        // 45 units with patterns of 20: a dash of 7.5, 10, 10, 10, 7.5; doubled.
        const CanvasPicture seen = picture();
        QVERIFY(seen.isLit({-35, 0}) && !seen.isLit({-20, 0}) && seen.isLit({0, 0})
                && !seen.isLit({20, 0}) && seen.isLit({35, 0}));
    }

    void scalesMultiply()
    {
        show(dashed().variable("$LTSCALE", "40=0.5").add(QByteArray("LINE 8=D 48=2 ") + kLine));
        QCOMPARE(mismatchOfDashes(picture()), QString());
        database().setHeaderVariable(QStringLiteral("$LTSCALE"), 40, QStringLiteral("100"));
        QCOMPARE(picture().mismatch(P::line({-45, 0}, {45, 0})), QString());
        QCOMPARE(canvas().contents().geometryBuilds(), 1);
    }

    void anotherLinetypeOfALayerShowsAtOnce()
    {
        show(dashed().add(QByteArray("LINE 8=C ") + kLine));
        QCOMPARE(picture().mismatch(P::line({-45, 0}, {45, 0})), QString());
        changeLayer("C", [this](auto& layer) {
            layer.setLinetypeObjectId(
                database().table(OdDbTableKind::Linetype).getAt(QStringLiteral("DASH")));
        });
        QCOMPARE(mismatchOfDashes(picture()), QString());
        QVERIFY(database().undo());
        QCOMPARE(picture().mismatch(P::line({-45, 0}, {45, 0})), QString());
        QCOMPARE(canvas().contents().geometryBuilds(), 1);
    }

    void dotsAreDots()
    {
        show(dashed().add("LINE 8=C 6=DOTS 10=-45 20=0 11=45 21=0"));
        // Ends of no length: dots every ten units.
        QCOMPARE(picture().litCount(), 10);
        QVERIFY(picture().isLit({-45, 0}) && picture().isLit({5, 0}));
        show(dashed().add("LINE 8=C 6=DOTS 10=-45 20=0 11=50 21=0"));
        QCOMPARE(picture().litCount(), 10);
        QVERIFY(picture().isLit({-42.5, 0}));
    }

    void shortLinesHaveNoGaps()
    {
        show(dashed().add("LINE 8=D 10=0 20=0 11=19 21=0"));
        QCOMPARE(picture().mismatch(P::line({0, 0}, {19, 0})), QString());
    }

    void patternsTooFineToSeeAreLeftOut()
    {
        show(dashed().add(QByteArray("LINE 8=D 48=0.02 ") + kLine));
        QCOMPARE(picture().mismatch(P::line({-45, 0}, {45, 0})), QString());
    }

    void segmentsOfAPolylineBeginAnewUnlessThePatternRunsOn()
    {
        const QByteArray corners = " 10=-15 20=0 10=0 20=0 10=15 20=0 10=30 20=0 10=45 20=0";
        show(dashed().add("LWPOLYLINE 8=D 90=5 70=0" + corners));
        QCOMPARE(picture().mismatch(P::line({-15, 0}, {45, 0})), QString());
        // 60 long: dashes of 5 at the ends, patterns between.
        show(dashed().add("LWPOLYLINE 8=D 90=5 70=128" + corners));
        QCOMPARE(
            picture().mismatch(P::together({P::line({-15, 0}, {-10, 0}), P::line({0, 0}, {10, 0}),
                                            P::line({20, 0}, {30, 0}), P::line({40, 0}, {45, 0})})),
            QString());
    }

    void patternsRunOnOverArcsOfPolylines()
    {
        // A half circle of radius 20, then 37.168 straight: 100 in all.
        show(dashed().add("LWPOLYLINE 8=D 90=3 70=128 10=0 20=20 42=-1 10=0 20=-20 42=0 "
                          "10=-37.168147 20=-20"));
        const CanvasPicture seen = picture();
        // Dashes lie around 0, 20, 40, 60, 80 and 100.
        const double unit = 180 / 62.831853;
        const auto onArc = [&](double along) {
            const double angle = (90 - along * unit) * 3.14159265 / 180;
            return Vec2{20 * std::cos(angle), 20 * std::sin(angle)};
        };
        QVERIFY(seen.isLit(onArc(2)) && !seen.isLit(onArc(10)) && seen.isLit(onArc(20))
                && !seen.isLit(onArc(30)) && seen.isLit(onArc(60)));
        const auto straight = [](double along) { return Vec2{-(along - 62.831853), -20}; };
        QVERIFY(seen.isLit(straight(64)) && !seen.isLit(straight(70)) && seen.isLit(straight(80))
                && !seen.isLit(straight(90)) && seen.isLit(straight(98)));
    }

    void curvesAreDashedAlongTheirLength()
    {
        show(dashed().add("CIRCLE 8=D 10=0 20=0 40=31.830989\n"
                          "ELLIPSE 8=D 10=0 20=0 11=90 21=0 40=0.5 41=0 42=6.283185"));
        const CanvasPicture seen = picture();
        // The circle is 200 round: ten patterns of which each begins with a dash.
        int changes = 0;
        bool before = seen.isLit({31.830989, 0});
        for (int i = 1; i <= 720; ++i) {
            const double angle = i * 3.14159265 / 360;
            const bool now = seen.isLit({31.830989 * std::cos(angle), 31.830989 * std::sin(angle)});
            changes += now != before ? 1 : 0;
            before = now;
        }
        QCOMPARE(changes, 20);
        // About as much of the ellipse shows as does not.
        int lit = 0;
        for (int i = 0; i < 3600; ++i) {
            const double t = i * 3.14159265 / 1800;
            lit += seen.isLit({90 * std::cos(t), 45 * std::sin(t)}) ? 1 : 0;
        }
        QVERIFY2(lit > 1500 && lit < 2400, qPrintable(QString::number(lit)));
    }

    void splinesAreDashedAsOneLine()
    {
        show(dashed().add("SPLINE 8=D 70=8 71=3 72=8 73=4 40=0 40=0 40=0 40=0 40=1 40=1 40=1 40=1 "
                          "10=-45 20=0 10=-15 20=0 10=15 20=0 10=45 20=0"));
        QCOMPARE(mismatchOfDashes(picture()), QString());
    }

    void longLinesAreDashedWhereTheyAreSeen()
    {
        show(dashed().add("LINE 8=D 10=-1000000005 20=0 11=1000000005 21=0\n"
                          "XLINE 8=D 10=0 20=20 11=1 21=0\n"
                          "CIRCLE 8=D 10=0 20=-10000020 40=10000000"));
        QElapsedTimer timer;
        timer.start();
        const CanvasPicture seen = picture();
        QVERIFY(timer.elapsed() < 2000);
        const double level = seen.coverage({-90, -1, 90, 1});
        const double ray = seen.coverage({-90, 19, 90, 21});
        const double arc = seen.coverage({-90, -21, 90, -19});
        // One row of eight, half of it.
        for (const double share : {level, ray, arc})
            QVERIFY2(share > 0.045 && share < 0.08, qPrintable(QString::number(share)));
    }

    void fillsAndPatternsOfHatchesAreNotDashed()
    {
        show(dashed().add(
            "SOLID 8=D 10=-40 20=0 11=40 21=0 12=-40 22=0.01 13=40 23=0.01\n"
            "HATCH 8=D 10=0 20=0 30=0 2=LINES 70=0 71=0 91=1 "
            "92=3 72=0 73=1 93=4 10=-40 20=10 10=40 20=10 10=40 20=30 10=-40 20=30 97=0 "
            "75=0 76=1 52=0 41=1 77=0 78=1 53=0 43=0 44=20 45=0 46=100 79=0"));
        QCOMPARE(picture().mismatch(
                     P::together({P::line({-40, 0}, {40, 0}), P::line({-40, 20}, {40, 20})})),
                 QString());
    }

    void symbolsInLinetypesAreCountedOnceEach()
    {
        const QByteArray symbol = "74=2 75=0 340=0 46=1 50=0 44=0 45=0 9=GAS";
        show(CanvasDrawing()
                 .linetype("GAS", "10 -10", symbol)
                 .linetype("WATER", "10 -10", symbol)
                 .layerWith("G", 7, "6=GAS")
                 .add(QByteArray("LINE 8=G ") + kLine + "\nLINE 8=0 6=GAS " + kLine));
        QCOMPARE(mismatchOfDashes(picture()), QString());
        QCOMPARE(canvas().undrawnSummary(), QStringLiteral("1 LTYPE symbol not drawn"));
    }

    void brokenLinetypesAreLinesWithoutGaps()
    {
        for (const char* lengths : {"1e300 -1e300", "-0", "5 5"}) {
            show(CanvasDrawing()
                     .linetype("BAD", lengths)
                     .add(QByteArray("LINE 8=0 6=BAD ") + kLine));
            QCOMPARE(picture().mismatch(P::line({-45, 0}, {45, 0})), QString());
        }
    }

    void lineweightsShowWhenTheyAreSwitchedOn()
    {
        show(dashed()
                 .layerWith("W", 7, "370=100")
                 .add(QByteArray("LINE 8=W ") + kLine
                      + "\nLINE 8=C 370=200 10=-45 20=30 11=45 21=30"
                        "\nLINE 8=C 10=-45 20=-30 11=45 21=-30"));
        QCOMPARE(thickness({0, 0}), 1);
        database().setHeaderVariable(QStringLiteral("$LWDISPLAY"), 290, QStringLiteral("1"));
        QCOMPARE(thickness({0, 0}), 4);
        QCOMPARE(thickness({0, 30}), 8);
        QCOMPARE(thickness({0, -30}), 1);
        // However close one looks.
        look({0, 0}, 20);
        QCOMPARE(thickness({0, 0}), 4);
        canvas().contents();
        QCOMPARE(canvas().contents().geometryBuilds(), 1);
    }

    void lineweightByBlockAndByDefault()
    {
        show(dashed()
                 .variable("$LWDISPLAY", "290=1")
                 .block("B", 0, 0, QByteArray("LINE 8=C 370=-2 ") + kLine)
                 .add("INSERT 8=0 370=100 2=B 10=0 20=0\n"
                      "LINE 8=C 370=-3 10=-45 20=30 11=45 21=30"));
        QCOMPARE(thickness({0, 0}), 4);
        QCOMPARE(thickness({0, 30}), 1);
        canvas().setDefaultWeight(50);
        QCOMPARE(thickness({0, 30}), 2);
    }

    void lineweightsOnASheetAreThoseOnPaper()
    {
        show(
            dashed()
                .variable("$LWDISPLAY", "290=1")
                .paper("Sheet", "40=0 41=0 42=0 43=0 44=200 45=200 46=0 47=0 72=1 142=1 143=1 73=0")
                .add("LINE 8=0 67=1 370=200 10=-45 20=50 11=45 21=50"));
        database().setTILEMODE(false);
        picture();
        look({0, 50}, 4);
        QCOMPARE(thickness({20, 50}), 8);
        look({0, 50}, 10);
        QCOMPARE(thickness({20, 50}), 20);
    }

    void lockedLayersFadeAsMuchAsIsAskedFor()
    {
        show(CanvasDrawing().layer("A", 1, 4).add(QByteArray("LINE 8=A ") + kLine));
        QCOMPARE(picture().colourAt({0, 0}), qRgb(127, 0, 0));
        canvas().setLockedFade(80);
        QCOMPARE(picture().colourAt({0, 0}), qRgb(51, 0, 0));
        for (const int off : {0, -80}) {
            canvas().setLockedFade(off);
            QCOMPARE(picture().colourAt({0, 0}), qRgb(255, 0, 0));
        }
    }

    void transparencyLetsWhatIsBelowThrough()
    {
        // 0x02000080: half.
        show(CanvasDrawing().layer("A", 1).add(
            "SOLID 8=A 62=5 10=-40 20=-40 11=0 21=-40 12=-40 22=40 13=0 23=40\n"
            "SOLID 8=A 440=33554560 10=-40 20=-40 11=40 21=-40 12=-40 22=40 13=40 23=40\n"
            "LINE 8=A 440=33554560 10=60 20=-40 11=60 21=40"));
        const QRgb over = picture().colourAt({-20, 10});
        QVERIFY(qAbs(qRed(over) - 128) <= 2 && qAbs(qBlue(over) - 127) <= 2);
        QVERIFY(qAbs(qRed(picture().colourAt({20, 10})) - 128) <= 2);
        QCOMPARE(picture().colourAt({60, 0}), qRgb(128, 0, 0));
    }

    void layersMayBeTransparent()
    {
        show(CanvasDrawing().layer("A", 1).add(QByteArray("LINE 8=A ") + kLine));
        changeLayer("A", [](auto& layer) {
            layer.setTransparency(OdDbLayerTableRecord::transparencyFromPercent(50));
        });
        const QRgb seen = picture().colourAt({0, 0});
        QVERIFY2(qAbs(qRed(seen) - 127) <= 2, qPrintable(QString::number(qRed(seen))));
        QVERIFY(database().undo());
        QCOMPARE(picture().colourAt({0, 0}), qRgb(255, 0, 0));
    }
};

QTEST_MAIN(CanvasLines)
#include "test_canvas_lines.moc"
