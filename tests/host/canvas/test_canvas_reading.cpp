#include "host/canvas/CanvasContents.h"
#include "host/canvas/support/CanvasFixture.h"
#include "io/DrawingFile.h"

#include <QSignalSpy>
#include <QTest>
#include <QTimer>

/// Reading geometry: in slices, following the database, letting go of it.
class CanvasReading : public CanvasFixture
{
    Q_OBJECT

    using P = CanvasPicture;

    static QByteArray manyLines(int count)
    {
        CanvasDrawing text;
        QByteArray entities;
        for (int i = 0; i < count; ++i) {
            entities += "LINE 8=0 10=" + QByteArray::number(i % 100)
                + " 20=" + QByteArray::number(i / 100) + " 11=" + QByteArray::number(i % 100 + 1)
                + " 21=" + QByteArray::number(i / 100) + "\n";
        }
        return text.add(entities).bytes();
    }

private slots:
    void nothingIsShownWithoutADatabase()
    {
        QVERIFY(picture().isEmpty());
        QCOMPARE(canvas().undrawnSummary(), QString());
        canvas().zoomExtents();
        canvas().regen();
        canvas().setDatabase(nullptr);
        QVERIFY(picture().isEmpty());
    }

    void anEmptyDrawingIsShown()
    {
        show(CanvasDrawing());
        canvas().zoomExtents();
        QVERIFY(picture().isEmpty());
    }

    void aDatabaseWithoutAFileIsEmpty()
    {
        OdDbDatabase fresh;
        canvas().setDatabase(&fresh);
        QVERIFY(picture().isEmpty());
        canvas().setDatabase(nullptr);
    }

    void readingLeavesTheWindowAlive()
    {
        m_database = readDrawing(manyLines(60000), QStringLiteral("many.dxf"));
        QSignalSpy shown(&canvas(), &CCanvas::spaceShown);
        canvas().setDatabase(m_database.get());
        QVERIFY(!canvas().contents().isReady());
        QVERIFY(shown.isEmpty());
        // The event loop runs between the slices.
        int turns = 0;
        QTimer ticker;
        connect(&ticker, &QTimer::timeout, this,
                [&] { turns += canvas().contents().isReady() ? 0 : 1; });
        ticker.start(0);
        QTRY_VERIFY_WITH_TIMEOUT(canvas().contents().isReady(), 30000);
        QVERIFY(turns > 1);
        QCOMPARE(shown.size(), 1);
        QCOMPARE(canvas().contents().progress(), 1.0);
        QVERIFY(picture().isLit({50, 300}));
    }

    void progressIsShownMeanwhile()
    {
        m_database = readDrawing(manyLines(1000), QStringLiteral("many.dxf"));
        canvas().setDatabase(m_database.get());
        QVERIFY(canvas().contents().isReading());
        const QImage before = canvas().grab().toImage();
        QImage blank(before.size(), before.format());
        blank.fill(canvas().palette().color(QPalette::Base));
        QVERIFY(before != blank);
    }

    void everythingIsFittedWhenReadingEnds()
    {
        m_database = readDrawing(manyLines(1000), QStringLiteral("many.dxf"));
        canvas().setDatabase(m_database.get());
        const CanvasPicture seen = picture();
        QVERIFY(seen.isLit({0.5, 0}) && seen.isLit({99.5, 9}));
        QVERIFY(seen.litBox().width() > 90);
    }

    void anotherDrawingTakesThePlaceOfTheFirst()
    {
        show(CanvasDrawing().add("LINE 8=0 10=-50 20=0 11=50 21=0"));
        picture();
        auto other = readDrawing(CanvasDrawing().add("LINE 8=0 10=0 20=-50 11=0 21=50").bytes(),
                                 QStringLiteral("other.dxf"));
        canvas().setDatabase(other.get());
        canvas().completeNow();
        look({0, 0}, 4);
        QCOMPARE(picture().mismatch(P::line({0, -50}, {0, 50})), QString());
        canvas().setDatabase(nullptr);
    }

    void theDatabaseMayDieFirst()
    {
        show(CanvasDrawing().add("LINE 8=0 10=-50 20=0 11=50 21=0"));
        QVERIFY(!picture().isEmpty());
        m_database.reset();
        QVERIFY(picture().isEmpty());
        canvas().zoomExtents();
        QCOMPARE(canvas().undrawnSummary(), QString());
    }

    void theDatabaseMayDieWhileItIsRead()
    {
        m_database = readDrawing(manyLines(60000), QStringLiteral("many.dxf"));
        canvas().setDatabase(m_database.get());
        QCoreApplication::processEvents(QEventLoop::AllEvents, 1);
        m_database.reset();
        QCoreApplication::processEvents();
        QVERIFY(picture().isEmpty());
    }

    void theCanvasMayDieFirst()
    {
        show(CanvasDrawing().layer("A", 1).add("LINE 8=A 10=-50 20=0 11=50 21=0"));
        m_canvas.reset();
        changeLayer("A", [](auto& layer) { layer.setIsOff(true); });
        QVERIFY(layer("A").openObject<OdDbLayerTableRecord>()->isOff());
    }

    void layersChangedWhileReadingAreShownAsTheyAreThen()
    {
        m_database = readDrawing(
            CanvasDrawing().layer("A", 1).add("LINE 8=A 10=-50 20=0 11=50 21=0").bytes(),
            QStringLiteral("test.dxf"));
        canvas().setDatabase(m_database.get());
        changeLayer("A", [](auto& layer) { layer.setIsOff(true); });
        QVERIFY(picture().isEmpty());
    }

    void regenKeepsTheViewAndThePicture()
    {
        show(CanvasDrawing().add("LINE 8=0 10=-50 20=0 11=50 21=0"));
        picture();
        const ViewTransform before = canvas().view();
        canvas().regen();
        // Until the new geometry is there the old one is shown.
        QVERIFY(canvas().contents().isReady());
        QCOMPARE(picture().mismatch(P::line({-50, 0}, {50, 0})), QString());
        QVERIFY(canvas().view() == before);
        QCOMPARE(canvas().contents().geometryBuilds(), 2);
    }
};

QTEST_MAIN(CanvasReading)
#include "test_canvas_reading.moc"
