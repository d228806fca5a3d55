#include "database/objects/OdDbEntity.h"
#include "database/values/GroupList.h"
#include "host/canvas/CanvasContents.h"
#include "host/canvas/support/CanvasFixture.h"
#include "io/DrawingFile.h"

#include <QSignalSpy>
#include <QTest>

/// Entities that come, go and change while they are shown; nothing else is read again.
class CanvasEdits : public CanvasFixture
{
    Q_OBJECT

    using P = CanvasPicture;
    static constexpr QRgb kRed = 0xFFFF0000;
    static constexpr QRgb kGreen = 0xFF00FF00;

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
    /// One red line across.
    static CanvasDrawing oneLine()
    {
        return CanvasDrawing()
            .layer("A", 1, 0, "B1")
            .layer("B", 3, 0, "B2")
            .add("LINE 5=A1 8=A 10=-50 20=0 11=50 21=0");
    }
    static GroupList uprightGroups()
    {
        return {{100, "AcDbLine"}, {10, "0"},  {20, "-50"}, {30, "0"},
                {11, "0"},         {21, "50"}, {31, "0"}};
    }
    OdDbObjectId addUpright(const char* onLayer, OdDbObjectId block)
    {
        database().startUndoRecord();
        return database().addEntity("LINE", uprightGroups(), block, layer(onLayer));
    }
    void moveToLayer(quint64 handle, const char* name)
    {
        database().startUndoRecord();
        byHandle(handle).safeOpenObject<OdDbEntity>(OdDb::kForWrite)->setLayer(layer(name));
    }
    OdDbObjectId blockNamed(const char* name)
    {
        return database().table(OdDbTableKind::Block).getAt(QString::fromLatin1(name));
    }

protected:
    /// Whatever is edited: geometry is read once.
    void finish() override
    {
        if (m_canvas && m_database)
            QVERIFY(canvas().contents().geometryBuilds() <= 1);
        CanvasFixture::finish();
    }

private slots:
    void madeEntitiesAppearAtOnce()
    {
        show(oneLine());
        addUpright("B", database().getModelSpaceId());
        QCOMPARE(picture().mismatch(P::together({across(), upright()})), QString());
        QCOMPARE(picture().colourAt({0, 30}), kGreen);
        QVERIFY(database().undo());
        QCOMPARE(picture().mismatch(across()), QString());
        QVERIFY(database().redo());
        QCOMPARE(picture().mismatch(P::together({across(), upright()})), QString());
    }

    void madeEntitiesAreThereWhenEverythingIsReadAgain()
    {
        m_database = readDrawing(oneLine().bytes(), QStringLiteral("test.dxf"));
        addUpright("B", database().getModelSpaceId());
        canvas().setDatabase(m_database.get());
        canvas().completeNow();
        look({0, 0}, 4);
        QCOMPARE(picture().mismatch(P::together({across(), upright()})), QString());
    }

    void madeEntitiesInABlockAppearInAllItsReferences()
    {
        show(oneLine()
                 .block("X", 0, 0, "POINT 8=0 10=0 20=0")
                 .add("INSERT 8=0 2=X 10=-40 20=0\nINSERT 8=0 2=X 10=40 20=0"));
        QVERIFY(!picture().isLit({-40, 30}));
        addUpright("B", blockNamed("X"));
        const CanvasPicture seen = picture();
        QVERIFY(seen.isLit({-40, 45}) && seen.isLit({40, -45}));
        canvas().zoomExtents();
        QVERIFY(canvas().view().scale() < 8);
    }

    void aFirstTextAndAFirstFillAppear()
    {
        show(oneLine());
        database().startUndoRecord();
        const OdDbObjectId model = database().getModelSpaceId();
        database().addEntity("TEXT",
                             {{100, "AcDbText"},
                              {10, "-50"},
                              {20, "20"},
                              {30, "0"},
                              {40, "20"},
                              {1, "HH"},
                              {100, "AcDbText"}},
                             model, layer("B"));
        database().addEntity("SOLID",
                             {{100, "AcDbTrace"},
                              {10, "10"},
                              {20, "-40"},
                              {30, "0"},
                              {11, "40"},
                              {21, "-40"},
                              {31, "0"},
                              {12, "10"},
                              {22, "-10"},
                              {32, "0"},
                              {13, "40"},
                              {23, "-10"},
                              {33, "0"}},
                             model, layer("B"));
        const CanvasPicture seen = picture();
        QVERIFY(seen.coverage({-50, 20, -10, 40}) > 0.1);
        QVERIFY(seen.coverage({11, -39, 39, -11}) > 0.99);
    }

    void aReferenceToABlockThatWasNotReadYetAppears()
    {
        show(oneLine().block("X", 0, 0, "LINE 8=B 10=0 20=-50 11=0 21=50"));
        database().startUndoRecord();
        database().addEntity(
            "INSERT", {{100, "AcDbBlockReference"}, {2, "X"}, {10, "0"}, {20, "0"}, {30, "0"}},
            database().getModelSpaceId(), layer("A"));
        QCOMPARE(picture().mismatch(P::together({across(), upright()})), QString());
    }

    void entitiesTakeTheLookOfTheirNewLayer()
    {
        show(oneLine());
        moveToLayer(0xA1, "B");
        QCOMPARE(picture().mismatch(across()), QString());
        QCOMPARE(picture().colourAt({30, 0}), kGreen);
        changeLayer("A", [](auto& layer) { layer.setIsOff(true); });
        QCOMPARE(picture().mismatch(across()), QString());
        changeLayer("B", [](auto& layer) { layer.setIsOff(true); });
        QVERIFY(picture().isEmpty());
        QVERIFY(database().undo() && database().undo() && database().undo());
        QCOMPARE(picture().colourAt({30, 0}), kRed);
        QVERIFY(database().redo());
        QCOMPARE(picture().colourAt({30, 0}), kGreen);
    }

    void entitiesOfEveryKindMoveBetweenLayers()
    {
        show(oneLine()
                 .block("X", 0, 0, "CIRCLE 8=0 10=0 20=0 40=5")
                 .add("CIRCLE 5=A2 8=A 10=0 20=0 40=40\nXLINE 5=A3 8=A 10=0 20=60 11=1 21=0\n"
                      "TEXT 5=A4 8=A 10=-80 20=30 40=20 1=HH\n"
                      "SOLID 5=A5 8=A 10=60 20=20 11=80 21=20 12=60 22=40 13=80 23=40\n"
                      "INSERT 5=A6 8=A 2=X 10=-70 20=-50\n"
                      "POLYLINE 5=A7 8=A 66=1 70=0\nVERTEX 8=A 10=60 20=-60\n"
                      "VERTEX 8=A 10=80 20=-60\nSEQEND 8=A"));
        const int before = picture().litCount();
        for (quint64 handle = 0xA1; handle <= 0xA7; ++handle)
            moveToLayer(handle, "B");
        QCOMPARE(picture().litCount(), before);
        changeLayer("A", [](auto& layer) { layer.setIsFrozen(true); });
        QCOMPARE(picture().litCount(), before);
        changeLayer("B", [](auto& layer) { layer.setIsFrozen(true); });
        QVERIFY(picture().isEmpty());
    }

    void anErasedEntityMayBeMovedAndComeBack()
    {
        show(oneLine());
        moveToLayer(0xA1, "B");
        picture();
        database().startUndoRecord();
        byHandle(0xA1).safeOpenObject<OdDbEntity>(OdDb::kForWrite)->erase();
        QVERIFY(picture().isEmpty());
        QVERIFY(database().undo());
        QCOMPARE(picture().colourAt({30, 0}), kGreen);
    }

    void aBurstOfEditsIsOneRedrawing()
    {
        show(oneLine());
        picture();
        QSignalSpy redrawn(&canvas().contents(), &CanvasContents::entitiesRedrawn);
        database().startUndoRecord();
        for (int i = 0; i < 5000; ++i)
            database().addEntity("LINE", uprightGroups(), database().getModelSpaceId(), layer("B"));
        QCOMPARE(picture().mismatch(P::together({across(), upright()})), QString());
        QCOMPARE(redrawn.size(), 1);
        QVERIFY(database().undo());
        QCOMPARE(picture().mismatch(across()), QString());
    }

    void editsWhileReadingAreNotLost()
    {
        m_database = readDrawing(oneLine().bytes(), QStringLiteral("test.dxf"));
        canvas().setDatabase(m_database.get());
        QVERIFY(canvas().contents().isReading());
        addUpright("B", database().getModelSpaceId());
        moveToLayer(0xA1, "B");
        canvas().completeNow();
        look({0, 0}, 4);
        const CanvasPicture seen = picture();
        QCOMPARE(seen.mismatch(P::together({across(), upright()})), QString());
        QCOMPARE(seen.colourAt({30, 0}), kGreen);
    }

    void entitiesThatCannotBeDrawnAreToldWhenTheyCome()
    {
        show(oneLine().add("REGION 5=A2 8=A 70=1"));
        QCOMPARE(canvas().undrawnSummary(), QStringLiteral("1 REGION not drawn"));
        moveToLayer(0xA2, "B");
        QCOMPARE(canvas().undrawnSummary(), QStringLiteral("1 REGION not drawn"));
        QSignalSpy told(&canvas(), &CCanvas::spaceShown);
        database().startUndoRecord();
        database().addEntity("BODY", {{100, "AcDbModelerGeometry"}, {70, "1"}},
                             database().getModelSpaceId(), layer("B"));
        QCOMPARE(canvas().undrawnSummary(), QStringLiteral("1 BODY, 1 REGION not drawn"));
        QCoreApplication::processEvents();
        QVERIFY(!told.isEmpty());
    }

    void regenReadsEverythingAgain()
    {
        show(oneLine());
        addUpright("B", database().getModelSpaceId());
        moveToLayer(0xA1, "B");
        picture();
        m_canvas->regen();
        QCOMPARE(picture().mismatch(P::together({across(), upright()})), QString());
        QCOMPARE(canvas().contents().geometryBuilds(), 2);
        m_canvas->setDatabase(nullptr);
        m_database.reset();
    }
};

QTEST_MAIN(CanvasEdits)
#include "test_canvas_edits.moc"
