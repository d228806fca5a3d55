#include "host/canvas/CanvasContents.h"
#include "host/canvas/support/CanvasFixture.h"
#include "support/pictures/GoldenImage.h"
#include "support/pictures/GoldenLook.h"

#include <QTest>

/// What drawings look like as a whole: model space, and a sheet whose viewports show different
/// layers, light and dark.
class CanvasPictures : public CanvasFixture
{
    Q_OBJECT

    /// A small house: walls, openings, furniture, texts, a hatched plot, axes.
    static CanvasDrawing house()
    {
        return CanvasDrawing()
            .linetype("AXIS", "12 -3 0 -3")
            .linetype("HIDDEN", "4 -2")
            .layerWith("Walls", 7, "6=CONTINUOUS 370=70 5=B1")
            .layerWith("Axes", 1, "6=AXIS 5=B2")
            .layerWith("Roof", 4, "6=HIDDEN 5=B3")
            .layerWith("Furniture", 30, "6=CONTINUOUS 5=B4")
            .layerWith("Plot", 3, "6=CONTINUOUS 5=B5")
            .layerWith("Texts", 2, "6=CONTINUOUS 5=B6")
            .layer("Frames", 8, 0, "B7")
            .layer("Locked", 6, 4, "B8")
            .variable("$LWDISPLAY", "290=1")
            .paper("Sheet", "40=8 41=8 42=8 43=8 44=297 45=210 46=0 47=0 72=1 142=1 143=1 73=0")
            .block("Chair", 0, 0,
                   "LWPOLYLINE 8=0 90=4 70=1 10=-4 20=-4 10=4 20=-4 10=4 20=4 10=-4 20=4\n"
                   "ARC 8=0 10=0 20=2 40=5 50=20 51=160")
            .add(model() + sheet());
    }
    static QByteArray model()
    {
        return "HATCH 8=Plot 440=33554522 2=SOLID 70=1 71=0 91=1 92=3 72=0 73=1 93=4 10=-20 20=-20 "
               "10=140 20=-20 10=140 20=100 10=-20 20=100 97=0 75=0 76=1\n"
               "HATCH 8=Plot 10=0 20=0 30=0 2=LINES 70=0 71=0 91=1 92=3 72=0 73=1 93=3 10=100 20=0 "
               "10=140 20=-20 10=140 20=60 97=0 75=0 76=1 52=0 41=1 77=0 78=1 53=45 43=0 44=0 "
               "45=-3 "
               "46=3 79=0\n"
               "LWPOLYLINE 8=Walls 90=6 70=1 10=0 20=0 10=100 20=0 10=100 20=50 10=60 20=50 "
               "42=-0.5 "
               "10=40 20=80 42=0 10=0 20=80\n"
               "LWPOLYLINE 8=Walls 90=2 70=0 43=2 10=50 20=1 10=50 20=50\n"
               "LWPOLYLINE 8=Roof 90=4 70=129 10=-8 20=-8 10=108 20=-8 10=108 20=88 10=-8 20=88\n"
               "LINE 8=Axes 10=-18 20=40 11=138 21=40\nLINE 8=Axes 10=50 20=-18 11=50 21=98\n"
               "CIRCLE 8=Axes 10=50 20=40 40=30\n"
               "ELLIPSE 8=Furniture 10=25 20=25 11=12 21=0 40=0.6 41=0 42=6.283185307\n"
               "INSERT 8=Furniture 2=Chair 10=15 20=55\nINSERT 8=Furniture 2=Chair 10=32 20=55 "
               "50=90\n"
               "INSERT 8=Furniture 62=5 2=Chair 10=70 20=12 70=2 44=16 71=2 45=16\n"
               "SPLINE 8=Locked 70=8 71=3 72=8 73=4 40=0 40=0 40=0 40=0 40=1 40=1 40=1 40=1 10=60 "
               "20=95 10=80 20=60 10=100 20=110 10=130 20=80\n"
               "TEXT 8=Texts 10=5 20=70 40=5 1=Living~room\n"
               "MTEXT 8=Texts 10=56 20=46 40=4 41=40 71=1 1=Kitchen\\P24.5~m\n"
               "TEXT 8=Texts 10=135 20=-15 40=6 72=2 11=135 21=-15 1=Plot\n";
    }
    static QByteArray sheet()
    {
        return "VIEWPORT 5=C1 67=1 8=Frames 10=140 20=97 40=297 41=210 68=1 69=1 12=140 22=97 36=1 "
               "45=210\n"
               "VIEWPORT 5=C2 67=1 8=Frames 100=AcDbViewport 10=70 20=110 40=120 41=120 68=2 69=2 "
               "12=60 22=40 16=0 "
               "26=0 36=1 45=170 331=B5 331=B6 90=0\n"
               "VIEWPORT 5=C3 67=1 8=Frames 100=AcDbViewport 10=210 20=140 40=110 41=80 68=3 69=3 "
               "12=50 22=40 16=0 "
               "26=0 36=1 45=110 51=30 331=B4 331=B2 90=0\n"
               "VIEWPORT 5=C4 67=1 8=Frames 100=AcDbViewport 10=210 20=50 40=60 41=60 68=4 69=4 "
               "12=25 22=45 16=0 "
               "26=0 "
               "36=1 45=60 331=B3 90=65536 340=E1\n"
               "CIRCLE 5=E1 67=1 8=Frames 10=210 20=50 40=28\n"
               "LWPOLYLINE 67=1 8=Frames 90=4 70=1 43=0.7 10=2 20=2 10=279 20=2 10=279 20=192 10=2 "
               "20=192\n"
               "TEXT 67=1 8=Texts 10=10 20=10 40=8 1=One~house,~three~views\n";
    }
    void compare(const QString& name)
    {
        for (const GoldenLook::Theme theme : {GoldenLook::Theme::Light, GoldenLook::Theme::Dark}) {
            const GoldenLook look(theme);
            canvas().setFont(GoldenLook::font());
            canvas().setPalette(GoldenLook::palette(theme));
            canvas().zoomExtents();
            canvas().completeNow(true);
            QVERIFY(
                goldenImage(canvas().grab().toImage(),
                            QStringLiteral("canvas_%1_%2").arg(name, GoldenLook::suffix(theme))));
        }
    }

private slots:
    void modelSpace()
    {
        show(house());
        compare(QStringLiteral("model"));
        QCOMPARE(canvas().undrawnSummary(), QString());
    }

    void aSheetWhoseViewportsShowDifferentLayers()
    {
        show(house());
        database().setTILEMODE(false);
        canvas().completeNow();
        compare(QStringLiteral("sheet"));
    }
};

QTEST_MAIN(CanvasPictures)
#include "test_canvas_pictures.moc"
