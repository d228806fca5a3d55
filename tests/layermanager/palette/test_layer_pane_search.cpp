#include "PaneFixture.h"
#include "layermanager/layers/grid/control/CInPlaceEdit.h"

#include <QSignalSpy>
#include <QTest>
#include <QToolButton>

class TestLayerPaneSearch : public PaneFixture
{
    Q_OBJECT

private slots:
    void typingFiltersAfterEveryCharacter();
    void anEmptyBoxAndATildeListEveryLayerOfTheFilter();
    void enteringAnEmptyBoxFillsIt();
    void leavingTheBoxWithAnAsteriskEmptiesIt();
    void leavingTheBoxKeepsWhatWasTyped();
    void deleteRemovesTheSelectionAndFiltersAgain();
    void deleteWithoutASelectionTakesTheNextCharacter();
    void clearingTheBoxListsAllAgain();
    void searchesWithinTheSelectedFilter();
    void staysInForceWhenAnotherFilterIsSelected();
    void invertFlipsTheBoxAndTheListAtOnce();
    void invertIsOperatedByTheKeyboardToo();
    void invertAndSearchWorkTogether();
    void aDoubleClickOnInvertFlipsItTwice();
    void anotherDrawingClearsInvert();
    void anExternalReferenceIsListedWhole();
    void aFilterThatIsGoneLeavesTheListAsItWas();
    void withoutASelectedFilterNothingHappens();
    void layersThatStayListedStaySelected();
    void evaluatesTheFilterOnceWhileNothingChanges();
    void seesLayersThatCameMeanwhile();
    void seesAFilterThatChangedMeanwhile();
    void refreshAsksForTheLayersAnew();
    void listsInTheOrderThatTheUserChose();
    void leavesAnEditThatWantsCorrectingAlone();
    void searchButtonAppliesTheSearch();
    void manyLayersAreListedWithoutSortingThemAgain();
};

void TestLayerPaneSearch::typingFiltersAfterEveryCharacter()
{
    search("w");
    QCOMPARE(box().text(), QStringLiteral("w*"));
    QCOMPARE(listed(), texts({"Walls", "Walls-2"}));
    QTest::keyClicks(&box(), QStringLiteral("alls-"));
    QCOMPARE(listed(), texts({"Walls-2"}));
    QTest::keyClicks(&box(), QStringLiteral("x"));
    QCOMPARE(listed(), QStringList());
    QCOMPARE(statusText(), QStringLiteral(" All : 0 layers displayed of 5 total layers"));
    QTest::keyClick(&box(), Qt::Key_Backspace);
    QCOMPARE(listed(), texts({"Walls-2"}));
    QVERIFY(box().hasFocus());
}

void TestLayerPaneSearch::anEmptyBoxAndATildeListEveryLayerOfTheFilter()
{
    search("w");
    box().selectAll();
    QTest::keyClicks(&box(), QStringLiteral("~"));
    QCOMPARE(box().text(), QStringLiteral("~"));
    QCOMPARE(listed().size(), 5);
    QTest::keyClicks(&box(), QStringLiteral("w*"));
    QCOMPARE(listed(), texts({"0", "Doors", "Roof"}));
    box().selectAll();
    QTest::keyClick(&box(), Qt::Key_Backspace);
    QCOMPARE(box().text(), QString());
    QCOMPARE(listed().size(), 5);
}

void TestLayerPaneSearch::enteringAnEmptyBoxFillsIt()
{
    QTest::mouseClick(&box(), Qt::LeftButton, {}, QPoint(box().width() / 2, box().height() / 2));
    QVERIFY(box().hasFocus());
    QCOMPARE(box().text(), QStringLiteral("*"));
    QCOMPARE(box().cursorPosition(), 0);
    QCOMPARE(listed().size(), 5);
    grid().setFocus();
    box().setFocus(Qt::TabFocusReason);
    QCOMPARE(box().text(), QStringLiteral("*"));
    QVERIFY(!box().hasSelectedText());
}

void TestLayerPaneSearch::leavingTheBoxWithAnAsteriskEmptiesIt()
{
    search("");
    QCOMPARE(box().text(), QStringLiteral("*"));
    grid().setFocus();
    QCOMPARE(box().text(), QString());
}

void TestLayerPaneSearch::leavingTheBoxKeepsWhatWasTyped()
{
    search("w");
    grid().setFocus();
    QCOMPARE(box().text(), QStringLiteral("w*"));
    QCOMPARE(listed(), texts({"Walls", "Walls-2"}));
    box().setFocus();
    QCOMPARE(box().text(), QStringLiteral("w*"));
}

void TestLayerPaneSearch::deleteRemovesTheSelectionAndFiltersAgain()
{
    search("walls-");
    QCOMPARE(listed(), texts({"Walls-2"}));
    box().setSelection(5, 1);
    press(Qt::Key_Delete);
    QCOMPARE(box().text(), QStringLiteral("walls*"));
    QCOMPARE(listed(), texts({"Walls", "Walls-2"}));
}

void TestLayerPaneSearch::deleteWithoutASelectionTakesTheNextCharacter()
{
    search("walls");
    press(Qt::Key_Delete); // the asterisk behind the cursor
    QCOMPARE(box().text(), QStringLiteral("walls"));
    QCOMPARE(listed(), texts({"Walls"}));
}

void TestLayerPaneSearch::clearingTheBoxListsAllAgain()
{
    search("w");
    auto* clear = box().findChild<QToolButton*>();
    QVERIFY(clear);
    clear->click();
    QCOMPARE(box().text(), QString());
    QCOMPARE(listed().size(), 5);
}

void TestLayerPaneSearch::searchesWithinTheSelectedFilter()
{
    addGroup("Group", {"Walls", "Roof"});
    click("Group");
    QCOMPARE(listed(), texts({"Roof", "Walls"}));
    search("w");
    QCOMPARE(listed(), texts({"Walls"}));
    QCOMPARE(statusText(), QStringLiteral(" Group : 1 layers displayed of 5 total layers"));
}

void TestLayerPaneSearch::staysInForceWhenAnotherFilterIsSelected()
{
    addGroup("Group", {"Walls", "Roof"});
    search("w");
    click("Group");
    QCOMPARE(listed(), texts({"Walls"}));
    click("All");
    QCOMPARE(listed(), texts({"Walls", "Walls-2"}));
}

void TestLayerPaneSearch::invertFlipsTheBoxAndTheListAtOnce()
{
    clickInvert();
    QVERIFY(invert().isChecked());
    QVERIFY(view()->isInverted());
    QCOMPARE(listed(), QStringList());
    QCOMPARE(statusText(), QStringLiteral(" All : 0 layers displayed of 5 total layers"));
    clickInvert();
    QVERIFY(!invert().isChecked());
    QCOMPARE(listed().size(), 5);
    clickInvert();
    addGroup("Group", {"Walls", "Roof"});
    click("Group");
    QCOMPARE(listed(), texts({"0", "Doors", "Walls-2"}));
    clickInvert();
    QCOMPARE(listed(), texts({"Roof", "Walls"}));
}

void TestLayerPaneSearch::invertIsOperatedByTheKeyboardToo()
{
    invert().setFocus();
    press(Qt::Key_Space);
    QVERIFY(invert().isChecked());
    QVERIFY(view()->isInverted());
    QCOMPARE(listed(), QStringList());
}

void TestLayerPaneSearch::invertAndSearchWorkTogether()
{
    addGroup("Group", {"Walls", "Roof"});
    click("Group");
    clickInvert();
    search("*oo");
    QCOMPARE(listed(), texts({"Doors"}));
}

void TestLayerPaneSearch::aDoubleClickOnInvertFlipsItTwice()
{
    const QPoint place = invert().rect().center();
    QTest::mouseClick(&invert(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(&invert(), Qt::LeftButton, {}, place);
    QCOMPARE(invert().isChecked(), view()->isInverted());
    QVERIFY(!invert().isChecked());
}

void TestLayerPaneSearch::anotherDrawingClearsInvert()
{
    clickInvert();
    open({"Other"});
    QVERIFY(!invert().isChecked());
    QVERIFY(!view()->isInverted());
    QCOMPARE(listed(), texts({"0", "Other"}));
}

void TestLayerPaneSearch::anExternalReferenceIsListedWhole()
{
    openWithReference();
    settle();
    QVERIFY(node("plan").isValid());
    click("plan");
    QCOMPARE(listed(), texts({"plan|Walls"}));
    const int evaluations = view()->filterEvaluations();
    search("own");
    QCOMPARE(listed(), texts({"plan|Walls"}));
    QVERIFY(view()->filterEvaluations() - evaluations <= 1);
    click("All");
    QCOMPARE(listed(), texts({"Own"}));
}

void TestLayerPaneSearch::aFilterThatIsGoneLeavesTheListAsItWas()
{
    OdDbDatabase& d = *view()->database();
    addGroup("Group", {"Walls"});
    click("Group");
    box().setFocus();
    QCOMPARE(listed(), texts({"Walls"}));
    FilterTreeEdit edit(d);
    edit.root()->removeNested(edit.find(key("Group")));
    edit.write();
    // The tree reads itself anew once control is back in the event loop; the key comes before.
    QTest::keyClicks(&box(), QStringLiteral("r"));
    QCOMPARE(listed(), texts({"Walls"}));
    settle();
    QCOMPARE(listed(), texts({"Roof"}));
}

void TestLayerPaneSearch::withoutASelectedFilterNothingHappens()
{
    tree().setCurrentIndex({});
    const int evaluations = view()->filterEvaluations();
    box().setText(QStringLiteral("w*"));
    view()->ApplySearch();
    QCOMPARE(listed().size(), 5);
    QCOMPARE(view()->filterEvaluations(), evaluations);
}

void TestLayerPaneSearch::layersThatStayListedStaySelected()
{
    choose({"Doors", "Walls-2"});
    search("w");
    QCOMPARE(grid().chosenRows(), std::vector<int>{1});
    box().selectAll();
    press(Qt::Key_Backspace);
    QCOMPARE(grid().chosenRowCount(), 1);
    QVERIFY(grid().isRowChosen(grid().findRow(layer_drawing::id(*view()->database(), "Walls-2"))));
}

void TestLayerPaneSearch::evaluatesTheFilterOnceWhileNothingChanges()
{
    click("All used layers");
    search("");
    const int evaluations = view()->filterEvaluations();
    QTest::keyClicks(&box(), QStringLiteral("walls"));
    clickInvert();
    QTest::keyClicks(&box(), QStringLiteral("xyz"));
    clickInvert();
    QCOMPARE(view()->filterEvaluations(), evaluations);
    layer("Walls")->setIsLocked(true);
    QTest::keyClick(&box(), Qt::Key_Backspace);
    QTest::keyClick(&box(), Qt::Key_Backspace);
    QCOMPARE(view()->filterEvaluations(), evaluations + 1);
}

void TestLayerPaneSearch::seesLayersThatCameMeanwhile()
{
    search("w");
    view()->database()->layerTable().add(QStringLiteral("Windows"));
    layer("Walls-2")->setName(QStringLiteral("Stairs"));
    QTest::keyClicks(&box(), QStringLiteral("i"));
    QCOMPARE(listed(), texts({"Windows"}));
    QTest::keyClick(&box(), Qt::Key_Backspace);
    QCOMPARE(listed(), texts({"Walls", "Windows"}));
}

void TestLayerPaneSearch::seesAFilterThatChangedMeanwhile()
{
    OdDbDatabase& d = *view()->database();
    FilterTreeEdit edit(d);
    const auto locked = odrxCreate<OdLyLayerFilter>(QStringLiteral("Locked"));
    locked->setFilterExpression(QStringLiteral("LOCKED==\"True\" "));
    edit.root()->addNested(locked);
    edit.write();
    settle();
    click("Locked");
    QCOMPARE(listed(), QStringList());
    search("w");
    QCOMPARE(listed(), QStringList());
    layer("Walls")->setIsLocked(true);
    QTest::keyClicks(&box(), QStringLiteral("a"));
    QCOMPARE(listed(), texts({"Walls"}));
}

void TestLayerPaneSearch::refreshAsksForTheLayersAnew()
{
    const int evaluations = view()->filterEvaluations();
    clickTool(kRefreshList);
    QCOMPARE(view()->filterEvaluations(), evaluations + 1);
    QCOMPARE(listed().size(), 5);
}

void TestLayerPaneSearch::listsInTheOrderThatTheUserChose()
{
    grid().columnClicked(static_cast<int>(LayerColumn::Name));
    search("w");
    QCOMPARE(listed(), texts({"Walls-2", "Walls"}));
    layer("Walls")->setIsOff(true);
    grid().columnClicked(static_cast<int>(LayerColumn::On));
    QTest::keyClicks(&box(), QStringLiteral("a"));
    QCOMPARE(listed(), texts({"Walls-2", "Walls"}));
    grid().columnClicked(static_cast<int>(LayerColumn::On));
    QTest::keyClicks(&box(), QStringLiteral("l"));
    QCOMPARE(listed(), texts({"Walls", "Walls-2"}));
}

void TestLayerPaneSearch::leavesAnEditThatWantsCorrectingAlone()
{
    choose({"Walls"});
    grid().setFocus();
    press(Qt::Key_F2);
    QVERIFY(grid().editor());
    QTest::keyClicks(grid().editor(), QStringLiteral("a*b"));
    box().setText(QStringLiteral("r*"));
    view()->ApplySearch();
    QVERIFY(grid().editor());
    QCOMPARE(listed().size(), 5);
    QSignalSpy stale(&grid(), &CLayerListCtrl::listStale);
    QTest::keyClick(grid().editor(), Qt::Key_Escape);
    QVERIFY(stale.wait(5000));
    QCOMPARE(listed(), texts({"Roof"}));
}

void TestLayerPaneSearch::searchButtonAppliesTheSearch()
{
    box().setText(QStringLiteral("*-2"));
    QCOMPARE(listed().size(), 5);
    QTest::mouseClick(control(kSearchButton), Qt::LeftButton);
    QCOMPARE(listed(), texts({"Walls-2"}));
    box().setText(QStringLiteral("r*"));
    clickTool(kRefreshList);
    QCOMPARE(listed(), texts({"Roof"}));
}

void TestLayerPaneSearch::manyLayersAreListedWithoutSortingThemAgain()
{
    QList<QByteArray> names;
    for (int i = 0; i < 500; ++i)
        names.append("L" + QByteArray::number((i * 7919) % 500).rightJustified(3, '0'));
    open(names);
    QStringList sorted = listed();
    QVERIFY(std::is_sorted(sorted.begin(), sorted.end()));
    search("l1");
    QCOMPARE(listed().size(), 100);
    sorted = listed();
    QVERIFY(std::is_sorted(sorted.begin(), sorted.end()));
    // The rows are those that are listed: each is found where it stands.
    for (int row = 0; row < 100; ++row)
        QCOMPARE(grid().findRow(grid().layerModel().layerId(row)), row);
}

QTEST_MAIN(TestLayerPaneSearch)
#include "test_layer_pane_search.moc"
