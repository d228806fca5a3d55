#include "database/drawing/OdDbDatabase.h"
#include "database/tables/OdDbLayerTable.h"
#include "database/tables/OdDbLayerTableRecord.h"
#include "host/support/WindowFixture.h"
#include "host/window/WindowSession.h"
#include "host/window/commandline/CCommandLine.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QLineEdit>
#include <QMenu>
#include <QTableView>
#include <QTest>
#include <QTimer>

namespace {

// Columns of the palette's grid.
constexpr int kName = 1;
constexpr int kLocked = 4;
constexpr int kColor = 5;
constexpr int kLinetype = 6;
constexpr int kLineweight = 7;
constexpr int kPlotStyle = 8;
constexpr int kVpColor = 13;

constexpr int kNewLayer = 40029;
constexpr int kRemoveOverrides = 40035;

} // namespace

/// Cells and commands of the layer palette in the program's window: its dialogs, its commands and
/// its undo.
class TestPaletteCells : public WindowFixture
{
    Q_OBJECT

private slots:
    void aPickedValueReachesTheLayer();
    void aLayerIsMadeAndNamedInItsRow();
    void nothingChangesWhileTheLayerCommandAsks();
    void aViewportGetsAValueOfItsOwn();

private:
    void openPlan();
    QTableView& grid() const
    {
        return *window->findChild<QTableView*>(QStringLiteral("layerGrid"));
    }
    QModelIndex cell(const char* name, int column) const;
    void click(const char* name, int column);
    /// Opens the grid's context menu by its key and chooses a command.
    void choose(int command);
    OdDbLayerTableRecordPtr layer(const char* name) const
    {
        return current()
            ->database()
            ->layerTable()
            .getAt(QString::fromLatin1(name))
            .openObject<OdDbLayerTableRecord>();
    }
};

void TestPaletteCells::openPlan()
{
    const QString file = TestDrawing()
                             .add({.name = "Wall"})
                             .add({.name = "Door"})
                             .addLine("Wall")
                             .addViewport(50, 50)
                             .writeTo(folder->path(), QStringLiteral("plan.dxf"));
    window->resize(1900, 900);
    WindowSession(*core, *window).start({file});
    settle();
    typeLine("MODEL");
    settle();
    QCOMPARE(grid().model()->rowCount(), 3);
}

QModelIndex TestPaletteCells::cell(const char* name, int column) const
{
    for (int row = 0; row < grid().model()->rowCount(); ++row) {
        if (grid().model()->index(row, kName).data().toString() == QLatin1String(name))
            return grid().model()->index(row, column);
    }
    return {};
}

void TestPaletteCells::click(const char* name, int column)
{
    const QModelIndex index = cell(name, column);
    QVERIFY2(index.isValid(), name);
    grid().scrollTo(index);
    QTest::mouseClick(grid().viewport(), Qt::LeftButton, {}, grid().visualRect(index).center());
}

void TestPaletteCells::choose(int command)
{
    QTimer::singleShot(0, this, [command] {
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        QVERIFY(menu);
        for (QAction* action : menu->findChildren<QAction*>()) {
            if (action->data().toInt() == command)
                action->trigger();
        }
        menu->close();
    });
    QContextMenuEvent key(QContextMenuEvent::Keyboard, QPoint(), QPoint());
    QApplication::sendEvent(&grid(), &key);
    settle();
    // The menu was the active window.
    window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(window.get()));
}

void TestPaletteCells::aPickedValueReachesTheLayer()
{
    openPlan();
    ColourValue red;
    red.index = 1;
    prompts->willPickColour(red);
    click("Wall", kColor);
    QCOMPARE(prompts->colourQuestions.first().start.index, 7);
    QVERIFY(!prompts->colourQuestions.first().offersByLayer);
    prompts->willPickLineweight(50);
    click("Wall", kLineweight);
    QCOMPARE(prompts->lineweightQuestions.first().current, -3);
    QVERIFY(prompts->lineweightQuestions.first().offersDefault);
    prompts->willPickLinetype(std::nullopt);
    click("Wall", kLinetype);
    prompts->willPickPlotStyle(std::nullopt);
    click("Wall", kPlotStyle);
    QVERIFY(!prompts->plotStyleQuestions.first().whyFixed.isEmpty());
    QCOMPARE(layer("Wall")->color(), OdCmColor::fromIndex(1));
    QCOMPARE(layer("Wall")->lineWeight(), qint16(50));
    settle();
    typeLine("U");
    QCOMPARE(layer("Wall")->lineWeight(), qint16(-3));
    QCOMPARE(cell("Wall", kColor).data().toString(), QStringLiteral("red"));
    typeLine("U");
    QCOMPARE(layer("Wall")->color(), OdCmColor::fromIndex(7));
}

void TestPaletteCells::aLayerIsMadeAndNamedInItsRow()
{
    openPlan();
    click("Door", kLocked);
    choose(kNewLayer);
    auto* editor = qobject_cast<QLineEdit*>(QApplication::focusWidget());
    QVERIFY(editor);
    QCOMPARE(editor->text(), QStringLiteral("Layer1"));
    QTest::keyClicks(editor, QStringLiteral("Column"));
    QTest::keyClick(editor, Qt::Key_Return);
    settle();
    QVERIFY(layer("Column") && layer("Column")->isLocked());
    QCOMPARE(cell("Column", kName).row(), 1);
    QVERIFY(QApplication::focusWidget() == &grid());
    QTest::keyClick(&grid(), Qt::Key_Delete);
    QVERIFY(!layer("Column"));
    typeLine("U");
    typeLine("U");
    QVERIFY(layer("Layer1"));
    typeLine("U");
    QVERIFY(!layer("Layer1"));
    QVERIFY(layer("Door")->isLocked());
}

void TestPaletteCells::nothingChangesWhileTheLayerCommandAsks()
{
    openPlan();
    QTimer::singleShot(0, this, [this] {
        QVERIFY(window->commandLine().isAsking());
        prompts->willCloseMessage();
        click("Wall", kLocked);
        window->commandLine().answer(std::nullopt);
    });
    typeLine("-LAYER");
    QTRY_VERIFY(!window->commandLine().isAsking());
    settle();
    QCOMPARE(
        prompts->texts(),
        QStringList{QStringLiteral("Unable to modify layers while another command is active.")});
    QVERIFY(!layer("Wall")->isLocked());
    click("Wall", kLocked);
    QVERIFY(layer("Wall")->isLocked());
}

void TestPaletteCells::aViewportGetsAValueOfItsOwn()
{
    openPlan();
    QVERIFY(grid().isColumnHidden(kVpColor));
    typeLine("LAYOUT Set Layout1");
    settle();
    typeLine("MSPACE 50,50");
    settle();
    QVERIFY(!grid().isColumnHidden(kVpColor));
    ColourValue red;
    red.index = 1;
    prompts->willPickColour(red);
    click("Wall", kVpColor);
    const OdDbObjectId viewport = current()->database()->activeViewportId();
    QCOMPARE(layer("Wall")->color(viewport), OdCmColor::fromIndex(1));
    QCOMPARE(layer("Wall")->color(), OdCmColor::fromIndex(7));
    QCOMPARE(cell("Wall", kVpColor).data().toString(), QStringLiteral("red"));
    choose(kRemoveOverrides);
    QVERIFY(!layer("Wall")->hasAnyOverrides());
    typeLine("U");
    QCOMPARE(layer("Wall")->color(viewport), OdCmColor::fromIndex(1));
}

QTEST_MAIN(TestPaletteCells)
#include "test_palette_cells.moc"
