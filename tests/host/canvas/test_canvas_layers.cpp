#include "database/objects/OdDbEntity.h"
#include "host/canvas/CanvasContents.h"
#include "host/canvas/support/CanvasFixture.h"

#include <QTest>

/// Layers decide what shows and in which colour, at once and without reading geometry again.
class CanvasLayers : public CanvasFixture
{
    Q_OBJECT

    using P = CanvasPicture;
    static constexpr QRgb kRed = 0xFFFF0000;
    static constexpr QRgb kGreen = 0xFF00FF00;
    static constexpr QRgb kBlue = 0xFF0000FF;
    static constexpr QRgb kWhite = 0xFFFFFFFF;
    static constexpr QRgb kBlack = 0xFF000000;

    static constexpr const char* kCross =
        "LINE 8=A 10=-50 20=0 11=50 21=0\nLINE 8=B 10=0 20=-50 11=0 21=50";

    static CanvasDrawing cross() { return CanvasDrawing().layer("A", 1).layer("B", 3).add(kCross); }
    static const P::Path& across()
    {
        static const P::Path path = P::line({-50, 0}, {50, 0});
        return path;
    }
    static const P::Path& upright()
    {
        static const P::Path path = P::line({0, -50}, {0, 50});
        return path;
    }

private slots:
    void coloursComeFromTheLayer()
    {
        show(cross());
        QCOMPARE(picture().colourAt({30, 0}), kRed);
        QCOMPARE(picture().colourAt({0, 30}), kGreen);
    }

    void entitiesMayHaveColoursOfTheirOwn()
    {
        show(
            CanvasDrawing().layer("A", 1).add("LINE 8=A 62=5 10=-50 20=0 11=50 21=0\n"
                                              "LINE 8=A 62=5 420=1193046 10=-50 20=20 11=50 21=20\n"
                                              "LINE 8=A 62=256 10=-50 20=40 11=50 21=40\n"
                                              "LINE 8=A 62=0 10=-50 20=60 11=50 21=60"));
        const CanvasPicture seen = picture();
        QCOMPARE(seen.colourAt({0, 0}), kBlue);
        QCOMPARE(seen.colourAt({0, 20}), qRgb(0x12, 0x34, 0x56));
        QCOMPARE(seen.colourAt({0, 40}), kRed);
        QCOMPARE(seen.colourAt({0, 60}), kWhite);
    }

    void switchingALayerOffAndOnShowsAtOnceWithoutReadingAgain()
    {
        show(cross());
        const int builds = canvas().contents().geometryBuilds();
        changeLayer("A", [](auto& layer) { layer.setIsOff(true); });
        QCOMPARE(picture().mismatch(upright()), QString());
        changeLayer("A", [](auto& layer) { layer.setIsOff(false); });
        QCOMPARE(picture().mismatch(P::together({across(), upright()})), QString());
        QCOMPARE(canvas().contents().geometryBuilds(), builds);
    }

    void freezingAndUndoingShowAtOnce()
    {
        show(cross());
        changeLayer("B", [](auto& layer) { layer.setIsFrozen(true); });
        QCOMPARE(picture().mismatch(across()), QString());
        QVERIFY(database().undo());
        QCOMPARE(picture().mismatch(P::together({across(), upright()})), QString());
        QVERIFY(database().redo());
        QCOMPARE(picture().mismatch(across()), QString());
        QCOMPARE(canvas().contents().geometryBuilds(), 1);
    }

    void layersHiddenInTheFileStayHidden()
    {
        show(CanvasDrawing().layer("A", -1).layer("B", 3, 1).add(kCross));
        QVERIFY(picture().isEmpty());
        changeLayer("B", [](auto& layer) { layer.setIsFrozen(false); });
        QCOMPARE(picture().mismatch(upright()), QString());
    }

    void recolouringShowsAtOnce()
    {
        show(cross());
        picture();
        changeLayer("A", [](auto& layer) { layer.setColor(OdCmColor::fromRgb(10, 200, 30)); });
        QCOMPARE(picture().colourAt({30, 0}), qRgb(10, 200, 30));
        QCOMPARE(picture().colourAt({0, 30}), kGreen);
    }

    void aWindowThatIsShownFollowsByItself()
    {
        show(cross());
        canvas().show();
        QVERIFY(QTest::qWaitForWindowExposed(&canvas()));
        changeLayer("A", [](auto& layer) { layer.setIsOff(true); });
        QCoreApplication::processEvents();
        QVERIFY(canvas().grab().toImage().pixel(500, 300) == kBlack);
    }

    void lockedLayersAreFaded()
    {
        show(CanvasDrawing().layer("A", 1, 4).layer("B", 3).add(kCross));
        QCOMPARE(picture().colourAt({30, 0}), qRgb(127, 0, 0));
        QCOMPARE(picture().colourAt({0, 30}), kGreen);
        changeLayer("A", [](auto& layer) { layer.setIsLocked(false); });
        QCOMPARE(picture().colourAt({30, 0}), kRed);
    }

    void colourSevenIsTheOppositeOfTheBackground()
    {
        show(CanvasDrawing().add("LINE 8=0 10=-50 20=0 11=50 21=0"));
        QCOMPARE(picture().colourAt({0, 0}), kWhite);
        setDark(false);
        QCOMPARE(picture().background(), kWhite);
        QCOMPARE(picture().colourAt({0, 0}), kBlack);
    }

    void layerZeroInABlockTakesTheLayerOfTheReference()
    {
        show(CanvasDrawing()
                 .layer("A", 1)
                 .layer("B", 3)
                 .block("X", 0, 0,
                        "LINE 8=0 10=-50 20=0 11=50 21=0\nLINE 8=B 10=0 20=-50 11=0 21=50")
                 .add("INSERT 8=A 2=X 10=0 20=0"));
        QCOMPARE(picture().colourAt({30, 0}), kRed);
        QCOMPARE(picture().colourAt({0, 30}), kGreen);
    }

    void offLayerOfAReferenceHidesOnlyWhatInheritsIt()
    {
        show(CanvasDrawing()
                 .layer("A", -1)
                 .layer("B", 3)
                 .block("X", 0, 0,
                        "LINE 8=0 10=-50 20=0 11=50 21=0\nLINE 8=B 10=0 20=-50 11=0 21=50")
                 .add("INSERT 8=A 2=X 10=0 20=0"));
        QCOMPARE(picture().mismatch(upright()), QString());
    }

    void frozenLayerOfAReferenceHidesAllItContains()
    {
        show(CanvasDrawing()
                 .layer("A", 1, 1)
                 .layer("B", 3)
                 .block("X", 0, 0,
                        "LINE 8=0 10=-50 20=0 11=50 21=0\nLINE 8=B 10=0 20=-50 11=0 21=50")
                 .add("INSERT 8=A 66=1 2=X 10=0 20=0\nATTRIB 8=B 10=0 20=0 40=20 1=HH 2=T "
                      "70=0\nSEQEND 8=A"));
        QVERIFY(picture().isEmpty());
        changeLayer("A", [](auto& layer) { layer.setIsFrozen(false); });
        QVERIFY(picture().isLit({30, 0}));
    }

    void colourByBlockIsThatOfTheReference()
    {
        show(CanvasDrawing()
                 .layer("A", 1)
                 .layer("B", 3)
                 .block("X", 0, 0, "LINE 8=B 62=0 10=-50 20=0 11=50 21=0")
                 .block("Y", 0, 0, "INSERT 8=B 62=0 2=X 10=0 20=0")
                 .add("INSERT 8=A 62=5 2=X 10=0 20=0\nINSERT 8=A 2=X 10=0 20=20\nINSERT 8=A 62=6 "
                      "2=Y 10=0 20=40"));
        const CanvasPicture seen = picture();
        QCOMPARE(seen.colourAt({0, 0}), kBlue);
        QCOMPARE(seen.colourAt({0, 20}), kRed);
        QCOMPARE(seen.colourAt({0, 40}), qRgb(255, 0, 255));
    }

    void nestedLayerZeroTakesTheOuterReferencesLayer()
    {
        show(CanvasDrawing()
                 .layer("A", 1)
                 .block("X", 0, 0, "LINE 8=0 10=-50 20=0 11=50 21=0")
                 .block("Y", 0, 0, "INSERT 8=0 2=X 10=0 20=0")
                 .add("INSERT 8=A 2=Y 10=0 20=0"));
        QCOMPARE(picture().colourAt({0, 0}), kRed);
        changeLayer("A", [](auto& layer) { layer.setIsOff(true); });
        QVERIFY(picture().isEmpty());
    }

    void referencesOnLockedLayersAreFadedAsAWhole()
    {
        show(CanvasDrawing()
                 .layer("A", 1, 4)
                 .layer("B", 3)
                 .block("X", 0, 0, "LINE 8=B 10=-50 20=0 11=50 21=0")
                 .add("INSERT 8=A 2=X 10=0 20=0"));
        QCOMPARE(picture().colourAt({0, 0}), qRgb(0, 127, 0));
    }

    void erasedEntitiesVanishAndComeBackWithUndo()
    {
        show(CanvasDrawing().layer("A", 1).layer("B", 3).add(
            "LINE 5=A1 8=A 10=-50 20=0 11=50 21=0\nLINE 5=A2 8=B 10=0 20=-50 11=0 21=50"));
        picture();
        database().startUndoRecord();
        byHandle(0xA1).safeOpenObject<OdDbEntity>(OdDb::kForWrite)->erase();
        QCOMPARE(picture().mismatch(upright()), QString());
        QVERIFY(database().undo());
        QCOMPARE(picture().mismatch(P::together({across(), upright()})), QString());
        QCOMPARE(canvas().contents().geometryBuilds(), 1);
    }

    void entitiesErasedBeforeReadingComeBackToo()
    {
        show(CanvasDrawing().layer("A", 1).add("LINE 5=A1 8=A 10=-50 20=0 11=50 21=0"));
        database().startUndoRecord();
        byHandle(0xA1).safeOpenObject<OdDbEntity>(OdDb::kForWrite)->erase();
        canvas().regen();
        QVERIFY(picture().isEmpty());
        QVERIFY(database().undo());
        QCOMPARE(picture().mismatch(across()), QString());
    }

    void extentsLeaveOutHiddenLayers()
    {
        show(CanvasDrawing()
                 .layer("Off", -1)
                 .layer("Frozen", 3, 1)
                 .add("LINE 8=0 10=0 20=0 11=10 21=10\nLINE 8=Off 10=0 20=0 11=9999 21=10\n"
                      "CIRCLE 8=Frozen 10=0 20=0 40=7777"));
        canvas().zoomExtents();
        const QRectF seen(canvas().view().toWindow({0, 10}), canvas().view().toWindow({10, 0}));
        QVERIFY(seen.height() > 500 && QRectF(canvas().rect()).contains(seen));
    }

    void extentsLeaveOutErasedEntities()
    {
        show(CanvasDrawing().add(
            "LINE 8=0 10=0 20=0 11=10 21=10\nLINE 5=A1 8=0 10=0 20=0 11=9999 21=0"));
        database().startUndoRecord();
        byHandle(0xA1).safeOpenObject<OdDbEntity>(OdDb::kForWrite)->erase();
        canvas().zoomExtents();
        QVERIFY(canvas().view().scale() > 10);
    }

    void aBurstOfChangesIsOnePicture()
    {
        CanvasDrawing text;
        for (int i = 0; i < 300; ++i) {
            const QByteArray name = "L" + QByteArray::number(i);
            text.layer(name.constData(), 1);
            text.add("LINE 8=" + name + " 10=-50 20=" + QByteArray::number(i / 10.0)
                     + " 11=50 21=" + QByteArray::number(i / 10.0));
        }
        show(text);
        picture();
        database().startUndoRecord();
        for (int i = 0; i < 300; ++i) {
            const QByteArray name = "L" + QByteArray::number(i);
            layer(name.constData())
                .safeOpenObject<OdDbLayerTableRecord>(OdDb::kForWrite)
                ->setIsOff(true);
        }
        QVERIFY(picture().isEmpty());
        QCOMPARE(canvas().contents().geometryBuilds(), 1);
    }
};

QTEST_MAIN(CanvasLayers)
#include "test_canvas_layers.moc"
