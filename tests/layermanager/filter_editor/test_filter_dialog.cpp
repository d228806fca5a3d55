#include "FilterEditorFixture.h"
#include "database/filters/OdLyLayerFilterManager.h"
#include "layermanager/filter_editor/core/FilterEditorRules.h"

#include <QAccessible>
#include <QApplication>
#include <QContextMenuEvent>
#include <QMenu>
#include <QPushButton>
#include <QTimer>
#include <QToolButton>

using layer_drawing::read;
using layer_drawing::write;

class TestFilterDialog : public FilterEditorFixture
{
    Q_OBJECT

private slots:
    void hasItsControlsWithNamesTextsAndAnIcon();
    void aNewFilterShowsEveryCandidate();
    void anEmptyExistingFilterShowsTheBlankLineAndNoLayers();
    void anExistingFilterShowsItsLinesAndItsLayers();
    void candidatesAreTheLayersOfTheParentUnlessTheyAreGiven();
    void layersOfProgramsAreNotShown();
    void everyEditIsStoredAndShownAtOnce();
    void aNameIsStoredWithoutTheBlanksAroundIt();
    void aNameThatDiffersInCaseOnlyIsRefusedForANewFilter();
    void anExistingFilterMayChangeTheCaseOfItsName();
    void anExistingFilterMayNotTakeTheNameOfAnother();
    void aNameWithAnAsteriskIsRefusedAndOneWithABackslashTaken_data();
    void aNameWithAnAsteriskIsRefusedAndOneWithABackslashTaken();
    void aRefusalKeepsTheDialogOpenOnTheName();
    void acceptingStoresTheExpressionOfAllRowsDuplicatesIncluded();
    void acceptingWithoutAnEditLeavesTheTextAsItIs();
    void cancellingClosesWithoutFurtherWork();
    void aFilterThatRowsCannotSayIsKeptAndTold_data();
    void aFilterThatRowsCannotSayIsKeptAndTold();
    void tellsWhatCannotBeEditedAgain();
    void tellsOfConditionsInHiddenColumns();
    void notesAreReadAsTheyStand();
    void countsTheLayersThatAreThere();
    void aNameThatAScriptGaveMeanwhileIsRefused();
    void anEditUnderWayGoesWithTheDialog();
    void thePreviewChangesNoLayer();
    void thePreviewKeepsNoWidths();
    void thePreviewFollowsTheDrawing();
    void thePreviewShowsViewportColumnsInLayoutsOnly();
    void helpIsTopic704();
    void examplesShowAndChangeNothing();
    void closesWithItsDrawing();
    void closesWhenAnotherDrawingIsCurrent();
};

void TestFilterDialog::hasItsControlsWithNamesTextsAndAnIcon()
{
    showNew();
    for (const int id : {1, 2, 1010, 1011, 1012, 1013, 1014}) {
        auto* shown = control<QWidget>(id);
        QVERIFY2(shown && shown->isVisible(), qPrintable(QString::number(id)));
        const auto* button = qobject_cast<QAbstractButton*>(shown);
        QVERIFY(!shown->accessibleName().isEmpty() || (button && !button->text().isEmpty()));
    }
    QCOMPARE(nameEdit().text(), QStringLiteral("Properties Filter1"));
    QVERIFY(!dialog().windowTitle().isEmpty());
    QVERIFY(!dialog().windowIcon().isNull());
    QVERIFY(control<QPushButton>(1)->isDefault());
    QCOMPARE(nameEdit().accessibleDescription(),
             QStringLiteral("Provides a space to enter a name for the layer properties filter"));
    QVERIFY(table().accessibleDescription().contains(QStringLiteral("the filter.For example")));
    QVERIFY(control<QWidget>(1013)->accessibleDescription().endsWith(
        QStringLiteral("in Layer Filter Examples.")));
}

void TestFilterDialog::aNewFilterShowsEveryCandidate()
{
    showNew();
    QCOMPARE(previewed(), QStringLiteral("0 A-Doors A-Walls E-Light S-Beams"));
    QCOMPARE(lines(), 1);
}

void TestFilterDialog::anEmptyExistingFilterShowsTheBlankLineAndNoLayers()
{
    showExisting("Empty", "");
    QCOMPARE(previewed(), QString());
    QCOMPARE(lines(), 1);
    QCOMPARE(notice(), QString());
}

void TestFilterDialog::anExistingFilterShowsItsLinesAndItsLayers()
{
    showExisting("F", "NAME==\"A*\"  AND FROZEN==\"True\"  OR COLOR==\"1\" ");
    QCOMPARE(lines(), 3);
    QCOMPARE(cell(0, kName), QStringLiteral("A*"));
    QCOMPARE(cell(0, kFreeze), QStringLiteral("frozen"));
    QCOMPARE(table().rowsModel().number(index(1, kColor)), 1);
    QCOMPARE(previewed(), QStringLiteral("A-Walls E-Light"));
}

void TestFilterDialog::candidatesAreTheLayersOfTheParentUnlessTheyAreGiven()
{
    const auto parent = odrxCreate<OdLyLayerFilter>(QStringLiteral("P"));
    parent->setFilterExpression(QStringLiteral("NAME==\"A*\" "));
    const auto made = odrxCreate<OdLyLayerFilter>(QStringLiteral("N"));
    const auto shownBy = [&](const LayerIds& candidates) {
        CDlgLayPropFilter inner(db(), parent, made, candidates, false);
        return layer_drawing::names(inner.findChild<CLayerPreviewList*>()->layerModel().layers());
    };
    QCOMPARE(shownBy({}), (QStringList{QStringLiteral("A-Doors"), QStringLiteral("A-Walls")}));
    QCOMPARE(shownBy({layer_drawing::id(db(), "S-Beams")}), QStringList(QStringLiteral("S-Beams")));
    // What the filter passes is shown within them.
    made->setFilterExpression(QStringLiteral("FROZEN==\"False\" "));
    CDlgLayPropFilter inner(db(), parent, made, {}, true);
    QCOMPARE(layer_drawing::names(inner.findChild<CLayerPreviewList*>()->layerModel().layers()),
             QStringList(QStringLiteral("A-Doors")));
}

void TestFilterDialog::layersOfProgramsAreNotShown()
{
    open(layer_drawing::make({{"*ADSK"}, {"Own"}}));
    showNew();
    QCOMPARE(previewed(), QStringLiteral("0 Own"));
    type(0, kName, QStringLiteral("*"));
    QCOMPARE(previewed(), QStringLiteral("0 Own"));
}

void TestFilterDialog::everyEditIsStoredAndShownAtOnce()
{
    showNew();
    type(0, kName, QStringLiteral("A*"));
    QCOMPARE(expression(), QStringLiteral("NAME==\"A*\" "));
    QCOMPARE(previewed(), QStringLiteral("A-Doors A-Walls"));
    choose(0, kFreeze, 1);
    QCOMPARE(expression(), QStringLiteral("NAME==\"A*\"  AND FROZEN==\"True\" "));
    QCOMPARE(previewed(), QStringLiteral("A-Walls"));
    choose(1, kOn, 2);
    QCOMPARE(previewed(), QStringLiteral("A-Walls E-Light"));
}

void TestFilterDialog::aNameIsStoredWithoutTheBlanksAroundIt()
{
    showNew();
    nameEdit().selectAll();
    QTest::keyClicks(&nameEdit(), QStringLiteral("  Outer walls  "));
    QTest::keyClick(&nameEdit(), Qt::Key_Return);
    QCOMPARE(dialog().result(), int(QDialog::Accepted));
    QCOMPARE(filter().name(), QStringLiteral("Outer walls"));
}

void TestFilterDialog::aNameThatDiffersInCaseOnlyIsRefusedForANewFilter()
{
    addToDrawing("Walls", "NAME==\"W*\" ");
    showNew();
    nameEdit().setText(QStringLiteral("WALLS"));
    prompts().willCloseMessage();
    QTest::mouseClick(control<QPushButton>(1), Qt::LeftButton);
    QCOMPARE(prompts().texts(), QStringList(QStringLiteral("Invalid Filter Name")));
    QVERIFY(dialog().isVisible());
    QCOMPARE(filter().name(), QStringLiteral("Properties Filter1"));
}

void TestFilterDialog::anExistingFilterMayChangeTheCaseOfItsName()
{
    addToDrawing("Walls", "NAME==\"W*\" ");
    showExisting("Walls", "NAME==\"W*\" ");
    nameEdit().setText(QStringLiteral(" WALLS "));
    QTest::mouseClick(control<QPushButton>(1), Qt::LeftButton);
    QCOMPARE(dialog().result(), int(QDialog::Accepted));
    QCOMPARE(filter().name(), QStringLiteral("WALLS"));
}

void TestFilterDialog::anExistingFilterMayNotTakeTheNameOfAnother()
{
    addToDrawing("Walls", "NAME==\"W*\" ");
    addToDrawing("Doors", "NAME==\"D*\" ");
    showExisting("Walls", "NAME==\"W*\" ");
    nameEdit().setText(QStringLiteral("dOORS"));
    prompts().willCloseMessage();
    QTest::mouseClick(control<QPushButton>(1), Qt::LeftButton);
    QVERIFY(dialog().isVisible());
    QCOMPARE(filter().name(), QStringLiteral("Walls"));
}

void TestFilterDialog::aNameWithAnAsteriskIsRefusedAndOneWithABackslashTaken_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("taken");
    QTest::newRow("asterisk") << QStringLiteral("a*b") << false;
    QTest::newRow("apostrophe") << QStringLiteral("a'b") << false;
    QTest::newRow("node of new layers") << QStringLiteral("unreconciled new LAYERS") << false;
    QTest::newRow("nothing") << QStringLiteral("   ") << false;
    QTest::newRow("backslash") << QStringLiteral("a\\b") << true;
}

void TestFilterDialog::aNameWithAnAsteriskIsRefusedAndOneWithABackslashTaken()
{
    QFETCH(QString, name);
    QFETCH(bool, taken);
    showNew();
    nameEdit().setText(name);
    if (!taken)
        prompts().willCloseMessage();
    QTest::mouseClick(control<QPushButton>(1), Qt::LeftButton);
    QCOMPARE(!dialog().isVisible(), taken);
    QCOMPARE(filter().name(), taken ? name : QStringLiteral("Properties Filter1"));
}

void TestFilterDialog::aRefusalKeepsTheDialogOpenOnTheName()
{
    showNew();
    choose(0, kOn, 1);
    nameEdit().setText(QStringLiteral("a?"));
    table().setFocus();
    prompts().willCloseMessage();
    dialog().accept();
    QVERIFY(dialog().isVisible());
    QVERIFY(nameEdit().hasFocus());
    QCOMPARE(filter().name(), QStringLiteral("Properties Filter1"));
}

void TestFilterDialog::acceptingStoresTheExpressionOfAllRowsDuplicatesIncluded()
{
    showNew();
    type(0, kName, QStringLiteral("A*"));
    QVERIFY(menuCommand(0, kName, 2000));
    dialog().accept();
    QCOMPARE(expression(), QStringLiteral("NAME==\"A*\"  OR NAME==\"A*\" "));
}

void TestFilterDialog::acceptingWithoutAnEditLeavesTheTextAsItIs()
{
    const char* text = "COLOR==\"1\" AND NAME==\"A*\"";
    showExisting("F", text);
    QCOMPARE(notice(), QString());
    dialog().accept();
    QCOMPARE(expression(), QString::fromUtf8(text));
}

void TestFilterDialog::cancellingClosesWithoutFurtherWork()
{
    showNew();
    choose(0, kOn, 1);
    nameEdit().setText(QStringLiteral("Other"));
    const auto stamp = db().editStamp();
    QTest::mouseClick(control<QPushButton>(2), Qt::LeftButton);
    QCOMPARE(dialog().result(), int(QDialog::Rejected));
    QCOMPARE(filter().name(), QStringLiteral("Properties Filter1"));
    QCOMPARE(db().editStamp(), stamp);
}

void TestFilterDialog::aFilterThatRowsCannotSayIsKeptAndTold_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("unknown linetype") << QByteArray("LINETYPE==\"GONE\"  AND NAME==\"A*\" ");
    QTest::newRow("unknown key") << QByteArray("NAME==\"A*\" AND PLOTSTYLE==\"x\"");
    QTest::newRow("both freezes") << QByteArray("NEWVPFROZEN==\"True\"  AND VPFROZEN==\"True\" ");
}

void TestFilterDialog::aFilterThatRowsCannotSayIsKeptAndTold()
{
    QFETCH(QByteArray, text);
    showExisting("Foreign", text.constData());
    QVERIFY(notice().contains(QStringLiteral("only the name can be changed")));
    const int before = lines();
    click(0, kOn);
    QVERIFY(!combo().isVisible());
    click(0, kName);
    QVERIFY(!editor());
    press(Qt::Key_Delete);
    press(Qt::Key_X);
    table().command(2000);
    table().chooseRealLines();
    table().command(2001);
    QVERIFY(!menuCommand(0, kOn, 2001));
    QCOMPARE(lines(), before);
    nameEdit().setText(QStringLiteral("Renamed"));
    dialog().accept();
    QCOMPARE(filter().name(), QStringLiteral("Renamed"));
    QCOMPARE(expression(), QString::fromUtf8(text));
}

void TestFilterDialog::tellsWhatCannotBeEditedAgain()
{
    enterViewport();
    showNew();
    dialog().resize(1400, 700);
    choose(0, kNewVpFreeze, 1);
    QCOMPARE(notice(), QString());
    choose(0, kVpFreeze, 1);
    QVERIFY(notice().contains(QStringLiteral("cannot be edited here any more")));
    choose(0, kVpFreeze, 0);
    QCOMPARE(notice(), QString());
}

void TestFilterDialog::tellsOfConditionsInHiddenColumns()
{
    showExisting("F", "NAME==\"A*\"  AND VPCOLOR==\"1\"  OR VPFROZEN==\"True\" ");
    QVERIFY(notice().contains(QStringLiteral("are about viewports")));
    QCOMPARE(lines(), 3);
    choose(1, kOn, 1); // they stay in what is written
    QVERIFY(notice().contains(QStringLiteral("are about viewports")));
    QVERIFY(expression().contains(QStringLiteral("VPCOLOR==\"1\"")));
    QVERIFY(expression().contains(QStringLiteral("VPFROZEN==\"True\"")));
    closeDialog();
    enterViewport();
    showExisting("F", "NAME==\"A*\"  AND VPCOLOR==\"1\"  OR VPFROZEN==\"True\" ");
    QCOMPARE(notice(), QString());
}

void TestFilterDialog::notesAreReadAsTheyStand()
{
    showExisting("Foreign", "NAME==\"A*\" AND PLOTSTYLE==\"x\"");
    auto* label = dialog().findChild<QLabel*>(QStringLiteral("definitionNotice"));
    QAccessibleInterface* read = QAccessible::queryAccessibleInterface(label);
    QVERIFY(read);
    QCOMPARE(read->text(QAccessible::Name), notice());
}

void TestFilterDialog::countsTheLayersThatAreThere()
{
    showExisting("F", "NAME==\"A*\" ");
    const auto* count = dialog().findChild<QLabel*>(QStringLiteral("previewCount"));
    QCOMPARE(count->text(), QStringLiteral("Filter &preview: 2 of 5 layers"));
    write(db(), "A-Doors")->erase();
    settle();
    QCOMPARE(previewed(), QStringLiteral("A-Walls"));
    QCOMPARE(count->text(), QStringLiteral("Filter &preview: 1 of 4 layers"));
    write(db(), "S-Beams")->erase();
    settle();
    QCOMPARE(count->text(), QStringLiteral("Filter &preview: 1 of 3 layers"));
}

void TestFilterDialog::aNameThatAScriptGaveMeanwhileIsRefused()
{
    showNew();
    nameEdit().setText(QStringLiteral("Walls"));
    addToDrawing("walls", "NAME==\"W*\" ");
    prompts().willCloseMessage();
    dialog().accept();
    QVERIFY(dialog().isVisible());
    QCOMPARE(prompts().texts(), QStringList(QStringLiteral("Invalid Filter Name")));
}

void TestFilterDialog::anEditUnderWayGoesWithTheDialog()
{
    showNew();
    click(0, kName);
    QTest::keyClicks(editor(), QStringLiteral("A*"));
    closeDialog();
    QCOMPARE(filter().filterExpression(), QString());
}

void TestFilterDialog::thePreviewChangesNoLayer()
{
    showNew();
    const auto stamp = db().editStamp();
    QAbstractItemModel& model = *preview().model();
    for (int column = 0; column < kLayerColumnCount; ++column) {
        const QRect place = preview().visualRect(model.index(1, column));
        if (!place.isValid())
            continue;
        QTest::mouseClick(preview().viewport(), Qt::LeftButton, {}, place.center());
        QTest::mouseDClick(preview().viewport(), Qt::LeftButton, {}, place.center());
        QVERIFY(!preview().editor());
    }
    preview().setFocus();
    for (const Qt::Key key : {Qt::Key_Delete, Qt::Key_F2, Qt::Key_Space, Qt::Key_Return})
        QTest::keyClick(&preview(), key);
    QTest::keyClick(&preview(), Qt::Key_C, Qt::AltModifier);
    const QPoint place = preview().viewport()->rect().center();
    QContextMenuEvent menu(QContextMenuEvent::Mouse, place,
                           preview().viewport()->mapToGlobal(place));
    QApplication::sendEvent(preview().viewport(), &menu);
    QVERIFY(!QApplication::activePopupWidget());
    QVERIFY(!preview().editor());
    QVERIFY(host().pickRequests.empty());
    QVERIFY(dialog().isVisible());
    QCOMPARE(db().editStamp(), stamp);
    QCOMPARE(previewed(), QStringLiteral("0 A-Doors A-Walls E-Light S-Beams"));
}

void TestFilterDialog::thePreviewKeepsNoWidths()
{
    host().userStates.insert(QStringLiteral("LayerManager/ColumnWidths"), "102:177");
    const auto before = host().userStates;
    showNew();
    preview().setColumnWidth(1, 222);
    closeDialog();
    QCOMPARE(host().userStates, before);
}

void TestFilterDialog::thePreviewFollowsTheDrawing()
{
    showExisting("Frozen", "FROZEN==\"True\" ");
    QCOMPARE(previewed(), QStringLiteral("A-Walls"));
    write(db(), "S-Beams")->setIsFrozen(true);
    auto* timer =
        preview().findChild<QTimer*>(QStringLiteral("timer_%1").arg(CLayerListCtrl::kRefreshTimer));
    QVERIFY(timer && timer->isActive());
    timer->stop();
    QVERIFY(QMetaObject::invokeMethod(timer, "timeout", Qt::DirectConnection));
    QCOMPARE(previewed(), QStringLiteral("A-Walls S-Beams"));
}

void TestFilterDialog::thePreviewShowsViewportColumnsInLayoutsOnly()
{
    const auto hidden = [this] {
        QList<bool> columns;
        for (const LayerColumnInfo& info : layerColumns())
            columns << preview().isColumnHidden(static_cast<int>(info.column));
        return columns.count(true);
    };
    showNew();
    QCOMPARE(hidden(), 5);
    choose(0, kOn, 1);
    QCOMPARE(hidden(), 5);
    closeDialog();
    enterViewport();
    showNew();
    QCOMPARE(hidden(), 0);
}

void TestFilterDialog::helpIsTopic704()
{
    showNew();
    QTest::mouseClick(control<QPushButton>(1014), Qt::LeftButton);
    QCOMPARE(host().helpTopics, QList<int>{704});
    QCOMPARE(dialog().property("helpTopic").toInt(), 704);
    QVERIFY(dialog().isVisible());
}

void TestFilterDialog::examplesShowAndChangeNothing()
{
    showNew();
    auto* examples = control<QToolButton>(1013);
    QMenu* leaf = examples->menu();
    QVERIFY(leaf);
    QCOMPARE(examples->popupMode(), QToolButton::InstantPopup);
    QCOMPARE(leaf->actions().size(), 1);
    leaf->popup(QPoint());
    const auto* label = leaf->findChild<QLabel*>();
    QVERIFY(label && label->isVisible());
    QVERIFY(label->text().contains(QStringLiteral("A-*")));
    QVERIFY(leaf->accessibleDescription().contains(QStringLiteral("Layer Name ~A-*")));
    leaf->close();
    QCOMPARE(lines(), 1);
    QCOMPARE(expression(), QString());
}

void TestFilterDialog::closesWithItsDrawing()
{
    showNew();
    host().close(db());
    QVERIFY(!dialog().isVisible());
    QCOMPARE(dialog().result(), int(QDialog::Rejected));
}

void TestFilterDialog::closesWhenAnotherDrawingIsCurrent()
{
    showNew();
    host().open(layer_drawing::make({{"X"}}), QStringLiteral("Other"));
    choose(0, kOn, 1);
    QVERIFY(!dialog().isVisible());
    QCOMPARE(dialog().result(), int(QDialog::Rejected));
}

QTEST_MAIN(TestFilterDialog)
#include "test_filter_dialog.moc"
