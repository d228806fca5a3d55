#include "database/drawing/OdDbDatabase.h"
#include "database/tables/OdDbLayerTable.h"
#include "database/tables/OdDbLayerTableRecord.h"
#include "host/canvas/CCanvas.h"
#include "host/support/WindowFixture.h"
#include "host/window/WindowActions.h"
#include "host/window/commandline/CCommandLine.h"
#include "host/window/look/CElidedLabel.h"
#include "host/window/views/CDrawingTabs.h"
#include "host/window/views/CDrawingView.h"
#include "host/window/views/CLayoutTabs.h"
#include "sdk/commands/CKsUndoRedoCommandHistory.h"
#include "support/drawings/DwgCopy.h"
#include "support/drawings/SharedDrawings.h"
#include "toolkit/CXTPDockingPaneManager.h"

#include <QAction>
#include <QFile>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QTest>
#include <QTimer>
#include <QToolBar>

class TestMainWindow : public WindowFixture
{
    Q_OBJECT

private:
    TestDrawing house() const { return TestDrawing().add({.name = "Wall"}).add({.name = "Door"}); }
    QString tabText(int index) const { return window->drawings().tabText(index); }
    QString statusLayer() const
    {
        return window->findChild<QLabel*>(QStringLiteral("statusLayer"))->text();
    }

private slots:
    void offersToOpenADrawingWhileNoneIsOpen();
    void givesEveryDrawingATab();
    void followsTheTabThatTheUserPicks();
    void marksADrawingThatDiffersFromItsFile();
    void namesWhatUndoAndRedoDo();
    void undoesByItsShortcut();
    void followsAPalettesEdits();
    void showsTheCurrentLayer();
    void switchesLayoutsByTheTabsBelow();
    void showsALayoutThatACommandMadeCurrent();
    void showsTheCursorsPosition();
    void opensTheFilePickedInTheDialog();
    void saysWhyAFileCannotBeOpenedAndLeavesEverythingAsItWas();
    void savesADrawingInTheFormatThatItHas();
    void aDrawingThatCannotBeWrittenIsMarkedInTheTitle();
    void savesWithoutAskingAndTellsHowMuch();
    void saysWhyAFileCannotBeWritten();
    void closesATabAfterAskingAboutItsChanges();
    void keepsTheWindowWhenTheUserCancelsClosing();
    void closesTheWindowWhenTheChangesMayBeLost();
    void listsRecentFilesAndMarksMissingOnes();
    void opensARecentFileAndForgetsMissingOnes();
    void hasAnIconForEveryToolBarButton();
    void hasNoShortcutTwice();
    void remembersItsLayout();
    void findsThePaneManagerThroughTheWindow();
    void tellsAboutItself();
    void disablesTheLayerPaletteWithoutItsModule();
    void runsACommandFromTheMenuAfterCancellingAQuestion();
};

void TestMainWindow::offersToOpenADrawingWhileNoneIsOpen()
{
    const auto* hint = window->findChild<QLabel*>(QStringLiteral("emptyHint"));
    QVERIFY(hint->isVisible());
    QCOMPARE(window->windowTitle(), QStringLiteral("kest"));
    QVERIFY(action(WindowAction::New).isEnabled());
    for (const auto id : {WindowAction::Save, WindowAction::Close, WindowAction::Undo,
                          WindowAction::ZoomExtents, WindowAction::Layer})
        QVERIFY(!action(id).isEnabled());
    action(WindowAction::New).trigger();
    settle();
    QVERIFY(!hint->isVisible());
    QVERIFY(window->drawings().isVisible());
    QVERIFY(action(WindowAction::Save).isEnabled());
}

void TestMainWindow::givesEveryDrawingATab()
{
    open(house(), QStringLiteral("a & b.dxf"));
    open(house(), QStringLiteral("two.dxf"));
    QCOMPARE(window->drawings().count(), 2);
    QCOMPARE(tabText(0), QStringLiteral("a && b.dxf"));
    QCOMPARE(window->drawings().currentIndex(), 1);
    QCOMPARE(&window->drawings().currentView()->document(), current());
    QCOMPARE(window->windowTitle(), QStringLiteral("two.dxf[*] \u2013 kest"));
    QCOMPARE(window->drawings().tabToolTip(1), path("two.dxf"));
}

void TestMainWindow::followsTheTabThatTheUserPicks()
{
    HostDocument& first = open(house(), QStringLiteral("one.dxf"));
    HostDocument& second = open(house(), QStringLiteral("two.dxf"));
    QCOMPARE(current(), &second);
    window->drawings().setCurrentIndex(0);
    QCOMPARE(current(), &first);
    core->documents().setCurrent(second);
    QCOMPARE(window->drawings().currentIndex(), 1);
}

void TestMainWindow::marksADrawingThatDiffersFromItsFile()
{
    open(house());
    QVERIFY(!window->isWindowModified());
    typeLine("CLAYER Wall");
    QVERIFY(window->isWindowModified());
    QCOMPARE(tabText(0), QStringLiteral("plan.dxf*"));
    action(WindowAction::Undo).trigger();
    settle();
    QVERIFY(!window->isWindowModified());
    QCOMPARE(tabText(0), QStringLiteral("plan.dxf"));
}

void TestMainWindow::namesWhatUndoAndRedoDo()
{
    open(house());
    QCOMPARE(action(WindowAction::Undo).text(), QStringLiteral("&Undo"));
    QVERIFY(!action(WindowAction::Undo).isEnabled());
    typeLine("CLAYER Wall");
    QCOMPARE(action(WindowAction::Undo).text(), QStringLiteral("&Undo CLAYER"));
    QVERIFY(action(WindowAction::Undo).isEnabled());
    action(WindowAction::Undo).trigger();
    settle();
    QCOMPARE(action(WindowAction::Redo).text(), QStringLiteral("&Redo CLAYER"));
    QVERIFY(!action(WindowAction::Undo).isEnabled());
    action(WindowAction::Redo).trigger();
    QCOMPARE(variable("CLAYER"), QStringLiteral("Wall"));
}

void TestMainWindow::undoesByItsShortcut()
{
    open(house());
    typeLine("CLAYER Wall");
    window->drawings().currentView()->canvas().setFocus();
    QTest::keySequence(window.get(), QKeySequence::Undo);
    QCOMPARE(variable("CLAYER"), QStringLiteral("0"));
}

void TestMainWindow::followsAPalettesEdits()
{
    OdDbDatabase& drawing = *open(house()).database();
    ksUndoRedoHistory()->AddCommand(QStringLiteral("_LAYER"));
    drawing.startUndoRecord();
    drawing.layerTable()
        .getAt(QStringLiteral("Wall"))
        .safeOpenObject<OdDbLayerTableRecord>(OdDb::kForWrite)
        ->setIsLocked(true);
    settle();
    QCOMPARE(action(WindowAction::Undo).text(), QStringLiteral("&Undo LAYER"));
    QVERIFY(window->isWindowModified());
}

void TestMainWindow::showsTheCurrentLayer()
{
    open(house());
    QCOMPARE(statusLayer(), QStringLiteral("Layer: 0"));
    typeLine("CLAYER door");
    QCOMPARE(statusLayer(), QStringLiteral("Layer: Door"));
    typeLine("CLOSE No");
    QCOMPARE(statusLayer(), QString());
}

void TestMainWindow::switchesLayoutsByTheTabsBelow()
{
    open(house());
    CLayoutTabs& tabs = window->drawings().currentView()->layoutTabs();
    QCOMPARE(tabs.count(), 2);
    QCOMPARE(tabs.tabText(0), QStringLiteral("Model"));
    QTest::mouseClick(&tabs, Qt::LeftButton, {}, tabs.tabRect(1).center());
    settle();
    QCOMPARE(variable("CTAB"), QStringLiteral("Layout1"));
    QCOMPARE(tabs.currentIndex(), 1);
    QCOMPARE(action(WindowAction::Undo).text(), QStringLiteral("&Undo LAYOUT"));
}

void TestMainWindow::showsALayoutThatACommandMadeCurrent()
{
    open(house());
    const CLayoutTabs& tabs = window->drawings().currentView()->layoutTabs();
    typeLine("LAYOUT Set Layout1");
    QCOMPARE(tabs.currentIndex(), 1);
    typeLine("MODEL");
    QCOMPARE(tabs.currentIndex(), 0);
}

void TestMainWindow::showsTheCursorsPosition()
{
    open(house().addLine("Wall"));
    emit window->drawings().currentView()->canvas().cursorMoved({12.5, -3.0});
    QCOMPARE(window->findChild<QLabel*>(QStringLiteral("statusPosition"))->text(),
             QStringLiteral("12.5000, -3.0000"));
}

void TestMainWindow::opensTheFilePickedInTheDialog()
{
    prompts->file = house().writeTo(folder->path(), QStringLiteral("picked.dxf"));
    action(WindowAction::Open).trigger();
    settle();
    QCOMPARE(current()->fileName(), prompts->file);
    QCOMPARE(prompts->questions.value(0).title, QStringLiteral("Open Drawing"));
    QCOMPARE(prompts->questions.value(0).filter,
             QStringLiteral("Drawings (*.dxf *.DXF *.dwg *.DWG *.dwt *.DWT *.dws *.DWS);;"
                            "DXF drawings (*.dxf *.DXF);;"
                            "DWG drawings (*.dwg *.DWG *.dwt *.DWT *.dws *.DWS);;All files (*)"));
    QVERIFY(history().contains(QStringLiteral("picked.dxf is open.")));
    prompts->file.clear();
    action(WindowAction::Open).trigger();
    QVERIFY(history().endsWith(QStringLiteral("*Cancel*")));
    QCOMPARE(prompts->questions.value(1).path, folder->path());
}

void TestMainWindow::saysWhyAFileCannotBeOpenedAndLeavesEverythingAsItWas()
{
    HostDocument& before = open(house());
    QFile broken(path("broken.dxf"));
    QVERIFY(broken.open(QIODevice::WriteOnly));
    broken.write("  0\nSECTION\n  2\nTABLES\n");
    broken.close();
    prompts->file = broken.fileName();
    prompts->willCloseMessage();
    action(WindowAction::Open).trigger();
    settle();
    QVERIFY(prompts->texts().value(0).contains(QStringLiteral("broken.dxf")));
    QVERIFY(history().contains(prompts->texts().value(0)));
    QCOMPARE(current(), &before);
    QCOMPARE(window->drawings().count(), 1);
}

void TestMainWindow::savesADrawingInTheFormatThatItHas()
{
    KEST_QTEST_NEEDS_DRAWINGS();
    open(house());
    action(WindowAction::SaveAs).trigger();
    settle();
    QCOMPARE(prompts->questions.last().path, path("plan.dxf"));
    QCOMPARE(prompts->questions.last().filter,
             QStringLiteral("DXF drawings (*.dxf *.DXF);;All files (*)"));
    core->files().open(DwgCopy::make(DwgCopy::kVersion2004, path("house.dwt")));
    prompts->file = path("copy.dxf");
    prompts->willCloseMessage();
    action(WindowAction::SaveAs).trigger();
    settle();
    QCOMPARE(prompts->questions.last().path, path("house.dwt"));
    QCOMPARE(prompts->questions.last().filter,
             QStringLiteral("DWG drawings (*.dwg *.DWG *.dwt *.DWT *.dws *.DWS);;All files (*)"));
    QVERIFY(prompts->texts().last().contains(QStringLiteral("a name that ends in .dwg")));
    QVERIFY(!QFile::exists(path("copy.dxf")));
}

void TestMainWindow::aDrawingThatCannotBeWrittenIsMarkedInTheTitle()
{
    KEST_QTEST_NEEDS_DRAWINGS();
    core->files().open(DwgCopy::make(DwgCopy::kVersion2007, path("house.dwg")));
    settle();
    QCOMPARE(window->windowTitle(), QStringLiteral("house.dwg[*] (read-only) \u2013 kest"));
    prompts->willCloseMessage();
    action(WindowAction::Save).trigger();
    settle();
    QCOMPARE(prompts->texts(),
             QStringList{path("house.dwg")
                         + QStringLiteral(" is open for reading only. Drawings of version 2007 can "
                                          "be read but not written. Its layer states can be "
                                          "exported and used in other drawings.")});
    // Saving is no answer to the question about unsaved changes.
    current()->markModified();
    prompts->willChoose(Prompts::kCancelled);
    typeLine("CLOSE");
    const TaskQuestion question = prompts->asked().last().question;
    QCOMPARE(question.mainInstruction, QStringLiteral("Discard the changes to house.dwg?"));
    QCOMPARE(question.content,
             path("house.dwg")
                 + QStringLiteral(" is open for reading only. Drawings of version 2007 can be read "
                                  "but not written."));
    QCOMPARE(question.links.size(), 2);
    QVERIFY(question.links[0].text.startsWith(QStringLiteral("Keep the drawing open")));
    QVERIFY(question.links[1].text.startsWith(QStringLiteral("Discard")));
    QCOMPARE(question.defaultLink, question.links[0].id);
    prompts->willChoose(question.links[0].id);
    typeLine("CLOSE");
    QVERIFY(current());
    prompts->willChoose(question.links[1].id);
    typeLine("CLOSE");
    QVERIFY(!current());
}

void TestMainWindow::savesWithoutAskingAndTellsHowMuch()
{
    open(house());
    typeLine("CLAYER Wall");
    action(WindowAction::Save).trigger();
    settle();
    QVERIFY(!window->isWindowModified());
    QVERIFY(history().contains(QStringLiteral("Saved ") + path("plan.dxf")));
    QVERIFY(prompts->questions.isEmpty());
}

void TestMainWindow::saysWhyAFileCannotBeWritten()
{
    open(house());
    typeLine("CLAYER Wall");
    prompts->file = path("no/such/folder.dxf");
    prompts->willCloseMessage();
    action(WindowAction::SaveAs).trigger();
    settle();
    QVERIFY(prompts->texts().value(0).contains(QStringLiteral("no/such/folder.dxf")));
    QCOMPARE(current()->fileName(), path("plan.dxf"));
    QVERIFY(window->isWindowModified());
}

void TestMainWindow::closesATabAfterAskingAboutItsChanges()
{
    open(house(), QStringLiteral("one.dxf"));
    typeLine("CLAYER Wall");
    open(house(), QStringLiteral("two.dxf"));
    prompts->willChoose(101);
    emit window->drawings().tabCloseRequested(0);
    settle();
    const TaskQuestion question = prompts->asked().value(0).question;
    QCOMPARE(question.mainInstruction, QStringLiteral("Save the changes to one.dxf?"));
    QCOMPARE(question.links.size(), 2);
    QVERIFY(question.allowCancel);
    QCOMPARE(window->drawings().count(), 1);
    const auto written = frontEnd->readDrawingFile(path("one.dxf"));
    QVERIFY(written->getCLAYER() != written->getLayerZeroId());
}

void TestMainWindow::keepsTheWindowWhenTheUserCancelsClosing()
{
    open(house());
    typeLine("CLAYER Wall");
    prompts->willChoose(Prompts::kCancelled);
    QVERIFY(!window->close());
    settle();
    QVERIFY(window->isVisible());
    QVERIFY(current());
}

void TestMainWindow::closesTheWindowWhenTheChangesMayBeLost()
{
    open(house());
    typeLine("CLAYER Wall");
    prompts->willChoose(102);
    window->close();
    settle();
    QVERIFY(!window->isVisible());
    const auto written = frontEnd->readDrawingFile(path("plan.dxf"));
    QVERIFY(written->getCLAYER() == written->getLayerZeroId());
}

void TestMainWindow::listsRecentFilesAndMarksMissingOnes()
{
    open(house(), QStringLiteral("gone.dxf"));
    open(house(), QStringLiteral("here.dxf"));
    QVERIFY(QFile::remove(path("gone.dxf")));
    QMenu& menu = *window->actions().recentMenu();
    emit menu.aboutToShow();
    const auto entries = menu.actions();
    QCOMPARE(entries[0]->text(), QStringLiteral("&1 here.dxf \u2013 %1").arg(folder->path()));
    QVERIFY(entries[0]->isEnabled());
    QCOMPARE(entries[1]->text(),
             QStringLiteral("&2 gone.dxf \u2013 %1 (missing)").arg(folder->path()));
    QVERIFY(!entries[1]->isEnabled());
}

void TestMainWindow::opensARecentFileAndForgetsMissingOnes()
{
    open(house(), QStringLiteral("gone.dxf"));
    open(house(), QStringLiteral("here.dxf"));
    typeLine("CLOSE");
    QVERIFY(QFile::remove(path("gone.dxf")));
    QMenu& menu = *window->actions().recentMenu();
    emit menu.aboutToShow();
    menu.actions().first()->trigger();
    settle();
    QCOMPARE(current()->fileName(), path("here.dxf"));
    emit menu.aboutToShow();
    menu.actions().last()->trigger();
    QCOMPARE(window->recentFiles().files(), QStringList{path("here.dxf")});
    typeLine("CLOSE");
    typeLine("CLOSE");
    window->recentFiles().remove(path("here.dxf"));
    emit menu.aboutToShow();
    QCOMPARE(menu.actions().size(), 1);
    QVERIFY(!menu.actions().first()->isEnabled());
}

void TestMainWindow::hasAnIconForEveryToolBarButton()
{
    int buttons = 0;
    for (const QToolBar* bar : window->findChildren<QToolBar*>()) {
        for (const QAction* entry : bar->actions()) {
            if (entry->isSeparator() || !entry->objectName().startsWith(QStringLiteral("action")))
                continue;
            ++buttons;
            QVERIFY2(!entry->icon().isNull(), qPrintable(entry->text()));
            QVERIFY2(!entry->toolTip().isEmpty(), qPrintable(entry->text()));
        }
    }
    QCOMPARE(buttons, 8);
}

void TestMainWindow::hasNoShortcutTwice()
{
    QStringList all;
    for (const QMenu* menu : window->menuBar()->findChildren<QMenu*>()) {
        for (const QAction* entry : menu->actions()) {
            for (const QKeySequence& key : entry->shortcuts())
                all << key.toString();
        }
    }
    QVERIFY(all.size() > 5);
    QCOMPARE(QSet<QString>(all.begin(), all.end()).size(), all.size());
}

void TestMainWindow::remembersItsLayout()
{
    window->panes().ClosePane(window->panes().FindPane(CMainWindow::kCommandLinePane));
    window->resize(900, 640);
    settle();
    window->close();
    settle();
    QVERIFY(!window->isVisible());
    frontEnd->attach(nullptr);
    window = std::make_unique<CMainWindow>(*core);
    frontEnd->attach(window.get());
    window->show();
    QCOMPARE(window->size(), QSize(900, 640));
    QVERIFY(window->panes().IsPaneClosed(CMainWindow::kCommandLinePane));
}

void TestMainWindow::findsThePaneManagerThroughTheWindow()
{
    QCOMPARE(CXTPDockingPaneManager::of(window.get()), &window->panes());
}

void TestMainWindow::tellsAboutItself()
{
    prompts->willCloseMessage();
    action(WindowAction::About).trigger();
    QVERIFY(prompts->texts().value(0).startsWith(QStringLiteral("kest " KEST_VERSION "\n")));
    QCOMPARE(prompts->asked().value(0).icon, Prompts::Icon::Information);
}

void TestMainWindow::disablesTheLayerPaletteWithoutItsModule()
{
    open(house());
    QVERIFY(!action(WindowAction::Layer).isEnabled());
    QVERIFY(!action(WindowAction::LayerPalette).isEnabled());
}

void TestMainWindow::runsACommandFromTheMenuAfterCancellingAQuestion()
{
    open(house());
    QTimer::singleShot(0, this, [this] {
        QVERIFY(window->commandLine().isAsking());
        action(WindowAction::New).trigger();
    });
    typeLine("LWUNITS");
    settle();
    QCOMPARE(variable("LWUNITS"), QStringLiteral("1"));
    QCOMPARE(current()->displayName(), QStringLiteral("Drawing1"));
    QVERIFY(history().contains(QStringLiteral("*Cancel*")));
}

QTEST_MAIN(TestMainWindow)
#include "test_main_window.moc"
