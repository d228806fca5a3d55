#include "FilterTreeFixture.h"

#include <QLineEdit>
#include <QTest>

/// Labels of filters: while one is being edited, and where they are unusual.
class TestFilterTreeLabels : public FilterTreeFixture
{
    Q_OBJECT

private slots:
    void renamesTheEditedFilterWhenAnotherOneBecomesCurrent();
    void keepsKeysOfTheEditorFromTheTree_data();
    void keepsKeysOfTheEditorFromTheTree();
    void endsEditingWithTab();
    void renamesTheEditedFilterWhenUndoSelectsAnother();
    void dropsTheEditorWithItsFilter();
    void dropsTheEditorWithItsDrawing();
    void dropsTheEditorWhenAnotherDrawingBecomesCurrent();

    void deletesByTheKeypadToo();
    void listsAGroupThatIsNamedAll();
    void doesNotEditTheLabelOfAFilterWithoutAName();
    void reachesDeepAndLongLabelsByScrolling();

private:
    void startEditing(const char* name, const char* text);
};

void TestFilterTreeLabels::startEditing(const char* name, const char* text)
{
    click(name);
    QTest::keyClick(&tree(), Qt::Key_F2);
    QVERIFY(labelEditor());
    labelEditor()->setText(QString::fromUtf8(text));
}

void TestFilterTreeLabels::renamesTheEditedFilterWhenAnotherOneBecomesCurrent()
{
    run("_LAYER");
    addGroup("First", {"Walls"});
    addGroup("Second", {"Doors"});
    startEditing("First", "Renamed");
    tree().select(key("Second"));
    settle();
    QCOMPARE(shown().mid(2), (QStringList{QStringLiteral(".Renamed"), QStringLiteral(".Second")}));
    QCOMPARE(tree().selectedName(), QStringLiteral("Second"));
    QCOMPARE(listed(), QStringList(QStringLiteral("Doors")));
}

void TestFilterTreeLabels::keepsKeysOfTheEditorFromTheTree_data()
{
    QTest::addColumn<int>("key");
    QTest::newRow("up") << int(Qt::Key_Up);
    QTest::newRow("down") << int(Qt::Key_Down);
    QTest::newRow("page up") << int(Qt::Key_PageUp);
    QTest::newRow("F2") << int(Qt::Key_F2);
}

void TestFilterTreeLabels::keepsKeysOfTheEditorFromTheTree()
{
    QFETCH(int, key);
    run("_LAYER");
    addGroup("First", {});
    addGroup("Second", {});
    addGroup("Third", {});
    startEditing("Second", "Renamed");
    QTest::keyClick(labelEditor(), static_cast<Qt::Key>(key));
    settle();
    QVERIFY(labelEditor());
    QCOMPARE(tree().selectedName(), QStringLiteral("Second"));
    QTest::keyClick(labelEditor(), Qt::Key_Escape);
    QCOMPARE(currentFilter(), QStringLiteral("Second"));
}

void TestFilterTreeLabels::endsEditingWithTab()
{
    run("_LAYER");
    addGroup("First", {});
    addGroup("Second", {});
    for (const auto& [key, name] : {std::pair{Qt::Key_Tab, "Tabbed"}, {Qt::Key_Backtab, "Back"}}) {
        startEditing(name == QByteArray("Tabbed") ? "First" : "Tabbed", name);
        QTest::keyClick(labelEditor(), key);
        settle();
        QVERIFY(!labelEditor());
        QCOMPARE(tree().selectedName(), QString::fromUtf8(name));
    }
}

void TestFilterTreeLabels::renamesTheEditedFilterWhenUndoSelectsAnother()
{
    run("_LAYER");
    addGroup("First", {});
    addGroup("Second", {});
    click("First");
    startEditing("Second", "Renamed");
    QVERIFY(db().undo());
    settle();
    settle();
    QVERIFY(!labelEditor());
    QCOMPARE(shown().mid(2), (QStringList{QStringLiteral(".First"), QStringLiteral(".Renamed")}));
    QCOMPARE(tree().selectedName(), QStringLiteral("First"));
}

void TestFilterTreeLabels::dropsTheEditorWithItsFilter()
{
    run("_LAYER");
    tree().command(40024);
    QCOMPARE(host().historyNames.size(), 1);
    QVERIFY(labelEditor());
    labelEditor()->setText(QStringLiteral("Stairs"));
    QVERIFY(db().undo());
    settle();
    QVERIFY(!labelEditor());
    QCOMPARE(shown().size(), 2);
    QVERIFY(db().redo());
    settle();
    QCOMPARE(shown().last(), QStringLiteral(".Group Filter1"));
}

void TestFilterTreeLabels::dropsTheEditorWithItsDrawing()
{
    run("_LAYER");
    addGroup("G", {});
    startEditing("G", "Renamed");
    host().close(db());
    settle();
    QVERIFY(!labelEditor());
    QCOMPARE(shown(), QStringList());
}

void TestFilterTreeLabels::dropsTheEditorWhenAnotherDrawingBecomesCurrent()
{
    run("_LAYER");
    addGroup("G", {});
    startEditing("G", "Renamed");
    open({"A"});
    settle();
    QVERIFY(!labelEditor());
    QVERIFY(FilterTreeEdit(db()).find(key("G")));
    QCOMPARE(shown().size(), 2);
}

void TestFilterTreeLabels::deletesByTheKeypadToo()
{
    run("_LAYER");
    addGroup("G", {});
    click("G");
    QTest::keyClick(&tree(), Qt::Key_Delete, Qt::KeypadModifier);
    QVERIFY(!node("G").isValid());
}

void TestFilterTreeLabels::listsAGroupThatIsNamedAll()
{
    run("_LAYER");
    addGroup("ALL", {"Doors"});
    tree().select({QStringLiteral("ALL"), 1});
    QCOMPARE(tree().selectedName(), QStringLiteral("ALL"));
    QVERIFY(!tree().IsAllFilterSelected());
    QCOMPARE(listed(), QStringList(QStringLiteral("Doors")));
}

void TestFilterTreeLabels::doesNotEditTheLabelOfAFilterWithoutAName()
{
    run("_LAYER");
    addGroup("", {"Doors"});
    tree().select(key(""));
    QCOMPARE(listed(), QStringList(QStringLiteral("Doors")));
    QTest::keyClick(&tree(), Qt::Key_F2);
    QVERIFY(!labelEditor());
    const std::unique_ptr<QMenu> menu = tree().contextMenu();
    for (const QAction* action : menu->actions())
        QVERIFY(action->data().toInt() != 40096 || !action->isEnabled());
    QTest::keyClick(&tree(), Qt::Key_Delete);
    QCOMPARE(shown().size(), 2);
}

void TestFilterTreeLabels::reachesDeepAndLongLabelsByScrolling()
{
    constexpr int kDepth = 60;
    FilterTreeEdit edit(db());
    OdLyLayerFilterPtr parent = edit.root();
    for (int i = 1; i <= kDepth; ++i) {
        const auto group = odrxCreate<OdLyLayerGroup>(QStringLiteral("Group %1").arg(i));
        parent->addNested(group);
        parent = group;
    }
    parent->addNested(odrxCreate<OdLyLayerGroup>(QString(300, QLatin1Char('w'))));
    edit.write();
    prompts().willChoose(2);
    run("_LAYER");
    tree().select(key("Group 60"));
    settle();
    const QRect label = tree().visualRect(node("Group 60"));
    QVERIFY(label.width() > tree().viewport()->width());
    QVERIFY(label.left() >= 0 && label.left() < tree().viewport()->width());
    const QString longest(300, QLatin1Char('w'));
    QVERIFY(tree().visualRect(node(longest.toUtf8().constData())).width()
            > tree().fontMetrics().horizontalAdvance(longest));
    tree().setExpanded(node("Group 1"), false);
    settle();
    QCOMPARE(tree().columnWidth(0), tree().viewport()->width());
}

QTEST_MAIN(TestFilterTreeLabels)
#include "test_filter_tree_labels.moc"
