#include "host/canvas/support/CanvasFixture.h"

#include <QTest>

/// What is particular to one viewport of a sheet: its outline, its layers, its lines.
class CanvasViewports : public CanvasFixture
{
    Q_OBJECT

    using P = CanvasPicture;

    /// A sheet on which a viewport shows model space at half its size; `outline`: further groups of
    /// it, and entities behind.
    static CanvasDrawing halfSize(const QByteArray& outline)
    {
        return CanvasDrawing()
            .linetype("DASH", "20 -20")
            .layer("A", 1, 0, "B1")
            .layer("Hidden", 3, 1, "B2")
            .paper("Sheet", "40=0 41=0 42=0 43=0 44=800 45=800 46=400 47=400 72=1 142=1 143=1 73=0")
            .add("LINE 8=A 10=-300 20=0 11=300 21=0\n"
                 "VIEWPORT 5=C1 67=1 8=Hidden 10=0 20=0 40=200 41=150 68=1 69=1 12=0 22=0 36=1 "
                 "45=150\n"
                 "VIEWPORT 5=C2 67=1 8=Hidden 10=0 20=0 40=120 41=60 68=2 69=2 12=0 22=0 36=1 "
                 "45=120 "
                 + outline);
    }
    void showSheet(const CanvasDrawing& text)
    {
        show(text);
        database().setTILEMODE(false);
        picture();
        look({0, 0}, 4);
    }
    void overrideLayer(const LayerOverride& look)
    {
        layer("A").openObject<OdDbLayerTableRecord>()->stateForLoading().overrides = {
            {byHandle(0xC2).slot(), look}};
        canvas().setDatabase(&database());
        picture();
        lookAtTheSheet();
    }
    void lookAtTheSheet() { look({0, 0}, 4); }

private slots:
    void aViewportIsARectangleUnlessItSaysOtherwise()
    {
        showSheet(halfSize("90=0"));
        QCOMPARE(picture().mismatch(P::line({-60, 0}, {60, 0})), QString());
    }

    void aCircleClipsItsViewport()
    {
        showSheet(halfSize("90=65536 340=E1\nCIRCLE 5=E1 67=1 8=Hidden 10=0 20=0 40=25"));
        QCOMPARE(picture().mismatch(P::line({-25, 0}, {25, 0})), QString());
        // The smooth picture is clipped by other means.
        canvas().completeNow(true);
        QCOMPARE(picture().mismatch(P::line({-25, 0}, {25, 0})), QString());
    }

    void aPolylineWithHolesInItsSweepClipsItsViewport()
    {
        // A U: the line crosses both of its legs.
        showSheet(halfSize(
            "90=65536 340=E1\nLWPOLYLINE 5=E1 67=1 8=Hidden 90=8 70=1 10=-50 20=-25 10=50 20=-25 "
            "10=50 20=25 10=30 20=25 10=30 20=-10 10=-30 20=-10 10=-30 20=25 10=-50 20=25"));
        QCOMPARE(picture().mismatch(
                     P::together({P::line({-50, 0}, {-30, 0}), P::line({30, 0}, {50, 0})})),
                 QString());
    }

    void theOutlineShowsItselfInPlaceOfTheFrame()
    {
        showSheet(halfSize("90=65536 340=E1\nCIRCLE 5=E1 67=1 8=0 10=0 20=0 40=25"));
        QCOMPARE(picture().mismatch(
                     P::together({P::line({-25, 0}, {25, 0}), P::arc({0, 0}, 25, 0, 360)})),
                 QString());
    }

    void fillsAreClippedToo()
    {
        showSheet(
            halfSize("90=65536 340=E1\nCIRCLE 5=E1 67=1 8=Hidden 10=0 20=0 40=25\n"
                     "SOLID 8=A 10=-300 20=-300 11=300 21=-300 12=-300 22=300 13=300 23=300"));
        const CanvasPicture seen = picture();
        QVERIFY(seen.isLit({20, 10}) && !seen.isLit({20, 20}) && !seen.isLit({40, 0}));
    }

    void anOutlineThatIsMissingLeavesTheRectangle()
    {
        showSheet(halfSize("90=65536 340=EEEE"));
        QCOMPARE(picture().mismatch(P::line({-60, 0}, {60, 0})), QString());
        // A viewport as outline of another one, or of itself.
        showSheet(halfSize("90=65536 340=C2"));
        QVERIFY(picture().isLit({0, 0}));
    }

    void linetypesAreScaledByTheSheetWhereItSaysSo()
    {
        const auto dashesAt = [this](const std::vector<double>& lit,
                                     const std::vector<double>& dark) {
            const CanvasPicture seen = picture();
            return std::all_of(lit.begin(), lit.end(),
                               [&](double x) {
                                   return seen.isLit({x, 0});
                               })
                && std::none_of(dark.begin(), dark.end(), [&](double x) {
                       return seen.isLit({x, 0});
                   });
        };
        // 600 long, and patterns of 40: dashes lie around 20 and 60, at half the size on the sheet.
        showSheet(halfSize("90=0"));
        changeLayer("A", [this](auto& layer) {
            layer.setLinetypeObjectId(
                database().table(OdDbTableKind::Linetype).getAt(QStringLiteral("DASH")));
        });
        database().setHeaderVariable(QStringLiteral("$PSLTSCALE"), 70, QStringLiteral("0"));
        QVERIFY(dashesAt({10, 30, 50}, {0, 20, 40}));
        // Dashes of 20 on the sheet.
        database().setHeaderVariable(QStringLiteral("$PSLTSCALE"), 70, QStringLiteral("1"));
        QVERIFY(dashesAt({20, 55}, {0, 5, 40}));
    }

    void linesMayDifferInAViewport()
    {
        showSheet(halfSize("90=0").variable("$LWDISPLAY", "290=1"));
        QCOMPARE(picture().mismatch(P::line({-60, 0}, {60, 0})), QString());
        LayerOverride other;
        other.linetype = database().table(OdDbTableKind::Linetype).getAt(QStringLiteral("DASH"));
        overrideLayer(other);
        const double share = picture().coverage({-59, -0.5, 59, 0.5});
        QVERIFY2(share > 0.08 && share < 0.17, qPrintable(QString::number(share)));

        LayerOverride wide;
        wide.lineWeight = 200;
        overrideLayer(wide);
        QVERIFY(picture().coverage({-59, -1, 59, 1}) > 0.95);

        LayerOverride faint;
        faint.transparency = OdDbLayerTableRecord::transparencyFromPercent(50);
        overrideLayer(faint);
        QVERIFY(qAbs(qRed(picture().colourAt({30, 0})) - 127) <= 2);

        // Model space has nothing of it.
        database().setTILEMODE(true);
        picture();
        lookAtTheSheet();
        QCOMPARE(picture().colourAt({30, 0}), qRgb(255, 0, 0));
        QCOMPARE(picture().mismatch(P::line({-100, 0}, {99.9, 0})), QString());
    }
};

QTEST_MAIN(CanvasViewports)
#include "test_canvas_viewports.moc"
