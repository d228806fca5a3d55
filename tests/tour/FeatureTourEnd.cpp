// Undo, save, and what is found on the next day.

#include "DrawingRecords.h"
#include "FeatureTour.h"
#include "TourDialogs.h"
#include "database/drawing/OdDbDatabase.h"
#include "support/drawings/DrawingDigest.h"

#include <QFile>
#include <QMenu>
#include <QSet>
#include <QTableView>
#include <QTest>

#include <algorithm>

namespace {

QByteArray bytesOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// All records but those of the kinds that the tour edits, in their order.
QByteArrayList untouched(const DrawingRecords& drawing)
{
    static const QByteArrayList kEdited{"LAYER", "DICTIONARY", "XRECORD", "VIEWPORT"};
    QByteArrayList records;
    for (const QByteArray& record : drawing.all()) {
        const QByteArray type = DrawingRecords::typeOf(record);
        const bool isHeader = type == "SECTION" && DrawingRecords::value(record, 2) == "HEADER";
        if (!isHeader && !kEdited.contains(type))
            records.append(record);
    }
    return records;
}

/// Names of the layers whose records are not there any more byte by byte.
QByteArrayList changedLayers(const DrawingRecords& before, const DrawingRecords& after)
{
    const QSet<QByteArray> kept(after.all().begin(), after.all().end());
    QByteArrayList names;
    for (const QByteArray& record : before.all()) {
        if (DrawingRecords::typeOf(record) == "LAYER" && !kept.contains(record))
            names.append(DrawingRecords::value(record, 2));
    }
    std::sort(names.begin(), names.end());
    return names;
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
    tour.restPointer();
    tour.press(QKeySequence::Save);
    QVERIFY(!tour.window().isWindowModified());
    QCOMPARE(tour.statusText(),
             QStringLiteral("22 layer records and 18 of other kinds changed, all other 2,463 "
                            "records identical; 1 setting of the drawing changed."));
    QVERIFY(tour.looksLike("saved"));
    tour.press(QKeySequence::Close);
    QVERIFY(!tour.current());
    QCOMPARE(bytesOf(tour.path("office.dxf~")), m_opened);
    // Of the file only what was edited is another.
    const DrawingRecords before(m_opened);
    const DrawingRecords after(bytesOf(tour.path("office.dxf")));
    QVERIFY(untouched(before) == untouched(after));
    QCOMPARE(changedLayers(before, after),
             (QByteArrayList{"A-EQPM", "A-FLOR-PATT", "A-FURN-CHAR", "A-FURN-DESK", "A-FURN-PLNT",
                             "A-FURN-STOR", "A-WALL-DEMO", "E-DATA", "E-DATA-WLAN", "E-LITE",
                             "E-LITE-CIRC", "E-LITE-EMER", "E-LITE-SWCH", "E-POWR-FLOR",
                             "E-POWR-OUTL", "E-POWR-PANL", "E-POWR-TRAY", "M-RADI"}));

    tour.inMenuOf("File", [](QMenu& menu) {
        QMenu* recent = tour_dialogs::pointAt(menu, {QStringLiteral("Open Recent")});
        QVERIFY(recent);
        const QString first = recent->actions().first()->text().remove(QLatin1Char('&'));
        QVERIFY2(first.startsWith(QStringLiteral("1 office.dxf")), qPrintable(first));
        tour_dialogs::choose(*recent, {first});
    });
    tour.settle();
    QCOMPARE(tour.current()->displayName(), QStringLiteral("office.dxf"));
    QCOMPARE(drawingDigest(drawing()), m_steps.back().digest);
    QCOMPARE(palette().filters(), filters);
}
