#include "GridFixture.h"
#include "LayerDrawing.h"
#include "layermanager/layers/grid/LayerCellDelegate.h"

#include <QAbstractItemModelTester>
#include <QHeaderView>
#include <QScrollBar>
#include <QSignalSpy>

#include <stdexcept>

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

    void keepsARecordPerColumn();
    void refusesColumnsThatDoNotExist();
    void hidesTheViewportColumnsInModelSpace();
    void bringsViewportColumnsBackAtTheirWidths();
    void keepsWidthsThroughFills();
    void stretchesTheDescription();

    void sortsByAClickedHeader();
    void sortsByAnotherHeaderFromTheTop();
    void keepsTheOrderThroughFills();
    void keepsTheSelectionWhenItSorts();
    void marksTheSortedColumn();

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
    int width(LayerColumn column) const { return grid().columnWidth(static_cast<int>(column)); }
    const ListCtrlColumnData& column(LayerColumn column) const
    {
        return grid().columnData(static_cast<int>(column));
    }
    static constexpr LayerColumn kViewportColumns[] = {VpFreeze, VpColor, VpLinetype, VpLineweight,
                                                       VpPlotStyle};
};

// Fills

void TestLayerGrid::listsEveryLayerOfTheDrawing()
{
    QCOMPARE(rows(), QStringLiteral("0 Beams Doors Roof Walls"));
    QCOMPARE(cell("Walls", Name), QStringLiteral("Walls"));
    write(db(), "Roof")->erase();
    QVERIFY(grid().Fill(&db()));
    QCOMPARE(rows(), QStringLiteral("0 Beams Doors Walls"));
    QCOMPARE(grid().selectionBehavior(), QAbstractItemView::SelectRows);
}

void TestLayerGrid::neverListsLayersWithAnAsterisk()
{
    openLayers({"*SYSTEM", "Walls", "Odd*One"});
    QCOMPARE(rows(), QStringLiteral("0 Walls"));
    QVERIFY(grid().FillFromList({layer("Odd*One"), layer("Walls")}));
    QCOMPARE(rows(), QStringLiteral("Odd*One Walls"));
}

void TestLayerGrid::listsExactlyTheGivenLayers()
{
    QVERIFY(grid().FillFromList({layer("Walls"), OdDbObjectId(), layer("Beams")}));
    QCOMPARE(rows(), QStringLiteral("Beams Walls"));
    QCOMPARE(grid().displayedCount(), 2);
    QVERIFY(grid().FillFromList({}));
    QCOMPARE(rows(), QString());
    QCOMPARE(grid().displayedCount(), 0);
}

void TestLayerGrid::listsTheLayersBeforeOneThatIsNone()
{
    const OdDbObjectId linetype =
        db().table(OdDbTableKind::Linetype).getAt(QStringLiteral("DASHED"));
    QVERIFY_EXCEPTION_THROWN(grid().FillFromList({layer("Walls"), linetype, layer("Roof")}),
                             OdError_NotThatKindOfClass);
    QCOMPARE(rows(), QStringLiteral("Walls"));
    QCOMPARE(grid().displayedCount(), 1);
}

void TestLayerGrid::listsNothingWithoutACurrentDrawing()
{
    KestHost parts = host().parts();
    parts.documents = nullptr;
    ksSetHost(parts);
    QVERIFY(!grid().FillFromList({layer("Walls")}));
    QCOMPARE(grid().displayedCount(), 5);
    QVERIFY(!grid().Fill(nullptr));
    ksSetHost(host().parts());
}

void TestLayerGrid::doesNothingWhileSwitchedOff()
{
    grid().SwitchOff(true);
    QVERIFY(!grid().FillFromList({layer("Walls")}));
    QVERIFY(!grid().Fill(&db()));
    db().setCLAYER(layer("Roof"));
    click("Walls", On);
    QCOMPARE(rows(), QStringLiteral("0 Beams Doors Roof Walls"));
    QCOMPARE(chosen(), QStringLiteral("0"));
    QVERIFY(!layer_drawing::read(db(), "Walls")->isOff());
    grid().SwitchOff(false);
    QVERIFY(grid().Fill(&db()));
    QCOMPARE(chosen(), QStringLiteral("Roof"));
}

void TestLayerGrid::countsWhatItLists()
{
    QSignalSpy told(&grid(), &CLayerListCtrl::listChanged);
    QVERIFY(grid().Fill(&db()));
    QCOMPARE(grid().displayedCount(), 5);
    QCOMPARE(told.size(), 1);
    grid().FillFromList({layer("Walls")});
    QCOMPARE(grid().displayedCount(), 1);
    QCOMPARE(told.size(), 2);
}

void TestLayerGrid::startsAtTheCurrentLayersRow()
{
    db().setCLAYER(layer("Doors"));
    grid().Fill(&db());
    QCOMPARE(chosen(), QStringLiteral("Doors"));
    QCOMPARE(grid().currentIndex().row(), row("Doors"));
    QVERIFY(grid().currentLayer() == layer("Doors"));
}

void TestLayerGrid::generatesUsageOnlyWhereItIsShown()
{
    // The last layer carries no entity.
    host().ints[QStringLiteral("SHOWLAYERUSAGE")] = 1;
    grid().Fill(&db());
    QVERIFY(layer_drawing::read(db(), "Walls")->isInUse());
    OdDbDatabase& other = openLayers({"A", "B"});
    QVERIFY(layer_drawing::read(other, "A")->isInUse());
    host().ints[QStringLiteral("SHOWLAYERUSAGE")] = 0;
    OdDbDatabase& third = openLayers({"A", "B"});
    QVERIFY(!layer_drawing::read(third, "A")->isInUse());
    // The fill from a list does so always.
    grid().FillFromList({layer("A")});
    QVERIFY(layer_drawing::read(third, "A")->isInUse());
}

// Status

void TestLayerGrid::showsTheStatusOfEachLayer()
{
    host().ints[QStringLiteral("SHOWLAYERUSAGE")] = 1;
    grid().Fill(&db());
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
    grid().Fill(&db());
    grid().FillFromList({layer("Walls"), layer("Roof")});
    grid().SetNewLayerFlag(true);
    QVERIFY(grid().InsertRow(layer("Doors"), 2));
    QCOMPARE(status("Doors"), LayerStatus::NotInUse);
    QCOMPARE(status("Walls"), LayerStatus::InUse);
    grid().RefreshAllRows();
    QCOMPARE(status("Doors"), LayerStatus::InUse);
    QVERIFY(grid().InsertRow(layer("0"), 0));
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
    grid().Fill(&db());
    QCOMPARE(status("Beams"), LayerStatus::InUse);
}

// Columns

void TestLayerGrid::keepsARecordPerColumn()
{
    for (const LayerColumnInfo& info : layerColumns()) {
        const ListCtrlColumnData& data = column(info.column);
        QCOMPARE(data.identifier, info.identifier);
        QCOMPARE(data.header, info.headerText());
        QCOMPARE(data.width, info.width);
        QCOMPARE(data.subItem, static_cast<int>(info.column));
        QCOMPARE(data.displayOrder, info.layoutsOnly ? -1 : data.subItem);
        QCOMPARE(data.shown, !info.layoutsOnly);
        if (info.column != Description)
            QCOMPARE(width(info.column), info.layoutsOnly ? 0 : info.width);
    }
}

void TestLayerGrid::refusesColumnsThatDoNotExist()
{
    for (const int number : {-1, 17}) {
        QVERIFY_EXCEPTION_THROWN(grid().columnData(number), std::invalid_argument);
        QVERIFY_EXCEPTION_THROWN(grid().ShowColumn(number), std::invalid_argument);
        QVERIFY_EXCEPTION_THROWN(grid().HideColumn(number), std::invalid_argument);
        QVERIFY_EXCEPTION_THROWN(grid().OnColumnClick(number), std::invalid_argument);
    }
}

void TestLayerGrid::hidesTheViewportColumnsInModelSpace()
{
    for (const LayerColumn number : kViewportColumns)
        QCOMPARE(width(number), 0);
    QCOMPARE(width(NewVpFreeze), 50);
    db().setCTAB(QStringLiteral("Sheet A"));
    for (const LayerColumn number : kViewportColumns) {
        QCOMPARE(width(number), 50);
        QVERIFY(column(number).shown);
        QCOMPARE(column(number).displayOrder, static_cast<int>(number));
    }
    QCOMPARE(width(NewVpFreeze), 50);
    QCOMPARE(cell("Walls", VpColor), QStringLiteral("white"));
}

void TestLayerGrid::bringsViewportColumnsBackAtTheirWidths()
{
    db().setTILEMODE(false);
    grid().setColumnWidth(static_cast<int>(VpColor), 83);
    grid().setColumnWidth(static_cast<int>(VpPlotStyle), 61);
    db().setTILEMODE(true);
    QCOMPARE(width(VpColor), 0);
    QCOMPARE(column(VpColor).width, 83);
    QCOMPARE(column(VpColor).displayOrder, -1);
    QVERIFY(!column(VpColor).shown);
    grid().Fill(&db());
    QCOMPARE(width(VpColor), 0);
    db().setTILEMODE(false);
    QCOMPARE(width(VpColor), 83);
    QCOMPARE(width(VpPlotStyle), 61);
    QCOMPARE(width(VpFreeze), 50);
}

void TestLayerGrid::keepsWidthsThroughFills()
{
    grid().setColumnWidth(static_cast<int>(Name), 177);
    grid().Fill(&db());
    QCOMPARE(width(Name), 177);
    openLayers({"Other"});
    QCOMPARE(width(Name), 177);
    QCOMPARE(column(Name).width, 177);
}

void TestLayerGrid::stretchesTheDescription()
{
    QVERIFY(width(Description) > 50);
    QCOMPARE(grid().horizontalHeader()->length(), grid().viewport()->width());
    const int before = width(Description);
    grid().setColumnWidth(static_cast<int>(Name), width(Name) + 40);
    QCOMPARE(width(Description), before - 40);
    grid().resize(300, 300);
    QCOMPARE(width(Description), 50);
    QCOMPARE(column(Description).width, 50);
}

// Sorting

void TestLayerGrid::sortsByAClickedHeader()
{
    clickHeader(Name);
    QCOMPARE(rows(), QStringLiteral("Walls Roof Doors Beams 0"));
    clickHeader(Name);
    QCOMPARE(rows(), QStringLiteral("0 Beams Doors Roof Walls"));
}

void TestLayerGrid::sortsByAnotherHeaderFromTheTop()
{
    write(db(), "Doors")->setIsLocked(true);
    clickHeader(Name);
    clickHeader(Locked);
    QCOMPARE(rows(), QStringLiteral("0 Beams Roof Walls Doors"));
    clickHeader(Locked);
    QCOMPARE(rows(), QStringLiteral("Doors 0 Beams Roof Walls"));
    clickHeader(Name);
    QCOMPARE(rows(), QStringLiteral("0 Beams Doors Roof Walls"));
}

void TestLayerGrid::keepsTheOrderThroughFills()
{
    clickHeader(Name);
    grid().FillFromList({layer("Beams"), layer("Walls"), layer("Doors")});
    QCOMPARE(rows(), QStringLiteral("Walls Doors Beams"));
    grid().Fill(&db());
    QCOMPARE(rows(), QStringLiteral("Walls Roof Doors Beams 0"));
}

void TestLayerGrid::keepsTheSelectionWhenItSorts()
{
    grid().chooseRows({row("Beams"), row("Walls")});
    grid().focusCell(row("Beams"), 3);
    clickHeader(Name);
    QCOMPARE(chosen(), QStringLiteral("Walls Beams"));
    QCOMPARE(grid().currentIndex().row(), row("Beams"));
}

void TestLayerGrid::marksTheSortedColumn()
{
    const QHeaderView* header = grid().horizontalHeader();
    QVERIFY(header->isSortIndicatorShown());
    QCOMPARE(header->sortIndicatorSection(), 1);
    QCOMPARE(header->sortIndicatorOrder(), Qt::AscendingOrder);
    clickHeader(Locked);
    QCOMPARE(header->sortIndicatorSection(), 4);
    QCOMPARE(header->sortIndicatorOrder(), Qt::AscendingOrder);
    clickHeader(Locked);
    QCOMPARE(header->sortIndicatorOrder(), Qt::DescendingOrder);
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
    grid().FillFromList({layer("Walls"), layer("Doors")});
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
    grid().SysVarChanged(&db(), QStringLiteral("LTSCALE"));
    QVERIFY(refreshed.isEmpty());
    grid().SysVarChanged(&db(), QStringLiteral("ctab"));
    QCOMPARE(refreshed.size(), 1);
    const auto other = layer_drawing::make({{"A"}});
    grid().SysVarChanged(other.get(), QStringLiteral("CTAB"));
    QCOMPARE(refreshed.size(), 1);
    // The grid's drawing, but not the current one.
    OdDbDatabase& before = db();
    host().open(layer_drawing::make({{"A"}}));
    grid().SysVarChanged(&before, QStringLiteral("CTAB"));
    QCOMPARE(refreshed.size(), 1);
}

void TestLayerGrid::insertsARowForALayer()
{
    grid().FillFromList({layer("Walls"), layer("Doors")});
    QVERIFY(!grid().InsertRow(OdDbObjectId(), 0));
    QVERIFY(!grid().InsertRow(layer("Roof"), 3));
    QVERIFY(grid().InsertRow(layer("Roof"), 1));
    QCOMPARE(rows(), QStringLiteral("Doors Roof Walls"));
    QCOMPARE(grid().FindRow(layer("Roof")), 1);
    QCOMPARE(grid().FindRow(layer("Beams")), -1);
    QVERIFY(grid().RefreshRow(1, layer("Roof")));
    QVERIFY(!grid().RefreshRow(7, layer("Roof")));
}

void TestLayerGrid::isAModelWithoutFaults()
{
    const QAbstractItemModelTester tester(grid().model(),
                                          QAbstractItemModelTester::FailureReportingMode::Fatal);
    grid().Fill(&db());
    grid().FillFromList({layer("Walls"), layer("Doors")});
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
