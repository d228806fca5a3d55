#include "database/objects/OdDbLayout.h"
#include "database/values/OdError.h"
#include "host/canvas/CanvasContents.h"
#include "host/canvas/support/CanvasFixture.h"
#include "io/DrawingFile.h"
#include "support/drawings/SharedDrawings.h"

#include <QFileInfo>
#include <QTest>

/// Drawings from many programs are read and painted, every sheet of them. The pictures are kept
/// in the folder that KEST_PICTURES names, to be looked at.
class CanvasDrawings : public CanvasFixture
{
    Q_OBJECT

private slots:
    void everySpaceOfEveryDrawingIsPainted_data() { addRowsOfDrawings(); }
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
            const QString layout = id.openObject<OdDbLayout>()->getLayoutName();
            m_database->setCTAB(layout);
            paint();
            keepPicture(QFileInfo(path).completeBaseName() + u'-' + layout);
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
        // The first layer is red and frozen in the lower left viewport, the second one green and
        // frozen in the lower right one.
        const Box2 upperLeft{12, 115, 80, 160};
        const Box2 lowerLeft{12, 43, 80, 87};
        const Box2 lowerRight{120, 43, 190, 87};
        const CanvasPicture seen = picture();
        QVERIFY(reds(seen, upperLeft) > 20 && greens(seen, upperLeft) > 20);
        QVERIFY(reds(seen, lowerLeft) == 0 && greens(seen, lowerLeft) > 20);
        QVERIFY(reds(seen, lowerRight) > 20 && greens(seen, lowerRight) == 0);

        changeLayer("Layer1", [](auto& layer) { layer.setIsFrozen(true); });
        const CanvasPicture after = picture();
        QCOMPARE(reds(after, upperLeft) + reds(after, lowerRight), 0);
        QVERIFY(greens(after, upperLeft) > 20);
    }

private:
    template <class Matches>
    int count(const CanvasPicture& seen, const Box2& box, Matches matches)
    {
        const QRect pixels = QRectF(canvas().view().toWindow({box.minX, box.maxY}),
                                    canvas().view().toWindow({box.maxX, box.minY}))
                                 .toRect()
                                 .intersected(seen.image().rect());
        int found = 0;
        for (int y = pixels.top(); y <= pixels.bottom(); ++y) {
            for (int x = pixels.left(); x <= pixels.right(); ++x)
                found += matches(seen.image().pixel(x, y)) ? 1 : 0;
        }
        return found;
    }
    int reds(const CanvasPicture& seen, const Box2& box)
    {
        return count(seen, box, [](QRgb c) { return qRed(c) > 60 && qGreen(c) == 0; });
    }
    int greens(const CanvasPicture& seen, const Box2& box)
    {
        return count(seen, box, [](QRgb c) { return qGreen(c) > 60 && qRed(c) == 0; });
    }

    void keepPicture(const QString& name)
    {
        const QString folder = qEnvironmentVariable("KEST_PICTURES");
        if (folder.isEmpty())
            return;
        QVERIFY(canvas().grab().save(folder + u'/' + name + QStringLiteral(".png")));
        const QString undrawn = canvas().undrawnSummary();
        if (!undrawn.isEmpty())
            qInfo("%s: %s", qPrintable(name), qPrintable(undrawn));
    }

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
