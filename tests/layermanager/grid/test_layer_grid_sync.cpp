#include "GridFixture.h"
#include "layermanager/LayerDrawing.h"
#include "layermanager/layers/grid/CLayerListCtrlDatabaseReactor.h"
#include "layermanager/layers/operations/LayerCommandTable.h"

#include <QScrollBar>
#include <QSignalSpy>

using layer_drawing::write;
using enum LayerColumn;

class TestLayerGridSync : public GridFixture
{
    Q_OBJECT

private slots:
    void refreshesTheRowOfAChangedLayerAtOnce();
    void repaintsOnceForABurstOfChanges();
    void takesTheRowOfAnErasedLayerAwayAtOnce();
    void asksForARefreshWhenAnErasedLayerComesBack();
    void asksForARefreshWhenAnUnlistedLayerChanges();
    void asksForARefreshOnceAnEditIsOver();
    void keepsTheSelectionWhenRowsGo();
    void keepsTheSelectionWhenManyRowsGo();
    void tellsWhenTheCurrentLayerChanged();
    void followsACurrentLayerThatUndoTakesAway();
    void givesARowToALayerThatIsAdded();
    void givesNoRowToAnAddedLayerWithAnAsterisk();
    void followsOneDrawingAtATime();
    void ignoresWhatHappensWhileSwitchedOff();
    void letsGoOfADrawingThatEnds();
    void standsABurstOfErasures();
};

void TestLayerGridSync::refreshesTheRowOfAChangedLayerAtOnce()
{
    QSignalSpy refreshed(grid().model(), &QAbstractItemModel::dataChanged);
    write(db(), "Walls")->setDescription(QStringLiteral("new"));
    QCOMPARE(refreshed.size(), 1);
    QCOMPARE(refreshed[0][0].toModelIndex().row(), row("Walls"));
    QCOMPARE(cell("Walls", Description), QStringLiteral("new"));
}

void TestLayerGridSync::repaintsOnceForABurstOfChanges()
{
    QVERIFY(flushRefresh()); // it is started with the grid
    QVERIFY(!flushRefresh());
    QSignalSpy stale(&grid(), &CLayerListCtrl::listStale);
    for (const char* name : {"Walls", "Doors", "Roof"})
        write(db(), name)->setIsLocked(true);
    QVERIFY(flushRefresh());
    QVERIFY(!flushRefresh());
    QVERIFY(stale.isEmpty());
}

void TestLayerGridSync::takesTheRowOfAnErasedLayerAwayAtOnce()
{
    QSignalSpy told(&grid(), &CLayerListCtrl::listChanged);
    write(db(), "Doors")->erase();
    QCOMPARE(rows(), QStringLiteral("0 Beams Roof Walls"));
    QCOMPARE(grid().displayedCount(), 4);
    QCOMPARE(told.size(), 1);
}

void TestLayerGridSync::asksForARefreshWhenAnErasedLayerComesBack()
{
    QSignalSpy stale(&grid(), &CLayerListCtrl::listStale);
    write(db(), "Doors")->erase();
    db().undo();
    QVERIFY(stale.isEmpty());
    QVERIFY(flushRefresh());
    QCOMPARE(stale.size(), 1);
    grid().fill(&db());
    QCOMPARE(rows(), QStringLiteral("0 Beams Doors Roof Walls"));
}

void TestLayerGridSync::asksForARefreshWhenAnUnlistedLayerChanges()
{
    grid().fillFromList({layer("Walls")});
    QSignalSpy stale(&grid(), &CLayerListCtrl::listStale);
    write(db(), "Doors")->setIsOff(true);
    write(db(), "Roof")->setIsOff(true);
    QVERIFY(flushRefresh());
    QCOMPARE(stale.size(), 1);
    QCOMPARE(rows(), QStringLiteral("Walls"));
}

void TestLayerGridSync::asksForARefreshOnceAnEditIsOver()
{
    grid().fillFromList({layer("Walls")});
    QSignalSpy stale(&grid(), &CLayerListCtrl::listStale);
    choose({"Walls"});
    press(Qt::Key_F2);
    write(db(), "Doors")->setIsOff(true);
    QVERIFY(flushRefresh());
    QVERIFY(stale.isEmpty());
    QVERIFY(editor());
    QTest::keyClick(editor(), Qt::Key_Escape);
    QVERIFY(flushRefresh());
    QCOMPARE(stale.size(), 1);
}

void TestLayerGridSync::keepsTheSelectionWhenManyRowsGo()
{
    openDrawing(layer_drawing::numbered(120));
    OdDbLayerTable& table = db().layerTable();
    for (int i = 0; i < 60; ++i)
        table.add(table.newLayerState(QStringLiteral("M%1").arg(i)));
    grid().fill(&db());
    // Every layer of these is empty and goes; layer 0 and one with an object stay.
    std::vector<int> chosenRows;
    for (int row = 121; row < grid().model()->rowCount(); ++row)
        chosenRows.push_back(row);
    chosenRows.insert(chosenRows.begin(), 70);
    grid().chooseRows(chosenRows);
    grid().scrollRowIntoView(70);
    const int scrolled = grid().verticalScrollBar()->value();
    prompts().willCloseMessage();
    grid().command(kDeleteLayers);
    QCOMPARE(grid().displayedCount(), 121);
    QCOMPARE(grid().chosenRows(), std::vector<int>{70});
    QCOMPARE(grid().verticalScrollBar()->value(), scrolled);
}

void TestLayerGridSync::keepsTheSelectionWhenRowsGo()
{
    grid().chooseRows({row("Beams"), row("Doors"), row("Walls")});
    write(db(), "Doors")->erase();
    QCOMPARE(chosen(), QStringLiteral("Beams Walls"));
}

void TestLayerGridSync::tellsWhenTheCurrentLayerChanged()
{
    QSignalSpy told(&grid(), &CLayerListCtrl::currentLayerChanged);
    write(db(), "Walls")->setDescription(QStringLiteral("a"));
    QVERIFY(told.isEmpty());
    write(db(), "0")->setDescription(QStringLiteral("b"));
    QCOMPARE(told.size(), 1);
}

void TestLayerGridSync::followsACurrentLayerThatUndoTakesAway()
{
    db().startUndoRecord();
    const OdDbObjectId fresh = db().layerTable().add(QStringLiteral("Fresh"));
    db().setCLAYER(fresh);
    db().endUndoRecord();
    QVERIFY(grid().currentLayer() == fresh);
    QCOMPARE(chosen(), QStringLiteral("Fresh"));
    QVERIFY(db().undo());
    QVERIFY(grid().currentLayer() == layer("0"));
    QCOMPARE(grid().findRow(fresh), -1);
    QCOMPARE(chosen(), QStringLiteral("0"));
    QSignalSpy stale(&grid(), &CLayerListCtrl::listStale);
    QVERIFY(db().redo());
    QVERIFY(grid().currentLayer() == fresh);
    QVERIFY(flushRefresh());
    QCOMPARE(stale.size(), 1);
}

void TestLayerGridSync::givesARowToALayerThatIsAdded()
{
    CLayerListCtrl::CLayerListCtrlDatabaseReactor reactor(grid());
    grid().fillFromList({layer("Walls")});
    QSignalSpy told(&grid(), &CLayerListCtrl::listChanged);
    const auto added = layer_drawing::read(db(), "Doors");
    reactor.objectAppended(&db(), added.get());
    QCOMPARE(rows(), QStringLiteral("Walls Doors"));
    QCOMPARE(grid().displayedCount(), 2);
    QCOMPARE(told.size(), 1);
    reactor.objectAppended(&db(), added.get());
    QCOMPARE(grid().displayedCount(), 2);
    reactor.objectUnAppended(&db(), added.get());
    QCOMPARE(rows(), QStringLiteral("Walls"));
}

void TestLayerGridSync::givesNoRowToAnAddedLayerWithAnAsterisk()
{
    openLayers({"*SYSTEM", "Walls"});
    CLayerListCtrl::CLayerListCtrlDatabaseReactor reactor(grid());
    reactor.objectAppended(&db(), layer_drawing::read(db(), "*SYSTEM").get());
    QCOMPARE(rows(), QStringLiteral("0 Walls"));
}

void TestLayerGridSync::followsOneDrawingAtATime()
{
    OdDbDatabase& first = db();
    openLayers({"Other"});
    QSignalSpy refreshed(grid().model(), &QAbstractItemModel::dataChanged);
    write(first, "Walls")->setIsOff(true);
    write(first, "Doors")->erase();
    QVERIFY(refreshed.isEmpty());
    QCOMPARE(rows(), QStringLiteral("0 Other"));
    write(db(), "Other")->setIsOff(true);
    QCOMPARE(refreshed.size(), 1);
}

void TestLayerGridSync::ignoresWhatHappensWhileSwitchedOff()
{
    QSignalSpy refreshed(grid().model(), &QAbstractItemModel::dataChanged);
    grid().switchOff(true);
    write(db(), "Walls")->setIsOff(true);
    write(db(), "Doors")->erase();
    QVERIFY(refreshed.isEmpty());
    QCOMPARE(grid().displayedCount(), 5);
}

void TestLayerGridSync::letsGoOfADrawingThatEnds()
{
    QSignalSpy gone(&grid(), &CLayerListCtrl::databaseGone);
    host().close(db());
    QCOMPARE(gone.size(), 1);
    QCOMPARE(grid().database(), nullptr);
    QCOMPARE(rows(), QString());
    QCOMPARE(grid().displayedCount(), 0);
    openLayers({"Again"});
    QCOMPARE(rows(), QStringLiteral("0 Again"));
}

void TestLayerGridSync::standsABurstOfErasures()
{
    openDrawing(layer_drawing::numbered(2000));
    const auto layers = grid().layerModel().layers();
    for (std::size_t i = 1; i < layers.size(); i += 2)
        layers[i].safeOpenObject<OdDbObject>(OdDb::kForWrite)->erase();
    QCOMPARE(grid().displayedCount(), 1001);
    for (std::size_t i = 0; i < layers.size(); ++i)
        QCOMPARE(grid().findRow(layers[i]), i % 2 == 0 ? static_cast<int>(i / 2) : -1);
}

QTEST_MAIN(TestLayerGridSync)
#include "test_layer_grid_sync.moc"
