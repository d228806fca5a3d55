#include "database/values/OdError.h"
#include "host/canvas/CanvasContents.h"
#include "host/canvas/picking/EntityPicker.h"
#include "host/canvas/support/CanvasFixture.h"
#include "io/DrawingFile.h"
#include "support/drawings/SharedDrawings.h"

#include <QRandomGenerator>
#include <QTest>

#include <algorithm>

/// What lies under the cursor or in a rectangle is found, whatever block or layer it is on.
class CanvasPicking : public CanvasFixture
{
    Q_OBJECT

    static constexpr double kReach = 1;

    /// Handle of what is picked at a point; 0 for nothing.
    quint64 at(double x, double y, double reach = kReach)
    {
        canvas().completeNow();
        const PickScene picks = contents().pickScene();
        const auto slot = EntityPicker(picks).nearest({x, y}, reach);
        return slot ? database().idOfSlot(*slot).getHandle().value() : 0;
    }
    QList<quint64> inside(const Box2& box)
    {
        canvas().completeNow();
        const PickScene picks = contents().pickScene();
        return handles(EntityPicker(picks).inside(box));
    }
    QList<quint64> touched(const Box2& box)
    {
        canvas().completeNow();
        const PickScene picks = contents().pickScene();
        return handles(EntityPicker(picks).touched(box));
    }
    QList<quint64> handles(const std::vector<quint32>& found)
    {
        QList<quint64> result;
        for (const quint32 slot : found)
            result << database().idOfSlot(slot).getHandle().value();
        return result;
    }
    /// What a click finds, a crossing of the same size touches, and the other way round; what is
    /// inside of a window is touched by it too.
    void checkAgreement(const EntityPicker& picker, const Box2& all)
    {
        if (all.isEmpty() || !(all.width() > 0 && all.height() > 0))
            return;
        QRandomGenerator random(7);
        for (int i = 0; i < 40; ++i) {
            const Vec2 point{all.minX + all.width() * random.generateDouble(),
                             all.minY + all.height() * random.generateDouble()};
            const double half = all.width() * std::pow(10, -4 * random.generateDouble());
            const Box2 square = Box2::of(point, point).grown(half);
            const auto hit = picker.nearest(point, half);
            const auto crossed = picker.touched(square);
            QCOMPARE(hit.has_value(), !crossed.empty());
            QVERIFY(!hit || std::binary_search(crossed.begin(), crossed.end(), *hit));
            const auto enclosed = picker.inside(square);
            QVERIFY(
                std::includes(crossed.begin(), crossed.end(), enclosed.begin(), enclosed.end()));
        }
    }
    CanvasContents& contents() { return const_cast<CanvasContents&>(canvas().contents()); }

private slots:
    void theNearestStrokeInReachIsPicked()
    {
        show(CanvasDrawing()
                 .add("LINE 5=A1 8=0 10=-50 20=0 11=50 21=0")
                 .add("CIRCLE 5=A2 8=0 10=0 20=20 40=19.5"));
        QCOMPARE(at(30, 0.9), 0xA1u);
        QCOMPARE(at(30, 1.1), 0u);
        QCOMPARE(at(0, 0.1), 0xA1u);
        QCOMPARE(at(0, 0.4), 0xA2u);
        QCOMPARE(at(19.5, 20), 0xA2u);
        QCOMPARE(at(0, 20), 0u); // the middle of a circle is empty
        QCOMPARE(at(52, 0), 0u);
    }

    void ofTwoOnTopOfEachOtherTheOneDrawnLastIsPicked()
    {
        show(CanvasDrawing()
                 .add("LINE 5=A1 8=0 10=0 20=0 11=50 21=0")
                 .add("LINE 5=A2 8=0 10=0 20=0 11=50 21=0"));
        QCOMPARE(at(10, 0), 0xA2u);
    }

    void strokesGoBeforeAreasAndAreasArePickedInside()
    {
        show(CanvasDrawing()
                 .add("LINE 5=A1 8=0 10=-10 20=0 11=10 21=0")
                 .add("SOLID 5=A2 8=0 10=-20 20=-20 11=20 21=-20 12=-20 22=20 13=20 23=20"));
        QCOMPARE(at(0, 0.5), 0xA1u);
        QCOMPARE(at(0, 10), 0xA2u);
        QCOMPARE(at(0, 30), 0u);
    }

    void aTextIsPickedByTheBoxAroundIt()
    {
        show(CanvasDrawing().add("TEXT 5=A1 8=0 10=0 20=0 40=10 1=Wall"));
        QCOMPARE(at(5, 5), 0xA1u);
        QCOMPARE(at(5, 40), 0u);
    }

    void arcsArePickedWhereTheyAreAndNotWhereTheirCircleIs()
    {
        show(CanvasDrawing().add("ARC 5=A1 8=0 10=0 20=0 40=30 50=0 51=90"));
        QCOMPARE(at(30 * std::cos(0.7), 30 * std::sin(0.7)), 0xA1u);
        QCOMPARE(at(-30, 0), 0u);
    }

    void aLineWithoutEndsIsPickedFarAway()
    {
        show(CanvasDrawing().add("XLINE 5=A1 8=0 10=0 20=0 11=1 21=1"));
        QCOMPARE(at(1e6, 1e6 + 0.5), 0xA1u);
        QCOMPARE(touched({1e5, 0, 1e5 + 1, 1e6}), QList<quint64>{0xA1});
        QCOMPARE(inside({-1e9, -1e9, 1e9, 1e9}), QList<quint64>());
    }

    void whatStandsInNestedBlocksIsPickedAsTheOuterReference()
    {
        show(CanvasDrawing()
                 .block("LEG", 0, 0, "LINE 5=B1 8=0 10=0 20=0 11=0 21=5")
                 .block("TABLE", 0, 0, "INSERT 5=B2 8=0 2=LEG 10=10 20=0")
                 .add("INSERT 5=A1 8=0 2=TABLE 10=20 20=20 50=90"));
        // Turned a quarter, the leg runs from (20, 30) to (15, 30).
        QCOMPARE(at(17, 30), 0xA1u);
        QCOMPARE(at(30, 22), 0u);
        QCOMPARE(inside({14, 29, 21, 31}), QList<quint64>{0xA1});
        QCOMPARE(inside({16, 29, 21, 31}), QList<quint64>());
        QCOMPARE(touched({16, 29, 17, 31}), QList<quint64>{0xA1});
    }

    void everyCellOfAReferenceIsPartOfIt()
    {
        show(CanvasDrawing()
                 .block("POST", 0, 0, "LINE 5=B1 8=0 10=0 20=0 11=0 21=2")
                 .add("INSERT 5=A1 8=0 2=POST 10=0 20=0 70=4 71=3 44=10 45=20"));
        QCOMPARE(at(30, 41), 0xA1u);
        QCOMPARE(at(35, 41), 0u);
        QCOMPARE(touched({19, 19, 21, 23}), QList<quint64>{0xA1});
        QCOMPARE(inside({-1, -1, 31, 43}), QList<quint64>{0xA1});
        QCOMPARE(inside({-1, -1, 29, 43}), QList<quint64>());
    }

    void aWindowTakesWhatIsWhollyInsideAndACrossingWhatItTouches()
    {
        show(CanvasDrawing()
                 .add("LINE 5=A1 8=0 10=0 20=0 11=10 21=0")
                 .add("LINE 5=A2 8=0 10=5 20=5 11=50 21=5")
                 .add("LINE 5=A3 8=0 10=60 20=0 11=60 21=50")
                 .add("CIRCLE 5=A4 8=0 10=5 20=5 40=2"));
        const Box2 box{-1, -1, 20, 20};
        QCOMPARE(inside(box), (QList<quint64>{0xA1, 0xA4}));
        QCOMPARE(touched(box), (QList<quint64>{0xA1, 0xA2, 0xA4}));
    }

    void aPolylineWithOnePartOutsideIsNotInAWindow()
    {
        show(CanvasDrawing().add("LWPOLYLINE 5=A1 8=0 90=3 70=0 10=0 20=0 10=5 20=5 10=500 20=5"));
        QCOMPARE(inside({-1, -1, 20, 20}), QList<quint64>());
        QCOMPARE(touched({-1, -1, 20, 20}), QList<quint64>{0xA1});
        QCOMPARE(inside({-1, -1, 501, 20}), QList<quint64>{0xA1});
    }

    void aCrossingInsideOfACircleTouchesNothing()
    {
        show(CanvasDrawing()
                 .add("CIRCLE 5=A1 8=0 10=0 20=0 40=50")
                 .add("SOLID 5=A2 8=0 10=-9 20=-9 11=9 21=-9 12=-9 22=9 13=9 23=9"));
        QCOMPARE(touched({20, 0, 21, 1}), QList<quint64>());
        QCOMPARE(touched({0, 0, 1, 1}), QList<quint64>{0xA2}); // inside of the area
    }

    void layersThatAreOffOrFrozenAreNeverHitAndLockedOnesAre()
    {
        show(CanvasDrawing()
                 .layer("Off", -1)
                 .layer("Frozen", 1, 1)
                 .layer("Locked", 1, 4)
                 .add("LINE 5=A1 8=Off 10=0 20=0 11=50 21=0")
                 .add("LINE 5=A2 8=Frozen 10=0 20=10 11=50 21=10")
                 .add("LINE 5=A3 8=Locked 10=0 20=20 11=50 21=20"));
        QCOMPARE(at(10, 0), 0u);
        QCOMPARE(at(10, 10), 0u);
        QCOMPARE(at(10, 20), 0xA3u);
        QCOMPARE(inside({-100, -100, 100, 100}), QList<quint64>{0xA3});
        changeLayer("Off", [](auto& layer) { layer.setIsOff(false); });
        changeLayer("Locked", [](auto& layer) { layer.setIsFrozen(true); });
        QCOMPARE(touched({-100, -100, 100, 100}), QList<quint64>{0xA1});
    }

    void aReferenceIsHitByWhatShowsOfIt()
    {
        show(CanvasDrawing()
                 .layer("Off", -1)
                 .layer("Frozen", 1, 1)
                 .layer("Walls", 1)
                 .block("B", 0, 0,
                        "LINE 5=B1 8=0 10=0 20=0 11=10 21=0\n"
                        "LINE 5=B2 8=Walls 10=0 20=5 11=10 21=5")
                 .add("INSERT 5=A1 8=Off 2=B 10=0 20=0")
                 .add("INSERT 5=A2 8=Frozen 2=B 10=50 20=0"));
        QCOMPARE(at(5, 0), 0u); // layer 0 of the block is that of the reference
        QCOMPARE(at(5, 5), 0xA1u);
        QCOMPARE(at(55, 5), 0u);
        QCOMPARE(inside({-1, 4, 11, 6}), QList<quint64>{0xA1});
        QCOMPARE(touched({-100, -100, 100, 100}), QList<quint64>{0xA1});
        changeLayer("Walls", [](auto& layer) { layer.setIsFrozen(true); });
        QCOMPARE(touched({-100, -100, 100, 100}), QList<quint64>());
    }

    void whatIsErasedIsNotHitUntilItComesBack()
    {
        show(CanvasDrawing().add("LINE 5=A1 8=0 10=0 20=0 11=50 21=0"));
        database().startUndoRecord();
        byHandle(0xA1).openObject(OdDb::kForWrite)->erase();
        database().endUndoRecord();
        QCOMPARE(at(10, 0), 0u);
        QVERIFY(database().undo());
        QCOMPARE(at(10, 0), 0xA1u);
    }

    void clicksAndRectanglesAgreeInDrawingsOfManyPrograms_data() { addRowsOfDrawings(); }
    void clicksAndRectanglesAgreeInDrawingsOfManyPrograms()
    {
        KEST_QTEST_NEEDS_DRAWINGS();
        QFETCH(QString, path);
        try {
            m_database = readDrawing(path);
        } catch (const OdError& error) {
            QSKIP(qPrintable(error.description()));
        }
        canvas().setDatabase(m_database.get());
        for (const bool isModel : {true, false}) {
            m_database->setTILEMODE(isModel);
            canvas().completeNow();
            const PickScene picks = contents().pickScene();
            QVERIFY(!picks.isEmpty());
            checkAgreement(EntityPicker(picks), contents().extents());
        }
    }

    void nothingIsPickedWithoutADrawing()
    {
        QVERIFY(contents().pickScene().isEmpty());
        QVERIFY(!EntityPicker(contents().pickScene()).nearest({0, 0}, 1));
    }

    void boxesOfNoSizeAndHugeArcsComeToAnEnd()
    {
        show(CanvasDrawing()
                 .add("CIRCLE 5=A1 8=0 10=0 20=-1e12 40=1e12")
                 .add("LINE 5=A2 8=0 10=0 20=0 11=0 21=0"));
        QCOMPARE(touched({0, 0, 0, 0}), QList<quint64>{0xA2});
        QCOMPARE(touched({-0.5, -0.5, 0.5, 0.5}), (QList<quint64>{0xA1, 0xA2}));
        QCOMPARE(at(0, 0.5), 0xA2u);
        QCOMPARE(at(40, 0.5), 0xA1u);
    }
};

QTEST_MAIN(CanvasPicking)
#include "test_canvas_picking.moc"
