#include "FilterTreeFixture.h"
#include "database/store/ObjectStore.h"
#include "io/DrawingFile.h"
#include "layermanager/filter_editor/CDlgLayPropFilter.h"
#include "layermanager/module/LayerModuleState.h"

#include <QAbstractItemModelTester>
#include <QLineEdit>
#include <QTest>

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
    tree().setFilterEditor([&](QWidget*, OdDbDatabase&, const FilterToEdit& task) {
        name = task.filter->name();
        task.filter->setFilterExpression(QStringLiteral("NAME==\"W*\" "));
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
    tree().setFilterEditor([](QWidget*, OdDbDatabase&, const FilterToEdit&) { return false; });
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
    tree().setFilterEditor([](QWidget*, OdDbDatabase&, const FilterToEdit& task) {
        task.filter->setName(QStringLiteral("D"));
        task.filter->setFilterExpression(QStringLiteral("NAME==\"D*\" "));
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

QTEST_MAIN(TestFilterTree)
#include "test_filter_tree.moc"
