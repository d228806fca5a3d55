// Undo, save, and what is found on the next day.

#include "DrawingRecords.h"
#include "FeatureTour.h"
#include "TourDialogs.h"
#include "database/OdDbDatabase.h"
#include "support/DrawingDigest.h"

#include <QFile>
#include <QMenu>
#include <QTableView>
#include <QTest>

namespace {

QByteArray bytesOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

void FeatureTour::undoesEverythingAndRedoesIt()
{
    TourWindow& tour = *m_tour;
    QVERIFY(drawingDigest(drawing()) == m_steps.back().digest);
    palette().click("A-DOOR", LayerColumn::Status);
    tour.inMenuOf("Edit", [&tour](QMenu& menu) {
        tour_dialogs::pointAt(menu, {QStringLiteral("Undo LAYOUT")});
        QVERIFY(tour.looksLike("undo"));
    });
    for (std::size_t step = m_steps.size() - 1; step > 0; --step) {
        QCOMPARE(tour.undoText(), m_steps[step].undoText);
        QVERIFY(tour.window().isWindowModified());
        tour.press(QKeySequence::Undo);
        qInfo() << step << m_steps.size() << palette().selectedFilter();
        QCOMPARE(drawingDigest(drawing()), m_steps[step - 1].digest);
    }
    QCOMPARE(tour.undoText(), QStringLiteral("Undo"));
    QVERIFY(!tour.window().isWindowModified());
    QTRY_COMPARE(palette().rows().size(), 65);
    QVERIFY(palette().rows().contains(QStringLiteral("A-WALL-DEMO")));
    for (std::size_t step = 1; step < m_steps.size(); ++step) {
        tour.press(QKeySequence::Redo);
        QCOMPARE(drawingDigest(drawing()), m_steps[step].digest);
    }
    QCOMPARE(tour.redoText(), QStringLiteral("Redo"));
    QTRY_VERIFY(palette().rows().contains(QStringLiteral("A-ANNO-REVW")));
}

void FeatureTour::savesAndFindsEverythingAgain()
{
    TourWindow& tour = *m_tour;
    const QStringList filters = palette().filters();
    tour.press(QKeySequence::Save);
    QVERIFY(!tour.window().isWindowModified());
    qInfo() << tour.statusText();
    QVERIFY(tour.looksLike("saved"));
    tour.press(QKeySequence::Close);
    QVERIFY(!tour.current());
    QCOMPARE(bytesOf(tour.path("office.dxf~")), m_opened);
    const DrawingRecords before(m_opened);
    const DrawingRecords after(bytesOf(tour.path("office.dxf")));
    qInfo() << before.all().size() << after.all().size();

    tour.inMenuOf("File", [](QMenu& menu) {
        QMenu* recent = tour_dialogs::pointAt(menu, {QStringLiteral("Open Recent")});
        QVERIFY(recent);
        tour_dialogs::choose(*recent, {recent->actions().first()->text()});
    });
    tour.settle();
    QCOMPARE(tour.current()->displayName(), QStringLiteral("office.dxf"));
    QCOMPARE(drawingDigest(drawing()), m_steps.back().digest);
    QCOMPARE(palette().filters(), filters);
}
