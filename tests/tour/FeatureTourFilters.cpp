// Making filters.

#include "FeatureTour.h"
#include "TourDialogs.h"
#include "database/tables/OdDbLayerTableRecord.h"
#include "host/canvas/CCanvas.h"
#include "host/window/commandline/CCommandLine.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QDrag>
#include <QLabel>
#include <QLineEdit>
#include <QTableView>
#include <QTest>

namespace {

// Columns of the table of conditions.
constexpr int kName = 2;
constexpr int kOn = 3;
constexpr int kFreeze = 4;

void clickCell(const QTableView& table, int row, int column)
{
    const QModelIndex index = table.model()->index(row, column);
    QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, table.visualRect(index).center());
    QCoreApplication::processEvents();
}

void typeCell(const QTableView& table, int row, int column, const char* text)
{
    clickCell(table, row, column);
    auto* editor = qobject_cast<QLineEdit*>(QApplication::focusWidget());
    QVERIFY(editor);
    QTest::keyClicks(editor, QString::fromUtf8(text));
    QTest::keyClick(editor, Qt::Key_Return);
    QCoreApplication::processEvents();
}

/// Opens the list of values of a cell, and goes down to that item.
void chooseCell(const QTableView& table, int row, int column, int item)
{
    clickCell(table, row, column);
    const auto* list = table.findChild<QComboBox*>(QStringLiteral("valueList"));
    QVERIFY(list && list->view()->isVisible());
    QTest::keyClick(list->view(), Qt::Key_Home);
    for (int i = 0; i < item; ++i)
        QTest::keyClick(list->view(), Qt::Key_Down);
    QTest::keyClick(list->view(), Qt::Key_Return);
    QCoreApplication::processEvents();
}

QStringList previewed(const QDialog& dialog)
{
    const auto* list = dialog.findChild<QTableView*>(QStringLiteral("filterPreview"));
    QStringList names;
    for (int row = 0; row < list->model()->rowCount(); ++row)
        names.append(
            list->model()->index(row, static_cast<int>(LayerColumn::Name)).data().toString());
    return names;
}

bool isColumnLayer(const OdDbLayerTableRecord& layer)
{
    return layer.getName().startsWith(QStringLiteral("S-COLS"));
}

bool isShownArchitecture(const OdDbLayerTableRecord& layer)
{
    return layer.getName().startsWith(QStringLiteral("A-")) && !layer.isOff() && !layer.isFrozen();
}

} // namespace

void FeatureTour::editFilter(QDialog& dialog, const QStringList& expected)
{
    QCOMPARE(dialog.windowTitle(), QStringLiteral("Layer Filter Properties"));
    const auto* count = dialog.findChild<QLabel*>(QStringLiteral("previewCount"));
    QCOMPARE(count->text(), QStringLiteral("Filter &preview: 65 of 65 layers"));
    auto* name = qobject_cast<QLineEdit*>(QApplication::focusWidget());
    QVERIFY(name);
    QCOMPARE(name->text(), QStringLiteral("Properties Filter1"));
    QTest::keyClicks(name, QStringLiteral("Shell as shown"));
    const auto& table = *dialog.findChild<QTableView*>(QStringLiteral("filterDefinition"));
    typeCell(table, 0, kName, "A-*");
    const auto beginning = layersThat([](const OdDbLayerTableRecord& layer) {
        return layer.getName().startsWith(QStringLiteral("A-"));
    });
    QCOMPARE(previewed(dialog), beginning);
    chooseCell(table, 0, kOn, 1);
    chooseCell(table, 0, kFreeze, 2);
    QCOMPARE(previewed(dialog), layersThat(isShownArchitecture));
    typeCell(table, 1, kName, "S-COLS*");
    QCOMPARE(previewed(dialog), expected);
    QCOMPARE(count->text(),
             QStringLiteral("Filter &preview: %1 of 65 layers").arg(expected.size()));
    QCOMPARE(palette().rows().size(), 10); // the palette waits for OK
    QVERIFY(m_tour->looksLike("filter_editor"));
}

void FeatureTour::makesAPropertyFilterThatShowsItsLayersAtOnce()
{
    const QStringList expected = layersThat([](const OdDbLayerTableRecord& layer) {
        return isShownArchitecture(layer) || isColumnLayer(layer);
    });
    tour_dialogs::inDialog([&] { palette().clickTool("New Properties Filter"); },
                           [&](QDialog& dialog) {
                               editFilter(dialog, expected);
                               tour_dialogs::press(dialog, QStringLiteral("OK"));
                           });
    noteStep("Undo LAYER");
    QCOMPARE(palette().selectedFilter(), QStringLiteral("Shell as shown"));
    QCOMPARE(palette().rows(), expected);
    QVERIFY(palette().filters().contains(QStringLiteral(".Shell as shown")));
}

void FeatureTour::fillsAGroupByDraggingAndPicking()
{
    palette().clickTool("New Group Filter");
    noteStep("Undo LAYER");
    palette().typeLabel("Facade drawing");
    noteStep("Undo LAYER");
    QCOMPARE(palette().selectedFilter(), QStringLiteral("Facade drawing"));
    QCOMPARE(palette().rows(), QStringList());
    selectFilter("All");
    palette().click("A-GLAZ", LayerColumn::Status);
    palette().click("A-GLAZ-SILL", LayerColumn::Status, Qt::ControlModifier);
    palette().click("A-WALL-EXTR", LayerColumn::Status, Qt::ControlModifier);
    QCOMPARE(palette().selectedRows().size(), 3);
    bool isPictured = false;
    palette().drag("A-WALL-EXTR", "Facade drawing", [&](const QDrag& drag, QPoint place) {
        WindowPicture picture = m_tour->picture();
        picture.addDragged(drag.pixmap(), place + QPoint(10, 8));
        isPictured = m_tour->looksLike(picture, "drag");
    });
    QVERIFY(isPictured);
    noteStep("Undo LAYER");
    selectFilter("Facade drawing");
    QCOMPARE(palette().rows(),
             (QStringList{QStringLiteral("A-GLAZ"), QStringLiteral("A-GLAZ-SILL"),
                          QStringLiteral("A-WALL-EXTR")}));
    // A grid bubble is picked in the drawing.
    m_tour->whileAsked(
        [this] {
            palette().chooseOnFilter("Facade drawing",
                                     {QStringLiteral("Select Layers"), QStringLiteral("Add")});
        },
        {[this] {
             QTest::mouseClick(&m_tour->canvas(), Qt::LeftButton, {}, m_tour->placeOf(7200, 17750));
         },
         [this] { m_tour->typeLine(""); }});
    noteStep("Undo LAYER");
    QCOMPARE(palette().rows().size(), 4);
    QCOMPARE(palette().rows().last(), QStringLiteral("S-GRID-IDEN"));
}
