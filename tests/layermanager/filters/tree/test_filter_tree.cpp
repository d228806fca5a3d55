#include "FilterTreeFixture.h"
#include "database/ObjectStore.h"
#include "io/DrawingFile.h"
#include "layermanager/module/LayerModuleState.h"
#include "layermanager/palette/CLayerPaneView.h"

#include <QAbstractItemModelTester>
#include <QLineEdit>
#include <QTest>
#include <QTimer>

#include <algorithm>

class TestFilterTree : public FilterTreeFixture
{
    Q_OBJECT

private slots:
    void showsTheFiltersAsTheyNest();
    void listsTheLayersOfTheSelectedFilterAndKeepsItCurrent();
    void selectsTheFilterThatTheDrawingNames();
    void comesUpWithTheSameFilterInADrawingThatIsReadAgain();
    void neverListsLayersOfPrograms();
    void tellsTheFilterInTheStatusLine();

    void renamesInPlace();
    void keepsTheNameWhenEditingIsCancelled();
    void doesNotRenameFixedNodes();
    void tellsWhyANameIsRefused_data();
    void tellsWhyANameIsRefused();

    void deletesTheSelectedFilterByKey();
    void makesAGroupFromTheToolbarAndAsksForItsName();
    void makesAGroupBelowTheSelectedOne();
    void makesAPropertyFilterBelowTheSelectedOne();
    void makesNoPropertyFilterWhenTheUserGivesUp();
    void editsAPropertyFilter();
    void convertsAPropertyFilter();
    void changesTheLayersOfTheFilterAndRefreshesTheGridOnce();
    void refusesCommandsThatItsMenuGrays();

    void queuesThePickForTheSelectedGroup_data();
    void queuesThePickForTheSelectedGroup();
    void fillsTheGroupThatAskedForThePick();
    void forgetsThePickWhenItGoes();

    void followsUndoAndOtherCommands();
    void showsAndRemovesTheNodeOfUnreconciledLayers();
    void leavesTheNameOfANewLayerInEditing();
    void waitsForTheEndOfAnEditInTheGrid();
    void showsExternalReferences();
    void staysCollapsedWhereTheUserCollapsedIt();
    void showsThousandsOfFiltersWithoutDelay();
    void asksOnceAboutTooManyFilters_data();
    void asksOnceAboutTooManyFilters();
};

void TestFilterTree::showsTheFiltersAsTheyNest()
{
    run("_LAYER");
    const QAbstractItemModelTester tester(tree().model(),
                                          QAbstractItemModelTester::FailureReportingMode::QtTest);
    const FilterKey outer = addGroup("Outer", {});
    addProperty("Inner", "COLOR==\"1\" ", outer);
    QCOMPARE(shown(),
             (QStringList{QStringLiteral("All"), QStringLiteral(".All used layers"),
                          QStringLiteral(".Outer"), QStringLiteral("..Inner")}));
    QVERIFY(tree().isExpanded(node("Outer")));
    QCOMPARE(node("Inner").data(Qt::UserRole).toInt(), 2);
    QCOMPARE(node("Inner").data(Qt::AccessibleDescriptionRole).toString(),
             QStringLiteral("Property filter"));
}

void TestFilterTree::listsTheLayersOfTheSelectedFilterAndKeepsItCurrent()
{
    run("_LAYER");
    addGroup("G", {"Doors"});
    click("G");
    QCOMPARE(listed(), QStringList(QStringLiteral("Doors")));
    QCOMPARE(currentFilter(), QStringLiteral("G"));
    QCOMPARE(host().historyNames, QStringList(QStringLiteral("_LAYER")));
    click("All");
    QCOMPARE(listed().size(), 3);
    QCOMPARE(currentFilter(), QStringLiteral("All"));
    QTest::keyClick(&tree(), Qt::Key_End);
    QCOMPARE(listed(), QStringList(QStringLiteral("Doors")));
}

void TestFilterTree::selectsTheFilterThatTheDrawingNames()
{
    setCurrentFilter(db(), addGroup("G", {"Walls"}));
    run("_LAYER");
    QCOMPARE(tree().selectedName(), QStringLiteral("G"));
    QCOMPARE(listed(), QStringList(QStringLiteral("Walls")));
}

void TestFilterTree::comesUpWithTheSameFilterInADrawingThatIsReadAgain()
{
    run("_LAYER");
    addProperty("W", "NAME==\"W*\" ");
    click("W");
    host().open(readDrawing(drawingBytes(db()), QStringLiteral("again.dxf")));
    QCOMPARE(tree().selectedName(), QStringLiteral("W"));
    QCOMPARE(listed(), QStringList(QStringLiteral("Walls")));
}

void TestFilterTree::neverListsLayersOfPrograms()
{
    OdDbDatabase& drawing = open({"*SYSTEM", "A"});
    FilterTreeEdit edit(drawing);
    const auto filter = odrxCreate<OdLyLayerFilter>(QStringLiteral("Every"));
    filter->setFilterExpression(QStringLiteral("NAME==\"*\" "));
    edit.root()->addNested(filter);
    edit.write();
    run("_LAYER");
    click("Every");
    QCOMPARE(listed(), (QStringList{QStringLiteral("0"), QStringLiteral("A")}));
}

void TestFilterTree::tellsTheFilterInTheStatusLine()
{
    run("_LAYER");
    addGroup("My group", {"Walls"});
    click("My group");
    QCOMPARE(statusText(), QStringLiteral(" My group : 1 layers displayed of 3 total layers"));
}

void TestFilterTree::renamesInPlace()
{
    run("_LAYER");
    addGroup("G", {"Walls"});
    click("G");
    QTest::keyClick(&tree(), Qt::Key_F2);
    QVERIFY(labelEditor());
    QCOMPARE(labelEditor()->text(), QStringLiteral("G"));
    typeLabel("  Mike's walls ");
    QVERIFY(node("Mike's walls").isValid());
    QCOMPARE(tree().selectedName(), QStringLiteral("Mike's walls"));
    QCOMPARE(currentFilter(), QStringLiteral("Mike's walls"));
    QVERIFY(statusText().startsWith(QStringLiteral(" Mike's walls : 1 ")));
    QVERIFY(db().undo());
    settle();
    QCOMPARE(tree().selectedName(), QStringLiteral("G"));
}

void TestFilterTree::keepsTheNameWhenEditingIsCancelled()
{
    run("_LAYER");
    addGroup("G", {"Walls"});
    click("G");
    tree().command(40096);
    QTest::keyClicks(labelEditor(), QStringLiteral("other"));
    QTest::keyClick(labelEditor(), Qt::Key_Escape);
    settle();
    QCOMPARE(tree().selectedName(), QStringLiteral("G"));
    QCOMPARE(host().historyNames.size(), 1);
}

void TestFilterTree::doesNotRenameFixedNodes()
{
    run("_LAYER");
    for (const char* name : {"All", "All used layers"}) {
        click(name);
        QTest::keyClick(&tree(), Qt::Key_F2);
        QVERIFY2(!labelEditor(), name);
        QTest::keyClick(&tree(), Qt::Key_Delete);
        QVERIFY2(node(name).isValid(), name);
    }
}

void TestFilterTree::tellsWhyANameIsRefused_data()
{
    QTest::addColumn<QByteArray>("typed");
    QTest::addColumn<QString>("message");
    QTest::newRow("invalid character")
        << QByteArray("a|b")
        << QStringLiteral("Invalid Characters in filter name.\n\nFollowinf characters are not "
                          "valid in Filter names:\n    <>/\\\":;?*|,=`");
    QTest::newRow("not unique") << QByteArray(
        "OTHER") << QStringLiteral("Invalid Filter name.\n\n Filter name must be unique.");
}

void TestFilterTree::tellsWhyANameIsRefused()
{
    QFETCH(QByteArray, typed);
    QFETCH(QString, message);
    run("_LAYER");
    addGroup("Other", {});
    addGroup("G", {});
    click("G");
    QTest::keyClick(&tree(), Qt::Key_F2);
    prompts().willCloseMessage();
    typeLabel(typed.constData());
    QCOMPARE(prompts().texts(), QStringList(message));
    QCOMPARE(tree().selectedName(), QStringLiteral("G"));
}

void TestFilterTree::deletesTheSelectedFilterByKey()
{
    run("_LAYER");
    addGroup("Inner", {"Doors"}, addGroup("Outer", {"Walls"}));
    click("Inner");
    QTest::keyClick(&tree(), Qt::Key_Delete);
    QVERIFY(!node("Inner").isValid());
    QCOMPARE(tree().selectedName(), QStringLiteral("Outer"));
    QCOMPARE(listed(), QStringList(QStringLiteral("Walls")));
    QVERIFY(db().undo());
    settle();
    QCOMPARE(tree().selectedName(), QStringLiteral("Inner"));
    QCOMPARE(listed(), QStringList(QStringLiteral("Doors")));
}

void TestFilterTree::makesAGroupFromTheToolbarAndAsksForItsName()
{
    run("_LAYER");
    addGroup("Group Filter1", {});
    click("All used layers");
    tree().command(40024);
    QCOMPARE(tree().selectedName(), QStringLiteral("Group Filter2"));
    QVERIFY(labelEditor());
    typeLabel("Stairs");
    QCOMPARE(shown().last(), QStringLiteral(".Stairs"));
    QCOMPARE(listed(), QStringList());
}

void TestFilterTree::makesAGroupBelowTheSelectedOne()
{
    run("_LAYER");
    addGroup("Outer", {});
    click("Outer");
    tree().command(40093);
    typeLabel("Inner");
    QCOMPARE(shown().last(), QStringLiteral("..Inner"));
}

void TestFilterTree::makesAPropertyFilterBelowTheSelectedOne()
{
    run("_LAYER");
    addGroup("Outer", {});
    click("Outer");
    QString name;
    tree().setFilterEditor([&](QWidget*, OdDbDatabase&, OdLyLayerFilter& filter) {
        name = filter.name();
        filter.setFilterExpression(QStringLiteral("NAME==\"W*\" "));
        return true;
    });
    tree().command(40091);
    QCOMPARE(name, QStringLiteral("Properties Filter1"));
    QCOMPARE(shown().last(), QStringLiteral("..Properties Filter1"));
    QCOMPARE(listed(), QStringList(QStringLiteral("Walls")));
    tree().command(40025);
    QCOMPARE(shown().last(), QStringLiteral(".Properties Filter2"));
}

void TestFilterTree::makesNoPropertyFilterWhenTheUserGivesUp()
{
    run("_LAYER");
    tree().setFilterEditor([](QWidget*, OdDbDatabase&, OdLyLayerFilter&) { return false; });
    const auto stamp = db().editStamp();
    tree().command(40025);
    QCOMPARE(db().editStamp(), stamp);
    QCOMPARE(shown().size(), 2);
}

void TestFilterTree::editsAPropertyFilter()
{
    run("_LAYER");
    addProperty("P", "NAME==\"W*\" ");
    click("P");
    tree().setFilterEditor([](QWidget*, OdDbDatabase&, OdLyLayerFilter& filter) {
        filter.setName(QStringLiteral("D"));
        filter.setFilterExpression(QStringLiteral("NAME==\"D*\" "));
        return true;
    });
    tree().command(40098);
    QCOMPARE(tree().selectedName(), QStringLiteral("D"));
    QCOMPARE(listed(), QStringList(QStringLiteral("Doors")));
    QVERIFY(db().undo());
    settle();
    QCOMPARE(tree().selectedName(), QStringLiteral("P"));
    QCOMPARE(listed(), QStringList(QStringLiteral("Walls")));
}

void TestFilterTree::convertsAPropertyFilter()
{
    run("_LAYER");
    addProperty("P", "NAME==\"W*\" ");
    click("P");
    tree().command(40095);
    QCOMPARE(tree().selectedName(), QStringLiteral("Group Filter1"));
    QCOMPARE(listed(), QStringList(QStringLiteral("Walls")));
    QVERIFY(!node("P").isValid());
}

void TestFilterTree::changesTheLayersOfTheFilterAndRefreshesTheGridOnce()
{
    run("_LAYER");
    addGroup("G", {"Walls", "Doors"});
    click("G");
    const int before = host().viewRefreshes;
    tree().command(40079);
    QVERIFY(layer_drawing::read(db(), "Walls")->isLocked());
    QVERIFY(layer_drawing::read(db(), "Doors")->isLocked());
    QVERIFY(!layer_drawing::read(db(), "0")->isLocked());
    QCOMPARE(host().viewRefreshes, before + 1);
    QCOMPARE(listed().size(), 2);
    addProperty("Unlocked", "LOCKED==\"False\" ");
    click("Unlocked");
    tree().command(40079);
    QCOMPARE(listed(), QStringList()); // none is unlocked any more
}

void TestFilterTree::refusesCommandsThatItsMenuGrays()
{
    run("_LAYER");
    click("All used layers");
    const auto stamp = db().editStamp();
    for (const int id : {40091, 40093, 40095, 40096, 40097, 40098, 40099, 40100, 40084, 1})
        tree().command(id);
    QCOMPARE(db().editStamp(), stamp);
    QVERIFY(host().queued.isEmpty());
    QVERIFY(!labelEditor());
}

void TestFilterTree::queuesThePickForTheSelectedGroup_data()
{
    QTest::addColumn<int>("command");
    QTest::addColumn<QString>("mode");
    QTest::newRow("replace") << 40099 << QStringLiteral("0");
    QTest::newRow("add") << 40100 << QStringLiteral("1");
}

void TestFilterTree::queuesThePickForTheSelectedGroup()
{
    QFETCH(int, command);
    QFETCH(QString, mode);
    run("_LAYER");
    addGroup("G", {});
    click("G");
    tree().command(command);
    QCOMPARE(host().queued,
             (QStringList{QStringLiteral("^C^C^C^P"), QStringLiteral("__ZTR_LAYER_GROUP_FILTER"),
                          mode, QStringLiteral("^P")}));
    QVERIFY(LayerModuleState::s_bGroupFilterPickPending);
}

void TestFilterTree::fillsTheGroupThatAskedForThePick()
{
    run("_LAYER");
    addGroup("G", {"Doors"});
    addGroup("Other", {});
    click("G");
    tree().command(40100);
    click("Other");
    const ObjectStore& store = db().store();
    for (quint32 slot = 0; slot < store.size(); ++slot) {
        if (store.type(slot) == RecordType::Line)
            host().selection.entities.push_back(db().idOfSlot(slot));
    }
    host().intAnswer = 1;
    run("__ZTR_LAYER_GROUP_FILTER");
    QCOMPARE(layersOf("G"), (QStringList{QStringLiteral("Doors"), QStringLiteral("Walls")}));
    QCOMPARE(layersOf("Other"), QStringList());
}

void TestFilterTree::forgetsThePickWhenItGoes()
{
    run("_LAYER");
    addGroup("G", {});
    click("G");
    tree().command(40100);
    unload();
    QVERIFY(!LayerModuleState::s_groupFilterReceiver);
    QVERIFY(!LayerModuleState::s_bGroupFilterPickPending);
}

void TestFilterTree::followsUndoAndOtherCommands()
{
    run("_LAYER");
    db().startUndoRecord();
    addGroup("G", {"Walls"});
    QVERIFY(node("G").isValid());
    QVERIFY(db().undo());
    settle();
    QVERIFY(!node("G").isValid());
    QVERIFY(db().redo());
    settle();
    QVERIFY(node("G").isValid());
}

void TestFilterTree::showsAndRemovesTheNodeOfUnreconciledLayers()
{
    for (const OdDbObjectId id : db().layerTable().records())
        id.safeOpenObject<OdDbLayerTableRecord>(OdDb::kForWrite)->setIsReconciled(true);
    layer_drawing::write(db(), "Doors")->setIsReconciled(false);
    host().ints[QStringLiteral("LAYEREVAL")] = 1;
    host().ints[QStringLiteral("LAYEREVALCTL")] = 1;
    run("_LAYER");
    QVERIFY(node("UnReconciled New Layers").isValid());
    click("UnReconciled New Layers");
    QCOMPARE(listed(), QStringList(QStringLiteral("Doors")));
    QTest::keyClick(&tree(), Qt::Key_F2);
    QVERIFY(!labelEditor());
    QTest::keyClick(&tree(), Qt::Key_Delete);
    QVERIFY(node("UnReconciled New Layers").isValid());
    host().ints[QStringLiteral("LAYEREVALCTL")] = 0;
    tree().UpdateUnreconciledNode();
    QVERIFY(!node("UnReconciled New Layers").isValid());
    QCOMPARE(tree().selectedName(), QStringLiteral("All"));
}

void TestFilterTree::leavesTheNameOfANewLayerInEditing()
{
    for (const OdDbObjectId id : db().layerTable().records())
        id.safeOpenObject<OdDbLayerTableRecord>(OdDb::kForWrite)->setIsReconciled(true);
    host().ints[QStringLiteral("LAYEREVAL")] = 1;
    host().ints[QStringLiteral("LAYEREVALCTL")] = 1;
    run("_LAYER");
    QVERIFY(!node("UnReconciled New Layers").isValid());
    grid().command(40029);
    settle();
    QVERIFY(node("UnReconciled New Layers").isValid());
    QVERIFY2(grid().editor(), "although the tree changed");
    QCOMPARE(grid().chosenRowCount(), 1);
    QCOMPARE(grid().layerModel().layerId(grid().chosenRows().front()),
             layer_drawing::id(db(), "Layer1"));
}

void TestFilterTree::waitsForTheEndOfAnEditInTheGrid()
{
    run("_LAYER");
    addGroup("G", {"Walls"});
    click("G");
    grid().openInPlaceEditor(0, static_cast<int>(LayerColumn::Name));
    QVERIFY(grid().editor());
    FilterTreeEdit edit(db());
    static_cast<OdLyLayerGroup&>(*edit.find(key("G"))).addLayerId(layer_drawing::id(db(), "Doors"));
    edit.write();
    settle();
    QVERIFY2(grid().editor(), "somebody else changed the group");
    QCOMPARE(listed().size(), 1);
    grid().discardInPlaceEditor();
    auto* timer =
        grid().findChild<QTimer*>(QStringLiteral("timer_%1").arg(CLayerListCtrl::kRefreshTimer));
    QVERIFY(timer->isActive());
    timer->start(0);
    settle();
    QCOMPARE(listed().size(), 2);
}

void TestFilterTree::showsExternalReferences()
{
    OdDbDatabase& drawing = openWithReference();
    run("_LAYER");
    const auto stamp = drawing.editStamp();
    click("plan");
    QCOMPARE(listed(), QStringList(QStringLiteral("plan|Walls")));
    click("External References");
    QCOMPARE(listed(), QStringList(QStringLiteral("plan|Walls")));
    QCOMPARE(node("plan").data(Qt::UserRole).toInt(), 4);
    QCOMPARE(drawing.editStamp(), stamp);
    tree().refresh();
    QCOMPARE(tree().selectedName(), QStringLiteral("External References"));
}

void TestFilterTree::staysCollapsedWhereTheUserCollapsedIt()
{
    run("_LAYER");
    addGroup("Inner", {}, addGroup("Outer", {}));
    tree().collapse(node("Outer"));
    addGroup("Another", {});
    QVERIFY(!tree().isExpanded(node("Outer")));
    QVERIFY(tree().isExpanded(node("All")));
}

void TestFilterTree::showsThousandsOfFiltersWithoutDelay()
{
    // Anything quadratic would take minutes here, and end by the time limit.
    constexpr int kFilters = 20000;
    FilterTreeEdit edit(db());
    for (int i = 0; i < kFilters; ++i)
        edit.root()->addNested(
            odrxCreate<OdLyLayerGroup>(QStringLiteral("Group Filter%1").arg(i + 1)));
    edit.write();
    prompts().willChoose(2);
    run("_LAYER");
    QCOMPARE(tree().model()->rowCount(node("All")), kFilters + 1);
    tree().command(40024);
    QCOMPARE(tree().selectedName(), QStringLiteral("Group Filter%1").arg(kFilters + 1));
    typeLabel("Last");
    QTest::keyClick(&tree(), Qt::Key_Up);
    QTest::keyClick(&tree(), Qt::Key_Home);
    QVERIFY(tree().IsAllFilterSelected());
}

void TestFilterTree::asksOnceAboutTooManyFilters_data()
{
    QTest::addColumn<int>("answer");
    QTest::addColumn<int>("left");
    QTest::newRow("delete") << 1 << 2;
    QTest::newRow("retain") << 2 << 12;
    QTest::newRow("closed") << int(Prompts::kCancelled) << 12;
}

void TestFilterTree::asksOnceAboutTooManyFilters()
{
    QFETCH(int, answer);
    QFETCH(int, left);
    for (int i = 0; i < 10; ++i)
        addGroup(("F" + QByteArray::number(i)).constData(), {});
    prompts().willChoose(answer);
    run("_LAYER");
    QCOMPARE(shown().size(), left);
    const TaskQuestion asked = prompts().asked().first().question;
    QCOMPARE(asked.windowTitle, QStringLiteral("Layer - Excess Layer Filters"));
    QCOMPARE(asked.mainInstruction,
             QStringLiteral("There are more layer filters in this drawing than layers. What do you "
                            "want to do?"));
    QCOMPARE(asked.content,
             QStringLiteral("Extra layer filters might have been created in error. Too many layer "
                            "filters can result in slower performance."));
    QCOMPARE(asked.links.value(0).text, QStringLiteral("Delete all layer filters (recommended)"));
    QCOMPARE(asked.links.value(1).text, QStringLiteral("Retain all layer filters"));
    QCOMPARE(asked.defaultLink, 1);
    QCOMPARE(asked.widthInDialogUnits, 150);
    OdDbDatabase& first = db();
    open({"A"});
    host().setCurrent(first);
    QCOMPARE(prompts().asked().size(), 1);
}

QTEST_MAIN(TestFilterTree)
#include "test_filter_tree.moc"
