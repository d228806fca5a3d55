#include "support/ExpectedWarning.h"
#include "support/GuardedTest.h"

#include <QApplication>
#include <QProcess>
#include <QTest>

namespace {

constexpr char kWarnArgument[] = "--warn";

}

/// What a test class looks like whose code warns; run in a process of its own.
class WarningTest : public GuardedTest
{
    Q_OBJECT

private slots:
    void warns() { qWarning("the roof is leaking"); }
    void warnsAsAnnounced()
    {
        const ExpectedWarning expected(QStringLiteral("roof"));
        qWarning("the roof is leaking");
    }
    void doesNotWarnAsAnnounced() { const ExpectedWarning expected(QStringLiteral("cellar")); }
};

class TestGuardedTest : public GuardedTest
{
    Q_OBJECT

private slots:
    void failsTheFunctionsThatLogWhatNobodyExpects();
};

void TestGuardedTest::failsTheFunctionsThatLogWhatNobodyExpects()
{
    QProcess process;
    process.start(QCoreApplication::applicationFilePath(), {QString::fromLatin1(kWarnArgument)});
    QVERIFY(process.waitForFinished());
    const QByteArray output = process.readAllStandardOutput();
    QCOMPARE(process.exitStatus(), QProcess::NormalExit);
    QCOMPARE(process.exitCode(), 2);
    QVERIFY(output.contains("FAIL!  : WarningTest::warns() Unexpected message in the log"));
    QVERIFY(output.contains("PASS   : WarningTest::warnsAsAnnounced()"));
    QVERIFY(output.contains(
        "FAIL!  : WarningTest::doesNotWarnAsAnnounced() The expected warning was not "
        "logged: cellar"));
}

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    if (argc == 2 && qstrcmp(argv[1], kWarnArgument) == 0) {
        WarningTest inner;
        return QTest::qExec(&inner, QStringList(application.applicationFilePath()));
    }
    TestGuardedTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "test_guarded_test.moc"
