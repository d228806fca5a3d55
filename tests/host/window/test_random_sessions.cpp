#include "database/drawing/OdDbDatabase.h"
#include "host/canvas/CCanvas.h"
#include "host/commands/CommandLine.h"
#include "host/support/WindowFixture.h"
#include "host/window/WindowActions.h"
#include "host/window/commandline/CCommandEdit.h"
#include "host/window/commandline/CCommandLine.h"
#include "host/window/views/CDrawingTabs.h"
#include "host/window/views/CDrawingView.h"
#include "support/RandomPrompts.h"

#include <QAction>
#include <QDir>
#include <QRandomGenerator>
#include <QScopeGuard>
#include <QTabBar>
#include <QTest>
#include <QTimer>

/// Hundreds of things done at random, most of them while a command asks something else.
class TestRandomSessions : public WindowFixture
{
    Q_OBJECT

private:
    quint32 roll(quint32 sides) { return m_dice.bounded(sides); }
    template <std::size_t n>
    const char* oneOf(const char* const (&texts)[n])
    {
        return texts[roll(n)];
    }

    void type(const char* text)
    {
        CCommandEdit& edit = window->commandLine().edit();
        edit.setText(QString::fromUtf8(text));
        QTest::keyClick(&edit, Qt::Key_Return);
    }
    void typeSomething()
    {
        static const char* const kLines[] = {"LINE",
                                             "LINE 0,0",
                                             "CIRCLE",
                                             "TEXT",
                                             "ERASE",
                                             "SELECT",
                                             "-LAYER",
                                             "-LAYER New A",
                                             "-LAYER OFF 0",
                                             "UNDO",
                                             "UNDO Begin",
                                             "UNDO Back",
                                             "U",
                                             "REDO",
                                             "ZOOM",
                                             "PAN",
                                             "LAYOUT",
                                             "MODEL",
                                             "SETVAR",
                                             "LTSCALE 2",
                                             "CECOLOR",
                                             "CLAYER",
                                             "MSPACE",
                                             "PSPACE",
                                             "NEW",
                                             "REGEN",
                                             "TILEMODE 0",
                                             "CLOSE",
                                             "OPEN",
                                             "SAVEAS",
                                             "0,0",
                                             "10,5",
                                             "@3,4",
                                             "@5<90",
                                             "7",
                                             "",
                                             "Undo",
                                             "Close",
                                             "All",
                                             "Last",
                                             "Window",
                                             "Yes",
                                             "No",
                                             "Freeze",
                                             "*",
                                             "2P",
                                             "'ZOOM E",
                                             "'ZOOM Window",
                                             "'PAN 1,1",
                                             "'LTSCALE 3",
                                             "'SETVAR CLAYER",
                                             "nonsense",
                                             "LAYOUT Set Layout1"};
        type(oneOf(kLines));
    }
    void trigger()
    {
        static constexpr WindowAction kActions[] = {
            WindowAction::Undo,        WindowAction::Redo,
            WindowAction::Save,        WindowAction::Close,
            WindowAction::New,         WindowAction::Open,
            WindowAction::ZoomExtents, WindowAction::Erase,
            WindowAction::Line,        WindowAction::Circle,
            WindowAction::Pan,         WindowAction::NextDrawing,
            WindowAction::ZoomWindow,  WindowAction::PreviousDrawing};
        action(kActions[roll(std::size(kActions))]).trigger();
    }
    void useTabs()
    {
        auto* bar = window->drawings().findChild<QTabBar*>();
        if (bar->count() == 0)
            return;
        const int tab = static_cast<int>(roll(quint32(bar->count())));
        if (roll(4) == 0)
            QTest::mouseClick(bar, Qt::MiddleButton, {}, bar->tabRect(tab).center());
        else
            bar->setCurrentIndex(tab);
    }
    void useMouse()
    {
        CDrawingView* view = window->drawings().currentView();
        if (!view)
            return;
        CCanvas& canvas = view->canvas();
        const QPoint at(int(roll(quint32(canvas.width()))), int(roll(quint32(canvas.height()))));
        switch (roll(3)) {
        case 0:
            return QTest::mouseDClick(&canvas, Qt::LeftButton, {}, at);
        case 1:
            return QTest::mouseMove(&canvas, at);
        default:
            return QTest::mouseClick(&canvas, Qt::LeftButton,
                                     roll(3) == 0 ? Qt::ShiftModifier : Qt::NoModifier, at);
        }
    }
    void pressAKey()
    {
        static constexpr Qt::Key kKeys[] = {Qt::Key_Escape, Qt::Key_Return, Qt::Key_Delete,
                                            Qt::Key_Space, Qt::Key_Up};
        const Qt::Key key = kKeys[roll(std::size(kKeys))];
        CDrawingView* view = window->drawings().currentView();
        if (view && roll(2) == 0)
            QTest::keyClick(&view->canvas(), key);
        else
            QTest::keyClick(&window->commandLine().edit(), key);
    }
    void queueSomething()
    {
        static const char* const kStrings[] = {"^C^C^C^P",  "^C^C_LINE", "0,0",       "^C^CCLOSE",
                                               "LTSCALE 4", "U",         "^C^CNEW^P", "^C^CERASE"};
        core->documents().sendStringToExecute(QLatin1String(oneOf(kStrings)));
    }

    /// Does one thing, and sees to the next one first: what is done may ask, and wait for it.
    void go()
    {
        const bool isOver = m_left <= 0 && !isBusy();
        if (!isOver)
            QTimer::singleShot(0, this, &TestRandomSessions::go);
        if (m_left-- <= 0)
            return window->commandLine().answer(std::nullopt);
        switch (roll(10)) {
        case 0:
            return trigger();
        case 1:
            return useTabs();
        case 2:
        case 3:
            return useMouse();
        case 4:
            return pressAKey();
        case 5:
            return queueSomething();
        default:
            return typeSomething();
        }
    }
    bool isBusy() const { return core->commands().isRunning() || !core->queue().isEmpty(); }

    QRandomGenerator m_dice;
    int m_left = 0;

private slots:
    void leaveNothingRunningAndEveryDrawingSound_data();
    void leaveNothingRunningAndEveryDrawingSound();
};

void TestRandomSessions::leaveNothingRunningAndEveryDrawingSound_data()
{
    QTest::addColumn<quint32>("seed");
    for (const quint32 seed : {1U, 2U, 3U})
        QTest::addRow("seed %u", seed) << seed;
}

void TestRandomSessions::leaveNothingRunningAndEveryDrawingSound()
{
    QFETCH(const quint32, seed);
    m_dice = QRandomGenerator(seed);
    // Anything may be taken for the name of a file to save to.
    const QString before = QDir::currentPath();
    const auto goBack = qScopeGuard([&before] { QDir::setCurrent(before); });
    QVERIFY(QDir::setCurrent(folder->path()));
    QStringList files;
    for (const char* name : {"one.dxf", "two.dxf"}) {
        TestDrawing drawing;
        drawing.add({.name = "Wall"}).addLine("Wall").addViewport(50, 50);
        files << open(drawing, QLatin1String(name)).fileName();
    }
    {
        const RandomPrompts anything([this](unsigned sides) { return roll(sides); }, files);
        m_left = 200;
        QTimer::singleShot(0, this, &TestRandomSessions::go);
        QVERIFY(QTest::qWaitFor([this] { return m_left <= 0 && !isBusy(); }, 60'000));
        settle();
    }
    QCOMPARE(variable("CMDNAMES"), QString());
    QCOMPARE(window->drawings().count(), core->documents().documentCount());
    for (HostDocument* document : core->documents().documents()) {
        QVERIFY(document->database()->audit().isEmpty());
        while (document->undo()) {
        }
        QVERIFY(document->database()->audit().isEmpty());
    }
}

QTEST_MAIN(TestRandomSessions)
#include "test_random_sessions.moc"
