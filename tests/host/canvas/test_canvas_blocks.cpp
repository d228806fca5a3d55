#include "host/canvas/CanvasContents.h"
#include "host/canvas/scene/Scene.h"
#include "host/canvas/support/CanvasFixture.h"

#include <QElapsedTimer>
#include <QTest>

/// Block references, however they are nested.
class CanvasBlocks : public CanvasFixture
{
    Q_OBJECT

    using P = CanvasPicture;
    static constexpr const char* kTick =
        "LINE 8=0 10=0 20=0 11=10 21=0\nLINE 8=0 10=0 20=0 11=0 21=5";

    static P::Path tick(Vec2 at, Vec2 x, Vec2 y)
    {
        return P::together({P::line(at, at + x * 10), P::line(at, at + y * 5)});
    }

private slots:
    void referenceIsScaledTurnedAndMoved()
    {
        show(CanvasDrawing()
                 .block("B", 0, 0, kTick)
                 .add("INSERT 8=0 2=B 10=20 20=-30 41=3 42=2 50=90"));
        QCOMPARE(picture().mismatch(tick({20, -30}, {0, 3}, {-2, 0})), QString());
    }

    void basePointOfTheBlockGoesToTheInsertionPoint()
    {
        show(CanvasDrawing()
                 .block("B", 1000000, 2000000,
                        "LINE 8=0 10=1000000 20=2000000 11=1000010 21=2000000")
                 .add("INSERT 8=0 2=B 10=-20 20=10"));
        QCOMPARE(picture().mismatch(P::line({-20, 10}, {-10, 10})), QString());
    }

    void blockNamesAreComparedWithoutCase()
    {
        show(CanvasDrawing().block("Door", 0, 0, kTick).add("INSERT 8=0 2=DOOR 10=0 20=0"));
        QVERIFY(!picture().isEmpty());
    }

    void negativeScaleMirrors()
    {
        show(CanvasDrawing().block("B", 0, 0, kTick).add("INSERT 8=0 2=B 10=0 20=0 41=-2 42=1"));
        QCOMPARE(picture().mismatch(tick({0, 0}, {-2, 0}, {0, 1})), QString());
    }

    void downwardExtrusionMirrors()
    {
        show(CanvasDrawing()
                 .block("B", 0, 0, kTick)
                 .add("INSERT 8=0 2=B 10=30 20=5 210=0 220=0 230=-1"));
        QCOMPARE(picture().mismatch(tick({-30, 5}, {-1, 0}, {0, 1})), QString());
    }

    void arrayRepeatsInColumnsAndRows()
    {
        show(CanvasDrawing()
                 .block("B", 0, 0, "POINT 8=0 10=0 20=0")
                 .add("INSERT 8=0 2=B 10=-50 20=-40 50=0 70=4 71=3 44=30 45=20"));
        const CanvasPicture seen = picture();
        QCOMPARE(seen.litCount(), 12);
        for (int column = 0; column < 4; ++column) {
            for (int row = 0; row < 3; ++row)
                QVERIFY(seen.isLit({-50.0 + 30 * column, -40.0 + 20 * row}));
        }
    }

    void nestedReferencesCombine()
    {
        show(CanvasDrawing()
                 .block("Inner", 0, 0, kTick)
                 .block("Outer", 5, 0, "INSERT 8=0 2=Inner 10=5 20=10 41=2 42=2")
                 .add("INSERT 8=0 2=Outer 10=-20 20=0 41=2 42=2 50=180"));
        QCOMPARE(picture().mismatch(tick({-20, -20}, {-4, 0}, {0, -4})), QString());
    }

    void circlesInStretchedReferencesBecomeEllipses()
    {
        show(CanvasDrawing()
                 .block("B", 0, 0, "CIRCLE 8=0 10=0 20=0 40=10")
                 .add("INSERT 8=0 2=B 10=0 20=0 41=4 42=2"));
        const Box2 box = picture().litBox();
        QVERIFY(std::abs(box.maxX - 40) < 0.6 && std::abs(box.maxY - 20) < 0.6);
    }

    void attributesAreShownWithTheirReference()
    {
        show(CanvasDrawing()
                 .block("B", 0, 0, "ATTDEF 8=0 10=0 20=0 40=20 1=DEFAULT 2=TAG 3=Prompt 70=0")
                 .add("INSERT 8=0 2=B 66=1 10=50 20=50\n"
                      "ATTRIB 8=0 10=-60 20=0 40=20 1=HH 2=TAG 70=0\n"
                      "ATTRIB 8=0 10=-60 20=-60 40=20 1=HIDDEN 2=SECRET 70=1\n"
                      "SEQEND 8=0"));
        const Box2 box = picture().litBox();
        QVERIFY(std::abs(box.minY) < 0.6 && std::abs(box.maxY - 20) < 0.6);
        QVERIFY(box.minX > -60 && box.maxX < 0);
    }

    void dimensionShowsItsBlock()
    {
        show(CanvasDrawing()
                 .block("*D1", 0, 0, kTick)
                 .add("DIMENSION 8=0 2=*D1 10=70 20=70 11=3 21=3 70=0 50=45"));
        QCOMPARE(picture().mismatch(tick({0, 0}, {1, 0}, {0, 1})), QString());
    }

    void tableShowsItsCellsAlongItsDirection()
    {
        // Codes 41 and 44 are not scales here.
        show(CanvasDrawing()
                 .block("*T1", 0, 0, kTick)
                 .add("ACAD_TABLE 8=0 2=*T1 10=20 20=5 11=0 21=1 31=0 91=1 92=1 41=7 70=9 71=9 "
                      "44=3"));
        QCOMPARE(picture().mismatch(tick({20, 5}, {0, 1}, {-1, 0})), QString());
    }

    void referenceWithoutABlockIsCounted()
    {
        show(CanvasDrawing().add("INSERT 8=0 2=Nowhere 10=0 20=0"));
        QCOMPARE(canvas().undrawnSummary(), QStringLiteral("1 INSERT not drawn"));
    }

    void circlesOfReferencesAreCut()
    {
        show(CanvasDrawing()
                 .block("A", 0, 0, "INSERT 8=0 2=B 10=1 20=1\nLINE 8=0 10=0 20=0 11=20 21=0")
                 .block("B", 0, 0, "INSERT 8=0 2=C 10=1 20=1")
                 .block("C", 0, 0, "INSERT 8=0 2=A 10=1 20=1\nINSERT 8=0 2=C 10=0 20=0")
                 .add("INSERT 8=0 2=A 10=0 20=0\nINSERT 8=0 2=B 10=0 20=40"));
        QVERIFY(picture().isLit({10, 0}));
        QCOMPARE(canvas().undrawnSummary(), QStringLiteral("2 INSERT not drawn"));
    }

    void modelSpaceInsertedIntoItselfIsCut()
    {
        show(CanvasDrawing().add(
            "INSERT 8=0 2=*Model_Space 10=5 20=5\nLINE 8=0 10=0 20=0 11=20 21=0"));
        QVERIFY(picture().isLit({10, 0}));
        QCOMPARE(canvas().undrawnSummary(), QStringLiteral("1 INSERT not drawn"));
    }

    void explosiveNestingIsBounded()
    {
        // Twelve levels of ten references each: a million million lines, all on one spot.
        CanvasDrawing text;
        text.block("L0", 0, 0, kTick);
        for (int level = 1; level <= 12; ++level) {
            QByteArray entities;
            for (int i = 0; i < 10; ++i)
                entities += "INSERT 8=0 2=L" + QByteArray::number(level - 1) + " 10=0 20=0\n";
            text.block("L" + QByteArray::number(level), 0, 0, entities);
        }
        QElapsedTimer timer;
        timer.start();
        show(text.add("INSERT 8=0 2=L12 10=0 20=0\nLINE 8=0 10=-50 20=-50 11=50 21=-50"));
        QVERIFY(picture().isLit({0, -50}));
        QVERIFY(!canvas().undrawnSummary().isEmpty());
        QVERIFY(timer.elapsed() < 20000);
    }

    void deepNestingEndsSomewhere()
    {
        CanvasDrawing text;
        text.block("L0", 0, 0, kTick);
        for (int level = 1; level <= 3000; ++level) {
            text.block("L" + QByteArray::number(level), 0, 0,
                       "INSERT 8=0 2=L" + QByteArray::number(level - 1) + " 10=0 20=0");
        }
        show(text.add("INSERT 8=0 2=L40 10=0 20=0\nINSERT 8=0 2=L3000 10=0 20=30"));
        const CanvasPicture seen = picture();
        QVERIFY(seen.isLit({5, 0}));
        QVERIFY(!seen.isLit({5, 30}));
        QVERIFY(!canvas().undrawnSummary().isEmpty());
    }

    void hugeArraysAreBounded()
    {
        show(CanvasDrawing()
                 .block("B", 0, 0, kTick)
                 .add("INSERT 8=0 2=B 10=0 20=0 70=32767 71=32767 44=0.001 45=0.001"));
        picture();
        QCOMPARE(canvas().undrawnSummary(), QStringLiteral("1 INSERT not drawn"));
    }

    void aBlockIsReadOnceHoweverOftenItIsShown()
    {
        CanvasDrawing text;
        text.block("B", 0, 0, kTick);
        for (int i = 0; i < 500; ++i)
            text.add("INSERT 8=0 2=B 10=" + QByteArray::number(i % 20)
                     + " 20=" + QByteArray::number(i));
        show(text);
        const Scene& scene = *canvas().contents().scene();
        QCOMPARE(scene.blockCount(), 2u);
        QCOMPARE(scene.block(1).groups().front().segments.size(), 2u);
    }

    void referencesSmallerThanAPixelAreDots()
    {
        show(CanvasDrawing()
                 .block("B", 0, 0, kTick)
                 .add("INSERT 8=0 62=1 2=B 10=10 20=10 41=0.001 42=0.001"));
        const CanvasPicture seen = picture();
        QCOMPARE(seen.litCount(), 1);
        QVERIFY(seen.isLit({10, 10}));
    }
};

QTEST_MAIN(CanvasBlocks)
#include "test_canvas_blocks.moc"
