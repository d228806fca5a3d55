#include "CanvasFixture.h"
#include "database/OdDbLayout.h"
#include "database/OdError.h"
#include "host/canvas/CanvasContents.h"
#include "io/DrawingFile.h"
#include "support/SharedDrawings.h"

#include <QFileInfo>
#include <QTest>

/// Drawings from many programs are read and painted, every sheet of them.
class CanvasDrawings : public CanvasFixture
{
    Q_OBJECT

private slots:
    void everySpaceOfEveryDrawingIsPainted_data()
    {
        KEST_QTEST_NEEDS_DRAWINGS();
        QTest::addColumn<QString>("path");
        for (const QString& path : SharedDrawings::files())
            QTest::newRow(qPrintable(QFileInfo(path).fileName())) << path;
    }
    void everySpaceOfEveryDrawingIsPainted()
    {
        KEST_QTEST_NEEDS_DRAWINGS();
        QFETCH(QString, path);
        try {
            m_database = readDrawing(path);
        } catch (const OdError& error) {
            QSKIP(qPrintable(error.description()));
        }
        canvas().setDatabase(m_database.get());
        paint();
        for (const OdDbObjectId id : m_database->layouts()) {
            m_database->setCTAB(id.openObject<OdDbLayout>()->getLayoutName());
            paint();
        }
    }

    void modelOfARealPlanIsNotEmpty()
    {
        KEST_QTEST_NEEDS_DRAWINGS();
        m_database = readDrawing(
            SharedDrawings::file(QStringLiteral("dotoritos-kim+dxf-json__A_000217.dxf")));
        m_database->setTILEMODE(true);
        canvas().setDatabase(m_database.get());
        const CanvasPicture seen = picture();
        QVERIFY(seen.litCount() > 20000);
        // Fitted: something near every edge of the drawing's own box.
        QVERIFY(seen.litBox().width() * canvas().view().scale() > 0.9 * canvas().width()
                || seen.litBox().height() * canvas().view().scale() > 0.9 * canvas().height());
    }

    void viewportsOfARealSheetFreezeDifferentLayers()
    {
        KEST_QTEST_NEEDS_DRAWINGS();
        m_database = readDrawing(
            SharedDrawings::file(QStringLiteral("mozman+ezdxf__viewport_frozen_layers.dxf")));
        m_database->setTILEMODE(false);
        canvas().setDatabase(m_database.get());
        const CanvasPicture seen = picture();
        const auto count = [&](QRgb colour) {
            int found = 0;
            for (int y = 0; y < seen.image().height(); ++y) {
                for (int x = 0; x < seen.image().width(); ++x)
                    found += seen.image().pixel(x, y) == colour ? 1 : 0;
            }
            return found;
        };
        // Three viewports: red is frozen in one, green in another, so each is seen in two of them.
        const int red = count(qRgb(255, 0, 0));
        const int green = count(qRgb(0, 255, 0));
        QVERIFY(red > 50 && green > 50);
        changeLayer("Layer1", [](auto& layer) { layer.setIsFrozen(true); });
        QCOMPARE(CanvasPicture(canvas()).litCount() < seen.litCount(), true);
    }

private:
    void paint()
    {
        canvas().completeNow();
        canvas().zoomExtents();
        canvas().completeNow(true);
        QVERIFY(canvas().contents().isReady());
    }
};

QTEST_MAIN(CanvasDrawings)
#include "test_canvas_drawings.moc"
