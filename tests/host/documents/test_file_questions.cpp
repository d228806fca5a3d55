#include "database/drawing/OdDbDatabase.h"
#include "host/support/OtherProcess.h"
#include "host/support/WindowFixture.h"

#include <QFile>
#include <QStatusBar>
#include <QSysInfo>
#include <QTest>

namespace {
// The links of a question, from above.
constexpr int kFirst = 101;
constexpr int kSecond = 102;
} // namespace

/// What the window asks about files that others use or change.
class TestFileQuestions : public WindowFixture
{
    Q_OBJECT

private:
    HostDocument& openPlan() { return open(TestDrawing().add({.name = "Wall"})); }
    void changeOutside()
    {
        TestDrawing().add({.name = "Theirs"}).writeTo(folder->path(), QStringLiteral("plan.dxf"));
    }
    void activate()
    {
        QEvent event(QEvent::WindowActivate);
        QCoreApplication::sendEvent(window.get(), &event);
        settle();
    }
    QByteArray contents() const
    {
        QFile file(path("plan.dxf"));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

private slots:
    void opensADrawingInUseReadOnlyAndShowsThatInTheTitle();
    void leavesADrawingInUseWhenTheQuestionIsClosed();
    void readsAChangedFileAgainWhenTheWindowBecomesActive();
    void keepsTheDrawingWhereTheUserSaysSo();
    void tellsOnceThatAFileOfAnEditedDrawingChanged();
    void asksBeforeASaveOverAChangedFile();
    void tellsAReloadThatFails();
    void showsTheCountsInTheStatusBarAfterASave();
};

void TestFileQuestions::opensADrawingInUseReadOnlyAndShowsThatInTheTitle()
{
    TestDrawing().writeTo(folder->path(), QStringLiteral("plan.dxf"));
    const OtherProcess other(path("plan.dxf"));
    QVERIFY(other.holds());
    prompts->willChoose(kFirst);
    window->runAction(QStringLiteral("OPEN \"%1\"").arg(path("plan.dxf")));
    settle();
    const TaskQuestion question = prompts->asked().first().question;
    QCOMPARE(question.windowTitle, QStringLiteral("Drawing in Use"));
    QCOMPARE(question.mainInstruction, QStringLiteral("plan.dxf is in use."));
    QCOMPARE(question.content,
             QStringLiteral("This drawing is being edited by process %1 on %2.\n%3")
                 .arg(other.id())
                 .arg(QSysInfo::machineHostName(), path("plan.dxf")));
    QCOMPARE(question.links.size(), 2);
    QCOMPARE(window->windowTitle(), QStringLiteral("plan.dxf[*] (read-only) \u2013 kest"));
    prompts->willCloseMessage();
    window->runAction(QStringLiteral("SAVE"));
    QCOMPARE(
        prompts->texts().last(),
        path("plan.dxf")
            + QStringLiteral(" is open read-only. SAVEAS writes the drawing to another file."));
    typeLine(QStringLiteral("SAVEAS \"%1\"").arg(path("copy.dxf")).toUtf8().constData());
    QCOMPARE(window->windowTitle(), QStringLiteral("copy.dxf[*] \u2013 kest"));
}

void TestFileQuestions::leavesADrawingInUseWhenTheQuestionIsClosed()
{
    TestDrawing().writeTo(folder->path(), QStringLiteral("plan.dxf"));
    const OtherProcess other(path("plan.dxf"));
    QVERIFY(other.holds());
    prompts->willChoose(Prompts::kCancelled);
    window->runAction(QStringLiteral("OPEN \"%1\"").arg(path("plan.dxf")));
    QCOMPARE(core->documents().documentCount(), 0);
}

void TestFileQuestions::readsAChangedFileAgainWhenTheWindowBecomesActive()
{
    openPlan();
    activate();
    QVERIFY(prompts->asked().isEmpty());
    changeOutside();
    prompts->willChoose(kFirst);
    activate();
    QCOMPARE(prompts->texts(),
             QStringList{QStringLiteral("plan.dxf was changed by another program.")});
    typeLine("CLAYER Theirs");
    QCOMPARE(variable("CLAYER"), QStringLiteral("Theirs"));
    activate();
    QCOMPARE(prompts->asked().size(), 1);
}

void TestFileQuestions::keepsTheDrawingWhereTheUserSaysSo()
{
    HostDocument& document = openPlan();
    changeOutside();
    prompts->willChoose(kSecond);
    activate();
    activate();
    QCOMPARE(current(), &document);
}

void TestFileQuestions::tellsOnceThatAFileOfAnEditedDrawingChanged()
{
    openPlan();
    typeLine("CLAYER Wall");
    changeOutside();
    prompts->willCloseMessage();
    activate();
    activate();
    QCOMPARE(prompts->texts(),
             QStringList{path("plan.dxf")
                         + QStringLiteral(" was changed by another program, and the drawing has "
                                          "unsaved changes. SAVE asks which of them to keep.")});
    QVERIFY(current()->isModified());
}

void TestFileQuestions::asksBeforeASaveOverAChangedFile()
{
    openPlan();
    typeLine("CLAYER Wall");
    changeOutside();
    const QByteArray theirs = contents();
    prompts->willChoose(Prompts::kCancelled);
    typeLine("SAVE");
    QCOMPARE(contents(), theirs);
    prompts->willChoose(kFirst);
    prompts->file = path("mine.dxf");
    typeLine("SAVE");
    QCOMPARE(current()->fileName(), path("mine.dxf"));
    QCOMPARE(contents(), theirs);
    QCOMPARE(prompts->asked().first().question.links.size(), 2);
}

void TestFileQuestions::tellsAReloadThatFails()
{
    HostDocument& document = openPlan();
    QFile file(path("plan.dxf"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("no drawing");
    file.close();
    prompts->willChoose(kFirst);
    prompts->willCloseMessage();
    activate();
    QVERIFY(prompts->texts().last().startsWith(
        QStringLiteral("plan.dxf, line 1: this is no DXF drawing")));
    QCOMPARE(current(), &document);
}

void TestFileQuestions::showsTheCountsInTheStatusBarAfterASave()
{
    openPlan();
    typeLine("SAVE");
    const QString sentence = window->statusBar()->currentMessage();
    QVERIFY(sentence.startsWith(QStringLiteral("No records changed, all ")));
    QVERIFY(history().contains(sentence));
}

QTEST_MAIN(TestFileQuestions)
#include "test_file_questions.moc"
