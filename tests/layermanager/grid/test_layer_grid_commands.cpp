#include "GridFixture.h"
#include "database/objects/OdDbEntity.h"
#include "layermanager/LayerDrawing.h"
#include "layermanager/layers/operations/LayerCommandTable.h"

#include <QSignalSpy>

using layer_drawing::read;
using layer_drawing::write;
using enum LayerColumn;

/// Commands on the selected rows, by their identifiers.
class TestLayerGridCommands : public GridFixture
{
    Q_OBJECT

private slots:
    void doNothingOutsideOfTheirRange_data();
    void doNothingOutsideOfTheirRange();
    void doNothingWhileTheGridIsSwitchedOff();
    void areRefusedWhileTheLayerCommandRuns();
    void waitForAnEditorThatRefusesItsText();

    void makeTheFirstSelectedLayerCurrent();
    void makeALayerCurrentByADoubleClickOnItsStatus();
    void refuseToMakeSeveralLayersCurrentByADoubleClick();
    void refuseToMakeAFrozenLayerCurrent();

    void makeALayerLikeTheFirstSelectedOne();
    void nameANewLayerByTheFirstFreeNumber();
    void putANewLayerInItsPlaceOnceItIsNamed();
    void leaveTheRowUnderAPressThatEndsTheEdit();
    void editTheNameOfANewLayerByOneMoreClick();
    void makeALayerFrozenInAllViewports();
    void makeALayerWithoutARow();

    void deleteWhatMayBeDeletedAndTellTheRestOnce();
    void deleteManyLayersAtOnce();
    void isolateTheSelectedLayers();
    void takeReconciledLayersOffTheList();
    void freezeInEveryViewport();
    void removeOverridesOfListedOrSelectedLayers_data();
    void removeOverridesOfListedOrSelectedLayers();
    void tellWhatIsNotSupported();

    void openTheEditorOfTheFirstSelectedRow();
    void selectRows();
    void openTheDialogsOfLayerStates();

private:
    bool isOff(const char* name) const { return read(db(), name)->isOff(); }
    bool overridden(const char* name) const { return read(db(), name)->hasAnyOverrides(); }
};

void TestLayerGridCommands::doNothingOutsideOfTheirRange_data()
{
    QTest::addColumn<int>("id");
    for (const int id : {0, 40001, 40002, 40010, 40027, 40037, 40055, 40093, 40095, 50000})
        QTest::addRow("%d", id) << id;
}

void TestLayerGridCommands::doNothingOutsideOfTheirRange()
{
    QFETCH(int, id);
    choose({"Beams", "Walls"});
    host().strings[QStringLiteral("CMDNAMES")] =
        id == kDoNothing ? QString() : QStringLiteral("-LAYER");
    grid().command(id);
    QCOMPARE(rows(), QStringLiteral("0 Beams Doors Roof Walls"));
    QCOMPARE(chosen(), QStringLiteral("Beams Walls"));
    QVERIFY(!db().hasUndo());
    QVERIFY(prompts().asked().isEmpty());
}

void TestLayerGridCommands::doNothingWhileTheGridIsSwitchedOff()
{
    QList<int> opened;
    grid().setStateDialogs([&](int id) { opened.append(id); });
    choose({"Beams"});
    grid().switchOff(true);
    for (int id = kFirstLayerCommand; id <= kLastLayerCommand; ++id)
        grid().command(id);
    QCOMPARE(chosen(), QStringLiteral("Beams"));
    QCOMPARE(rows(), QStringLiteral("0 Beams Doors Roof Walls"));
    QVERIFY(!editor());
    QVERIFY(opened.isEmpty());
    QVERIFY(!db().hasUndo());
    QVERIFY(prompts().asked().isEmpty());
}

void TestLayerGridCommands::areRefusedWhileTheLayerCommandRuns()
{
    host().strings[QStringLiteral("CMDNAMES")] = QStringLiteral("-LAYER");
    choose({"Beams"});
    for (const int id : {kDeleteLayers, kNewLayer, kRenameLayer, kInvertSelection}) {
        prompts().willCloseMessage();
        grid().command(id);
    }
    QCOMPARE(prompts().texts().last(),
             QStringLiteral("Unable to modify layers while another command is active."));
    QCOMPARE(prompts().texts().size(), 4);
    QCOMPARE(rows(), QStringLiteral("0 Beams Doors Roof Walls"));
    QVERIFY(!editor());
}

void TestLayerGridCommands::waitForAnEditorThatRefusesItsText()
{
    choose({"Beams"});
    grid().command(kRenameLayer);
    editor()->setText(QStringLiteral("a|b"));
    grid().command(kDeleteLayers);
    QVERIFY(editor());
    QCOMPARE(rows(), QStringLiteral("0 Beams Doors Roof Walls"));
    editor()->setText(QStringLiteral("Rafters"));
    grid().command(kDeleteLayers);
    QVERIFY(!editor());
    QCOMPARE(rows(), QStringLiteral("0 Doors Roof Walls"));
}

// The current layer

void TestLayerGridCommands::makeTheFirstSelectedLayerCurrent()
{
    QSignalSpy told(&grid(), &CLayerListCtrl::layersChanged);
    choose({"Doors", "Walls"});
    grid().command(kSetCurrentLayer);
    QVERIFY(grid().currentLayer() == layer("Doors"));
    QCOMPARE(chosen(), QStringLiteral("Doors"));
    QCOMPARE(told.size(), 1);
    QCOMPARE(host().historyNames.size(), 1);
    grid().command(kSetCurrentLayer);
    QCOMPARE(host().historyNames.size(), 1);
    db().undo();
    QVERIFY(grid().currentLayer() == layer("0"));
}

void TestLayerGridCommands::makeALayerCurrentByADoubleClickOnItsStatus()
{
    choose({"Doors", "Roof"});
    doubleClick("Walls", Status);
    QVERIFY(grid().currentLayer() == layer("Walls"));
    QCOMPARE(chosen(), QStringLiteral("Walls"));
    QCOMPARE(grid().currentIndex().row(), row("Walls"));
    doubleClick("Roof", Linetype);
    QVERIFY(grid().currentLayer() == layer("Walls"));
}

void TestLayerGridCommands::refuseToMakeSeveralLayersCurrentByADoubleClick()
{
    choose({"Doors", "Roof", "Walls"});
    prompts().willCloseMessage();
    doubleClick("Beams", Status, Qt::ControlModifier);
    QCOMPARE(prompts().texts(),
             QStringList{QStringLiteral("Multiple layers cannot be made current. please select a "
                                        "single layer.")});
    QCOMPARE(chosen(), QStringLiteral("Beams Doors Roof Walls"));
    QVERIFY(grid().currentLayer() == layer("0"));
    // Alone in the selection it may become current, Ctrl or not.
    grid().clearSelection();
    doubleClick("Beams", Status, Qt::ControlModifier);
    QVERIFY(grid().currentLayer() == layer("Beams"));
}

void TestLayerGridCommands::refuseToMakeAFrozenLayerCurrent()
{
    write(db(), "Walls")->setIsFrozen(true);
    const QString refusal = QStringLiteral("The following Layers Cannot be made current.\n .Xref "
                                           "dependent layers\n .Frozen layers");
    prompts().willCloseMessage();
    doubleClick("Walls", Status);
    prompts().willCloseMessage();
    grid().command(kSetCurrentLayer);
    QCOMPARE(prompts().texts(), (QStringList{refusal, refusal}));
    QVERIFY(grid().currentLayer() == layer("0"));
    QVERIFY(host().historyNames.isEmpty());
}

// New layers

void TestLayerGridCommands::makeALayerLikeTheFirstSelectedOne()
{
    host().ints[QStringLiteral("SHOWLAYERUSAGE")] = 1;
    grid().fill(&db());
    write(db(), "Doors")->setIsLocked(true);
    write(db(), "Walls")->setColor(OdCmColor::fromIndex(1));
    db().endUndoRecord();
    QList<OdDbObjectId> made;
    connect(&grid(), &CLayerListCtrl::layerMade, this, [&](OdDbObjectId id) { made.append(id); });
    choose({"Doors", "Walls"});
    grid().command(kNewLayer);
    QVERIFY(read(db(), "Layer1")->isLocked());
    QCOMPARE(read(db(), "Layer1")->color(), OdCmColor::fromIndex(7));
    QVERIFY(!read(db(), "Layer1")->VPDFLT());
    QCOMPARE(made, QList<OdDbObjectId>{layer("Layer1")});
    QVERIFY(grid().newLayer() == layer("Layer1"));
    QCOMPARE(chosen(), QStringLiteral("Layer1"));
    QCOMPARE(grid().displayedCount(), 6);
    QVERIFY(grid().layerModel().status(*read(db(), "Layer1")) == LayerStatus::NotInUse);
    QVERIFY(editor() && editor()->hasFocus());
    QCOMPARE(editor()->selectedText(), QStringLiteral("Layer1"));
    QTest::keyClick(editor(), Qt::Key_Escape);
    QCOMPARE(host().historyNames.size(), 1);
    QVERIFY(db().undo());
    QCOMPARE(rows(), QStringLiteral("0 Beams Doors Roof Walls"));
}

void TestLayerGridCommands::nameANewLayerByTheFirstFreeNumber()
{
    grid().clearSelection();
    grid().command(kNewLayer);
    enter(QStringLiteral("Layer1"));
    grid().command(kNewLayer);
    QCOMPARE(editor()->text(), QStringLiteral("Layer2"));
    QTest::keyClick(editor(), Qt::Key_Escape);
    choose({"Layer1"});
    press(Qt::Key_F2);
    enter(QStringLiteral("Stairs"));
    grid().command(kNewLayer);
    QCOMPARE(editor()->text(), QStringLiteral("Layer1"));
}

void TestLayerGridCommands::putANewLayerInItsPlaceOnceItIsNamed()
{
    grid().command(kNewLayer);
    QCOMPARE(rows(), QStringLiteral("0 Beams Doors Roof Walls Layer1"));
    prompts().willCloseMessage();
    enter(QStringLiteral("Ceil/ings"));
    QCOMPARE(rows(), QStringLiteral("0 Beams Doors Roof Walls Layer1"));
    enter(QStringLiteral("Ceilings"));
    QCOMPARE(rows(), QStringLiteral("0 Beams Ceilings Doors Roof Walls"));
    QCOMPARE(chosen(), QStringLiteral("Ceilings"));
    QCOMPARE(grid().currentIndex().row(), row("Ceilings"));
    QVERIFY(grid().newLayer().isNull());
    grid().command(kNewLayer);
    QTest::keyClick(editor(), Qt::Key_Escape);
    QCOMPARE(rows(), QStringLiteral("0 Beams Ceilings Doors Layer1 Roof Walls"));
}

void TestLayerGridCommands::leaveTheRowUnderAPressThatEndsTheEdit()
{
    grid().command(kNewLayer);
    QTest::keyClicks(editor(), QStringLiteral("Attic"));
    click("Doors", Locked);
    QVERIFY(read(db(), "Doors")->isLocked());
    QCOMPARE(chosen(), QStringLiteral("Doors"));
    QCOMPARE(rows(), QStringLiteral("0 Beams Doors Roof Walls Attic"));
    QVERIFY(grid().openInPlaceEditor(row("Roof"), static_cast<int>(Name)));
    QVERIFY(flushRefresh());
    QCOMPARE(rows(), QStringLiteral("0 Beams Doors Roof Walls Attic"));
    grid().closeInPlaceEditor();
    QVERIFY(flushRefresh());
    QCOMPARE(rows(), QStringLiteral("0 Attic Beams Doors Roof Walls"));
    QCOMPARE(chosen(), QStringLiteral("Doors"));
}

void TestLayerGridCommands::editTheNameOfANewLayerByOneMoreClick()
{
    grid().command(kNewLayer);
    grid().discardInPlaceEditor();
    choose({"Walls"});
    click("Layer1", Name);
    QVERIFY(editor());
    QCOMPARE(chosen(), QStringLiteral("Layer1"));
    grid().discardInPlaceEditor();
    choose({"Roof", "Walls"});
    click("Layer1", Name);
    QVERIFY(editor());
    QCOMPARE(chosen(), QStringLiteral("Roof Walls Layer1"));
    QTest::keyClick(editor(), Qt::Key_Escape);
    choose({"Walls"});
    click("Layer1", Name);
    QVERIFY(!editor());
}

void TestLayerGridCommands::makeALayerFrozenInAllViewports()
{
    const OdDbObjectId viewport = enterViewport();
    const OdDbObjectId other = db().getOdDbObjectId(OdDbHandle(DrawingText::kSecondViewport));
    host().viewRefreshes = 0;
    grid().command(kNewLayerVpFrozen);
    QVERIFY(editor());
    QVERIFY(read(db(), "Layer1")->VPDFLT());
    for (const OdDbObjectId id : {viewport, other})
        QVERIFY(id.safeOpenObject<OdDbViewport>()->isLayerFrozenInViewport(layer("Layer1")));
    QCOMPARE(host().viewRefreshes, 1);
}

void TestLayerGridCommands::makeALayerWithoutARow()
{
    // A layer that the list does not show is made all the same, and nothing is edited.
    connect(&grid(), &CLayerListCtrl::layerMade, this, [this] { grid().fillFromList({}); });
    grid().command(kNewLayer);
    QVERIFY(!layer("Layer1").isNull());
    QVERIFY(!editor());
    QCOMPARE(rows(), QString());
}

// Operations

void TestLayerGridCommands::deleteWhatMayBeDeletedAndTellTheRestOnce()
{
    QSignalSpy listed(&grid(), &CLayerListCtrl::listChanged);
    // All but the last layer have an object.
    choose({"0", "Beams", "Doors", "Walls"});
    prompts().willCloseMessage();
    grid().command(kDeleteLayers);
    QCOMPARE(prompts().texts(),
             QStringList{QStringLiteral("The Following Layers Cannot be deleted.\n .Layer 0 and "
                                        "Defpoints\n .current layer \n .Layers containing objects "
                                        "\n .xref-dependent layers")});
    QCOMPARE(rows(), QStringLiteral("0 Doors Roof Walls"));
    QCOMPARE(grid().displayedCount(), 4);
    QCOMPARE(chosen(), QStringLiteral("0 Doors Walls"));
    QCOMPARE(listed.size(), 1);
    QVERIFY(db().undo());
    QVERIFY(flushRefresh());
    grid().fill(&db());
    QCOMPARE(rows(), QStringLiteral("0 Beams Doors Roof Walls"));
    QVERIFY(!db().hasUndo());
}

void TestLayerGridCommands::deleteManyLayersAtOnce()
{
    openDrawing(layer_drawing::numbered(200));
    for (const OdDbObjectId id : db().layerTable().records())
        write(db(), qPrintable(layer_drawing::name(id)))->setIsLocked(true);
    // Layers without objects: a hundred more, between the others.
    for (int i = 1; i <= 100; ++i)
        db().layerTable().add(db().layerTable().newLayerState(
            QStringLiteral("L%1x").arg(i, 6, 10, QLatin1Char('0'))));
    grid().fill(&db());
    QSignalSpy listed(&grid(), &CLayerListCtrl::listChanged);
    grid().selectAll();
    grid().focusCell(2, static_cast<int>(Name));
    prompts().willCloseMessage();
    grid().command(kDeleteLayers);
    QCOMPARE(grid().displayedCount(), 200); // with the last of the first ones, which is empty
    QCOMPARE(grid().chosenRowCount(), 200);
    QCOMPARE(listed.size(), 1);
    QVERIFY(layer("L000001x").isNull());
    QVERIFY(db().audit().isEmpty());
}

void TestLayerGridCommands::isolateTheSelectedLayers()
{
    write(db(), "Doors")->setIsOff(true);
    choose({"Doors", "Walls"});
    grid().command(kIsolateLayers);
    for (const char* name : {"0", "Beams", "Roof"})
        QVERIFY(isOff(name));
    QVERIFY(!isOff("Doors"));
    QVERIFY(!isOff("Walls"));
    QVERIFY(grid().currentLayer() == layer("Doors"));
    QVERIFY(prompts().asked().isEmpty());
}

void TestLayerGridCommands::takeReconciledLayersOffTheList()
{
    for (const OdDbObjectId id : db().layerTable().records())
        id.safeOpenObject<OdDbLayerTableRecord>(OdDb::kForWrite)->setIsReconciled(true);
    for (const char* name : {"Doors", "Walls"})
        write(db(), name)->setIsReconciled(false);
    grid().fillFromList({layer("Doors"), layer("Walls")});
    QSignalSpy stale(&grid(), &CLayerListCtrl::listStale);
    choose({"Walls"});
    grid().command(kReconcileLayers);
    QVERIFY(read(db(), "Walls")->isReconciled());
    QCOMPARE(rows(), QStringLiteral("Doors"));
    QCOMPARE(grid().displayedCount(), 1);
    QCOMPARE(stale.size(), 1);
    // One that was reviewed before goes as well, until the list is made anew.
    grid().fillFromList({layer("Doors"), layer("Walls"), layer("Roof")});
    choose({"Doors", "Walls"});
    grid().command(kReconcileLayers);
    QCOMPARE(rows(), QStringLiteral("Roof"));
    QCOMPARE(stale.size(), 2);
}

void TestLayerGridCommands::freezeInEveryViewport()
{
    const OdDbObjectId viewport = enterViewport();
    choose({"Doors", "Roof"});
    const auto frozen = [&] {
        return viewport.safeOpenObject<OdDbViewport>()->isLayerFrozenInViewport(layer("Roof"));
    };
    host().viewRefreshes = 0;
    grid().command(kFreezeInAllViewports);
    QVERIFY(frozen());
    grid().command(kThawInAllViewports);
    QVERIFY(!frozen());
    QCOMPARE(host().viewRefreshes, 2);
    grid().command(kThawInAllViewports);
    QCOMPARE(host().viewRefreshes, 2);
}

void TestLayerGridCommands::removeOverridesOfListedOrSelectedLayers_data()
{
    QTest::addColumn<int>("id");
    QTest::addColumn<bool>("listed");

    QTest::newRow("listed, viewport") << 40030 << true;
    QTest::newRow("listed, everywhere") << 40032 << true;
    QTest::newRow("selected, everywhere") << 40035 << false;
    QTest::newRow("selected, viewport") << 40038 << false;
    QTest::newRow("properties, viewport") << 40092 << false;
    QTest::newRow("properties, layouts") << 40094 << false;
}

void TestLayerGridCommands::removeOverridesOfListedOrSelectedLayers()
{
    QFETCH(int, id);
    QFETCH(bool, listed);
    const OdDbObjectId viewport = enterViewport();
    for (const char* name : {"Doors", "Roof", "Walls"})
        write(db(), name)->setColor(OdCmColor::fromIndex(1), viewport);
    grid().fillFromList({layer("Doors"), layer("Roof")});
    choose({"Roof"});
    host().viewRefreshes = 0;
    grid().command(id);
    QVERIFY(!overridden("Roof"));
    QCOMPARE(overridden("Doors"), !listed);
    QVERIFY(overridden("Walls")); // it has no row
    QCOMPARE(cell("Roof", VpColor), cell("Roof", Color));
    QCOMPARE(host().viewRefreshes, 1);
}

void TestLayerGridCommands::tellWhatIsNotSupported()
{
    for (const int id : {40040, 40071, 40075}) {
        prompts().willCloseMessage();
        grid().command(id);
    }
    QCOMPARE(prompts().texts(), QStringList(3, QStringLiteral("Not yet supported")));
    QVERIFY(!db().hasUndo());
}

// The grid's own

void TestLayerGridCommands::openTheEditorOfTheFirstSelectedRow()
{
    choose({"Doors", "Walls"});
    grid().command(kRenameLayer);
    QCOMPARE(editor()->text(), QStringLiteral("Doors"));
    QCOMPARE(editor()->selectedText(), QStringLiteral("Doors"));
    QCOMPARE(chosen(), QStringLiteral("Doors Walls"));
    grid().command(kDescribeLayer);
    QCOMPARE(editor()->text(), QString());
    QCOMPARE(editor()->accessibleName(), QStringLiteral("Description"));
    QTest::keyClick(editor(), Qt::Key_Escape);
    grid().clearSelection();
    grid().command(kRenameLayer);
    grid().command(kDescribeLayer);
    QVERIFY(!editor());
}

void TestLayerGridCommands::selectRows()
{
    choose({"Doors"});
    grid().command(kSelectAllButCurrent);
    QCOMPARE(chosen(), QStringLiteral("Beams Doors Roof Walls"));
    grid().command(kInvertSelection);
    QCOMPARE(chosen(), QStringLiteral("0"));
    grid().command(kInvertSelection);
    QCOMPARE(chosen(), QStringLiteral("Beams Doors Roof Walls"));
    grid().command(kClearSelection);
    QCOMPARE(chosen(), QString());
    grid().command(kInvertSelection);
    QCOMPARE(grid().chosenRowCount(), 5);
    // A current layer that is not listed leaves out none.
    grid().fillFromList({layer("Doors"), layer("Roof")});
    grid().command(kSelectAllButCurrent);
    QCOMPARE(chosen(), QStringLiteral("Doors Roof"));
    QVERIFY(!db().hasUndo());
}

void TestLayerGridCommands::openTheDialogsOfLayerStates()
{
    grid().command(kNewLayerState); // nobody opens them yet
    QList<int> opened;
    grid().setStateDialogs([&](int id) { opened.append(id); });
    grid().command(kNewLayerState);
    grid().command(kLayerStateManager);
    QCOMPARE(opened, (QList<int>{40078, 40081}));
}

QTEST_MAIN(TestLayerGridCommands)
#include "test_layer_grid_commands.moc"
