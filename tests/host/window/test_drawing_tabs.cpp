#include "database/drawing/OdDbDatabase.h"
#include "database/store/ObjectStore.h"
#include "host/canvas/CCanvas.h"
#include "host/support/WindowFixture.h"
#include "host/window/WindowActions.h"
#include "host/window/commandline/CCommandLine.h"
#include "host/window/views/CDrawingTabs.h"
#include "host/window/views/CDrawingView.h"

#include <QAction>
#include <QClipboard>
#include <QDropEvent>
#include <QGuiApplication>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QTabBar>
#include <QTest>
#include <QTimer>
#include <QUrl>

namespace {
constexpr int kDiscard = 102;
constexpr int kSave = 101;
} // namespace

/// Several drawings in one window: tabs, the Window menu, dropped files, the order of notices.
class TestDrawingTabs : public WindowFixture
{
    Q_OBJECT

private:
    /// Drops the files over the middle of a widget; whether they were taken.
    bool drop(QWidget& target, const QStringList& files)
    {
        QMimeData data;
        QList<QUrl> urls;
        for (const QString& file : files)
            urls.append(QUrl::fromLocalFile(file));
        data.setUrls(urls);
        const QPoint at = target.rect().center();
        QDragEnterEvent enter(at, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&target, &enter);
        if (!enter.isAccepted())
            return false;
        QDropEvent dropped(at, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&target, &dropped);
        settle();
        return dropped.isAccepted();
    }
    QPoint tabCentre(int index) const { return bar().tabRect(index).center(); }
    QTabBar& bar() const { return *window->drawings().findChild<QTabBar*>(); }
    QMenu& windowMenu() const { return *window->findChild<QMenu*>(QStringLiteral("windowMenu")); }
    QStringList openNames() const
    {
        QStringList names;
        for (const HostDocument* document : core->documents().documents())
            names << document->displayName();
        return names;
    }
    void openThree()
    {
        open(TestDrawing(), QStringLiteral("one.dxf"));
        open(TestDrawing(), QStringLiteral("two.dxf"));
        open(TestDrawing(), QStringLiteral("three.dxf"));
    }

    /// Runs a line that asks; each question is answered by the next step. How many were taken.
    std::size_t runThrough(const char* line, const std::vector<std::function<void()>>& steps)
    {
        std::size_t step = 0;
        QTimer next;
        next.setInterval(0);
        connect(&next, &QTimer::timeout, this, [&] {
            if (step < steps.size() && window->commandLine().isAsking())
                steps[step++]();
        });
        next.start();
        typeLine(line);
        next.stop();
        settle();
        return step;
    }

private slots:
    void openFilesThatAreDropped();
    void leaveWhatIsNoFileToOthers();
    void followEachOtherByKeys();
    void areListedInTheWindowMenu();
    void cancelTheCommandThatAsksWhenAnotherOneIsShown();
    void closeWhileACommandAsksInAnotherOne();
    void closeUnderTheMiddleButton();
    void offerTheirFilesPath();
    void closeTogetherOnceAllQuestionsAreAnswered();
    void stayAllOpenWhenQuitIsCancelled();
    void areGoneAfterQuitHasSavedOrDroppedTheirChanges();
};

void TestDrawingTabs::openFilesThatAreDropped()
{
    const QString one = TestDrawing().writeTo(folder->path(), QStringLiteral("one.dxf"));
    const QString two = TestDrawing().writeTo(folder->path(), QStringLiteral("two & more.dxf"));
    QVERIFY(drop(*window, {one, two}));
    QCOMPARE(openNames(),
             (QStringList{QStringLiteral("one.dxf"), QStringLiteral("two & more.dxf")}));
    // One that is open becomes current.
    QVERIFY(drop(*window, {one}));
    QCOMPARE(window->drawings().count(), 2);
    QCOMPARE(current()->fileName(), one);
}

void TestDrawingTabs::leaveWhatIsNoFileToOthers()
{
    QVERIFY(!drop(*window, {folder->path()}));
    QVERIFY(!drop(*window, {path("absent.dxf")}));
    QCOMPARE(window->drawings().count(), 0);
}

void TestDrawingTabs::followEachOtherByKeys()
{
    openThree();
    QTest::keyClick(window.get(), Qt::Key_Tab, Qt::ControlModifier);
    QCOMPARE(current()->displayName(), QStringLiteral("one.dxf"));
    QTest::keyClick(window.get(), Qt::Key_Tab, Qt::ControlModifier);
    QCOMPARE(current()->displayName(), QStringLiteral("two.dxf"));
    QTest::keyClick(window.get(), Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(current()->displayName(), QStringLiteral("one.dxf"));
}

void TestDrawingTabs::areListedInTheWindowMenu()
{
    openThree();
    current()->database()->setTILEMODE(false);
    QMenu& menu = windowMenu();
    emit menu.aboutToShow();
    QStringList texts;
    for (const QAction* entry : menu.actions()) {
        if (entry->isCheckable())
            texts << entry->text() + (entry->isChecked() ? QStringLiteral(" checked") : QString());
    }
    QCOMPARE(texts,
             (QStringList{QStringLiteral("&1 one.dxf"), QStringLiteral("&2 two.dxf"),
                          QStringLiteral("&3 three.dxf* checked")}));
    menu.actions().at(menu.actions().size() - 2)->trigger();
    QCOMPARE(current()->displayName(), QStringLiteral("two.dxf"));
    emit menu.aboutToShow(); // lists them anew, not once more
    QCOMPARE(menu.actions().size(), 7);
}

void TestDrawingTabs::cancelTheCommandThatAsksWhenAnotherOneIsShown()
{
    openThree();
    const HostDocument& drawn = *current();
    const std::size_t before = drawn.database()->store().size();
    const std::vector<std::function<void()>> steps = {
        [this] { typeLine("0,0"); },          [this] { typeLine("5,5"); },
        [this] { typeLine("'ZOOM Window"); }, // a question within the question
        [this] { bar().setCurrentIndex(0); }, [this] { typeLine("9,9"); }, // to be asked no more
    };
    const std::size_t step = runThrough("LINE", steps);
    QCOMPARE(step, std::size_t(4));
    QVERIFY(!core->commands().isRunning());
    QCOMPARE(current()->displayName(), QStringLiteral("one.dxf"));
    QCOMPARE(drawn.database()->store().size(), before + 1);
    QVERIFY(drawn.isModified() && !current()->isModified());
}

void TestDrawingTabs::closeWhileACommandAsksInAnotherOne()
{
    openThree();
    const std::size_t step =
        runThrough("LINE",
                   {[this] { typeLine("0,0"); }, [this] { typeLine("'ZOOM Window"); },
                    [this] { QTest::mouseClick(&bar(), Qt::MiddleButton, {}, tabCentre(1)); },
                    [this] { typeLine("9,9"); }});
    QCOMPARE(step, std::size_t(3));
    QVERIFY(!core->commands().isRunning() && core->queue().isEmpty());
    QCOMPARE(openNames(), (QStringList{QStringLiteral("one.dxf"), QStringLiteral("three.dxf")}));
}

void TestDrawingTabs::closeUnderTheMiddleButton()
{
    openThree();
    QTest::mouseClick(&bar(), Qt::MiddleButton, {}, tabCentre(1));
    settle();
    QCOMPARE(openNames(), (QStringList{QStringLiteral("one.dxf"), QStringLiteral("three.dxf")}));
}

void TestDrawingTabs::offerTheirFilesPath()
{
    openThree();
    emit bar().customContextMenuRequested(tabCentre(0));
    QMenu* menu = window->drawings().findChild<QMenu*>();
    QVERIFY(menu);
    menu->actions().at(2)->trigger();
    QCOMPARE(QGuiApplication::clipboard()->text(), path("one.dxf"));
    menu->actions().constFirst()->trigger();
    settle();
    QCOMPARE(openNames(), (QStringList{QStringLiteral("two.dxf"), QStringLiteral("three.dxf")}));
    menu->close();
}

void TestDrawingTabs::closeTogetherOnceAllQuestionsAreAnswered()
{
    openThree();
    current()->database()->setTILEMODE(false);
    prompts->willChoose(Prompts::kCancelled);
    action(WindowAction::CloseAll).trigger();
    QCOMPARE(window->drawings().count(), 3);
    prompts->willChoose(kDiscard);
    action(WindowAction::CloseAll).trigger();
    QCOMPARE(window->drawings().count(), 0);
    QVERIFY(!action(WindowAction::CloseAll).isEnabled());
}

void TestDrawingTabs::stayAllOpenWhenQuitIsCancelled()
{
    openThree();
    for (const HostDocument* document : core->documents().documents())
        document->database()->setTILEMODE(false);
    prompts->willChoose(kDiscard);
    prompts->willChoose(Prompts::kCancelled);
    window->close();
    settle();
    QVERIFY(window->isVisible());
    QCOMPARE(window->drawings().count(), 3);
    QCOMPARE(current()->displayName(), QStringLiteral("two.dxf")); // the one that was asked about
}

void TestDrawingTabs::areGoneAfterQuitHasSavedOrDroppedTheirChanges()
{
    openThree();
    const QByteArray before = TestDrawing().bytes();
    core->documents().documents().at(0)->database()->setTILEMODE(false);
    core->documents().documents().at(2)->database()->setTILEMODE(false);
    prompts->willChoose(kSave);
    prompts->willChoose(kDiscard);
    window->close();
    settle();
    QVERIFY(!window->isVisible());
    QCOMPARE(core->documents().documentCount(), 0);
    const auto contents = [this](const char* name) {
        QFile file(path(name));
        return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
    };
    QVERIFY(contents("one.dxf") != before);
    QCOMPARE(contents("three.dxf"), before);
}

QTEST_MAIN(TestDrawingTabs)
#include "test_drawing_tabs.moc"
