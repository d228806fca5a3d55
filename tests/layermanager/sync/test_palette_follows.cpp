#include "SyncFixture.h"
#include "database/drawing/UndoJournal.h"
#include "layermanager/layers/grid/control/CInPlaceEdit.h"
#include "layermanager/layers/operations/LayerCommandTable.h"
#include "layermanager/palette/CLayerPaneView.h"

#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>

/// Grid, tree and lines of the palette follow what others do to its drawing.
class TestPaletteFollows : public SyncFixture
{
    Q_OBJECT

private slots:
    void bringsARowBackWhenTheErasureIsUndone();
    void takesARowAwayAtOnceAndCountsAnew();
    void keepsTheRowOfALayerThatIsRenamedInTheGrid();
    void startsItsTimersAnewWithEachNotification();
    void repaintsAfterItWasMade();
    void keepsSelectionAndPlaceWhenUnlistedLayersChange();
    void givesANewLayerARowWhereFilterAndSearchShowIt();
    void listsALayerThatComesToPassTheFilter();
    void leavesOutALayerThatFailsTheFilterByNow();
    void takesErasedLayersOutOfGroupsAndUndoBringsThemBack();
    void leavesWhatCanBeRedoneAlone();
    void showsAndRemovesTheNodeOfLayersThatOthersMake();
    void putsANewLayerInItsPlaceWhenItIsRenamedElsewhere();
    void refreshesOnceForABurstOfChanges();
    void takesABurstOfErasuresTogether();
    void takesABurstOfNewLayersTogether();
    void leavesOutALayerThatBecomesAPrograms();
    void showsWhatWaitsToWhoeverAsks();
    void showsABurstThatIsUndoneInTheSameTurn();
    void keepsAnEditThatIsOpenThroughABurst();
    void letsGoOfADrawingInTheMiddleOfABurst();

private:
    void makeDoors(int count)
    {
        QList<QByteArray> names;
        for (int i = 0; i < count; ++i)
            names.append("D" + QByteArray::number(10000 + i));
        show(names);
    }
    std::vector<OdDbObjectId> doors() const
    {
        std::vector<OdDbObjectId> layers = drawing().layerTable().records();
        layers.erase(layers.begin());
        return layers;
    }
    static OdDbLayerTableRecordPtr open(OdDbObjectId layer)
    {
        return layer.safeOpenObject<OdDbLayerTableRecord>(OdDb::kForWrite);
    }
};

void TestPaletteFollows::bringsARowBackWhenTheErasureIsUndone()
{
    show({"A", "B"});
    write("B")->erase();
    QCOMPARE(rows(), QStringLiteral("0 A"));
    quiesce();
    QVERIFY(drawing().undo());
    QCOMPARE(rows(), QStringLiteral("0 A"));
    QVERIFY(fire(CLayerListCtrl::kRefreshTimer));
    QCOMPARE(rows(), QStringLiteral("0 A B"));
    QCOMPARE(statusText(), QStringLiteral(" All : 3 layers displayed of 3 total layers"));
    QVERIFY(drawing().redo());
    QCOMPARE(rows(), QStringLiteral("0 A"));
}

void TestPaletteFollows::takesARowAwayAtOnceAndCountsAnew()
{
    show({"A", "B"});
    write("B")->erase();
    QCOMPARE(grid().displayedCount(), 2);
    QCOMPARE(statusText(), QStringLiteral(" All : 2 layers displayed of 2 total layers"));
    // One that is not listed counts in the total.
    search("0");
    write("A")->erase();
    QCOMPARE(statusText(), QStringLiteral(" All : 1 layers displayed of 1 total layers"));
}

void TestPaletteFollows::keepsTheRowOfALayerThatIsRenamedInTheGrid()
{
    show({"A", "B"});
    QSignalSpy gone(grid().model(), &QAbstractItemModel::rowsRemoved);
    QSignalSpy come(grid().model(), &QAbstractItemModel::rowsInserted);
    QSignalSpy anew(grid().model(), &QAbstractItemModel::modelReset);
    grid().chooseForMenu(grid().findRow(id("A")));
    grid().command(kRenameLayer);
    QVERIFY(grid().editor());
    QTest::keyClicks(grid().editor(), QStringLiteral("Again"));
    QTest::keyClick(grid().editor(), Qt::Key_Return);
    QCOMPARE(rows(), QStringLiteral("0 Again B"));
    quiesce();
    QCOMPARE(rows(), QStringLiteral("0 Again B"));
    QVERIFY(gone.isEmpty() && come.isEmpty() && anew.isEmpty());
}

void TestPaletteFollows::startsItsTimersAnewWithEachNotification()
{
    show({"A", "B", "C"});
    for (const int number : {CLayerListCtrl::kRefreshTimer, CLayerListCtrl::kErasureTimer,
                             CLayerListCtrl::kTypeAheadTimer})
    {
        QVERIFY(timer(number));
        QCOMPARE(timer(number)->interval(), 500);
        QVERIFY(timer(number)->isSingleShot());
    }
    quiesce();
    write("A")->setIsLocked(true);
    QVERIFY(timer(CLayerListCtrl::kRefreshTimer)->isActive());
    settle();
    QVERIFY(restarts(CLayerListCtrl::kRefreshTimer, [this] { write("B")->setIsLocked(true); }));
    settle();
    write("A")->erase();
    QVERIFY(timer(CLayerListCtrl::kErasureTimer)->isActive());
    settle();
    QVERIFY(restarts(CLayerListCtrl::kErasureTimer, [this] { write("B")->erase(); }));
    settle();
    QVERIFY(fire(CLayerListCtrl::kErasureTimer));
    QVERIFY(!timer(CLayerListCtrl::kErasureTimer)->isActive());
}

void TestPaletteFollows::repaintsAfterItWasMade()
{
    const CLayerListCtrl made;
    auto* first = made.findChild<QTimer*>(QStringLiteral("timer_100"));
    QVERIFY(first && first->isActive());
}

void TestPaletteFollows::keepsSelectionAndPlaceWhenUnlistedLayersChange()
{
    makeDoors(300);
    search("D*");
    quiesce();
    grid().chooseRows({5, 6, 150});
    grid().focusCell(5, 1);
    grid().verticalScrollBar()->setValue(2000);
    const QString before = chosen();
    write("0")->setIsLocked(true);
    quiesce();
    QCOMPARE(chosen(), before);
    QCOMPARE(grid().verticalScrollBar()->value(), 2000);
    // Also where rows come and go above.
    drawing().layerTable().add(QStringLiteral("D0"));
    write("D10001")->erase();
    quiesce();
    const OdDbObjectId top = grid().layerModel().layerId(grid().rowAt(0));
    grid().requestRefresh();
    quiesce();
    QCOMPARE(chosen(), before);
    QCOMPARE(grid().layerModel().layerId(grid().rowAt(0)), top);
}

void TestPaletteFollows::givesANewLayerARowWhereFilterAndSearchShowIt()
{
    show({"A"});
    addProperty("Walls", "NAME==\"w*\" ");
    click("Walls");
    const auto add = [this](const char* name) {
        drawing().layerTable().add(QString::fromUtf8(name));
        return rows();
    };
    QCOMPARE(add("Door"), QString());
    QCOMPARE(add("Wall"), QStringLiteral("Wall"));
    QCOMPARE(statusText(), QStringLiteral(" Walls : 1 layers displayed of 4 total layers"));
    view()->setInverted(true);
    QCOMPARE(add("Wall2"), QStringLiteral("0 A Door"));
    QCOMPARE(add("Roof"), QStringLiteral("0 A Door Roof"));
    view()->setInverted(false);
    search("*3");
    QCOMPARE(add("Wall4"), QString());
    QCOMPARE(add("WALL3"), QStringLiteral("WALL3"));
    QCOMPARE(add("*WALL3"), QStringLiteral("WALL3"));
    quiesce();
    QCOMPARE(rows(), QStringLiteral("WALL3"));
}

void TestPaletteFollows::listsALayerThatComesToPassTheFilter()
{
    show({"A", "B"});
    addProperty("Locked", "LOCKED==\"True\" ");
    click("Locked");
    drawing().startUndoRecord();
    write("A")->setIsLocked(true);
    QCOMPARE(rows(), QString());
    QVERIFY(fire(CLayerListCtrl::kRefreshTimer));
    QCOMPARE(rows(), QStringLiteral("A"));
    QVERIFY(drawing().undo());
    quiesce();
    QCOMPARE(rows(), QString());
}

void TestPaletteFollows::leavesOutALayerThatFailsTheFilterByNow()
{
    show({"A", "B"});
    addProperty("Open", "LOCKED==\"False\" ");
    click("Open");
    QCOMPARE(rows(), QStringLiteral("0 A B"));
    grid().chooseRows({1, 2});
    write("A")->setIsLocked(true);
    QCOMPARE(rows(), QStringLiteral("0 A B"));
    QVERIFY(fire(CLayerListCtrl::kRefreshTimer));
    QCOMPARE(rows(), QStringLiteral("0 B"));
    QCOMPARE(chosen(), QStringLiteral("B"));
    // Back before anybody looked, nothing happens.
    write("B")->setIsLocked(true);
    write("B")->setIsLocked(false);
    QSignalSpy anew(grid().model(), &QAbstractItemModel::modelReset);
    QVERIFY(fire(CLayerListCtrl::kRefreshTimer));
    QVERIFY(anew.isEmpty());
}

void TestPaletteFollows::leavesOutALayerThatBecomesAPrograms()
{
    show({"A", "B"});
    write("A")->setName(QStringLiteral("*A"));
    QVERIFY(fire(CLayerListCtrl::kRefreshTimer));
    QCOMPARE(rows(), QStringLiteral("0 B"));
}

void TestPaletteFollows::takesErasedLayersOutOfGroupsAndUndoBringsThemBack()
{
    show({"A", "B", "C"});
    addGroup("Inner", {"B"}, addGroup("Outer", {"A", "B"}));
    const auto groups = [this] {
        const FilterTreeEdit edit(drawing());
        QStringList held;
        for (const char* name : {"Outer", "Inner"})
            held << layer_drawing::names(
                        static_cast<OdLyLayerGroup&>(*edit.find(key(name))).layerIds())
                        .join(QLatin1Char(' '));
        return held.join(QLatin1Char('/'));
    };
    click("Outer");
    QCOMPARE(rows(), QStringLiteral("A B"));
    drawing().startUndoRecord();
    write("B")->erase();
    drawing().endUndoRecord();
    const auto steps = drawing().journal().undoCount();
    quiesce();
    QCOMPARE(groups(), QStringLiteral("A/"));
    QCOMPARE(drawing().journal().undoCount(), steps);
    QVERIFY(drawing().undo());
    quiesce();
    QCOMPARE(groups(), QStringLiteral("A B/B"));
    QCOMPARE(rows(), QStringLiteral("A B"));
    QVERIFY(drawing().redo());
    quiesce();
    QCOMPARE(groups(), QStringLiteral("A/"));
    QCOMPARE(rows(), QStringLiteral("A"));
}

void TestPaletteFollows::leavesWhatCanBeRedoneAlone()
{
    host().ints[QStringLiteral("LAYEREVAL")] = 1;
    host().ints[QStringLiteral("LAYEREVALCTL")] = 1;
    show({"A", "B"});
    for (const OdDbObjectId layer : drawing().layerTable().records())
        open(layer)->setIsReconciled(true);
    quiesce();
    drawing().startUndoRecord();
    write("B")->setIsReconciled(false);
    drawing().endUndoRecord();
    quiesce();
    QVERIFY(node("UnReconciled New Layers").isValid());
    tree().setCurrentIndex(node("UnReconciled New Layers"));
    QCOMPARE(rows(), QStringLiteral("B"));
    drawing().endUndoRecord();
    // The choice of the filter is a step of its own.
    QVERIFY(drawing().undo());
    quiesce();
    QVERIFY(drawing().undo());
    quiesce();
    QVERIFY(!node("UnReconciled New Layers").isValid());
    QVERIFY(drawing().hasRedo());
    QVERIFY(drawing().redo());
    quiesce();
    QVERIFY(node("UnReconciled New Layers").isValid());
    QVERIFY(drawing().redo());
    quiesce();
    QCOMPARE(tree().selectedName(), QStringLiteral("UnReconciled New Layers"));
    QCOMPARE(rows(), QStringLiteral("B"));
    // It goes while it is selected: nobody edited the drawing.
    drawing().startUndoRecord();
    write("B")->setIsReconciled(true);
    drawing().endUndoRecord();
    const auto stamp = drawing().editStamp();
    quiesce();
    QVERIFY(!node("UnReconciled New Layers").isValid());
    QCOMPARE(tree().selectedName(), QStringLiteral("All"));
    QCOMPARE(rows(), QStringLiteral("0 A B"));
    QCOMPARE(drawing().editStamp(), stamp);
}

void TestPaletteFollows::showsAndRemovesTheNodeOfLayersThatOthersMake()
{
    host().ints[QStringLiteral("LAYEREVAL")] = 1;
    host().ints[QStringLiteral("LAYEREVALCTL")] = 1;
    show({"A"});
    drawing().layerTable().startReconciledBaseline();
    quiesce();
    QVERIFY(!node("UnReconciled New Layers").isValid());
    drawing().layerTable().add(QStringLiteral("New"));
    write("New")->setIsReconciled(false);
    quiesce();
    QVERIFY(node("UnReconciled New Layers").isValid());
    QCOMPARE(rows(), QStringLiteral("0 A New"));
    tree().setCurrentIndex(node("UnReconciled New Layers"));
    QCOMPARE(rows(), QStringLiteral("New"));
    write("New")->erase();
    quiesce();
    QVERIFY(!node("UnReconciled New Layers").isValid());
    QCOMPARE(rows(), QStringLiteral("0 A"));
}

void TestPaletteFollows::putsANewLayerInItsPlaceWhenItIsRenamedElsewhere()
{
    show({"A", "M"});
    grid().command(kNewLayer);
    QTest::keyClicks(grid().editor(), QStringLiteral("Z"));
    QTest::keyClick(grid().editor(), Qt::Key_Return);
    QCOMPARE(rows(), QStringLiteral("0 A M Z"));
    write("Z")->setName(QStringLiteral("B"));
    QVERIFY(fire(CLayerListCtrl::kRefreshTimer));
    QCOMPARE(rows(), QStringLiteral("0 A B M"));
    QCOMPARE(chosen(), QStringLiteral("B"));
}

void TestPaletteFollows::refreshesOnceForABurstOfChanges()
{
    makeDoors(5000);
    addProperty("Thawed", "FROZEN==\"False\" ");
    click("Thawed");
    quiesce();
    QSignalSpy changed(grid().model(), &QAbstractItemModel::dataChanged);
    QSignalSpy anew(grid().model(), &QAbstractItemModel::modelReset);
    QSignalSpy counted(&grid(), &CLayerListCtrl::listChanged);
    QSignalSpy over(&grid(), &CLayerListCtrl::burstOver);
    drawing().startUndoRecord();
    for (const OdDbObjectId layer : doors())
        open(layer)->setIsFrozen(true);
    drawing().endUndoRecord();
    settle();
    QVERIFY(changed.size() <= LayerBurst::kShownAtOnce + 1);
    QCOMPARE(over.size(), 0);
    quiesce();
    QCOMPARE(rows(), QStringLiteral("0"));
    QCOMPARE(anew.size(), 1);
    QCOMPARE(over.size(), 1);
    QVERIFY(drawing().undo());
    quiesce();
    QCOMPARE(grid().displayedCount(), 5001);
    QCOMPARE(anew.size(), 2);
    QCOMPARE(over.size(), 2);
    QVERIFY(counted.size() <= 4);
}

void TestPaletteFollows::takesABurstOfErasuresTogether()
{
    makeDoors(20000);
    const auto all = doors();
    QSignalSpy gone(grid().model(), &QAbstractItemModel::rowsRemoved);
    QSignalSpy anew(grid().model(), &QAbstractItemModel::modelReset);
    QSignalSpy counted(&grid(), &CLayerListCtrl::listChanged);
    grid().chooseRows({1, 10000, 20000});
    grid().focusCell(20000, 2);
    for (std::size_t i = 0; i < all.size(); i += 2)
        open(all[i])->erase();
    settle();
    QCOMPARE(gone.size(), LayerBurst::kShownAtOnce);
    QCOMPARE(anew.size(), 1);
    QVERIFY(counted.size() <= LayerBurst::kShownAtOnce + 1);
    QCOMPARE(grid().displayedCount(), 10001);
    QCOMPARE(chosen(), QStringLiteral("D19999 D29999"));
    QCOMPARE(grid().currentIndex(), grid().model()->index(grid().findRow(id("D29999")), 2));
    QCOMPARE(statusText(), QStringLiteral(" All : 10001 layers displayed of 10001 total layers"));
    quiesce();
    QCOMPARE(grid().displayedCount(), 10001);
}

void TestPaletteFollows::takesABurstOfNewLayersTogether()
{
    show({"A"});
    addProperty("Fives", "NAME==\"*5\" ");
    click("Fives");
    QSignalSpy come(grid().model(), &QAbstractItemModel::rowsInserted);
    for (int i = 0; i < 2000; ++i)
        drawing().layerTable().add(QStringLiteral("N%1").arg(i));
    settle();
    QVERIFY(come.size() <= LayerBurst::kShownAtOnce + 1);
    QCOMPARE(grid().displayedCount(), 200);
    QCOMPARE(statusText(), QStringLiteral(" Fives : 200 layers displayed of 2002 total layers"));
}

void TestPaletteFollows::showsWhatWaitsToWhoeverAsks()
{
    makeDoors(200);
    for (const OdDbObjectId layer : doors())
        open(layer)->erase();
    QCOMPARE(grid().displayedCount(), 1);
    QCOMPARE(rows(), QStringLiteral("0"));
    for (int i = 0; i < 100; ++i)
        drawing().layerTable().add(QStringLiteral("N%1").arg(i));
    const OdDbObjectId last = drawing().layerTable().add(QStringLiteral("Last"));
    QCOMPARE(grid().findRow(last), 101);
}

void TestPaletteFollows::showsABurstThatIsUndoneInTheSameTurn()
{
    makeDoors(300);
    drawing().startUndoRecord();
    for (const OdDbObjectId layer : doors())
        open(layer)->erase();
    drawing().endUndoRecord();
    QVERIFY(drawing().undo());
    settle();
    quiesce();
    QCOMPARE(grid().displayedCount(), 301);
    QVERIFY(drawing().redo());
    QVERIFY(drawing().undo());
    QVERIFY(drawing().redo());
    quiesce();
    QCOMPARE(rows(), QStringLiteral("0"));
}

void TestPaletteFollows::keepsAnEditThatIsOpenThroughABurst()
{
    makeDoors(100);
    addProperty("Thawed", "FROZEN==\"False\" ");
    click("Thawed");
    grid().chooseForMenu(grid().findRow(id("D10005")));
    grid().command(kRenameLayer);
    for (const OdDbObjectId layer : doors())
        open(layer)->setIsFrozen(true);
    settle();
    QVERIFY(fire(CLayerListCtrl::kRefreshTimer));
    QVERIFY(grid().editor());
    QCOMPARE(grid().displayedCount(), 101);
    QTest::keyClick(grid().editor(), Qt::Key_Escape);
    QVERIFY(fire(CLayerListCtrl::kRefreshTimer));
    QCOMPARE(rows(), QStringLiteral("0"));
}

void TestPaletteFollows::letsGoOfADrawingInTheMiddleOfABurst()
{
    makeDoors(300);
    OdDbDatabase& ending = drawing();
    for (const OdDbObjectId layer : doors())
        open(layer)->erase();
    host().close(ending);
    QCOMPARE(grid().database(), &db());
    QCOMPARE(rows(), QStringLiteral("0 Doors Walls"));
    quiesce();
    QCOMPARE(rows(), QStringLiteral("0 Doors Walls"));
}

QTEST_MAIN(TestPaletteFollows)
#include "test_palette_follows.moc"
