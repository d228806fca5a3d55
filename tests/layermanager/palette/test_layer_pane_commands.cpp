#include "PaneFixture.h"
#include "layermanager/filter_editor/CDlgLayPropFilter.h"
#include "layermanager/layers/grid/control/CInPlaceEdit.h"
#include "layermanager/layers/operations/LayerCommandTable.h"
#include "layermanager/palette/pane/PaneCommandTarget.h"
#include "sdk/CKestPreferenceManager.h"
#include "toolkit/Prompts.h"

#include <QDialog>
#include <QHelpEvent>
#include <QScopedValueRollback>
#include <QTest>
#include <QTimer>
#include <QToolTip>

#include <functional>
#include <utility>

class TestLayerPaneCommands : public PaneFixture
{
    Q_OBJECT

private slots:
    void threeToolbarsHoldTheirCommands();
    void deleteTakesTheSelectedLayers();
    void deleteIsIgnoredDuringAnEdit();
    void newLayerIsMadeAndItsNameEdited();
    void newLayerEndsAnEdit();
    void newLayerFrozenInNewViewportsIsThat();
    void setCurrentMakesTheSelectedLayerCurrent();
    void setCurrentWithSeveralLayersDoesNothing();
    void setCurrentIsIgnoredDuringAnEdit();
    void deleteAndSetCurrentAreEnabledWhileALayerIsListed();
    void newFiltersComeFromTheTree();
    void dialogsOpenOverThePalette();
    void aCheckButtonHidesAndShowsTheTree();
    void withoutADrawingNothingButThePaletteIsOffered();
    void commandsThatAreNoneDoNothing();
    void thePaletteMayGoWhileAMessageIsShown_data();
    void thePaletteMayGoWhileAMessageIsShown();
    void theDrawingMayGoWhileAMessageIsShown_data();
    void theDrawingMayGoWhileAMessageIsShown();
    void editsInsideARunningCommandOpenNoRecord();
    void combiningJoinsSuccessiveEdits();
    void withoutCombiningEachEditIsAStep();
    void aToolbarWithoutAnOwnerAsksItsParent();
    void textsOfButtonsShareOneNumbering();
    void aTextOfThePaletteGoesBeforeThatOfTheButton();
    void buttonsAreReachedByTab();

private:
    void deleteSpareLayersOneByOne();
    int undoSteps();
    void prepareRefusal(int command);
};

namespace {

/// A parent that takes the commands of a toolbar.
class Taker : public QWidget, public PaneCommandTarget
{
public:
    void command(int id) override { taken.append(id); }
    bool isCommandEnabled(int id) const override { return id != kLayerStates; }
    bool isCommandChecked(int) const override { return false; }
    QList<int> taken;
};

/// Something happens while a message stands.
class DuringMessage : public Prompts
{
public:
    explicit DuringMessage(std::function<void()> happens)
        : m_happens(std::move(happens))
        , m_before(Prompts::install(this))
    { }
    ~DuringMessage() override { Prompts::install(m_before); }
    DuringMessage(const DuringMessage&) = delete;
    DuringMessage& operator=(const DuringMessage&) = delete;

    void message(QWidget*, const QString&, Icon) override
    {
        ++messages;
        if (const auto happens = std::exchange(m_happens, nullptr))
            happens();
    }
    bool confirm(QWidget*, const QString&) override { return false; }
    int ask(QWidget*, const TaskQuestion&) override { return kCancelled; }

    int messages = 0;

private:
    std::function<void()> m_happens;
    Prompts* m_before;
};

} // namespace

void TestLayerPaneCommands::deleteSpareLayersOneByOne()
{
    for (const char* name : {"Spare-1", "Spare-2"}) {
        choose({name});
        clickTool(40001);
    }
    QCOMPARE(view()->database()->layerTable().count(), 5);
}

/// How many steps of undo bring both layers back.
int TestLayerPaneCommands::undoSteps()
{
    OdDbDatabase& d = *view()->database();
    int steps = 0;
    while (d.layerTable().count() < 7 && d.undo())
        ++steps;
    return steps;
}

void TestLayerPaneCommands::threeToolbarsHoldTheirCommands()
{
    const auto commands = [this](int bar) {
        QList<int> ids;
        for (const QAction* action : view()->toolbar(bar)->actions()) {
            ids.append(action->data().toInt());
            if (action->icon().isNull() || action->toolTip().isEmpty())
                ids.append(-1);
        }
        return ids;
    };
    QCOMPARE(commands(kToolbarLeft), (QList<int>{40025, 40024, 40026}));
    QCOMPARE(commands(kToolbarMiddle), (QList<int>{40002, 40010, 40001, 40003}));
    QCOMPARE(commands(kToolbarRight), (QList<int>{kShowFilterTree, 40085, 40088}));
}

void TestLayerPaneCommands::deleteTakesTheSelectedLayers()
{
    addSpareLayers();
    choose({"Spare-1", "Spare-2"});
    clickTool(40001);
    QCOMPARE(listed(), texts({"0", "Doors", "Roof", "Walls", "Walls-2"}));
}

void TestLayerPaneCommands::deleteIsIgnoredDuringAnEdit()
{
    choose({"Doors"});
    grid().setFocus();
    press(Qt::Key_F2);
    QVERIFY(grid().editor());
    clickTool(40001);
    QVERIFY(grid().editor());
    QCOMPARE(listed().size(), 5);
}

void TestLayerPaneCommands::newLayerIsMadeAndItsNameEdited()
{
    choose({"Doors"});
    layer("Doors")->setColor(OdCmColor::fromIndex(3));
    clickTool(40002);
    QVERIFY(grid().editor());
    QTest::keyClicks(grid().editor(), QStringLiteral("Gates"));
    press(Qt::Key_Return);
    const auto made = layer_drawing::read(*view()->database(), "Gates");
    QVERIFY(made);
    QVERIFY(!made->VPDFLT());
    QCOMPARE(made->color(), OdCmColor::fromIndex(3));
    QCOMPARE(statusText(), QStringLiteral(" All : 6 layers displayed of 6 total layers"));
}

void TestLayerPaneCommands::newLayerEndsAnEdit()
{
    choose({"Doors"});
    grid().setFocus();
    press(Qt::Key_F2);
    QTest::keyClicks(grid().editor(), QStringLiteral("Gates"));
    clickTool(40002);
    QVERIFY(listed().contains(QStringLiteral("Gates")));
    QCOMPARE(listed().size(), 6);
    // A text that is refused is to be corrected first.
    grid().editor()->setText(QStringLiteral("a*b"));
    clickTool(40002);
    QCOMPARE(listed().size(), 6);
    QCOMPARE(grid().editor()->text(), QStringLiteral("a*b"));
    press(Qt::Key_Escape);
}

void TestLayerPaneCommands::newLayerFrozenInNewViewportsIsThat()
{
    clickTool(40010);
    QVERIFY(grid().editor());
    press(Qt::Key_Return);
    QVERIFY(layer_drawing::read(*view()->database(), "Layer1")->VPDFLT());
}

void TestLayerPaneCommands::setCurrentMakesTheSelectedLayerCurrent()
{
    choose({"Roof"});
    clickTool(40003);
    OdDbDatabase& d = *view()->database();
    QCOMPARE(d.getCLAYER(), layer_drawing::id(d, "Roof"));
    QCOMPARE(currentLine(), QStringLiteral("Current Layer: Roof"));
}

void TestLayerPaneCommands::setCurrentWithSeveralLayersDoesNothing()
{
    choose({"Roof", "Walls"});
    clickTool(40003);
    OdDbDatabase& d = *view()->database();
    QCOMPARE(d.getCLAYER(), d.getLayerZeroId());
    QCOMPARE(currentLine(), QStringLiteral("Current Layer: 0"));
}

void TestLayerPaneCommands::setCurrentIsIgnoredDuringAnEdit()
{
    choose({"Roof"});
    grid().setFocus();
    press(Qt::Key_F2);
    clickTool(40003);
    QVERIFY(grid().editor());
    OdDbDatabase& d = *view()->database();
    QCOMPARE(d.getCLAYER(), d.getLayerZeroId());
}

void TestLayerPaneCommands::deleteAndSetCurrentAreEnabledWhileALayerIsListed()
{
    QVERIFY(tool(40001)->isEnabled() && tool(40003)->isEnabled());
    search("nothing");
    QVERIFY(!tool(40001)->isEnabled() && !tool(40003)->isEnabled());
    QVERIFY(tool(40002)->isEnabled() && tool(40010)->isEnabled());
    box().selectAll();
    press(Qt::Key_Backspace);
    QVERIFY(tool(40001)->isEnabled() && tool(40003)->isEnabled());
}

void TestLayerPaneCommands::newFiltersComeFromTheTree()
{
    clickTool(40024);
    QVERIFY(labelEditor());
    typeLabel("Ground floor");
    QVERIFY(node("Ground floor").isValid());
    tree().setFilterEditor([](QWidget*, OdDbDatabase&, const FilterToEdit& task) {
        task.filter->setName(QStringLiteral("Locked"));
        task.filter->setFilterExpression(QStringLiteral("LOCKED==\"True\" "));
        return true;
    });
    clickTool(40025);
    settle();
    QVERIFY(node("Locked").isValid());
    QCOMPARE(tree().selectedName(), QStringLiteral("Locked"));
    QCOMPARE(listed(), QStringList());
}

void TestLayerPaneCommands::dialogsOpenOverThePalette()
{
    const auto opened = [this](int id) {
        QString name;
        QTimer::singleShot(0, this, [&] {
            auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            QVERIFY(dialog);
            name = QLatin1String(dialog->metaObject()->className());
            QVERIFY(view()->isAncestorOf(dialog) || dialog->parent() == view());
            dialog->reject();
        });
        clickTool(id);
        return name;
    };
    QCOMPARE(opened(40026), QStringLiteral("CLayerStateManDlg"));
    QCOMPARE(opened(40088), QStringLiteral("CLayerSettingsDlg"));
}

void TestLayerPaneCommands::aCheckButtonHidesAndShowsTheTree()
{
    QVERIFY(tool(kShowFilterTree)->isChecked());
    clickTool(kShowFilterTree);
    QVERIFY(!tree().isVisible() && !invert().isVisible());
    QVERIFY(!tool(kShowFilterTree)->isChecked());
    clickTool(kShowFilterTree);
    QVERIFY(tree().isVisible() && invert().isVisible());
    QVERIFY(tool(kShowFilterTree)->isChecked());
    view()->ShowFilterTree(false);
    QVERIFY(!tool(kShowFilterTree)->isChecked());
}

void TestLayerPaneCommands::withoutADrawingNothingButThePaletteIsOffered()
{
    host().close(*view()->database());
    host().close(db());
    QVERIFY(!view()->database());
    for (const int id : {40001, 40002, 40003, 40010, 40024, 40025, 40026, 40085})
        QVERIFY2(!tool(id)->isEnabled(), qPrintable(QString::number(id)));
    QVERIFY(tool(kShowFilterTree)->isEnabled());
    QVERIFY(tool(40088)->isEnabled());
    for (const int id : {40001, 40002, 40003, 40010, 40024, 40025, 40026, 40085, 1003})
        view()->command(id);
    QVERIFY(listed().isEmpty());
}

void TestLayerPaneCommands::commandsThatAreNoneDoNothing()
{
    QVERIFY(!view()->isCommandEnabled(12345));
    view()->command(12345);
    QCOMPARE(listed().size(), 5);
}

/// Brings about what the command refuses with a message.
void TestLayerPaneCommands::prepareRefusal(int command)
{
    if (command == kToolbarSetCurrent)
        layer("Roof")->setIsFrozen(true);
    if (command == kToolbarDeleteLayers)
        choose({"0", "Roof"});
    else
        choose({"Roof"});
    if (command != kToolbarNewLayer)
        return;
    grid().setFocus();
    press(Qt::Key_F2);
    grid().editor()->setText(QStringLiteral("Walls")); // another layer has it
}

void TestLayerPaneCommands::thePaletteMayGoWhileAMessageIsShown_data()
{
    QTest::addColumn<int>("command");
    QTest::newRow("new layer") << int(kToolbarNewLayer);
    QTest::newRow("set current") << int(kToolbarSetCurrent);
    QTest::newRow("delete some") << int(kToolbarDeleteLayers);
}

void TestLayerPaneCommands::thePaletteMayGoWhileAMessageIsShown()
{
    QFETCH(const int, command);
    prepareRefusal(command);
    const OdDbDatabase& drawing = *view()->database();
    DuringMessage prompts([this] { unload(); });
    view()->command(command);
    QCOMPARE(prompts.messages, 1);
    QVERIFY(!view());
    QCOMPARE(drawing.layerTable().count(), command == kToolbarDeleteLayers ? 4 : 5);
}

void TestLayerPaneCommands::theDrawingMayGoWhileAMessageIsShown_data()
{
    thePaletteMayGoWhileAMessageIsShown_data();
}

void TestLayerPaneCommands::theDrawingMayGoWhileAMessageIsShown()
{
    QFETCH(const int, command);
    prepareRefusal(command);
    DuringMessage prompts([this] {
        host().close(*view()->database());
        host().close(db());
    });
    view()->command(command);
    QCOMPARE(prompts.messages, 1);
    QVERIFY(!view()->database());
    QCOMPARE(statusText(), QString());
    QCOMPARE(currentLine(), QString());
}

void TestLayerPaneCommands::editsInsideARunningCommandOpenNoRecord()
{
    OdDbDatabase& d = *view()->database();
    addSpareLayers();
    host().ints[QStringLiteral("CMDACTIVE")] = 1;
    d.startUndoRecord();
    deleteSpareLayersOneByOne();
    d.endUndoRecord();
    QCOMPARE(host().historyNames, QStringList());
    QCOMPARE(undoSteps(), 1);
}

void TestLayerPaneCommands::combiningJoinsSuccessiveEdits()
{
    const QScopedValueRollback<bool> combine(
        CKestPreferenceManager::instance().CombineLayerPropPreference, true);
    addSpareLayers();
    deleteSpareLayersOneByOne();
    QCOMPARE(host().historyNames, texts({"_LAYER"}));
    QCOMPARE(undoSteps(), 1);
}

void TestLayerPaneCommands::withoutCombiningEachEditIsAStep()
{
    const QScopedValueRollback<bool> combine(
        CKestPreferenceManager::instance().CombineLayerPropPreference, false);
    addSpareLayers();
    deleteSpareLayersOneByOne();
    QCOMPARE(host().historyNames, texts({"_LAYER", "_LAYER"}));
    QCOMPARE(undoSteps(), 2);
}

void TestLayerPaneCommands::aToolbarWithoutAnOwnerAsksItsParent()
{
    Taker parent;
    CLayerPaneTBar bar(kToolbarLeft, &parent);
    bar.updateCommands();
    const QList<QAction*> actions = bar.actions();
    QVERIFY(actions[0]->isEnabled() && actions[1]->isEnabled());
    QVERIFY(!actions[2]->isEnabled());
    actions[1]->trigger();
    QCOMPARE(parent.taken, QList<int>{40024});
    // With one, that is asked.
    Taker owner;
    bar.setOwner(&owner);
    actions[0]->trigger();
    QCOMPARE(owner.taken, QList<int>{40025});
    QCOMPARE(parent.taken, QList<int>{40024});
}

void TestLayerPaneCommands::textsOfButtonsShareOneNumbering()
{
    QCOMPARE(paneToolTextKey(117, 40025), 40024);
    QCOMPARE(paneToolTextKey(110, 40001), 40003);
    QCOMPARE(paneToolTextKey(116, 40088), 40094);
    QCOMPARE(paneToolTextKey(115, 40088), -1);
    QVERIFY(view()->toolTexts().isEmpty());
}

void TestLayerPaneCommands::aTextOfThePaletteGoesBeforeThatOfTheButton()
{
    const auto rest = [this](int id) {
        QToolTip::hideText();
        QWidget* button = toolButton(id);
        const QPoint place = button->rect().center();
        QHelpEvent request(QEvent::ToolTip, place, button->mapToGlobal(place));
        QApplication::sendEvent(button, &request);
        return QToolTip::text();
    };
    // The table is empty: the button's own text is shown.
    QCOMPARE(rest(40001), QStringLiteral("Delete Layers (Del)"));
    view()->toolTexts().insert(40003, QStringLiteral("From the palette"));
    QCOMPARE(rest(40001), QStringLiteral("From the palette"));
    QCOMPARE(rest(40002), QStringLiteral("New Layer"));
    QToolTip::hideText();
}

void TestLayerPaneCommands::buttonsAreReachedByTab()
{
    part<QLineEdit>("currentLayer")->setFocus();
    QList<QWidget*> reached;
    for (int i = 0; i < 12; ++i) {
        press(Qt::Key_Tab);
        reached.append(window().focusWidget());
    }
    QCOMPARE(reached,
             (QList<QWidget*>{&box(), control(kSearchButton), toolButton(40025), toolButton(40024),
                              toolButton(40026), toolButton(40002), toolButton(40010),
                              toolButton(40001), toolButton(40003), toolButton(kShowFilterTree),
                              toolButton(40085), toolButton(40088)}));
}

QTEST_MAIN(TestLayerPaneCommands)
#include "test_layer_pane_commands.moc"
