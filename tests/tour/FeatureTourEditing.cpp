// Changing layers.

#include "FeatureTour.h"
#include "TourDialogs.h"
#include "database/tables/OdDbLayerTableRecord.h"
#include "database/values/OdCmColor.h"
#include "host/dialogs/CLineweightDialog.h"
#include "toolkit/ControlRegistry.h"

#include <QApplication>
#include <QDialog>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QTableView>
#include <QTest>

namespace {

bool isElectrical(const OdDbLayerTableRecord& layer)
{
    return layer.getName().startsWith(QStringLiteral("E-"));
}

bool isFurniture(const OdDbLayerTableRecord& layer)
{
    return layer.getName().startsWith(QStringLiteral("A-FURN"))
        || layer.getName() == QStringLiteral("A-EQPM");
}

} // namespace

void FeatureTour::changesManyLayersAtOnce()
{
    selectFilter("Electrical");
    palette().selectFromTo("E-DATA", "E-POWR-TRAY");
    QCOMPARE(palette().selectedRows().size(), 10);
    palette().click("E-LITE", LayerColumn::Locked);
    noteStep("Undo LAYER");
    QCOMPARE(layersThat([](const auto& layer) { return isElectrical(layer) && layer.isLocked(); }),
             palette().rows());
    tour_dialogs::inDialog([this] { palette().click("E-LITE-SWCH", LayerColumn::Color); },
                           [this](QDialog& dialog) {
                               QCOMPARE(dialog.windowTitle(), QStringLiteral("Select Color"));
                               m_tour->press(QKeySequence(QStringLiteral("3, 0")));
                               QVERIFY(m_tour->looksLike("color"));
                               tour_dialogs::press(dialog, QStringLiteral("OK"));
                           });
    noteStep("Undo LAYER");
    QCOMPARE(palette().cell("E-POWR-TRAY", LayerColumn::Color), QStringLiteral("30"));
    tour_dialogs::inDialog([this] { palette().click("E-LITE", LayerColumn::Lineweight); },
                           [](QDialog& dialog) {
                               auto* list = qobject_cast<QListWidget*>(
                                   controlById(&dialog, CLineweightDialog::List));
                               QVERIFY(list);
                               QTest::keyClicks(list, QStringLiteral("0.50"));
                               QCOMPARE(list->currentItem()->text(), QStringLiteral("0.50 mm"));
                               tour_dialogs::press(dialog, QStringLiteral("OK"));
                           });
    noteStep("Undo LAYER");
    QCOMPARE(layersThat([](const auto& layer) {
                 return layer.color() == OdCmColor::fromIndex(30) && layer.lineWeight() == 50;
             }),
             palette().rows());

    selectFilter("All");
    QTest::mouseClick(&palette().search(), Qt::LeftButton);
    QTest::keyClicks(&palette().search(), QStringLiteral("a-furn*,a-eqpm"));
    palette().click("A-EQPM", LayerColumn::Status);
    m_tour->press(QKeySequence::SelectAll);
    palette().click("A-EQPM", LayerColumn::Freeze);
    noteStep("Undo LAYER");
    const QStringList furniture = layersThat(isFurniture);
    QCOMPARE(palette().selectedRows(), furniture);
    QCOMPARE(layersThat([](const auto& layer) { return isFurniture(layer) && layer.isFrozen(); }),
             furniture);
    QVERIFY(m_tour->looksLike("many"));
    palette().search().selectAll();
    QTest::keyClick(&palette().search(), Qt::Key_Delete);
    m_tour->settle();
    QCOMPARE(palette().rows().size(), 65);
}

void FeatureTour::namesNewLayersAndDeletesEmptyOnes()
{
    palette().click("A-ANNO-NOTE", LayerColumn::Status);
    palette().clickTool("New Layer");
    noteStep("Undo LAYER");
    palette().typeLabel("A-ANNO-REVW");
    noteStep("Undo LAYER");
    QCOMPARE(palette().rows().size(), 66);
    QCOMPARE(palette().selectedRows(), QStringList(QStringLiteral("A-ANNO-REVW")));
    QCOMPARE(palette().statusLine(),
             QStringLiteral(" All : 66 layers displayed of 66 total layers"));

    palette().click("A-DOOR", LayerColumn::Status);
    tour_dialogs::inDialog([this] { m_tour->press(Qt::Key_Delete); },
                           [this](QDialog& dialog) {
                               const auto* box = qobject_cast<QMessageBox*>(&dialog);
                               QVERIFY(box && box->text().contains(QStringLiteral("Defpoints")));
                               QVERIFY(m_tour->looksLike("refusal"));
                               tour_dialogs::press(dialog, QStringLiteral("OK"));
                           });
    QCOMPARE(palette().cell("A-WALL-DEMO", LayerColumn::Status), QStringLiteral("Not in use"));
    palette().click("A-WALL-DEMO", LayerColumn::Status);
    m_tour->press(Qt::Key_Delete);
    noteStep("Undo LAYER");
    QCOMPARE(palette().rows().size(), 65);
    QVERIFY(!palette().rows().contains(QStringLiteral("A-WALL-DEMO")));
}

void FeatureTour::tellsWhenALayerLeavesTheFilter()
{
    selectFilter("Locked or off");
    const auto listed = palette().rows().size();
    tour_dialogs::inDialog([this] { palette().click("A-FLOR-PATT", LayerColumn::Locked); },
                           [](QDialog& notice) {
                               QCOMPARE(notice.windowTitle(), QStringLiteral("Layer Filter"));
                               tour_dialogs::press(notice, QStringLiteral("OK"));
                           });
    noteStep("Undo LAYER");
    QCOMPARE(palette().rows().size(), listed - 1);
    QVERIFY(!palette().rows().contains(QStringLiteral("A-FLOR-PATT")));
    selectFilter("All");
}
