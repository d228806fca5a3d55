// Viewports of a sheet, and states for other drawings.

#include "FeatureTour.h"
#include "TourDialogs.h"
#include "database/drawing/OdDbDatabase.h"
#include "database/objects/OdDbEntity.h"
#include "database/tables/OdDbLayerTable.h"
#include "database/tables/OdDbLayerTableRecord.h"
#include "database/values/OdCmColor.h"
#include "host/canvas/CCanvas.h"

#include <QDialog>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QTableView>
#include <QTest>
#include <QTreeView>

namespace {

bool isWall(const OdDbLayerTableRecord& layer)
{
    return layer.getName().startsWith(QStringLiteral("A-WALL"));
}

} // namespace

void FeatureTour::givesAViewportColorsOfItsOwn()
{
    TourWindow& tour = *m_tour;
    QVERIFY(palette().grid().isColumnHidden(static_cast<int>(LayerColumn::VpColor)));
    tour.clickLayout("E-201 Lighting and power");
    noteStep("Undo LAYOUT");
    QVERIFY(!palette().grid().isColumnHidden(static_cast<int>(LayerColumn::VpColor)));
    tour.canvas().completeNow();
    QTest::mouseDClick(&tour.canvas(), Qt::LeftButton, {}, tour.placeOf(300, 165));
    tour.settle();
    noteStep("Undo MSPACE");
    // The tree and the drawing make room for the columns of viewports.
    palette().clickTool("Show the Filter Tree");
    QVERIFY(!palette().tree().isVisible());
    const int wider = pullPaletteEdge(104);
    QTest::mouseClick(&palette().search(), Qt::LeftButton);
    QTest::keyClicks(&palette().search(), QStringLiteral("a-wall"));
    palette().click("A-WALL-CORE", LayerColumn::Status);
    tour.press(QKeySequence::SelectAll);
    tour_dialogs::inDialog([this] { palette().click("A-WALL-CORE", LayerColumn::VpColor); },
                           [&tour](QDialog& dialog) {
                               tour.press(QKeySequence(QStringLiteral("8")));
                               tour_dialogs::press(dialog, QStringLiteral("OK"));
                           });
    noteStep("Undo LAYER");
    const OdDbObjectId viewport = drawing().activeViewportId();
    QCOMPARE(layersThat([&](const auto& layer) {
                 return isWall(layer) && layer.color(viewport) == OdCmColor::fromIndex(8)
                     && layer.color() != OdCmColor::fromIndex(8);
             }),
             layersThat(isWall));
    palette().click("A-WALL-PATT", LayerColumn::Status);
    palette().click("A-WALL-PATT", LayerColumn::VpFreeze);
    noteStep("Undo LAYER");
    QVERIFY(viewport.safeOpenObject<OdDbViewport>()->isLayerFrozenInViewport(
        drawing().layerTable().getAt(QStringLiteral("A-WALL-PATT"))));
    QVERIFY(tour.looksLike("viewport"));

    palette().chooseOnLayer("A-WALL-TOIL",
                            {QStringLiteral("Remove Overrides of Selected Layers"),
                             QStringLiteral("In the Active Viewport")});
    noteStep("Undo LAYER");
    QCOMPARE(layersThat([](const auto& layer) {
                 return isWall(layer) && layer.hasAnyOverrides();
             }).size(),
             layersThat(isWall).size() - 1);
    palette().search().selectAll();
    QTest::keyClick(&palette().search(), Qt::Key_Delete);
    palette().clickTool("Show the Filter Tree");
    pullPaletteEdge(-wider);
    tour.clickLayout("Model");
    noteStep("Undo LAYOUT");
}

void FeatureTour::handsAStateToAnotherDrawing()
{
    TourWindow& tour = *m_tour;
    const QString file = tour.path("electrical.las");
    inManagerOn("Electrical plan", [&](QDialog& manager) {
        tour_dialogs::inDialog(
            [&manager] { tour_dialogs::press(manager, QStringLiteral("Export...")); },
            [&file](QDialog& dialog) { tour_dialogs::pickFile(dialog, file); });
        tour_dialogs::press(manager, QStringLiteral("Close"));
    });
    QVERIFY(QFile::exists(file));
    const QStringList layers = palette().rows();

    tour.chooseFrom("File", {QStringLiteral("New")});
    QCOMPARE(tour.current()->displayName(), QStringLiteral("Drawing2"));
    QCOMPARE(palette().rows(), QStringList(QStringLiteral("0")));
    inManagerOn("", [&](QDialog& manager) {
        tour_dialogs::inDialogs(
            [&manager] { tour_dialogs::press(manager, QStringLiteral("Import...")); },
            {[&file](QDialog& dialog) {
                 tour_dialogs::pickKind(dialog, QStringLiteral("Layer state files"));
                 tour_dialogs::pickFile(dialog, file);
             },
             [&tour](QDialog& dialog) {
                 QCOMPARE(dialog.windowTitle(), QStringLiteral("Layer State Imported"));
                 QVERIFY(tour.looksLike("import"));
                 tour_dialogs::press(dialog, QStringLiteral("Restore State"));
             }});
    });
    QTRY_COMPARE(palette().rows(), layers); // in order once no more of them come
    QCOMPARE(palette().cell("E-LITE", LayerColumn::Color), QStringLiteral("30"));
    QCOMPARE(tour.undoText(), QStringLiteral("Undo LAYERSTATE"));
    tour_dialogs::inDialog([&tour] { tour.press(QKeySequence::Close); },
                           [](QDialog& dialog) {
                               QCOMPARE(dialog.windowTitle(), QStringLiteral("Unsaved Changes"));
                               tour_dialogs::press(dialog, QStringLiteral("Discard"));
                           });
    tour.settle();
    QCOMPARE(tour.current()->displayName(), QStringLiteral("office.dxf"));
    QCOMPARE(palette().rows(), layers);
}
