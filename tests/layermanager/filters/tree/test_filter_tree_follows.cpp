#include "FilterTreeFixture.h"

#include <QTest>
#include <QTimer>

/// The filter tree follows its drawing: undo, other commands, new layers, references.
class TestFilterTreeFollows : public FilterTreeFixture
{
    Q_OBJECT

private slots:
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

void TestFilterTreeFollows::followsUndoAndOtherCommands()
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

void TestFilterTreeFollows::showsAndRemovesTheNodeOfUnreconciledLayers()
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

void TestFilterTreeFollows::leavesTheNameOfANewLayerInEditing()
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

void TestFilterTreeFollows::waitsForTheEndOfAnEditInTheGrid()
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

void TestFilterTreeFollows::showsExternalReferences()
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

void TestFilterTreeFollows::staysCollapsedWhereTheUserCollapsedIt()
{
    run("_LAYER");
    addGroup("Inner", {}, addGroup("Outer", {}));
    tree().collapse(node("Outer"));
    addGroup("Another", {});
    QVERIFY(!tree().isExpanded(node("Outer")));
    QVERIFY(tree().isExpanded(node("All")));
}

void TestFilterTreeFollows::showsThousandsOfFiltersWithoutDelay()
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

void TestFilterTreeFollows::asksOnceAboutTooManyFilters_data()
{
    QTest::addColumn<int>("answer");
    QTest::addColumn<int>("left");
    QTest::newRow("delete") << 1 << 2;
    QTest::newRow("retain") << 2 << 12;
    QTest::newRow("closed") << int(Prompts::kCancelled) << 12;
}

void TestFilterTreeFollows::asksOnceAboutTooManyFilters()
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

QTEST_MAIN(TestFilterTreeFollows)
#include "test_filter_tree_follows.moc"
