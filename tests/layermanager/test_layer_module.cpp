#include "LayerDrawing.h"
#include "PaletteFixture.h"
#include "database/values/OdRxModule.h"
#include "layermanager/module/GroupFilterPickReceiver.h"
#include "layermanager/module/LayerCommand.h"
#include "layermanager/module/LayerModuleState.h"
#include "layermanager/palette/CLayerPaneView.h"
#include "sdk/KestSharedGlobals.h"
#include "sdk/commands/OdEdCommandStack.h"

#include <QFileInfo>
#include <QLibrary>
#include <QLineEdit>
#include <QPointer>
#include <QSignalSpy>
#include <QTest>

namespace {

class Receiver : public GroupFilterPickReceiver
{
public:
    struct Pick
    {
        const OdDbDatabase* database;
        std::vector<OdDbObjectId> entities;
        bool answer;
    };
    QList<Pick> picks;

    void entitiesPicked(OdDbDatabase& database, const KestSelectionSet& selection,
                        bool answer) override
    {
        picks.append({&database, selection.entities, answer});
    }
};

constexpr const char* kCommands[] = {"_LAYER", "_LAYERPALETTE", "_LAYERCLOSE",
                                     "__ZTR_LAYER_GROUP_FILTER"};

} // namespace

class TestLayerModule : public PaletteFixture
{
    Q_OBJECT

private slots:
    void isFoundByTheNamesOfItsEntryPoints();
    void isOnePerProcess();
    void knowsItsFile();
    void registersItsCommandsInTheirOrder();
    void removesAllCommandsWithTheirGroup();
    void refusesToUndefineTheLayerCommand();
    void createsNoPaletteWhenLoaded();

    void opensThePalette_data();
    void opensThePalette();
    void returnsTheFocusToTheMainWindow();
    void opensNothingWithoutItsPreconditions_data();
    void opensNothingWithoutItsPreconditions();
    void opensNothingWithoutAPaneManager();
    void opensWithoutWindowsOfDocumentsWhileOneIsOpen();
    void usesAPaneThatExistsAlready();
    void opensOnlyOnePalette();
    void closesThePaneAndKeepsTheView();
    void remembersThatAClosedPaletteWasClosed();
    void closesNothingOutsideOfADrawing();
    void selectsTheCurrentLayersRowWhenReopened();
    void leavesAnEditAloneWhenReopened();
    void pinsAPaletteHiddenToTheSide();
    void guardsTheHostsPropertiesWhileItOpens();
    void endsTheViewWhenItIsUnloaded();

    void ignoresAPickThatNobodyArmed();
    void handsOnePickToWhoArmedIt();
    void handsNothingOnWhenThePickEndsEarly_data();
    void handsNothingOnWhenThePickEndsEarly();
    void asksForASelectionWithEverythingSwitchedOn();
};

// Loading

void TestLayerModule::isFoundByTheNamesOfItsEntryPoints()
{
    QLibrary library(QCoreApplication::applicationDirPath() + QStringLiteral("/LayerManager"));
    QVERIFY2(library.load(), qPrintable(library.errorString()));
    using Version = void (*)(quint32*, quint32*, quint32*, quint32*);
    const auto version = reinterpret_cast<Version>(library.resolve("odrxGetAPIVersion"));
    QVERIFY(version);
    quint32 parts[4] = {9, 9, 9, 9};
    version(&parts[0], &parts[1], &parts[2], &parts[3]);
    QCOMPARE(parts[0], 3u);
    QCOMPARE(parts[1], 9u);
    QCOMPARE(parts[2], 1u);
    QCOMPARE(parts[3], 0u);
    using Create = OdRxModule* (*)(void*);
    const auto create = reinterpret_cast<Create>(library.resolve("odrxCreateModuleObject"));
    QVERIFY(create);
    QCOMPARE(create(nullptr), &module());
}

extern "C" OdRxModule* odrxCreateModuleObject(void* instance);

void TestLayerModule::isOnePerProcess()
{
    QCOMPARE(odrxCreateModuleObject(nullptr), &module());
    QCOMPARE(module().numRefs(), 1);
}

void TestLayerModule::knowsItsFile()
{
    const QFileInfo file(module().moduleName());
    QVERIFY(file.isAbsolute());
    QVERIFY(file.exists());
    QCOMPARE(file.completeBaseName(), QStringLiteral("LayerManager"));
}

void TestLayerModule::registersItsCommandsInTheirOrder()
{
    const struct
    {
        const char* globalName;
        const char* localName;
        int flags;
    } expected[] = {
        {"_LAYER", "LAYER", 0x04000002},
        {"_LAYERPALETTE", "LAYERPALETTE", 0x00000002},
        {"_LAYERCLOSE", "LAYERCLOSE", 0x00000002},
        {"__ZTR_LAYER_GROUP_FILTER", "__ZTR_LAYER_GROUP_FILTER", 0x00800000},
    };
    const auto& commands = odedRegCmds()->commands();
    QCOMPARE(commands.size(), std::size(expected));
    for (std::size_t i = 0; i < std::size(expected); ++i) {
        QCOMPARE(commands[i]->globalName(), QLatin1String(expected[i].globalName));
        QCOMPARE(commands[i]->localName(), QLatin1String(expected[i].localName));
        QCOMPARE(commands[i]->groupName(), QStringLiteral("KEST_COMMAND_LAYERMAN"));
        QCOMPARE(commands[i]->flags(), expected[i].flags);
    }
}

void TestLayerModule::removesAllCommandsWithTheirGroup()
{
    module().uninitApp();
    QVERIFY(!odedRegCmds()->hasGroup(QStringLiteral("KEST_COMMAND_LAYERMAN")));
    for (const char* command : kCommands)
        QVERIFY(!odedRegCmds()->lookup(QString::fromLatin1(command)));
    module().initApp();
    for (const char* command : kCommands)
        QVERIFY(odedRegCmds()->lookup(QString::fromLatin1(command)));
}

void TestLayerModule::refusesToUndefineTheLayerCommand()
{
    for (const char* name : {"_LAYER", "_LAYERPALETTE"}) {
        const OdEdCommandPtr command = odedRegCmds()->lookup(QString::fromLatin1(name));
        try {
            command->undefine(true);
            QFAIL(name);
        } catch (const OdError& error) {
            QCOMPARE(static_cast<int>(error.code()), 3);
        }
    }
}

void TestLayerModule::createsNoPaletteWhenLoaded()
{
    QVERIFY(!pane());
    QVERIFY(!view());
    QCOMPARE(host().reactorCount(), 0);
    QCOMPARE(state(), 0);
}

// Opening and closing

void TestLayerModule::opensThePalette_data()
{
    QTest::addColumn<QByteArray>("command");
    QTest::newRow("LAYER") << QByteArray("_LAYER");
    QTest::newRow("LAYERPALETTE") << QByteArray("_LAYERPALETTE");
}

void TestLayerModule::opensThePalette()
{
    QFETCH(QByteArray, command);
    run(command.constData());
    QVERIFY(pane());
    QVERIFY(!pane()->IsClosed());
    QCOMPARE(pane()->GetTitle(), QStringLiteral("Layer Properties Manager"));
    QCOMPARE(pane()->GetMinTrackSize(), QSize(355, 200));
    QCOMPARE(pane()->GetMaxTrackSize(), QSize(1280, 700));
    QCOMPARE(window().dockWidgetArea(pane()), Qt::LeftDockWidgetArea);
    QCOMPARE(pane()->GetView(), view());
    QCOMPARE(view()->database(), &db());
    QCOMPARE(grid().displayedCount(), 3);
    QCOMPARE(state(), 1);
    QCOMPARE(host().applicationCalls, 1);
}

void TestLayerModule::returnsTheFocusToTheMainWindow()
{
    run("_LAYER");
    QVERIFY(window().hasFocus());
    QVERIFY(!grid().hasFocus());
}

void TestLayerModule::opensNothingWithoutItsPreconditions_data()
{
    QTest::addColumn<int>("missing");
    QTest::newRow("system variables") << 0;
    QTest::newRow("input and output") << 1;
    QTest::newRow("documents") << 2;
    QTest::newRow("a current document") << 3;
}

void TestLayerModule::opensNothingWithoutItsPreconditions()
{
    QFETCH(int, missing);
    KestHost parts = host().parts();
    if (missing == 0)
        parts.sysvars = nullptr;
    if (missing == 1)
        parts.io = nullptr;
    if (missing == 2)
        parts.documents = nullptr;
    if (missing == 3)
        host().close(db());
    ksSetHost(parts);
    runWithout("_LAYER");
    ksSetHost(host().parts());
    QVERIFY(!pane());
    QVERIFY(!view());
    QCOMPARE(state(), 0);
    QCOMPARE(host().applicationCalls, 0);
}

void TestLayerModule::opensNothingWithoutAPaneManager()
{
    window().setProperty("DockingPane", QVariant());
    run("_LAYER");
    QVERIFY(!view());
    run("_LAYERCLOSE");
    QCOMPARE(state(), 0);
}

void TestLayerModule::opensWithoutWindowsOfDocumentsWhileOneIsOpen()
{
    host().ints[QStringLiteral("WNDLMDI")] = 0;
    run("_LAYER");
    QVERIFY(view());
}

void TestLayerModule::usesAPaneThatExistsAlready()
{
    CXTPDockingPane* made = manager().CreatePane(1000, {0, 0, 400, 300}, xtpPaneDockRight);
    run("_LAYER");
    QCOMPARE(pane(), made);
    QCOMPARE(made->GetView(), view());
    QCOMPARE(window().dockWidgetArea(made), Qt::RightDockWidgetArea);
    QVERIFY2(!made->IsClosed(), "a closed pane is shown, whoever made it");
}

void TestLayerModule::opensOnlyOnePalette()
{
    run("_LAYER");
    const CLayerPaneView* first = view();
    CXTPDockingPane* firstPane = pane();
    QSignalSpy changes(&manager(), &CXTPDockingPaneManager::paneStateChanged);
    elsewhere().setFocus();
    run("_LAYER");
    run("_LAYERPALETTE");
    QCOMPARE(view(), first);
    QCOMPARE(pane(), firstPane);
    QCOMPARE(window().findChildren<CLayerPaneView*>().size(), 1);
    QVERIFY(changes.isEmpty());
    QVERIFY(window().hasFocus());
    QCOMPARE(host().reactorCount(), 1);
}

void TestLayerModule::closesThePaneAndKeepsTheView()
{
    run("_LAYER");
    const CLayerPaneView* first = view();
    run("_LAYERCLOSE");
    QVERIFY(pane()->IsClosed());
    QCOMPARE(view(), first);
    QCOMPARE(state(), 0);
    run("_LAYER");
    QVERIFY(!pane()->IsClosed());
    QCOMPARE(view(), first);
    QCOMPARE(state(), 1);
}

void TestLayerModule::remembersThatAClosedPaletteWasClosed()
{
    run("_LAYER");
    manager().ClosePane(pane());
    QCOMPARE(state(), 1);
    run("_LAYERCLOSE");
    QCOMPARE(state(), 0);
    QVERIFY(pane()->IsClosed());
}

void TestLayerModule::closesNothingOutsideOfADrawing()
{
    run("_LAYER");
    runWithout("_LAYERCLOSE");
    QVERIFY(!pane()->IsClosed());
    OdDbCommandContext empty(nullptr);
    odedRegCmds()->lookup(QStringLiteral("_LAYERCLOSE"))->execute(&empty);
    QVERIFY(!pane()->IsClosed());
    QCOMPARE(state(), 1);
}

void TestLayerModule::selectsTheCurrentLayersRowWhenReopened()
{
    run("_LAYER");
    run("_LAYERCLOSE");
    grid().chooseRange(0, 2);
    db().setCLAYER(layer_drawing::id(db(), "Walls"));
    grid().chooseOnly(0);
    run("_LAYER");
    const int walls = grid().findRow(layer_drawing::id(db(), "Walls"));
    QCOMPARE(grid().chosenRows(), std::vector<int>{walls});
    QCOMPARE(grid().currentIndex().row(), walls);
}

void TestLayerModule::leavesAnEditAloneWhenReopened()
{
    run("_LAYER");
    manager().ClosePane(pane());
    grid().chooseOnly(1);
    QVERIFY(grid().openInPlaceEditor(1, 1));
    run("_LAYER");
    QCOMPARE(grid().chosenRows(), std::vector<int>{1});
}

void TestLayerModule::pinsAPaletteHiddenToTheSide()
{
    run("_LAYER");
    manager().ToggleAutoHide(pane());
    QCOMPARE(pane()->GetPaneState(), xtpPaneHidden);
    run("_LAYERCLOSE");
    QVERIFY(pane()->IsClosed());
    run("_LAYER");
    QVERIFY(!pane()->IsClosed());
    QCOMPARE(pane()->GetPaneState(), xtpPaneDocked);
}

void TestLayerModule::guardsTheHostsPropertiesWhileItOpens()
{
    bool guarded = false;
    connect(&manager(), &CXTPDockingPaneManager::paneStateChanged, this,
            [&] { guarded = KestSharedGlobals::IsUnderPropertyUpdate(); });
    run("_LAYER");
    QVERIFY(guarded);
    QVERIFY(!KestSharedGlobals::IsUnderPropertyUpdate());
}

void TestLayerModule::endsTheViewWhenItIsUnloaded()
{
    run("_LAYER");
    const QPointer<CLayerPaneView> before = view();
    unload();
    QVERIFY(!before);
    QVERIFY(!view());
    QVERIFY(pane());
    QVERIFY(!pane()->GetView());
    QCOMPARE(host().reactorCount(), 0);
}

// The pick for group filters

void TestLayerModule::ignoresAPickThatNobodyArmed()
{
    run("__ZTR_LAYER_GROUP_FILTER");
    QVERIFY(host().intPrompts.isEmpty());
    QVERIFY(host().selectRequests.empty());
}

void TestLayerModule::handsOnePickToWhoArmedIt()
{
    Receiver receiver;
    host().intAnswer = 1;
    host().selection.entities = {layer_drawing::id(db(), "Walls")};
    LayerModuleState::s_bGroupFilterPickPending = true;
    LayerModuleState::s_groupFilterReceiver = &receiver;
    run("__ZTR_LAYER_GROUP_FILTER");
    QVERIFY(!LayerModuleState::s_bGroupFilterPickPending);
    run("__ZTR_LAYER_GROUP_FILTER");
    QCOMPARE(receiver.picks.size(), 1);
    QCOMPARE(receiver.picks[0].database, &db());
    QVERIFY(receiver.picks[0].entities == host().selection.entities);
    QVERIFY(receiver.picks[0].answer);
    QCOMPARE(host().intPrompts, QStringList{QString()});
}

void TestLayerModule::handsNothingOnWhenThePickEndsEarly_data()
{
    QTest::addColumn<int>("intStatus");
    QTest::addColumn<int>("selectStatus");
    QTest::addColumn<bool>("inDrawing");
    QTest::newRow("cancelled question") << kest::kCancel << kest::kNormal << true;
    QTest::newRow("empty answer") << kest::kNone << kest::kNormal << true;
    QTest::newRow("cancelled selection") << kest::kNormal << kest::kCancel << true;
    QTest::newRow("nothing selected") << kest::kNormal << kest::kNone << true;
    QTest::newRow("no drawing") << kest::kNormal << kest::kNormal << false;
}

void TestLayerModule::handsNothingOnWhenThePickEndsEarly()
{
    QFETCH(int, intStatus);
    QFETCH(int, selectStatus);
    QFETCH(bool, inDrawing);
    Receiver receiver;
    host().intStatus = intStatus;
    host().selectStatus = selectStatus;
    LayerModuleState::s_bGroupFilterPickPending = true;
    LayerModuleState::s_groupFilterReceiver = &receiver;
    if (inDrawing)
        run("__ZTR_LAYER_GROUP_FILTER");
    else
        runWithout("__ZTR_LAYER_GROUP_FILTER");
    QVERIFY(receiver.picks.isEmpty());
    QVERIFY2(!LayerModuleState::s_bGroupFilterPickPending, "each arming serves one run");
    QVERIFY(!LayerModuleState::s_groupFilterReceiver);
}

void TestLayerModule::asksForASelectionWithEverythingSwitchedOn()
{
    LayerModuleState::s_bGroupFilterPickPending = true;
    run("__ZTR_LAYER_GROUP_FILTER");
    QCOMPARE(host().selectRequests.size(), 1u);
    const KestSelectionRequest& request = host().selectRequests.front();
    QVERIFY(request.prompt.isEmpty());
    QVERIFY(!request.secondPrompt);
    QVERIFY(!request.point);
    QVERIFY(request.filter.isEmpty());
    QVERIFY(!request.outFlag);
    for (const bool on : request.switches)
        QVERIFY(on);
}

QTEST_MAIN(TestLayerModule)
#include "test_layer_module.moc"
