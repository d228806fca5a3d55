#include "FilterTreeFixture.h"
#include "database/store/ObjectStore.h"
#include "layermanager/filter_editor/CDlgLayPropFilter.h"
#include "layermanager/module/LayerModuleState.h"
#include "layermanager/palette/CLayerPaneView.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>

namespace {

/// Closes a drawing in answer to a question.
class ClosingPrompts : public RecordingPrompts
{
public:
    ClosingPrompts(FakeHost& host, const OdDbDatabase& database)
        : m_host(host)
        , m_database(database)
    { }
    int ask(QWidget* parent, const TaskQuestion& question) override
    {
        m_host.close(m_database);
        return RecordingPrompts::ask(parent, question);
    }

private:
    FakeHost& m_host;
    const OdDbDatabase& m_database;
};

} // namespace

/// The filter tree when drawings come, go or change while it waits for the user.
class TestFilterTreeInterrupted : public FilterTreeFixture
{
    Q_OBJECT

private slots:
    void closesItsMenuWhenAnotherDrawingBecomesCurrent();
    void doesNotApplyAMenuToAnotherDrawing();
    void doesNotApplyAMenuToAnotherFilter();
    void leavesAMenuWithoutATreeAlone();

    void makesNoFilterWhenTheDrawingGoesWhileItIsAskedFor_data();
    void makesNoFilterWhenTheDrawingGoesWhileItIsAskedFor();
    void closesTheDialogWithTheDrawing();
    void keepsWhatChangedWhileAFilterWasEdited();
    void recordsNoStepWhereNothingWasEdited();

    void fillsTheSecondOfTwoGroupsOfOneName();
    void fillsNoGroupOfAnotherDrawing();
    void dropsThePickWhenThePaletteGoesMeanwhile();
    void deletesNoFiltersOfADrawingThatWasClosedAtTheQuestion();

private:
    QAction* action(QMenu& menu, int id);
    void selectLine();
};

QAction* TestFilterTreeInterrupted::action(QMenu& menu, int id)
{
    for (QAction* action : menu.actions()) {
        if (action->data().toInt() == id)
            return action;
    }
    return nullptr;
}

/// The user will pick the line that lies on "Walls".
void TestFilterTreeInterrupted::selectLine()
{
    const ObjectStore& store = db().store();
    for (quint32 slot = 0; slot < store.size(); ++slot) {
        if (store.type(slot) == RecordType::Line
            && store.layer(slot) == layer_drawing::id(db(), "Walls").slot())
            host().selection.entities.push_back(db().idOfSlot(slot));
    }
    QCOMPARE(host().selection.entities.size(), 1u);
    host().intAnswer = 1;
}

void TestFilterTreeInterrupted::closesItsMenuWhenAnotherDrawingBecomesCurrent()
{
    run("_LAYER");
    addGroup("G", {});
    click("G");
    bool wasOpen = false;
    QTimer::singleShot(0, this, [&] {
        wasOpen = QApplication::activePopupWidget() != nullptr;
        open({"A"});
    });
    QContextMenuEvent key(QContextMenuEvent::Keyboard, QPoint(), QPoint());
    QApplication::sendEvent(tree().viewport(), &key);
    QVERIFY(wasOpen);
    QVERIFY(!QApplication::activePopupWidget());
}

void TestFilterTreeInterrupted::doesNotApplyAMenuToAnotherDrawing()
{
    run("_LAYER");
    addGroup("G", {});
    click("G");
    const std::unique_ptr<QMenu> menu = tree().contextMenu();
    OdDbDatabase& other = open({"A"});
    FilterTreeEdit edit(other);
    edit.root()->addNested(odrxCreate<OdLyLayerGroup>(QStringLiteral("G")));
    edit.write();
    settle();
    click("G");
    action(*menu, 40097)->trigger();
    QVERIFY(node("G").isValid());
    QVERIFY(FilterTreeEdit(db()).find(key("G")));
    action(*tree().contextMenu(), 40097)->trigger();
    QVERIFY(!node("G").isValid());
}

void TestFilterTreeInterrupted::doesNotApplyAMenuToAnotherFilter()
{
    run("_LAYER");
    addGroup("First", {});
    addGroup("Second", {});
    click("First");
    const std::unique_ptr<QMenu> menu = tree().contextMenu();
    tree().select(key("Second"));
    action(*menu, 40097)->trigger();
    QCOMPARE(shown().size(), 4);
}

void TestFilterTreeInterrupted::leavesAMenuWithoutATreeAlone()
{
    run("_LAYER");
    addGroup("G", {});
    click("G");
    const std::unique_ptr<QMenu> menu = tree().contextMenu();
    unload();
    const auto stamp = db().editStamp();
    action(*menu, 40097)->trigger();
    QCOMPARE(db().editStamp(), stamp);
}

void TestFilterTreeInterrupted::makesNoFilterWhenTheDrawingGoesWhileItIsAskedFor_data()
{
    QTest::addColumn<int>("command");
    QTest::addColumn<bool>("hasOther");
    for (const int command : {40091, 40025, 40098}) {
        QTest::addRow("%d, the only drawing", command) << command << false;
        QTest::addRow("%d, another one", command) << command << true;
    }
}

void TestFilterTreeInterrupted::makesNoFilterWhenTheDrawingGoesWhileItIsAskedFor()
{
    QFETCH(int, command);
    QFETCH(bool, hasOther);
    OdDbDatabase* other = nullptr;
    if (hasOther) {
        other = &open({"A"});
        host().setCurrent(db());
    }
    run("_LAYER");
    addProperty("P", "NAME==\"W*\" ");
    click("P");
    tree().setFilterEditor([&](QWidget*, OdDbDatabase&, const FilterToEdit& task) {
        task.filter->setName(QStringLiteral("Late"));
        host().close(db());
        return true;
    });
    tree().command(command);
    settle();
    QCOMPARE(shown().size(), hasOther ? 2 : 0);
    QVERIFY(!other || !FilterTreeEdit(*other).find(key("Late")));
}

void TestFilterTreeInterrupted::closesTheDialogWithTheDrawing()
{
    run("_LAYER");
    bool wasOpen = false;
    QTimer::singleShot(0, this, [&] {
        wasOpen = qobject_cast<QDialog*>(QApplication::activeModalWidget()) != nullptr;
        host().close(db());
    });
    tree().command(40025);
    QVERIFY(wasOpen);
    QVERIFY(!QApplication::activeModalWidget());
    QCOMPARE(shown(), QStringList());
}

void TestFilterTreeInterrupted::keepsWhatChangedWhileAFilterWasEdited()
{
    run("_LAYER");
    addProperty("P", "NAME==\"W*\" ");
    click("P");
    tree().setFilterEditor([&](QWidget*, OdDbDatabase&, const FilterToEdit& task) {
        addGroup("Meanwhile", {"Doors"});
        task.filter->setName(QStringLiteral("Edited"));
        return true;
    });
    tree().command(40098);
    QCOMPARE(shown().mid(2),
             (QStringList{QStringLiteral(".Edited"), QStringLiteral(".Meanwhile")}));
    QCOMPARE(layersOf("Meanwhile"), QStringList(QStringLiteral("Doors")));
}

void TestFilterTreeInterrupted::recordsNoStepWhereNothingWasEdited()
{
    run("_LAYER");
    addProperty("P", "NAME==\"W*\" ");
    click("P");
    host().historyNames.clear();
    tree().setFilterEditor([](QWidget*, OdDbDatabase&, const FilterToEdit&) { return true; });
    tree().command(40098);
    QCOMPARE(host().historyNames, QStringList());
    QCOMPARE(tree().selectedName(), QStringLiteral("P"));
}

void TestFilterTreeInterrupted::fillsTheSecondOfTwoGroupsOfOneName()
{
    run("_LAYER");
    addGroup("Twin", {});
    const FilterKey second = addGroup("TWIN", {"Doors"});
    QCOMPARE(second.occurrence, 1);
    tree().select(second);
    tree().command(40100);
    selectLine();
    run("__ZTR_LAYER_GROUP_FILTER");
    QCOMPARE(layersOf("Twin"), QStringList());
    QCOMPARE(listed(), (QStringList{QStringLiteral("Doors"), QStringLiteral("Walls")}));
}

void TestFilterTreeInterrupted::fillsNoGroupOfAnotherDrawing()
{
    OdDbDatabase& other = open({"A"});
    FilterTreeEdit edit(other);
    const auto group = odrxCreate<OdLyLayerGroup>(QStringLiteral("G"));
    group->addLayerId(layer_drawing::id(other, "A"));
    edit.root()->addNested(group);
    edit.write();
    host().setCurrent(db());
    run("_LAYER");
    addGroup("G", {});
    click("G");
    tree().command(40100);
    host().setCurrent(other);
    const auto stamp = other.editStamp();
    host().intAnswer = 0;
    run("__ZTR_LAYER_GROUP_FILTER");
    QCOMPARE(other.editStamp(), stamp);
}

void TestFilterTreeInterrupted::dropsThePickWhenThePaletteGoesMeanwhile()
{
    run("_LAYER");
    addGroup("G", {});
    click("G");
    tree().command(40100);
    selectLine();
    host().whileSelecting = [this] { delete LayerModuleState::s_pLayerPaneView; };
    run("__ZTR_LAYER_GROUP_FILTER");
    QCOMPARE(layersOf("G"), QStringList());
    QVERIFY(!LayerModuleState::s_groupFilterReceiver);
}

void TestFilterTreeInterrupted::deletesNoFiltersOfADrawingThatWasClosedAtTheQuestion()
{
    for (int i = 0; i < 10; ++i)
        addGroup(("F" + QByteArray::number(i)).constData(), {});
    OdDbDatabase& other = open({"A"});
    run("_LAYER");
    ClosingPrompts closing(host(), db());
    closing.willChoose(1);
    host().setCurrent(db());
    settle();
    QCOMPARE(view()->database(), &other);
    QCOMPARE(shown().size(), 2);
}

QTEST_MAIN(TestFilterTreeInterrupted)
#include "test_filter_tree_interrupted.moc"
