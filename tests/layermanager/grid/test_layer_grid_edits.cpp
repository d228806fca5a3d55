#include "GridFixture.h"
#include "layermanager/LayerDrawing.h"
#include "layermanager/layers/operations/LayerCommandTable.h"

#include <QLineEdit>
#include <QSignalSpy>

using layer_drawing::read;
using layer_drawing::write;
using enum LayerColumn;

namespace {

/// Prompts during which something happens. A question is closed without an answer.
class WhileAsked : public Prompts
{
public:
    explicit WhileAsked(std::function<void()> happens)
        : m_happens(std::move(happens))
        , m_before(Prompts::install(this))
    { }
    ~WhileAsked() override { Prompts::install(m_before); }
    WhileAsked(const WhileAsked&) = delete;
    WhileAsked& operator=(const WhileAsked&) = delete;

    void message(QWidget*, const QString&, Icon) override { happen(); }
    bool confirm(QWidget*, const QString&) override
    {
        happen();
        return false;
    }
    int ask(QWidget*, const TaskQuestion&) override
    {
        happen();
        return kCancelled;
    }

    int prompts = 0;

private:
    void happen()
    {
        ++prompts;
        m_happens();
    }

    std::function<void()> m_happens;
    Prompts* m_before;
};

} // namespace

class TestLayerGridEdits : public GridFixture
{
    Q_OBJECT

private slots:
    void toggleAFlagByAClick_data();
    void toggleAFlagByAClick();
    void toggleTheFocusedFlagWithSpace();
    void leaveTheLayerAloneByAClickOnItsStatus();
    void toggleTwiceByADoubleClick();
    void toggleTheFocusedFlagWithEnter();
    void selectTheClickedRow();
    void spreadOverTheSelectedRows();
    void stayWithTheClickedRowOutsideOfTheSelection();
    void onlySelectWithControlAndShift();
    void refuseToFreezeTheCurrentLayer();
    void askBeforeTheCurrentLayerIsTurnedOff_data();
    void askBeforeTheCurrentLayerIsTurnedOff();
    void standADrawingThatEndsDuringTheQuestion();
    void standADrawingThatEndsDuringAMessage();
    void turnTheCurrentLayerOnWithoutAsking();
    void allowEverythingWhereTheCurrentLayerCannotBeRead();
    void areRefusedWhileTheLayerCommandRuns_data();
    void areRefusedWhileTheLayerCommandRuns();
    void workWhileAnotherCommandRuns();
    void areUndoneAndRedoneInTheirRows();
    void waitForAnEditorThatRefusesItsText();

private:
    bool flag(const char* name, LayerColumn column) const
    {
        return layerCellFlag(*read(db(), name), column, grid().layerModel().context());
    }
};

void TestLayerGridEdits::toggleAFlagByAClick_data()
{
    QTest::addColumn<int>("column");
    QTest::addColumn<bool>("before");
    QTest::newRow("on") << static_cast<int>(On) << false;
    QTest::newRow("freeze") << static_cast<int>(Freeze) << false;
    QTest::newRow("locked") << static_cast<int>(Locked) << false;
    QTest::newRow("plot") << static_cast<int>(Plot) << true;
    QTest::newRow("new viewport freeze") << static_cast<int>(NewVpFreeze) << false;
}

void TestLayerGridEdits::toggleAFlagByAClick()
{
    QFETCH(int, column);
    QFETCH(bool, before);
    const auto clicked = static_cast<LayerColumn>(column);
    QSignalSpy told(&grid(), &CLayerListCtrl::layersChanged);
    QCOMPARE(flag("Walls", clicked), before);
    click("Walls", clicked);
    QCOMPARE(flag("Walls", clicked), !before);
    QCOMPARE(flag("Doors", clicked), before);
    QCOMPARE(host().viewRefreshes, 1);
    QCOMPARE(host().historyNames, QStringList{QStringLiteral("_LAYER")});
    QCOMPARE(told.size(), 1);
    click("Walls", clicked);
    QCOMPARE(flag("Walls", clicked), before);
    QVERIFY(db().undo());
    QCOMPARE(flag("Walls", clicked), !before);
    QVERIFY(db().undo());
    QCOMPARE(flag("Walls", clicked), before);
    QVERIFY(!db().hasUndo());
}

void TestLayerGridEdits::toggleTheFocusedFlagWithSpace()
{
    click("Walls", Status);
    for (int i = 0; i < static_cast<int>(Locked); ++i)
        press(Qt::Key_Right);
    press(Qt::Key_Space);
    QVERIFY(flag("Walls", Locked));
    press(Qt::Key_Up);
    press(Qt::Key_Space);
    QVERIFY(flag("Roof", Locked));
    QVERIFY(flag("Walls", Locked));
    QCOMPARE(chosen(), QStringLiteral("Roof"));
    press(Qt::Key_Space);
    QVERIFY(!flag("Roof", Locked));
}

void TestLayerGridEdits::leaveTheLayerAloneByAClickOnItsStatus()
{
    click("Walls", Status);
    click("Walls", Status);
    QCOMPARE(chosen(), QStringLiteral("Walls"));
    QVERIFY(grid().currentLayer() == layer("0"));
    QVERIFY(!db().hasUndo());
    QCOMPARE(host().viewRefreshes, 0);
}

void TestLayerGridEdits::toggleTwiceByADoubleClick()
{
    doubleClick("Walls", Locked);
    QVERIFY(!flag("Walls", Locked));
    QCOMPARE(host().viewRefreshes, 2);
}

void TestLayerGridEdits::toggleTheFocusedFlagWithEnter()
{
    click("Walls", Locked);
    press(Qt::Key_Return);
    QVERIFY(!flag("Walls", Locked));
    press(Qt::Key_Enter);
    QVERIFY(flag("Walls", Locked));
}

void TestLayerGridEdits::selectTheClickedRow()
{
    click("Walls", On);
    QCOMPARE(chosen(), QStringLiteral("Walls"));
    QCOMPARE(grid().currentIndex().row(), row("Walls"));
    click("Doors", On);
    QCOMPARE(chosen(), QStringLiteral("Doors"));
    QVERIFY(flag("Walls", On));
    QVERIFY(flag("Doors", On));
}

void TestLayerGridEdits::spreadOverTheSelectedRows()
{
    write(db(), "Doors")->setIsLocked(true);
    db().endUndoRecord();
    grid().chooseRows({row("Doors"), row("Roof"), row("Walls")});
    click("Walls", Locked);
    QCOMPARE(chosen(), QStringLiteral("Doors Roof Walls"));
    for (const char* name : {"Walls", "Doors", "Roof"})
        QVERIFY(flag(name, Locked));
    QVERIFY(!flag("Beams", Locked));
    click("Walls", Plot);
    QVERIFY(!flag("Walls", Plot));
    QVERIFY(flag("Doors", Plot));
    QVERIFY(flag("Roof", Plot));
    db().undo();
    db().undo();
    QVERIFY(flag("Doors", Locked));
    QVERIFY(!flag("Walls", Locked));
    QVERIFY(!flag("Roof", Locked));
}

void TestLayerGridEdits::stayWithTheClickedRowOutsideOfTheSelection()
{
    grid().chooseRows({row("Doors"), row("Roof")});
    click("Walls", Locked);
    QCOMPARE(chosen(), QStringLiteral("Walls"));
    QVERIFY(flag("Walls", Locked));
    QVERIFY(!flag("Doors", Locked));
}

void TestLayerGridEdits::onlySelectWithControlAndShift()
{
    click("Beams", Status);
    click("Roof", On, Qt::ControlModifier);
    QCOMPARE(chosen(), QStringLiteral("Beams Roof"));
    click("Walls", Freeze, Qt::ShiftModifier);
    QCOMPARE(chosen(), QStringLiteral("Roof Walls"));
    QVERIFY(!db().hasUndo());
    for (const char* name : {"Roof", "Walls"}) {
        QVERIFY(!flag(name, On));
        QVERIFY(!flag(name, Freeze));
    }
}

void TestLayerGridEdits::refuseToFreezeTheCurrentLayer()
{
    prompts().willCloseMessage();
    click("0", Freeze);
    QCOMPARE(prompts().texts(),
             QStringList{QStringLiteral("Cannot freeze current layer. Specify a different layer")});
    QVERIFY(!flag("0", Freeze));
    QVERIFY(!db().hasUndo());
    QVERIFY(host().historyNames.isEmpty());
    QCOMPARE(host().viewRefreshes, 0);
}

void TestLayerGridEdits::askBeforeTheCurrentLayerIsTurnedOff_data()
{
    QTest::addColumn<int>("answer");
    QTest::addColumn<bool>("off");
    QTest::newRow("turn it off") << 101 << true;
    QTest::newRow("keep it on") << 102 << false;
    QTest::newRow("cancelled") << Prompts::kCancelled << true;
}

void TestLayerGridEdits::askBeforeTheCurrentLayerIsTurnedOff()
{
    QFETCH(int, answer);
    QFETCH(bool, off);
    prompts().willChoose(answer);
    click("0", On);
    QCOMPARE(flag("0", On), off);
    QCOMPARE(db().hasUndo(), off);
    QCOMPARE(prompts().asked().size(), 1);
    const TaskQuestion& question = prompts().asked().first().question;
    QCOMPARE(question.windowTitle, QStringLiteral("Layer - Current Layer off"));
    QCOMPARE(question.mainInstruction,
             QStringLiteral("The current Layer will be turned off.What do you want to do?"));
    QVERIFY(question.allowCancel);
    QCOMPARE(question.links.size(), 2);
    QCOMPARE(question.links[0].id, 101);
    QCOMPARE(question.links[0].text,
             QStringLiteral("Turn the current layer off \n Objects that you create on will not be "
                            "displayed in the drawing until you turn the layer back on"));
    QCOMPARE(question.links[1].id, 102);
    QCOMPARE(question.links[1].text, QStringLiteral("Keep the current layer on"));
}

void TestLayerGridEdits::standADrawingThatEndsDuringTheQuestion()
{
    WhileAsked closing([&] { host().close(db()); });
    click("0", On);
    QCOMPARE(closing.prompts, 1);
    QVERIFY(!grid().database());
    QCOMPARE(grid().model()->rowCount(), 0);
}

void TestLayerGridEdits::standADrawingThatEndsDuringAMessage()
{
    choose({"Roof"});
    QVERIFY(grid().openInPlaceEditor(row("Roof"), static_cast<int>(Name)));
    editor()->setText(QStringLiteral("Walls"));
    WhileAsked closing([&] { host().close(db()); });
    int opened = 0;
    grid().setStateDialogs([&](int) { ++opened; });
    grid().command(kLayerStateManager);
    QCOMPARE(closing.prompts, 1);
    QCOMPARE(opened, 0);
    QVERIFY(!editor());
    QVERIFY(!grid().database());
}

void TestLayerGridEdits::turnTheCurrentLayerOnWithoutAsking()
{
    write(db(), "0")->setIsOff(true);
    click("0", On);
    QVERIFY(!flag("0", On));
    QVERIFY(prompts().asked().isEmpty());
}

void TestLayerGridEdits::allowEverythingWhereTheCurrentLayerCannotBeRead()
{
    host().unreadable.insert(QStringLiteral("CLAYER"));
    click("0", On);
    QVERIFY(flag("0", On));
    QVERIFY(prompts().asked().isEmpty());
}

void TestLayerGridEdits::areRefusedWhileTheLayerCommandRuns_data()
{
    QTest::addColumn<QString>("running");
    QTest::newRow("-LAYER") << QStringLiteral("-LAYER");
    QTest::newRow("-Layer") << QStringLiteral("-Layer");
}

void TestLayerGridEdits::areRefusedWhileTheLayerCommandRuns()
{
    QFETCH(QString, running);
    host().strings[QStringLiteral("CMDNAMES")] = running;
    for (const LayerColumn column : {On, Name, Status}) {
        prompts().willCloseMessage();
        click("Walls", column);
    }
    QCOMPARE(prompts().texts().last(),
             QStringLiteral("Unable to modify layers while another command is active."));
    QCOMPARE(prompts().texts().size(), 3);
    QCOMPARE(chosen(), QStringLiteral("0"));
    QVERIFY(!flag("Walls", On));
}

void TestLayerGridEdits::workWhileAnotherCommandRuns()
{
    host().strings[QStringLiteral("CMDNAMES")] = QStringLiteral("LINE");
    click("Walls", On);
    QVERIFY(flag("Walls", On));
    QVERIFY(prompts().asked().isEmpty());
}

void TestLayerGridEdits::areUndoneAndRedoneInTheirRows()
{
    click("Walls", On);
    QSignalSpy refreshed(grid().model(), &QAbstractItemModel::dataChanged);
    db().undo();
    QCOMPARE(refreshed.size(), 1);
    QCOMPARE(refreshed[0][0].toModelIndex().row(), row("Walls"));
    db().redo();
    QCOMPARE(refreshed.size(), 2);
    QVERIFY(flag("Walls", On));
    QVERIFY(db().audit().isEmpty());
}

void TestLayerGridEdits::waitForAnEditorThatRefusesItsText()
{
    QVERIFY(grid().openInPlaceEditor(row("Roof"), static_cast<int>(Name)));
    QLineEdit* editor = grid().findChild<QLineEdit*>(QStringLiteral("inPlaceEdit"));
    editor->setText(QStringLiteral("a*b"));
    prompts().willCloseMessage();
    click("Walls", On);
    QVERIFY(!flag("Walls", On));
    QVERIFY(grid().editor());
    editor->setText(QStringLiteral("ab"));
    click("Walls", On);
    QVERIFY(flag("Walls", On));
    QVERIFY(!grid().editor());
}

QTEST_MAIN(TestLayerGridEdits)
#include "test_layer_grid_edits.moc"
