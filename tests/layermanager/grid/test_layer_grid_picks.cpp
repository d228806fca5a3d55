#include "GridFixture.h"
#include "database/objects/OdDbEntity.h"
#include "layermanager/LayerDrawing.h"

#include <QSignalSpy>

using layer_drawing::read;
using layer_drawing::write;
using enum LayerColumn;

/// Cells whose values are picked in dialogs of the host, and the cells of viewports.
class TestLayerGridPicks : public GridFixture
{
    Q_OBJECT

private slots:
    void startFromTheValueOfTheLayer_data();
    void startFromTheValueOfTheLayer();
    void giveTheLayerWhatWasPicked_data();
    void giveTheLayerWhatWasPicked();
    void changeNothingWhenTheUserGivesUp_data();
    void changeNothingWhenTheUserGivesUp();
    void changeNothingByTheSameValue();
    void giveTheOtherSelectedLayersTheSame();
    void reachTheOthersThoughTheClickedLayerHasTheValue();
    void giveAPlotStyleToTheClickedLayerOnly();
    void leavePlotStylesThatFollowColorsAlone();
    void askNothingWhileTheLayerCommandRuns();
    void askForTheFocusedCellWithEnter();

    void doNothingInViewportsWhileModelSpaceIsCurrent();
    void overrideInTheActiveViewport();
    void overrideNothingByTheValueThatIsThere();
    void overridePlotStylesInTheActiveViewport();
    void freezeAndThawInTheActiveViewport();
    void freezeTheSelectedLayersInTheActiveViewport();
    void areUndoneInOneStep();

private:
    OdDbObjectId linetype(const char* name) const
    {
        return db().table(OdDbTableKind::Linetype).getAt(QString::fromLatin1(name));
    }
    void usePlotStyles()
    {
        const OdDbObjectId styles = db().createDictionary(db().getNamedObjectsDictionaryId(),
                                                          QStringLiteral("ACAD_PLOTSTYLENAME"));
        for (const char* name : {"Normal", "Thin"})
            db().createXrecord(styles, QString::fromLatin1(name));
        db().setHeaderVariable(QStringLiteral("$PSTYLEMODE"), 290, QStringLiteral("0"));
        for (const char* name : {"Walls", "Doors", "Roof"})
            write(db(), name)->setPlotStyleName(QStringLiteral("Normal"));
        forgetUndo();
    }
    void forgetUndo()
    {
        db().endUndoRecord();
        host().historyNames.clear();
    }
    bool frozenIn(OdDbObjectId viewport, const char* name) const
    {
        return viewport.safeOpenObject<OdDbViewport>()->isLayerFrozenInViewport(layer(name));
    }
    void addColumns()
    {
        QTest::addColumn<int>("column");
        QTest::addColumn<QString>("start");
        QTest::addColumn<QString>("picked");
        QTest::newRow("color") << static_cast<int>(Color) << "white"
                               << "red";
        QTest::newRow("linetype") << static_cast<int>(Linetype) << "Continuous"
                                  << "DASHED";
        QTest::newRow("lineweight") << static_cast<int>(Lineweight) << "-3"
                                    << "0.25 mm";
        QTest::newRow("plot style") << static_cast<int>(PlotStyle) << "Normal"
                                    << "Thin";
    }
    void pickOthers()
    {
        host().pickedColor = OdCmColor::fromIndex(1);
        host().pickedLinetype = QStringLiteral("DASHED");
        host().pickedLineweight = 25;
        host().pickedPlotStyle = QStringLiteral("Thin");
    }
};

void TestLayerGridPicks::startFromTheValueOfTheLayer_data()
{
    addColumns();
}

void TestLayerGridPicks::startFromTheValueOfTheLayer()
{
    QFETCH(int, column);
    QFETCH(QString, start);
    usePlotStyles();
    click("Walls", static_cast<LayerColumn>(column));
    QCOMPARE(host().pickStarts.size(), 1);
    QCOMPARE(host().pickStarts.first().toLower(), start.toLower());
    const KestPickRequest& request = host().pickRequests.front();
    QCOMPARE(request.parent, &grid());
    QVERIFY(!request.offersByLayer);
    QVERIFY(!request.offersByBlock);
}

void TestLayerGridPicks::giveTheLayerWhatWasPicked_data()
{
    addColumns();
}

void TestLayerGridPicks::giveTheLayerWhatWasPicked()
{
    QFETCH(int, column);
    QFETCH(QString, picked);
    usePlotStyles();
    pickOthers();
    QSignalSpy told(&grid(), &CLayerListCtrl::layersChanged);
    const auto clicked = static_cast<LayerColumn>(column);
    const QString before = cell("Walls", clicked);
    click("Walls", clicked);
    QCOMPARE(cell("Walls", clicked), picked);
    QCOMPARE(cell("Doors", clicked), before);
    QCOMPARE(host().viewRefreshes, 1);
    QCOMPARE(told.size(), 1);
    QCOMPARE(host().historyNames, QStringList{QStringLiteral("_LAYER")});
    QVERIFY(db().undo());
    QCOMPARE(cell("Walls", clicked), before);
}

void TestLayerGridPicks::changeNothingWhenTheUserGivesUp_data()
{
    addColumns();
}

void TestLayerGridPicks::changeNothingWhenTheUserGivesUp()
{
    QFETCH(int, column);
    usePlotStyles();
    const auto clicked = static_cast<LayerColumn>(column);
    const QString before = cell("Walls", clicked);
    QSignalSpy told(&grid(), &CLayerListCtrl::layersChanged);
    click("Walls", clicked);
    QCOMPARE(host().pickRequests.size(), std::size_t(1));
    QCOMPARE(cell("Walls", clicked), before);
    QVERIFY(host().historyNames.isEmpty());
    QCOMPARE(host().viewRefreshes, 0);
    QVERIFY(told.isEmpty());
}

void TestLayerGridPicks::changeNothingByTheSameValue()
{
    host().pickedColor = read(db(), "Walls")->color();
    click("Walls", Color);
    QCOMPARE(host().pickRequests.size(), std::size_t(1));
    QVERIFY(!db().hasUndo());
    QVERIFY(host().historyNames.isEmpty());
}

void TestLayerGridPicks::giveTheOtherSelectedLayersTheSame()
{
    pickOthers();
    choose({"Doors", "Roof", "Walls"});
    for (const LayerColumn column : {Color, Linetype, Lineweight}) {
        click("Roof", column);
        QCOMPARE(cell("Doors", column), cell("Roof", column));
        QCOMPARE(cell("Walls", column), cell("Roof", column));
    }
    QCOMPARE(chosen(), QStringLiteral("Doors Roof Walls"));
    QCOMPARE(read(db(), "Walls")->color(), OdCmColor::fromIndex(1));
    QVERIFY(read(db(), "Doors")->linetypeObjectId() == linetype("DASHED"));
    QCOMPARE(read(db(), "Walls")->lineWeight(), qint16(25));
    QCOMPARE(read(db(), "Beams")->color(), OdCmColor::fromIndex(7));
    QVERIFY(db().undo() && db().undo() && db().undo());
    QVERIFY(!db().hasUndo());
}

void TestLayerGridPicks::reachTheOthersThoughTheClickedLayerHasTheValue()
{
    write(db(), "Roof")->setColor(OdCmColor::fromIndex(1));
    host().pickedColor = OdCmColor::fromIndex(1);
    choose({"Doors", "Roof"});
    click("Roof", Color);
    QCOMPARE(read(db(), "Doors")->color(), OdCmColor::fromIndex(1));
}

void TestLayerGridPicks::giveAPlotStyleToTheClickedLayerOnly()
{
    usePlotStyles();
    host().pickedPlotStyle = QStringLiteral("Thin");
    choose({"Doors", "Walls"});
    click("Walls", PlotStyle);
    QCOMPARE(read(db(), "Walls")->plotStyleName(), QStringLiteral("Thin"));
    QCOMPARE(read(db(), "Doors")->plotStyleName(), QStringLiteral("Normal"));
}

void TestLayerGridPicks::leavePlotStylesThatFollowColorsAlone()
{
    click("Walls", PlotStyle);
    QCOMPARE(host().pickStarts, QStringList{QStringLiteral("Color_7")});
    QCOMPARE(cell("Walls", PlotStyle), QStringLiteral("Color_7"));
    QVERIFY(!db().hasUndo());
}

void TestLayerGridPicks::askNothingWhileTheLayerCommandRuns()
{
    host().strings[QStringLiteral("CMDNAMES")] = QStringLiteral("-LAYER");
    pickOthers();
    prompts().willCloseMessage();
    click("Walls", Color);
    QVERIFY(host().pickRequests.empty());
    QCOMPARE(read(db(), "Walls")->color(), OdCmColor::fromIndex(7));
}

void TestLayerGridPicks::askForTheFocusedCellWithEnter()
{
    pickOthers();
    click("Walls", Status);
    for (int i = 0; i < static_cast<int>(Color); ++i)
        press(Qt::Key_Right);
    press(Qt::Key_Return);
    QCOMPARE(read(db(), "Walls")->color(), OdCmColor::fromIndex(1));
}

// Viewports

void TestLayerGridPicks::doNothingInViewportsWhileModelSpaceIsCurrent()
{
    pickOthers();
    // The columns are hidden there; a click reaches them all the same for once.
    for (const LayerColumn column : {VpFreeze, VpColor, VpLinetype, VpLineweight, VpPlotStyle}) {
        grid().showGridColumn(static_cast<int>(column));
        click("Walls", column);
    }
    QVERIFY(host().pickRequests.empty());
    QVERIFY(!db().hasUndo());
    QCOMPARE(host().viewRefreshes, 0);
}

void TestLayerGridPicks::overrideInTheActiveViewport()
{
    grid().resize(1600, 400);
    const OdDbObjectId viewport = enterViewport();
    pickOthers();
    choose({"Doors", "Walls"});
    for (const LayerColumn column : {VpColor, VpLinetype, VpLineweight}) {
        host().viewRefreshes = 0;
        click("Walls", column);
        QCOMPARE(host().viewRefreshes, 1);
        QCOMPARE(cell("Doors", column), cell("Walls", column));
    }
    for (const char* name : {"Doors", "Walls"}) {
        const auto changed = read(db(), name);
        QCOMPARE(changed->color(viewport), OdCmColor::fromIndex(1));
        QCOMPARE(changed->color(), OdCmColor::fromIndex(7));
        QVERIFY(changed->linetypeObjectId(viewport) == linetype("DASHED"));
        QVERIFY(changed->linetypeObjectId() != linetype("DASHED"));
        QCOMPARE(changed->lineWeight(viewport), qint16(25));
        QCOMPARE(changed->lineWeight(), qint16(-3));
    }
    // The dialog starts from what the viewport shows.
    click("Walls", VpColor);
    QCOMPARE(host().pickStarts.last(), QStringLiteral("red"));
    QCOMPARE(host().pickStarts.first(), QStringLiteral("white"));
    QVERIFY(db().audit().isEmpty());
}

void TestLayerGridPicks::overrideNothingByTheValueThatIsThere()
{
    grid().resize(1600, 400);
    enterViewport();
    forgetUndo();
    host().viewRefreshes = 0;
    host().pickedColor = OdCmColor::fromIndex(7);
    click("Walls", VpColor);
    QVERIFY(!read(db(), "Walls")->hasAnyOverrides());
    QVERIFY(host().historyNames.isEmpty());
    QCOMPARE(host().viewRefreshes, 0);
}

void TestLayerGridPicks::overridePlotStylesInTheActiveViewport()
{
    usePlotStyles();
    grid().resize(1600, 400);
    const OdDbObjectId viewport = enterViewport();
    host().pickedPlotStyle = QStringLiteral("Thin");
    choose({"Doors", "Walls"});
    click("Walls", VpPlotStyle);
    QCOMPARE(host().pickStarts, QStringList{QStringLiteral("Normal")});
    QCOMPARE(read(db(), "Walls")->plotStyleName(viewport), QStringLiteral("Thin"));
    QCOMPARE(read(db(), "Walls")->plotStyleName(), QStringLiteral("Normal"));
    QCOMPARE(read(db(), "Doors")->plotStyleName(viewport), QStringLiteral("Normal"));
}

void TestLayerGridPicks::freezeAndThawInTheActiveViewport()
{
    grid().resize(1600, 400);
    const OdDbObjectId viewport = enterViewport();
    QVERIFY(frozenIn(viewport, "Walls")); // by the drawing
    host().viewRefreshes = 0;
    click("Walls", VpFreeze);
    QVERIFY(!frozenIn(viewport, "Walls"));
    QCOMPARE(host().viewRefreshes, 1);
    click("Walls", VpFreeze);
    QVERIFY(frozenIn(viewport, "Walls"));
    QVERIFY(!read(db(), "Walls")->isFrozen());
    // The current layer may be frozen in a viewport.
    click("0", VpFreeze);
    QVERIFY(frozenIn(viewport, "0"));
    QVERIFY(prompts().asked().isEmpty());
}

void TestLayerGridPicks::freezeTheSelectedLayersInTheActiveViewport()
{
    grid().resize(1600, 400);
    const OdDbObjectId viewport = enterViewport();
    choose({"Doors", "Roof", "Walls"});
    click("Doors", VpFreeze);
    for (const char* name : {"Doors", "Roof", "Walls"})
        QVERIFY(frozenIn(viewport, name));
    QVERIFY(!frozenIn(viewport, "Beams"));
    const OdDbObjectId other = db().getOdDbObjectId(OdDbHandle(DrawingText::kSecondViewport));
    QVERIFY(!frozenIn(other, "Doors"));
}

void TestLayerGridPicks::areUndoneInOneStep()
{
    grid().resize(1600, 400);
    const OdDbObjectId viewport = enterViewport();
    pickOthers();
    choose({"Doors", "Roof", "Walls"});
    forgetUndo();
    click("Doors", VpColor);
    QCOMPARE(host().historyNames.size(), 1);
    QVERIFY(db().undo());
    for (const char* name : {"Doors", "Roof", "Walls"}) {
        QVERIFY(!read(db(), name)->hasOverrides(viewport));
        QCOMPARE(cell(name, VpColor), QStringLiteral("white"));
    }
}

QTEST_MAIN(TestLayerGridPicks)
#include "test_layer_grid_picks.moc"
