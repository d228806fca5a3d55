#include "database/drawing/OdDbDatabase.h"
#include "database/tables/OdDbBlockTableRecord.h"
#include "host/canvas/CCanvas.h"
#include "host/canvas/CanvasContents.h"
#include "host/support/WindowFixture.h"
#include "host/window/commandline/CCommandEdit.h"
#include "host/window/commandline/CCommandLine.h"
#include "host/window/commandline/HistoryHighlighter.h"
#include "host/window/look/CElidedLabel.h"
#include "host/window/views/CDrawingTabs.h"
#include "host/window/views/CDrawingView.h"
#include "sdk/IKestIOManager.h"
#include "sdk/KestStatus.h"
#include "sdk/commands/OdEdCommandStack.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QPlainTextEdit>
#include <QScopeGuard>
#include <QSignalSpy>
#include <QTest>
#include <QTextBlock>
#include <QTimer>

namespace {
/// A command that asks for an integer with an empty prompt and remembers the answers.
class PickCommand : public OdEdCommand
{
public:
    explicit PickCommand(std::vector<int>& answers)
        : m_answers(answers)
    { }
    QString groupName() const override { return QStringLiteral("TEST_PICK"); }
    QString globalName() const override { return QStringLiteral("__ZTR_LAYER_GROUP_FILTER"); }
    QString localName() const override { return globalName(); }
    int flags() const override { return OdEd::kNoUndoMarker; }
    void undefine(bool) override { }
    void execute(OdEdCommandContext*) override
    {
        int answer = -1;
        if (getIOManagerInterface()->getInt(QString(), answer) == kest::kNormal)
            m_answers.push_back(answer);
    }

private:
    std::vector<int>& m_answers;
};
} // namespace

class TestCommandWidget : public WindowFixture
{
    Q_OBJECT

private:
    CCommandEdit& edit() const { return window->commandLine().edit(); }
    QString prompt() const
    {
        return window->findChild<CElidedLabel*>(QStringLiteral("commandPrompt"))->text();
    }
    const QTextDocument& document() const
    {
        return *window->findChild<QPlainTextEdit*>(QStringLiteral("commandHistory"))->document();
    }
    void press(Qt::Key key) { QTest::keyClick(&edit(), key); }

private slots:
    void runsWhatIsTyped();
    void showsFailuresInAColourOfTheirOwn();
    void repeatsTheLastCommandOnEnter();
    void walksThroughTheHistory();
    void completesCommandNames();
    void emptiesTheLineOnEscape();
    void asksAndTakesTheAnswer();
    void cancelsAQuestionOnEscape();
    void answersAQuestionFromTheQueue();
    void takesKeysPressedOverTheDrawing();
    void keepsTablesAligned();
    void failureColoursAreReadableOnLightAndDark();
    void cancelsAnOpenQuestionWhenTheWindowCloses();
    void completesTheKeywordsOfAnOpenQuestion();
    void cancelsWhatRunsForQueuedStringsAndAnswersTheirCommand();
    void keepsTheTypedLinesOverSessions();
    void keepsABoundedHistory();
    void showsMoreOfTheHistoryOnF2();
    void redrawsWhenAVariableOfTheUserChangesTheDrawing();
    void leavesRoomForTheAnswerToALongQuestion();
    void takesLinesThatAreTypedFasterThanTheyAreRead();
};

void TestCommandWidget::runsWhatIsTyped()
{
    typeLine("lwunits 0");
    QCOMPARE(variable("LWUNITS"), QStringLiteral("0"));
    QCOMPARE(history(), QStringLiteral("Command: lwunits 0"));
    QVERIFY(edit().text().isEmpty());
}

void TestCommandWidget::showsFailuresInAColourOfTheirOwn()
{
    typeLine("FROB");
    QCOMPARE(history(), QStringLiteral("Command: FROB\nThere is no command \"FROB\"."));
    QCOMPARE(document().firstBlock().userState(), static_cast<int>(HistoryHighlighter::Input));
    QCOMPARE(document().lastBlock().userState(), static_cast<int>(HistoryHighlighter::Failure));
    const auto formats = document().lastBlock().layout()->formats();
    QCOMPARE(formats.size(), 1);
    QCOMPARE(formats[0].format.foreground().color(),
             HistoryHighlighter::failureColor(window->commandLine().palette()));
}

void TestCommandWidget::repeatsTheLastCommandOnEnter()
{
    typeLine("NEW");
    typeLine("");
    QCOMPARE(core->documents().documentCount(), 2);
}

void TestCommandWidget::walksThroughTheHistory()
{
    typeLine("LWUNITS 0");
    typeLine("LWUNITS 1");
    typeLine("LWUNITS 1");
    edit().setText(QStringLiteral("draft"));
    press(Qt::Key_Up);
    QCOMPARE(edit().text(), QStringLiteral("LWUNITS 1"));
    press(Qt::Key_Up);
    QCOMPARE(edit().text(), QStringLiteral("LWUNITS 0"));
    press(Qt::Key_Up);
    QCOMPARE(edit().text(), QStringLiteral("LWUNITS 0"));
    press(Qt::Key_Down);
    press(Qt::Key_Down);
    QCOMPARE(edit().text(), QStringLiteral("draft"));
    press(Qt::Key_Down);
    QCOMPARE(edit().text(), QStringLiteral("draft"));
}

void TestCommandWidget::completesCommandNames()
{
    edit().setFocus();
    QTest::keyClicks(&edit(), QStringLiteral("rege"));
    QAbstractItemView* popup = edit().completer()->popup();
    QVERIFY(popup->isVisible());
    QCOMPARE(popup->model()->rowCount(), 2);
    QCOMPARE(popup->model()->index(1, 0).data().toString(), QStringLiteral("REGENALL"));
    QTest::keyClick(popup, Qt::Key_Down);
    QTest::keyClick(popup, Qt::Key_Down);
    QTest::keyClick(popup, Qt::Key_Return);
    settle();
    QVERIFY(!popup->isVisible());
    QVERIFY(history().startsWith(QStringLiteral("Command: REGENALL\n")));
    QVERIFY(edit().text().isEmpty());
    QTest::keyClicks(&edit(), QStringLiteral("re"));
    QVERIFY(popup->isVisible());
    QTest::keyClick(popup, Qt::Key_Escape);
    QVERIFY(!popup->isVisible());
    QCOMPARE(edit().text(), QStringLiteral("re"));
}

void TestCommandWidget::emptiesTheLineOnEscape()
{
    edit().setText(QStringLiteral("half a command"));
    press(Qt::Key_Escape);
    QVERIFY(edit().text().isEmpty());
}

void TestCommandWidget::asksAndTakesTheAnswer()
{
    QTimer::singleShot(0, this, [this] {
        QVERIFY(window->commandLine().isAsking());
        QCOMPARE(prompt(), QStringLiteral("New value for LWUNITS <1>:"));
        QTest::keyClicks(&edit(), QStringLiteral("0"));
        press(Qt::Key_Return);
    });
    typeLine("LWUNITS");
    QCOMPARE(variable("LWUNITS"), QStringLiteral("0"));
    QCOMPARE(prompt(), QStringLiteral("Command:"));
    QCOMPARE(history(), QStringLiteral("Command: LWUNITS\nNew value for LWUNITS <1>: 0"));
}

void TestCommandWidget::cancelsAQuestionOnEscape()
{
    QTimer::singleShot(0, this, [this] { press(Qt::Key_Escape); });
    typeLine("LWUNITS");
    QVERIFY(!window->commandLine().isAsking());
    QVERIFY(history().endsWith(QStringLiteral("*Cancel*")));
    QCOMPARE(variable("CMDNAMES"), QString());
}

void TestCommandWidget::answersAQuestionFromTheQueue()
{
    QTimer::singleShot(0, this,
                       [this] { core->documents().sendStringToExecute(QStringLiteral("0 ")); });
    typeLine("LWUNITS");
    QCOMPARE(variable("LWUNITS"), QStringLiteral("0"));
}

void TestCommandWidget::takesKeysPressedOverTheDrawing()
{
    typeLine("NEW");
    CDrawingView& view = *window->drawings().currentView();
    QTest::keyClicks(&view, QStringLiteral("lw"));
    QCOMPARE(edit().text(), QStringLiteral("lw"));
    QVERIFY(edit().hasFocus());
}

void TestCommandWidget::keepsTablesAligned()
{
    const auto* view = window->findChild<QPlainTextEdit*>(QStringLiteral("commandHistory"));
    QCOMPARE(view->lineWrapMode(), QPlainTextEdit::NoWrap);
    const QFontMetrics metrics(view->font());
    QCOMPARE(metrics.horizontalAdvance(QLatin1Char('i')),
             metrics.horizontalAdvance(QLatin1Char('W')));
    open(TestDrawing());
    typeLine("LAYERS");
    QVERIFY(history().endsWith(QStringLiteral("\n1 layer.")));
}

void TestCommandWidget::failureColoursAreReadableOnLightAndDark()
{
    QPalette palette;
    for (const QColor base : {QColor(Qt::white), QColor(0x1e, 0x1e, 0x1e)}) {
        palette.setColor(QPalette::Base, base);
        const float distance =
            HistoryHighlighter::failureColor(palette).lightnessF() - base.lightnessF();
        QVERIFY(std::abs(distance) > 0.4F);
    }
}

void TestCommandWidget::cancelsAnOpenQuestionWhenTheWindowCloses()
{
    QTimer::singleShot(0, this, [this] { window->close(); });
    typeLine("LWUNITS");
    settle();
    QVERIFY(!window->isVisible());
}

void TestCommandWidget::completesTheKeywordsOfAnOpenQuestion()
{
    open(TestDrawing());
    QStringList offered;
    QTimer::singleShot(0, this, [&] {
        QTest::keyClicks(&edit(), QStringLiteral("l"));
        const QAbstractItemModel& model = *edit().completer()->popup()->model();
        for (int row = 0; row < model.rowCount(); ++row)
            offered << model.index(row, 0).data().toString();
        press(Qt::Key_Escape);
        edit().clear();
        press(Qt::Key_Return);
    });
    typeLine("-LAYER");
    QCOMPARE(
        offered,
        QStringList({QStringLiteral("LOck"), QStringLiteral("Ltype"), QStringLiteral("LWeight")}));
    QVERIFY(!window->commandLine().isAsking());
    QTest::keyClicks(&edit(), QStringLiteral("rege"));
    QCOMPARE(edit().completer()->popup()->model()->rowCount(), 2); // commands again
    edit().clear();
}

void TestCommandWidget::cancelsWhatRunsForQueuedStringsAndAnswersTheirCommand()
{
    open(TestDrawing());
    std::vector<int> answers;
    odedRegCmds()->addCommand(odrxCreate<PickCommand>(answers));
    const auto remove =
        qScopeGuard([] { odedRegCmds()->removeGroup(QStringLiteral("TEST_PICK")); });
    const auto send = [this] {
        for (const char* text : {"^C^C^C^P", "__ZTR_LAYER_GROUP_FILTER", "0", "^P"})
            core->documents().sendStringToExecute(QLatin1String(text));
    };
    QTimer::singleShot(0, this, send);
    typeLine("-LAYER");
    QCOMPARE(answers, std::vector<int>{0});
    QVERIFY(history().contains(QStringLiteral("*Cancel*")));
    QCOMPARE(variable("CMDNAMES"), QString());
    send(); // while nothing runs
    settle();
    QCOMPARE(answers, (std::vector<int>{0, 0}));
    QVERIFY(core->queue().isEmpty());
}

void TestCommandWidget::keepsTheTypedLinesOverSessions()
{
    typeLine("LWUNITS 0");
    typeLine("LWUNITS 1");
    window->close();
    settle();
    frontEnd->attach(nullptr);
    window = std::make_unique<CMainWindow>(*core);
    frontEnd->attach(window.get());
    press(Qt::Key_Up);
    QCOMPARE(edit().text(), QStringLiteral("LWUNITS 1"));
    press(Qt::Key_Up);
    QCOMPARE(edit().text(), QStringLiteral("LWUNITS 0"));
}

void TestCommandWidget::keepsABoundedHistory()
{
    CommandHistory lines;
    QStringList many;
    for (int i = 0; i < CommandHistory::kMaxLines + 50; ++i)
        many << QString::number(i);
    lines.restore(many);
    QCOMPARE(lines.lines(), many.mid(50));
    lines.add(QString(CommandHistory::kLongestLine + 1, QLatin1Char('x')));
    QCOMPARE(lines.lines().last(), many.last());
}

void TestCommandWidget::showsMoreOfTheHistoryOnF2()
{
    typeLine("LWUNITS 0");
    press(Qt::Key_F2);
    auto* more = window->findChild<QWidget*>(QStringLiteral("historyWindow"));
    QVERIFY(more && more->isVisible());
    QCOMPARE(more->findChild<QPlainTextEdit*>()->toPlainText(), history());
    QTest::keyClick(more->findChild<QPlainTextEdit*>(), Qt::Key_F2);
    QVERIFY(!more->isVisible());
}

void TestCommandWidget::redrawsWhenAVariableOfTheUserChangesTheDrawing()
{
    open(TestDrawing().add({.name = "A"}).addLine("A"));
    CCanvas& canvas = window->drawings().currentView()->canvas();
    canvas.completeNow();
    QSignalSpy looks(&canvas.contents(), &CanvasContents::lookChanged);
    typeLine("FILEDIA 0");
    QCOMPARE(looks.size(), 0);
    core->sysvars().setText(QStringLiteral("LAYLOCKFADECTL"), QStringLiteral("20"));
    QVERIFY(looks.size() > 0);
}

void TestCommandWidget::leavesRoomForTheAnswerToALongQuestion()
{
    window->resize(640, 480);
    settle();
    const int width = window->width();
    QTimer::singleShot(0, this, [this, width] {
        auto* label = window->findChild<CElidedLabel*>(QStringLiteral("commandPrompt"));
        settle();
        QCOMPARE(window->width(), width);
        QVERIFY(edit().width() >= edit().minimumWidth());
        QVERIFY(label->width() > edit().width());
        // The question belongs to the line beside it.
        window->drawings().setFocus();
        QTest::mouseClick(label, Qt::LeftButton);
        QVERIFY(edit().hasFocus());
        window->commandLine().answer(std::nullopt);
    });
    window->commandLine().ask(QString(300, QLatin1Char('x')));
}

void TestCommandWidget::takesLinesThatAreTypedFasterThanTheyAreRead()
{
    open(TestDrawing());
    // All in one turn of the event loop: the first point, two more, the end, and another command.
    QTimer::singleShot(0, this, [this] {
        for (const char* line : {"0,0", "10,0", "10,5", "", "LWDISPLAY 1"}) {
            QTest::keyClicks(&edit(), QLatin1String(line));
            QTest::keyClick(&edit(), Qt::Key_Return);
        }
    });
    typeLine("LINE");
    settle();
    QVERIFY(!core->commands().isRunning());
    QCOMPARE(variable("LWDISPLAY"), QStringLiteral("1"));
    const auto space = current()->database()->getModelSpaceId().openObject<OdDbBlockTableRecord>();
    const EntityRun run = space->entityRuns().back();
    QCOMPARE(run.end - run.first, 2u);
}

QTEST_MAIN(TestCommandWidget)
#include "test_command_widget.moc"
