#include "database/drawing/OdDbDatabase.h"
#include "database/filters/OdLyLayerFilterManager.h"
#include "database/tables/OdDbLayerTable.h"
#include "database/tables/OdDbLayerTableRecord.h"
#include "host/canvas/CCanvas.h"
#include "host/canvas/CanvasContents.h"
#include "host/support/WindowFixture.h"
#include "host/window/WindowSession.h"
#include "host/window/commandline/CCommandLine.h"
#include "host/window/views/CDrawingTabs.h"
#include "host/window/views/CDrawingView.h"

#include <QAction>
#include <QApplication>
#include <QContextMenuEvent>
#include <QMenu>
#include <QTest>
#include <QTimer>
#include <QTreeView>

/// Group filters filled by picking objects: from the palette's filter tree to the canvas and back.
class TestGroupPick : public WindowFixture
{
    Q_OBJECT

private slots:
    void objectsPickedOnTheCanvasAddTheirLayers();
    void objectsNamedOnTheLineReplaceTheLayers();
    void anEscapedPickLeavesTheGroupAlone();
    void theCommandAloneDoesNothing();
    void aPickIsAStepOfItsOwn();

private:
    /// Lines on "Wall" at heights 0 and 10, on "Door" at 20; a group "G" with "Roof" is selected.
    void openPlan();
    CCanvas& canvas() const { return window->drawings().currentView()->canvas(); }
    QTreeView& tree() const { return *window->findChild<QTreeView*>(QStringLiteral("filterTree")); }
    void click(Vec2 point);
    /// Opens the tree's context menu by its key, chooses a command, and does the steps one by one
    /// while the command asks.
    void chooseAnd(int command, std::initializer_list<std::function<void()>> steps);
    QStringList layersOfGroup() const;
};

void TestGroupPick::openPlan()
{
    const QString file = TestDrawing()
                             .add({.name = "Wall"})
                             .add({.name = "Door"})
                             .add({.name = "Roof"})
                             .addEntity("LINE", "Wall", "100=AcDbLine 10=0 20=0 11=100 21=0")
                             .addEntity("LINE", "Wall", "100=AcDbLine 10=0 20=10 11=100 21=10")
                             .addEntity("LINE", "Door", "100=AcDbLine 10=0 20=20 11=100 21=20")
                             .writeTo(folder->path(), QStringLiteral("plan.dxf"));
    WindowSession(*core, *window).start({file});
    settle();
    typeLine("MODEL");
    OdDbDatabase* database = current()->database();
    const OdLyLayerFilterManagerPtr manager = odlyGetLayerFilterManager(database);
    OdLyLayerFilterPtr root;
    OdLyLayerFilterPtr filter;
    manager->getFilters(root, filter);
    const auto group = odrxCreate<OdLyLayerGroup>(QStringLiteral("G"));
    group->addLayerId(database->layerTable().getAt(QStringLiteral("Roof")));
    root->addNested(group);
    database->startUndoRecord();
    manager->setFilters(root, group);
    database->endUndoRecord();
    settle();
    QCOMPARE(tree().currentIndex().data().toString(), QStringLiteral("G"));
    canvas().completeNow();
    canvas().zoomExtents();
    canvas().completeNow();
}

void TestGroupPick::click(Vec2 point)
{
    QTest::mouseClick(&canvas(), Qt::LeftButton, {},
                      canvas().view().toWindow(canvas().userMap().map(point)).toPoint());
}

void TestGroupPick::chooseAnd(int command, std::initializer_list<std::function<void()>> steps)
{
    QTimer::singleShot(0, this, [command] {
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        QVERIFY(menu);
        QList<QMenu*> places = menu->findChildren<QMenu*>();
        places.append(menu);
        QAction* chosen = nullptr;
        for (const QMenu* place : places) {
            for (QAction* action : place->actions())
                chosen = action->data().toInt() == command ? action : chosen;
        }
        QVERIFY(chosen);
        chosen->trigger();
        menu->close();
    });
    const std::vector<std::function<void()>> waiting(steps);
    std::size_t step = 0;
    QTimer next;
    connect(&next, &QTimer::timeout, this, [&] {
        if (step < waiting.size() && window->commandLine().isAsking())
            waiting[step++]();
    });
    next.start(0);
    QContextMenuEvent key(QContextMenuEvent::Keyboard, QPoint(), QPoint());
    QApplication::sendEvent(tree().viewport(), &key);
    QTRY_COMPARE(step, waiting.size());
    QTRY_VERIFY(!window->commandLine().isAsking());
    settle();
}

QStringList TestGroupPick::layersOfGroup() const
{
    OdLyLayerFilterPtr root;
    OdLyLayerFilterPtr filter;
    odlyGetLayerFilterManager(current()->database())->getFilters(root, filter);
    QStringList names;
    for (const OdLyLayerFilterPtr& child : root->getNestedFilters()) {
        if (!child->isIdFilter())
            continue;
        for (const OdDbObjectId layer : static_cast<OdLyLayerGroup&>(*child).layerIds())
            names << layer.safeOpenObject<OdDbLayerTableRecord>()->getName();
    }
    return names;
}

void TestGroupPick::objectsPickedOnTheCanvasAddTheirLayers()
{
    openPlan();
    chooseAnd(40100,
              {[this] {
                   click({50, 20});
               },
               [this] {
                   click({50, 0});
               },
               [this] {
                   click({50, 10});
               },
               [this] { typeLine(""); }});
    QCOMPARE(layersOfGroup(),
             (QStringList{QStringLiteral("Roof"), QStringLiteral("Door"), QStringLiteral("Wall")}));
    const QAbstractItemView* grid =
        window->findChild<QAbstractItemView*>(QStringLiteral("layerGrid"));
    QCOMPARE(grid->model()->rowCount(), 3);
    typeLine("U");
    settle();
    QCOMPARE(layersOfGroup(), QStringList(QStringLiteral("Roof")));
    QCOMPARE(grid->model()->rowCount(), 1);
}

void TestGroupPick::objectsNamedOnTheLineReplaceTheLayers()
{
    openPlan();
    chooseAnd(
        40099,
        {[this] { typeLine("LAyer"); }, [this] { typeLine("Door"); }, [this] { typeLine(""); }});
    QCOMPARE(layersOfGroup(), QStringList(QStringLiteral("Door")));
}

void TestGroupPick::anEscapedPickLeavesTheGroupAlone()
{
    openPlan();
    chooseAnd(40099,
              {[this] {
                   click({50, 0});
               },
               [this] { window->commandLine().answer(std::nullopt); }});
    QCOMPARE(layersOfGroup(), QStringList(QStringLiteral("Roof")));
}

void TestGroupPick::theCommandAloneDoesNothing()
{
    openPlan();
    typeLine("__ZTR_LAYER_GROUP_FILTER 1 0,0");
    settle();
    QVERIFY(!window->commandLine().isAsking());
    QCOMPARE(layersOfGroup(), QStringList(QStringLiteral("Roof")));
}

void TestGroupPick::aPickIsAStepOfItsOwn()
{
    openPlan();
    // The choice of a filter is a step of the palette, which leaves its record open.
    const QAbstractItemModel& filters = *tree().model();
    tree().setCurrentIndex(filters.index(0, 0));
    tree().setCurrentIndex(filters
                               .match(filters.index(0, 0), Qt::DisplayRole, QStringLiteral("G"), 1,
                                      Qt::MatchExactly | Qt::MatchRecursive)
                               .value(0));
    settle();
    chooseAnd(40100, {[this] { click({50, 0}); }, [this] { typeLine(""); }});
    QCOMPARE(layersOfGroup().size(), 2);
    typeLine("U");
    settle();
    QCOMPARE(layersOfGroup(), QStringList(QStringLiteral("Roof")));
    QCOMPARE(tree().currentIndex().data().toString(), QStringLiteral("G"));
    typeLine("U");
    settle();
    QCOMPARE(tree().currentIndex().data().toString(), QStringLiteral("All"));
}

QTEST_MAIN(TestGroupPick)
#include "test_group_pick.moc"
