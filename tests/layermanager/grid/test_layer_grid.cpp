#include "GridFixture.h"
#include "layermanager/LayerDrawing.h"
#include "layermanager/layers/grid/LayerCellDelegate.h"

#include <QAbstractItemModelTester>
#include <QScrollBar>
#include <QSignalSpy>

using layer_drawing::write;
using enum LayerColumn;

class TestLayerGrid : public GridFixture
{
    Q_OBJECT

private slots:
    void listsEveryLayerOfTheDrawing();
    void neverListsLayersWithAnAsterisk();
    void listsExactlyTheGivenLayers();
    void listsTheLayersBeforeOneThatIsNone();
    void listsNothingWithoutACurrentDrawing();
    void doesNothingWhileSwitchedOff();
    void countsWhatItLists();
    void startsAtTheCurrentLayersRow();
    void generatesUsageOnlyWhereItIsShown();

    void showsTheStatusOfEachLayer();
    void showsANewLayerAsUnusedUntilTheNextFullRefresh();
    void showsEveryLayerAsUsedWhereUsageIsNotShown();
    void showsEveryLayerAsUsedWhereUsageCannotBeRead();

    void followsTheCurrentLayer();
    void scrollsToTheCurrentLayer_data();
    void scrollsToTheCurrentLayer();
    void clearsTheSelectionWhenTheCurrentLayerIsNotListed();
    void refreshesTheRowsForAnotherViewport();
    void ignoresOtherVariablesAndOtherDrawings();
    void insertsARowForALayer();
    void isAModelWithoutFaults();
    void isNamedForAssistance();

private:
    LayerStatus status(const char* name) const
    {
        const auto record = layer(name).openObject<OdDbLayerTableRecord>();
        return grid().layerModel().status(*record);
    }
};

// Fills

void TestLayerGrid::listsEveryLayerOfTheDrawing()
{
    QCOMPARE(rows(), QStringLiteral("0 Beams Doors Roof Walls"));
    QCOMPARE(cell("Walls", Name), QStringLiteral("Walls"));
    write(db(), "Roof")->erase();
    QVERIFY(grid().fill(&db()));
    QCOMPARE(rows(), QStringLiteral("0 Beams Doors Walls"));
    QCOMPARE(grid().selectionBehavior(), QAbstractItemView::SelectRows);
}

void TestLayerGrid::neverListsLayersWithAnAsterisk()
{
    openLayers({"*SYSTEM", "Walls", "Odd*One"});
    QCOMPARE(rows(), QStringLiteral("0 Walls"));
    QVERIFY(grid().fillFromList({layer("Odd*One"), layer("Walls")}));
    QCOMPARE(rows(), QStringLiteral("Odd*One Walls"));
}

void TestLayerGrid::listsExactlyTheGivenLayers()
{
    QVERIFY(grid().fillFromList({layer("Walls"), OdDbObjectId(), layer("Beams")}));
    QCOMPARE(rows(), QStringLiteral("Beams Walls"));
    QCOMPARE(grid().displayedCount(), 2);
    QVERIFY(grid().fillFromList({}));
    QCOMPARE(rows(), QString());
    QCOMPARE(grid().displayedCount(), 0);
}

void TestLayerGrid::listsTheLayersBeforeOneThatIsNone()
{
    const OdDbObjectId linetype =
        db().table(OdDbTableKind::Linetype).getAt(QStringLiteral("DASHED"));
    QVERIFY_EXCEPTION_THROWN(grid().fillFromList({layer("Walls"), linetype, layer("Roof")}),
                             OdError_NotThatKindOfClass);
    QCOMPARE(rows(), QStringLiteral("Walls"));
    QCOMPARE(grid().displayedCount(), 1);
}

void TestLayerGrid::listsNothingWithoutACurrentDrawing()
{
    KestHost parts = host().parts();
    parts.documents = nullptr;
    ksSetHost(parts);
    QVERIFY(!grid().fillFromList({layer("Walls")}));
    QCOMPARE(grid().displayedCount(), 5);
    QVERIFY(!grid().fill(nullptr));
    ksSetHost(host().parts());
}

void TestLayerGrid::doesNothingWhileSwitchedOff()
{
    grid().switchOff(true);
    QVERIFY(!grid().fillFromList({layer("Walls")}));
    QVERIFY(!grid().fill(&db()));
    db().setCLAYER(layer("Roof"));
    click("Walls", On);
    QCOMPARE(rows(), QStringLiteral("0 Beams Doors Roof Walls"));
    QCOMPARE(chosen(), QStringLiteral("0"));
    QVERIFY(!layer_drawing::read(db(), "Walls")->isOff());
    grid().switchOff(false);
    QVERIFY(grid().fill(&db()));
    QCOMPARE(chosen(), QStringLiteral("Roof"));
}

void TestLayerGrid::countsWhatItLists()
{
    QSignalSpy told(&grid(), &CLayerListCtrl::listChanged);
    QVERIFY(grid().fill(&db()));
    QCOMPARE(grid().displayedCount(), 5);
    QCOMPARE(told.size(), 1);
    grid().fillFromList({layer("Walls")});
    QCOMPARE(grid().displayedCount(), 1);
    QCOMPARE(told.size(), 2);
}

void TestLayerGrid::startsAtTheCurrentLayersRow()
{
    db().setCLAYER(layer("Doors"));
    grid().fill(&db());
    QCOMPARE(chosen(), QStringLiteral("Doors"));
    QCOMPARE(grid().currentIndex().row(), row("Doors"));
    QVERIFY(grid().currentLayer() == layer("Doors"));
}

void TestLayerGrid::generatesUsageOnlyWhereItIsShown()
{
    // The last layer carries no entity.
    host().ints[QStringLiteral("SHOWLAYERUSAGE")] = 1;
    grid().fill(&db());
    QVERIFY(layer_drawing::read(db(), "Walls")->isInUse());
    OdDbDatabase& other = openLayers({"A", "B"});
    QVERIFY(layer_drawing::read(other, "A")->isInUse());
    host().ints[QStringLiteral("SHOWLAYERUSAGE")] = 0;
    OdDbDatabase& third = openLayers({"A", "B"});
    QVERIFY(!layer_drawing::read(third, "A")->isInUse());
    // The fill from a list does so always.
    grid().fillFromList({layer("A")});
    QVERIFY(layer_drawing::read(third, "A")->isInUse());
}

// Status

void TestLayerGrid::showsTheStatusOfEachLayer()
{
    host().ints[QStringLiteral("SHOWLAYERUSAGE")] = 1;
    grid().fill(&db());
    QCOMPARE(status("0"), LayerStatus::Current);
    QCOMPARE(status("Walls"), LayerStatus::InUse);
    QCOMPARE(status("Beams"), LayerStatus::NotInUse);
    db().setCLAYER(layer("Beams"));
    QCOMPARE(status("Beams"), LayerStatus::Current);
    QCOMPARE(status("0"), LayerStatus::InUse);
}

void TestLayerGrid::showsANewLayerAsUnusedUntilTheNextFullRefresh()
{
    host().ints[QStringLiteral("SHOWLAYERUSAGE")] = 1;
    grid().fill(&db());
    grid().fillFromList({layer("Walls"), layer("Roof")});
    grid().setNewLayerFlag(true);
    QVERIFY(grid().insertRow(layer("Doors"), 2));
    QCOMPARE(status("Doors"), LayerStatus::NotInUse);
    QCOMPARE(status("Walls"), LayerStatus::InUse);
    grid().refreshAllRows();
    QCOMPARE(status("Doors"), LayerStatus::InUse);
    QVERIFY(grid().insertRow(layer("0"), 0));
    QCOMPARE(status("0"), LayerStatus::Current);
}

void TestLayerGrid::showsEveryLayerAsUsedWhereUsageIsNotShown()
{
    QCOMPARE(status("Beams"), LayerStatus::InUse);
    QCOMPARE(status("Walls"), LayerStatus::InUse);
    QCOMPARE(status("0"), LayerStatus::Current);
}

void TestLayerGrid::showsEveryLayerAsUsedWhereUsageCannotBeRead()
{
    host().ints[QStringLiteral("SHOWLAYERUSAGE")] = 1;
    host().unreadable.insert(QStringLiteral("SHOWLAYERUSAGE"));
    grid().fill(&db());
    QCOMPARE(status("Beams"), LayerStatus::InUse);
}

// System variables

void TestLayerGrid::followsTheCurrentLayer()
{
    QSignalSpy filled(grid().model(), &QAbstractItemModel::modelReset);
    QSignalSpy moved(&grid(), &CLayerListCtrl::currentLayerChanged);
    grid().chooseRows({row("Beams"), row("Walls")});
    db().setCLAYER(layer("Roof"));
    QCOMPARE(status("Roof"), LayerStatus::Current);
    QCOMPARE(status("0"), LayerStatus::InUse);
    QCOMPARE(chosen(), QStringLiteral("Roof"));
    QCOMPARE(grid().currentIndex().row(), row("Roof"));
    QCOMPARE(moved.size(), 1);
    QVERIFY(filled.isEmpty());
    db().undo();
    QCOMPARE(chosen(), QStringLiteral("0"));
}

void TestLayerGrid::scrollsToTheCurrentLayer_data()
{
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("to");
    QTest::addColumn<bool>("below");
    QTest::newRow("down") << 1 << 150 << true;
    QTest::newRow("up") << 150 << 20 << false;
}

void TestLayerGrid::scrollsToTheCurrentLayer()
{
    QFETCH(int, from);
    QFETCH(int, to);
    QFETCH(bool, below);
    openDrawing(layer_drawing::numbered(200));
    const auto numbered = [this](int number) { return grid().layerModel().layerId(number); };
    db().setCLAYER(numbered(from));
    db().setCLAYER(numbered(to));
    const int top = grid().rowViewportPosition(to);
    const int bottom = top + grid().rowHeight(to);
    if (below)
        QCOMPARE(bottom, grid().viewport()->height() - 6);
    else
        QCOMPARE(top, 20);
    // A row that is well in view is not moved.
    const int scrolled = grid().verticalScrollBar()->value();
    db().setCLAYER(numbered(below ? to - 2 : to + 2));
    QCOMPARE(grid().verticalScrollBar()->value(), scrolled);
}

void TestLayerGrid::clearsTheSelectionWhenTheCurrentLayerIsNotListed()
{
    grid().fillFromList({layer("Walls"), layer("Doors")});
    grid().chooseOnly(row("Walls"));
    db().setCLAYER(layer("Roof"));
    QCOMPARE(chosen(), QString());
    QVERIFY(grid().currentLayer() == layer("Roof"));
}

void TestLayerGrid::refreshesTheRowsForAnotherViewport()
{
    db().setCTAB(QStringLiteral("Sheet A"));
    const auto viewport = [this](quint64 handle) {
        return db().getOdDbObjectId(OdDbHandle(handle));
    };
    const LayerCellDelegate delegate(grid().layerModel());
    const auto icon = [&] {
        return *delegate.icon(*layer("Walls").openObject<OdDbLayerTableRecord>(), VpFreeze);
    };
    QSignalSpy refreshed(grid().model(), &QAbstractItemModel::dataChanged);
    db().setActiveViewport(viewport(DrawingText::kFirstViewport));
    QCOMPARE(icon(), LayerIcon::ViewportFrozen);
    db().setActiveViewport(viewport(DrawingText::kSecondViewport));
    QCOMPARE(icon(), LayerIcon::ViewportThawed);
    QVERIFY(refreshed.size() >= 2);
    db().setTILEMODE(true);
    QVERIFY(!delegate.icon(*layer("Walls").openObject<OdDbLayerTableRecord>(), VpFreeze));
}

void TestLayerGrid::ignoresOtherVariablesAndOtherDrawings()
{
    QSignalSpy refreshed(grid().model(), &QAbstractItemModel::dataChanged);
    grid().sysVarChanged(&db(), QStringLiteral("LTSCALE"));
    QVERIFY(refreshed.isEmpty());
    grid().sysVarChanged(&db(), QStringLiteral("ctab"));
    QCOMPARE(refreshed.size(), 1);
    const auto other = layer_drawing::make({{"A"}});
    grid().sysVarChanged(other.get(), QStringLiteral("CTAB"));
    QCOMPARE(refreshed.size(), 1);
    // The grid's drawing, but not the current one.
    OdDbDatabase& before = db();
    host().open(layer_drawing::make({{"A"}}));
    grid().sysVarChanged(&before, QStringLiteral("CTAB"));
    QCOMPARE(refreshed.size(), 1);
}

void TestLayerGrid::insertsARowForALayer()
{
    grid().fillFromList({layer("Walls"), layer("Doors")});
    QVERIFY(!grid().insertRow(OdDbObjectId(), 0));
    QVERIFY(!grid().insertRow(layer("Roof"), 3));
    QVERIFY(grid().insertRow(layer("Roof"), 1));
    QCOMPARE(rows(), QStringLiteral("Doors Roof Walls"));
    QCOMPARE(grid().findRow(layer("Roof")), 1);
    QCOMPARE(grid().findRow(layer("Beams")), -1);
    QVERIFY(grid().refreshRow(1, layer("Roof")));
    QVERIFY(!grid().refreshRow(7, layer("Roof")));
}

void TestLayerGrid::isAModelWithoutFaults()
{
    const QAbstractItemModelTester tester(grid().model(),
                                          QAbstractItemModelTester::FailureReportingMode::Fatal);
    grid().fill(&db());
    grid().fillFromList({layer("Walls"), layer("Doors")});
    clickHeader(Color);
    clickHeader(Description);
    db().setTILEMODE(false);
    write(db(), "Walls")->setIsOff(true);
    write(db(), "Doors")->erase();
    openLayers({"New"});
    QCOMPARE(rows(), QStringLiteral("0 New"));
}

void TestLayerGrid::isNamedForAssistance()
{
    QCOMPARE(grid().accessibleName(), QStringLiteral("Layers"));
    QCOMPARE(grid().objectName(), QStringLiteral("layerGrid"));
}

QTEST_MAIN(TestLayerGrid)
#include "test_layer_grid.moc"
