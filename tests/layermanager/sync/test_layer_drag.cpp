#include "DragEvents.h"
#include "SyncFixture.h"
#include "database/drawing/UndoJournal.h"
#include "layermanager/layers/CDragDropUtility.h"
#include "layermanager/layers/grid/control/CInPlaceEdit.h"
#include "layermanager/palette/CLayerPaneView.h"
#include "sdk/CKestPreferenceManager.h"

#include <QApplication>
#include <QDrag>
#include <QMimeData>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>

#include <utility>

/// Layers are dragged from the grid onto groups of the filter tree, by mouse and drag events.
class TestLayerDrag : public SyncFixture
{
    Q_OBJECT

private slots:
    void putsTheSelectedLayersIntoAGroup();
    void copiesFromTheSelectedGroupAndMovesWithShift();
    void putsNothingTwiceAndRecordsNothingThen();
    void isOneUndoStep();
    void refusesNodesThatAreNoGroups();
    void doesNothingBesideTheNodes();
    void leavesOutLayersThatWereErasedMeanwhile();
    void refusesDragsOfOtherPrograms();
    void opensTheNodesItPasses();
    void marksTheGroupUntilTheDragLeaves();
    void scrollsNearTheEdges();
    void scrollsOnWhileThePointerRests();
    void dragsAllSelectedRowsAndAPressAloneIsAClick();
    void startsOnCellsThatOnlySelect();
    void startsNothingOnAShortWayOrWithoutRows();
    void carriesNothingButAPicture();
    void standsTheEndOfTheDrawing();

protected:
    void prepare() override
    {
        SyncFixture::prepare();
        m_combined =
            std::exchange(CKestPreferenceManager::instance().CombineLayerPropPreference, false);
        show({"A", "B", "C", "D"});
        m_mime.setData(QLatin1String(CDragDropUtility::kMimeType), {});
    }
    void finish() override
    {
        CDragDropUtility::setDragRun({});
        CKestPreferenceManager::instance().CombineLayerPropPreference = m_combined;
        SyncFixture::finish();
    }

private:
    using Modifiers = Qt::KeyboardModifiers;

    QPoint at(const char* name) const { return tree().visualRect(node(name)).center(); }
    Qt::DropAction enter(QPoint place, Modifiers modifiers = {})
    {
        return DragEvents(*tree().viewport(), m_mime).enter(place, modifiers);
    }
    Qt::DropAction move(QPoint place, Modifiers modifiers = {})
    {
        return DragEvents(*tree().viewport(), m_mime).move(place, modifiers);
    }
    bool drop(QPoint place, Modifiers modifiers = {})
    {
        return DragEvents(*tree().viewport(), m_mime).drop(place, modifiers);
    }
    void leave() { DragEvents(*tree().viewport(), m_mime).leave(); }
    void dragOnto(const char* name, Modifiers modifiers = {})
    {
        CDragDropUtility::setDragRun([this, name, modifiers](QDrag&) {
            enter(at(name), modifiers);
            move(at(name), modifiers);
            drop(at(name), modifiers);
        });
        CDragDropUtility::beginDrag(grid());
    }
    void choose(std::initializer_list<const char*> layers)
    {
        std::vector<int> rows;
        for (const char* layer : layers)
            rows.push_back(grid().findRow(id(layer)));
        grid().chooseRows(rows);
    }
    QString held(const char* group) const
    {
        const FilterTreeEdit edit(drawing());
        return layer_drawing::names(static_cast<OdLyLayerGroup&>(*edit.find(key(group))).layerIds())
            .join(QLatin1Char(' '));
    }
    QPoint cell(const char* layer, LayerColumn column)
    {
        return grid()
            .visualRect(grid().model()->index(grid().findRow(id(layer)), static_cast<int>(column)))
            .center();
    }
    void pull(QPoint from, QPoint to, Modifiers modifiers = {})
    {
        QWidget* rows = grid().viewport();
        QTest::mousePress(rows, Qt::LeftButton, modifiers, from);
        QMouseEvent event(QEvent::MouseMove, to, rows->mapToGlobal(to), Qt::NoButton,
                          Qt::LeftButton, modifiers);
        QApplication::sendEvent(rows, &event);
    }
    void release(QPoint place)
    {
        QTest::mouseRelease(grid().viewport(), Qt::LeftButton, {}, place);
    }
    /// Fills the tree with so many groups that it has to scroll.
    void fillTree()
    {
        for (int i = 0; i < 80; ++i)
            addGroup(("Group " + QByteArray::number(i) + QByteArray(80, '.')).constData(), {});
    }

    static constexpr QPoint kFar{60, 60};
    QMimeData m_mime;
    bool m_combined = false;
};

void TestLayerDrag::putsTheSelectedLayersIntoAGroup()
{
    addGroup("G", {"D"});
    choose({"C", "A"});
    dragOnto("G");
    QCOMPARE(held("G"), QStringLiteral("D A C"));
    QCOMPARE(tree().selectedName(), QStringLiteral("All"));
    QCOMPARE(chosen(), QStringLiteral("A C"));
    click("G");
    QCOMPARE(rows(), QStringLiteral("A C D"));
}

void TestLayerDrag::copiesFromTheSelectedGroupAndMovesWithShift()
{
    addGroup("From", {"A", "B", "C"});
    addGroup("To", {});
    click("From");
    choose({"A"});
    dragOnto("To");
    QCOMPARE(held("From"), QStringLiteral("A B C"));
    QCOMPARE(held("To"), QStringLiteral("A"));
    choose({"A", "B"});
    dragOnto("To", Qt::ShiftModifier);
    QCOMPARE(held("From"), QStringLiteral("C"));
    QCOMPARE(held("To"), QStringLiteral("A B"));
    QCOMPARE(rows(), QStringLiteral("C"));
    QCOMPARE(statusText(), QStringLiteral(" From : 1 layers displayed of 5 total layers"));
    // From anything but a group there is nothing to take out of.
    click("All");
    choose({"D"});
    dragOnto("To", Qt::ShiftModifier);
    QCOMPARE(held("To"), QStringLiteral("A B D"));
}

void TestLayerDrag::putsNothingTwiceAndRecordsNothingThen()
{
    addGroup("G", {"A"});
    click("G");
    choose({"A"});
    drawing().endUndoRecord();
    const auto steps = drawing().journal().undoCount();
    const qsizetype named = host().historyNames.size();
    dragOnto("G");
    dragOnto("G", Qt::ShiftModifier);
    QCOMPARE(held("G"), QStringLiteral("A"));
    QCOMPARE(drawing().journal().undoCount(), steps);
    QCOMPARE(host().historyNames.size(), named);
}

void TestLayerDrag::isOneUndoStep()
{
    addGroup("From", {"A", "B"});
    addGroup("To", {});
    click("From");
    drawing().endUndoRecord();
    choose({"A", "B"});
    const auto steps = drawing().journal().undoCount();
    dragOnto("To", Qt::ShiftModifier);
    QCOMPARE(drawing().journal().undoCount(), steps + 1);
    QCOMPARE(rows(), QString());
    QVERIFY(drawing().undo());
    quiesce();
    QCOMPARE(held("From"), QStringLiteral("A B"));
    QCOMPARE(held("To"), QString());
    QCOMPARE(rows(), QStringLiteral("A B"));
    QVERIFY(drawing().redo());
    quiesce();
    QCOMPARE(held("To"), QStringLiteral("A B"));
}

void TestLayerDrag::refusesNodesThatAreNoGroups()
{
    addProperty("P", "NAME==\"*\" ");
    addGroup("G", {});
    choose({"A"});
    const auto stamp = drawing().editStamp();
    CDragDropUtility::setDragRun([&](QDrag&) {
        for (const char* name : {"All", "All used layers", "P"}) {
            enter(at(name));
            QCOMPARE(move(at(name)), Qt::IgnoreAction);
            QVERIFY(!tree().dropNode().isValid());
            QVERIFY(!drop(at(name)));
        }
        QCOMPARE(enter(at("G")), Qt::CopyAction);
        QCOMPARE(move(at("G")), Qt::CopyAction);
        QCOMPARE(move(at("G"), Qt::ShiftModifier), Qt::MoveAction);
    });
    CDragDropUtility::beginDrag(grid());
    QCOMPARE(drawing().editStamp(), stamp);
}

void TestLayerDrag::doesNothingBesideTheNodes()
{
    addGroup("G", {});
    choose({"A"});
    const auto stamp = drawing().editStamp();
    const QPoint below(20, tree().viewport()->height() / 2 + 60);
    QVERIFY(!tree().indexAt(below).isValid());
    CDragDropUtility::setDragRun([&](QDrag&) {
        enter(at("G"));
        QCOMPARE(move(below), Qt::IgnoreAction);
        QVERIFY(!drop(below));
    });
    CDragDropUtility::beginDrag(grid());
    QCOMPARE(drawing().editStamp(), stamp);
}

void TestLayerDrag::leavesOutLayersThatWereErasedMeanwhile()
{
    addGroup("G", {});
    choose({"A", "B", "C"});
    CDragDropUtility::setDragRun([&](QDrag&) {
        enter(at("G"));
        write("B")->erase();
        move(at("G"));
        drop(at("G"));
    });
    CDragDropUtility::beginDrag(grid());
    QCOMPARE(held("G"), QStringLiteral("A C"));
    choose({"A"});
    CDragDropUtility::setDragRun([&](QDrag&) {
        enter(at("G"));
        grid().clearSelection();
        drop(at("G"));
    });
    CDragDropUtility::beginDrag(grid());
    QCOMPARE(held("G"), QStringLiteral("A C"));
    QVERIFY(!tree().dropNode().isValid());
}

void TestLayerDrag::refusesDragsOfOtherPrograms()
{
    addGroup("G", {});
    choose({"A"});
    // Another program may know the kind of data, but no drag of this one is under way.
    QCOMPARE(enter(at("G")), Qt::IgnoreAction);
    QCOMPARE(move(at("G")), Qt::IgnoreAction);
    QVERIFY(!drop(at("G")));
    CDragDropUtility::setDragRun([&](QDrag&) {
        m_mime.removeFormat(QLatin1String(CDragDropUtility::kMimeType));
        m_mime.setText(QStringLiteral("A"));
        QCOMPARE(enter(at("G")), Qt::IgnoreAction);
        QVERIFY(!drop(at("G")));
    });
    CDragDropUtility::beginDrag(grid());
    QVERIFY(!CDragDropUtility::source());
    QCOMPARE(held("G"), QString());
}

void TestLayerDrag::opensTheNodesItPasses()
{
    addGroup("Inner", {}, addGroup("Outer", {}));
    tree().collapse(node("Outer"));
    choose({"A"});
    CDragDropUtility::setDragRun([&](QDrag&) {
        enter(at("All"));
        move(at("Outer"));
        QVERIFY(tree().isExpanded(node("Outer")));
        move(at("Inner"));
        drop(at("Inner"));
    });
    CDragDropUtility::beginDrag(grid());
    QCOMPARE(held("Inner"), QStringLiteral("A"));
    QCOMPARE(held("Outer"), QString());
}

void TestLayerDrag::marksTheGroupUntilTheDragLeaves()
{
    addGroup("G", {});
    choose({"A"});
    const auto picture = [this] { return tree().viewport()->grab().toImage(); };
    const QImage plain = picture();
    CDragDropUtility::setDragRun([&](QDrag&) {
        enter(at("G"));
        QCOMPARE(tree().dropNode(), node("G"));
        QVERIFY(picture() != plain);
        leave();
        QVERIFY(!tree().dropNode().isValid());
        QCOMPARE(picture(), plain);
        QVERIFY(!drop(at("G")));
    });
    CDragDropUtility::beginDrag(grid());
    QCOMPARE(held("G"), QString());
}

void TestLayerDrag::scrollsNearTheEdges()
{
    fillTree();
    choose({"A"});
    QScrollBar* vertical = tree().verticalScrollBar();
    QScrollBar* horizontal = tree().horizontalScrollBar();
    settle();
    const QRect inside = tree().viewport()->rect();
    const QPoint middle = inside.center();
    CDragDropUtility::setDragRun([&](QDrag&) {
        QVERIFY(vertical->maximum() > 10 && horizontal->maximum() > 100);
        vertical->setValue(vertical->maximum() / 2);
        horizontal->setValue(horizontal->maximum() / 2);
        enter(middle);
        const auto moved = [&](QPoint place) {
            const QPoint before(horizontal->value(), vertical->value());
            move(place);
            return QPoint(horizontal->value(), vertical->value()) - before;
        };
        const int line = vertical->singleStep();
        const int column = horizontal->singleStep();
        QVERIFY(line > 0 && column > 0);
        QCOMPARE(moved(middle), QPoint());
        QCOMPARE(tree().viewport()->rect(), inside);
        QVERIFY(vertical->value() < vertical->maximum());
        QCOMPARE(moved({middle.x(), inside.bottom() - 9}), QPoint(0, line));
        QCOMPARE(moved({middle.x(), inside.bottom() - 10}), QPoint());
        QCOMPARE(moved({middle.x(), inside.top() + 9}), QPoint(0, -line));
        QCOMPARE(moved({middle.x(), inside.top() + 10}), QPoint());
        QCOMPARE(moved({inside.right() - 9, middle.y()}), QPoint(column, 0));
        QCOMPARE(moved({inside.left() + 9, middle.y()}), QPoint(-column, 0));
        QCOMPARE(moved({inside.right() - 2, inside.bottom() - 2}), QPoint(column, line));
    });
    CDragDropUtility::beginDrag(grid());
}

void TestLayerDrag::scrollsOnWhileThePointerRests()
{
    fillTree();
    choose({"A"});
    auto* timer = tree().findChild<QTimer*>(QStringLiteral("dragScroll"));
    QVERIFY(timer);
    QScrollBar* bar = tree().verticalScrollBar();
    bar->setValue(0);
    const QRect inside = tree().viewport()->rect();
    QString before;
    CDragDropUtility::setDragRun([&](QDrag&) {
        enter({inside.center().x(), inside.bottom() - 3});
        QVERIFY(timer->isActive());
        const int once = bar->value();
        before = tree().dropNode().data().toString();
        QMetaObject::invokeMethod(timer, "timeout", Qt::DirectConnection);
        QVERIFY(bar->value() > once);
        // Another group came under the pointer.
        QVERIFY(tree().dropNode().data().toString() != before);
        move(inside.center());
        QVERIFY(!timer->isActive());
        move({inside.center().x(), inside.bottom() - 3});
        QVERIFY(timer->isActive());
        leave();
        QVERIFY(!timer->isActive());
    });
    CDragDropUtility::beginDrag(grid());
}

void TestLayerDrag::dragsAllSelectedRowsAndAPressAloneIsAClick()
{
    addGroup("G", {});
    choose({"A", "B", "C"});
    int drags = 0;
    CDragDropUtility::setDragRun([&](QDrag&) {
        ++drags;
        QCOMPARE(CDragDropUtility::source(), &grid());
        QCOMPARE(chosen(), QStringLiteral("A B C"));
        enter(at("G"));
        drop(at("G"));
    });
    const QPoint name = cell("B", LayerColumn::Name);
    pull(name, name + kFar);
    QCOMPARE(drags, 1);
    QVERIFY(!grid().editor());
    QCOMPARE(held("G"), QStringLiteral("A B C"));
    release(name + kFar);
    QCOMPARE(chosen(), QStringLiteral("A B C"));
    QVERIFY(!grid().editor());
    // A row that was not selected is, and is dragged alone.
    CDragDropUtility::setDragRun([&](QDrag&) {
        ++drags;
        QCOMPARE(chosen(), QStringLiteral("D"));
    });
    const QPoint other = cell("D", LayerColumn::Status);
    pull(other, other + kFar);
    QCOMPARE(drags, 2);
    release(other + kFar);
    // Without a drag the press is the click that it was.
    choose({"A", "B"});
    QTest::mouseClick(grid().viewport(), Qt::LeftButton, {}, cell("B", LayerColumn::Status));
    QCOMPARE(chosen(), QStringLiteral("B"));
    QTest::mouseClick(grid().viewport(), Qt::LeftButton, {}, cell("B", LayerColumn::Name));
    QVERIFY(grid().editor());
}

void TestLayerDrag::startsOnCellsThatOnlySelect()
{
    int drags = 0;
    CDragDropUtility::setDragRun([&](QDrag&) { ++drags; });
    choose({"A", "B"});
    const QPoint lock = cell("A", LayerColumn::Locked);
    pull(lock, lock + kFar);
    release(lock + kFar);
    QCOMPARE(drags, 0);
    QVERIFY(read("A")->isLocked());
    // With Shift and Ctrl the press selects first.
    choose({"A"});
    grid().chooseForMenu(grid().findRow(id("A")));
    const QPoint name = cell("C", LayerColumn::Name);
    pull(name, name + kFar, Qt::ShiftModifier);
    release(name + kFar);
    QCOMPARE(drags, 1);
    QCOMPARE(chosen(), QStringLiteral("A B C"));
    pull(name, name + kFar, Qt::ControlModifier);
    release(name + kFar);
    QCOMPARE(drags, 1);
    QCOMPARE(chosen(), QStringLiteral("A B"));
}

void TestLayerDrag::startsNothingOnAShortWayOrWithoutRows()
{
    int drags = 0;
    CDragDropUtility::setDragRun([&](QDrag&) { ++drags; });
    const QPoint name = cell("A", LayerColumn::Name);
    pull(name, name + QPoint(1, 1));
    release(name);
    const QPoint beside(name.x(), grid().viewport()->height() - 5);
    pull(beside, beside - kFar);
    release(beside);
    grid().clearSelection();
    CDragDropUtility::beginDrag(grid());
    grid().switchOff(true);
    pull(name, name + kFar);
    release(name + kFar);
    grid().switchOff(false);
    QCOMPARE(drags, 0);
}

void TestLayerDrag::carriesNothingButAPicture()
{
    QImage one;
    QImage three;
    QStringList formats;
    const auto look = [&](QImage& into) {
        CDragDropUtility::setDragRun([&](QDrag& drag) {
            formats = drag.mimeData()->formats();
            QVERIFY(drag.mimeData()->data(QLatin1String(CDragDropUtility::kMimeType)).isEmpty());
            into = drag.pixmap().toImage();
        });
        CDragDropUtility::beginDrag(grid());
    };
    choose({"A"});
    look(one);
    choose({"A", "B", "C"});
    look(three);
    QCOMPARE(formats, QStringList(QLatin1String(CDragDropUtility::kMimeType)));
    QVERIFY(!one.isNull() && !three.isNull());
    QVERIFY(three.width() > one.width());
}

void TestLayerDrag::standsTheEndOfTheDrawing()
{
    addGroup("G", {});
    choose({"A"});
    OdDbDatabase& ending = drawing();
    CDragDropUtility::setDragRun([&](QDrag&) {
        const QPoint place = at("G");
        enter(place);
        host().close(ending);
        move(place);
        drop(place);
    });
    CDragDropUtility::beginDrag(grid());
    QCOMPARE(grid().database(), &db());
    QVERIFY(!tree().dropNode().isValid());
}

QTEST_MAIN(TestLayerDrag)
#include "test_layer_drag.moc"
