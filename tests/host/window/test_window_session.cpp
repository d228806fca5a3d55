#include "database/drawing/OdDbDatabase.h"
#include "database/tables/OdDbLayerTable.h"
#include "database/tables/OdDbLayerTableRecord.h"
#include "host/support/OtherProcess.h"
#include "host/support/WindowFixture.h"
#include "host/window/CMainWindow.h"
#include "host/window/WindowActions.h"
#include "host/window/WindowSession.h"
#include "host/window/commandline/CCommandLine.h"
#include "host/window/views/CDrawingTabs.h"
#include "sdk/commands/OdEdCommandStack.h"
#include "toolkit/CXTPDockingPaneManager.h"

#include <QAbstractItemView>
#include <QAction>
#include <QFile>
#include <QTest>
#include <QTimer>

namespace {
/// Counts the paint events of a widget.
class PaintCounter : public QObject
{
public:
    explicit PaintCounter(QWidget& widget) { widget.installEventFilter(this); }
    int count() const { return m_count; }
    bool eventFilter(QObject*, QEvent* event) override
    {
        m_count += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }

private:
    int m_count = 0;
};

constexpr int kLayerPane = 1000; // the pane that the layer palette's module makes
} // namespace

/// The start of the program, with the layer palette's module as it is built.
class TestWindowSession : public WindowFixture
{
    Q_OBJECT

private:
    void start(const QStringList& files = {})
    {
        WindowSession(*core, *window).start(files);
        settle();
    }
    bool paletteIsOpen() const { return !window->panes().IsPaneClosed(kLayerPane); }

private slots:
    void opensTheFilesAndThePalette();
    void startsWithANewDrawingWithoutFiles();
    void leavesThePaletteClosedWhenTheUserClosedIt();
    void tellsAFileThatCannotBeOpenedAndGoesOn();
    void opensAgainWhatWasOpenLast();
    void opensTheOthersBesideADrawingThatWasRecovered();
    void opensNothingAgainWhereTheUserWantsThatNot();
    void leavesOutFilesThatAreGoneOrInUse();
    void tellsSettingsThatCannotBeUnderstood();
    void opensAndClosesThePaletteByItsCommands();
    void closesThePaletteWithTheLastDrawingAndReopensIt();
    void keepsThePaletteStateOverAnEndOfTheProgram();
    void endsThePaletteWithItsModule();
    void lockedOutOfThePaletteWhileTheLayerCommandAsks();
    void paintsThePaletteAnewWhenTheUnitOfLineweightsChanges();
};

void TestWindowSession::opensTheFilesAndThePalette()
{
    const QString one = TestDrawing().writeTo(folder->path(), QStringLiteral("one.dxf"));
    const QString two = TestDrawing().writeTo(folder->path(), QStringLiteral("two.dxf"));
    start({one, two});
    QCOMPARE(window->drawings().count(), 2);
    QCOMPARE(current()->fileName(), two);
    QVERIFY(paletteIsOpen());
    QVERIFY(action(WindowAction::Layer).isEnabled());
}

void TestWindowSession::startsWithANewDrawingWithoutFiles()
{
    start();
    QCOMPARE(current()->displayName(), QStringLiteral("Drawing1"));
    QVERIFY(paletteIsOpen());
}

void TestWindowSession::leavesThePaletteClosedWhenTheUserClosedIt()
{
    core->sysvars().setText(QStringLiteral("LAYERMANAGERSTATE"), QStringLiteral("0"));
    start();
    QVERIFY(!paletteIsOpen());
    QVERIFY(action(WindowAction::Layer).isEnabled());
    action(WindowAction::Layer).trigger();
    settle();
    QVERIFY(paletteIsOpen());
    QCOMPARE(variable("LAYERMANAGERSTATE"), QStringLiteral("1"));
}

void TestWindowSession::tellsAFileThatCannotBeOpenedAndGoesOn()
{
    prompts->willCloseMessage();
    start({path("absent.dxf")});
    QVERIFY(prompts->texts().value(0).contains(QStringLiteral("absent.dxf")));
    QCOMPARE(current()->displayName(), QStringLiteral("Drawing1"));
}

void TestWindowSession::opensAgainWhatWasOpenLast()
{
    const QString one = TestDrawing().writeTo(folder->path(), QStringLiteral("one.dxf"));
    const QString two = TestDrawing().writeTo(folder->path(), QStringLiteral("two.dxf"));
    const QString three = TestDrawing().writeTo(folder->path(), QStringLiteral("three.dxf"));
    start({one, two, three});
    window->runCommand(QStringLiteral("CLOSE"));
    core->documents().setCurrent(*core->documents().findByFile(one));
    window->runCommand(QStringLiteral("QUIT"));
    restart();
    start();
    QCOMPARE(window->drawings().count(), 2);
    QVERIFY(core->documents().findByFile(two));
    QCOMPARE(current()->fileName(), one);
    // Files that are asked for come alone.
    restart();
    start({three});
    QCOMPARE(window->drawings().count(), 1);
    QCOMPARE(current()->fileName(), three);
}

void TestWindowSession::opensTheOthersBesideADrawingThatWasRecovered()
{
    const QString one = TestDrawing().writeTo(folder->path(), QStringLiteral("one.dxf"));
    const QString two = TestDrawing().writeTo(folder->path(), QStringLiteral("two.dxf"));
    start({one, two});
    window->runCommand(QStringLiteral("QUIT"));
    restart();
    HostDocument& recovered = core->files().open(two);
    recovered.markModified();
    start();
    QCOMPARE(window->drawings().count(), 2);
    QVERIFY(core->documents().findByFile(one));
    QCOMPARE(core->documents().findByFile(two), &recovered);
}

void TestWindowSession::opensNothingAgainWhereTheUserWantsThatNot()
{
    start({TestDrawing().writeTo(folder->path(), QStringLiteral("one.dxf"))});
    core->sysvars().setText(QStringLiteral("SESSIONRESTORE"), QStringLiteral("0"));
    restart();
    start();
    QCOMPARE(current()->displayName(), QStringLiteral("Drawing1"));
    QCOMPARE(window->drawings().count(), 1);
}

void TestWindowSession::leavesOutFilesThatAreGoneOrInUse()
{
    const QString gone = TestDrawing().writeTo(folder->path(), QStringLiteral("gone.dxf"));
    const QString used = TestDrawing().writeTo(folder->path(), QStringLiteral("used.dxf"));
    start({gone, used});
    restart();
    QVERIFY(QFile::remove(gone));
    const OtherProcess other(used);
    QVERIFY(other.holds());
    start();
    QCOMPARE(current()->displayName(), QStringLiteral("Drawing1"));
    QVERIFY(history().contains(gone + QStringLiteral(" is gone")));
    QVERIFY(history().contains(used + QStringLiteral(" is in use elsewhere")));
}

void TestWindowSession::tellsSettingsThatCannotBeUnderstood()
{
    finish();
    folder = std::make_unique<QTemporaryDir>();
    QFile file(folder->filePath(QStringLiteral("kest.ini")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("[Variables\nno value\n");
    file.close();
    prompts = std::make_unique<FilePrompts>();
    frontEnd = std::make_unique<WindowFrontEnd>();
    core = std::make_unique<HostCore>(*frontEnd, folder->path());
    window = std::make_unique<CMainWindow>(*core);
    frontEnd->attach(window.get());
    core->setMainWindow(window.get());
    prompts->willCloseMessage();
    start();
    QVERIFY(prompts->texts().value(0).contains(QStringLiteral("kest.ini")));
}

void TestWindowSession::opensAndClosesThePaletteByItsCommands()
{
    start();
    typeLine("LAYERCLOSE");
    QVERIFY(!paletteIsOpen());
    QCOMPARE(variable("LAYERMANAGERSTATE"), QStringLiteral("0"));
    typeLine("layerpalette");
    QVERIFY(paletteIsOpen());
    QVERIFY(!action(WindowAction::Undo).isEnabled());
}

void TestWindowSession::closesThePaletteWithTheLastDrawingAndReopensIt()
{
    start();
    typeLine("CLOSE");
    QVERIFY(!paletteIsOpen());
    QCOMPARE(variable("LAYERMANAGERSTATE"), QStringLiteral("1"));
    typeLine("NEW");
    QVERIFY(paletteIsOpen());
}

void TestWindowSession::keepsThePaletteStateOverAnEndOfTheProgram()
{
    start();
    window->close();
    settle();
    core->shutDown();
    QCOMPARE(
        UserSettings(folder->path()).value(QStringLiteral("Variables/LAYERMANAGERSTATE")).toInt(),
        1);
}

void TestWindowSession::endsThePaletteWithItsModule()
{
    start();
    CXTPDockingPane* pane = window->panes().FindPane(kLayerPane);
    QVERIFY(pane->GetView());
    core->modules().unloadAll();
    QVERIFY(!pane->GetView());
    QVERIFY(!odedRegCmds()->lookup(QStringLiteral("_LAYER")));
    typeLine("NEW");
    QVERIFY(current());
}

void TestWindowSession::lockedOutOfThePaletteWhileTheLayerCommandAsks()
{
    start();
    open(TestDrawing().add({.name = "Wall"}));
    auto* grid = window->findChild<QAbstractItemView*>(QStringLiteral("layerGrid"));
    QVERIFY(grid);
    constexpr int kLockedColumn = 4;
    const auto click = [&] {
        const QModelIndex cell = grid->model()->index(1, kLockedColumn);
        QVERIFY(cell.isValid());
        QTest::mouseClick(grid->viewport(), Qt::LeftButton, {}, grid->visualRect(cell).center());
    };
    const auto isLocked = [this] {
        const auto id = current()->database()->layerTable().getAt(QStringLiteral("Wall"));
        return id.openObject<OdDbLayerTableRecord>()->isLocked();
    };
    prompts->willCloseMessage();
    QString names;
    QTimer::singleShot(0, this, [&] {
        names = variable("CMDNAMES");
        click();
        window->commandLine().answer(std::nullopt);
    });
    typeLine("-LAYER");
    QCOMPARE(names, QStringLiteral("-LAYER"));
    QCOMPARE(
        prompts->texts(),
        QStringList{QStringLiteral("Unable to modify layers while another command is active.")});
    QVERIFY(!isLocked());
    click(); // the command is over
    QVERIFY(isLocked());
}

void TestWindowSession::paintsThePaletteAnewWhenTheUnitOfLineweightsChanges()
{
    start();
    auto* grid = window->findChild<QAbstractItemView*>(QStringLiteral("layerGrid"));
    QVERIFY(grid);
    settle();
    const QImage millimetres = grid->viewport()->grab().toImage();
    PaintCounter painted(*grid->viewport());
    core->sysvars().setText(QStringLiteral("FILEDIA"), variable("FILEDIA")); // no change
    settle();
    QCOMPARE(painted.count(), 0);
    core->sysvars().setText(QStringLiteral("LWUNITS"), QStringLiteral("0"));
    settle();
    QVERIFY(painted.count() > 0);
    core->sysvars().setText(QStringLiteral("LWUNITS"), QStringLiteral("1"));
    settle();
    QCOMPARE(grid->viewport()->grab().toImage(), millimetres);
}

QTEST_MAIN(TestWindowSession)
#include "test_window_session.moc"
