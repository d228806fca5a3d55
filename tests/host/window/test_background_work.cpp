#include "host/window/work/BackgroundWork.h"
#include "host/window/work/CProgressDialog.h"
#include "support/GuardedTest.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QProgressBar>
#include <QPushButton>
#include <QSemaphore>
#include <QTest>
#include <QTimer>

#include <atomic>
#include <thread>

class TestBackgroundWork : public GuardedTest
{
    Q_OBJECT

private:
    static CProgressDialog* dialog()
    {
        for (QWidget* widget : QApplication::topLevelWidgets()) {
            if (auto* found = qobject_cast<CProgressDialog*>(widget); found && found->isVisible())
                return found;
        }
        return nullptr;
    }
    /// Calls back once the progress dialog is on the screen.
    void whenShown(const std::function<void(CProgressDialog&)>& call)
    {
        auto* timer = new QTimer(this);
        connect(timer, &QTimer::timeout, this, [timer, call] {
            if (CProgressDialog* shown = dialog()) {
                timer->deleteLater();
                timer->stop();
                call(*shown);
            }
        });
        timer->start(1);
    }

private slots:
    void showsNothingForShortWork();
    void runsOutsideOfTheWindowsThread();
    void raisesHereWhatTheWorkRaised();
    void showsHowFarLongWorkHasCome();
    void stopsTheWorkWhenTheUserCancels();
    void cancelsWhenTheDialogIsClosed();
    void holdsPaintingWhileTheDrawingIsRead();
};

void TestBackgroundWork::showsNothingForShortWork()
{
    bool called = false;
    runInBackground(nullptr, QStringLiteral("short"), false,
                    [&](const IoProgress& progress) { called = progress(1, 2); });
    QVERIFY(called);
    QVERIFY(!dialog());
}

void TestBackgroundWork::runsOutsideOfTheWindowsThread()
{
    std::thread::id worker;
    runInBackground(nullptr, QString(), false,
                    [&](const IoProgress&) { worker = std::this_thread::get_id(); });
    QVERIFY(worker != std::thread::id());
    QVERIFY(worker != std::this_thread::get_id());
}

void TestBackgroundWork::raisesHereWhatTheWorkRaised()
{
    QVERIFY_EXCEPTION_THROWN(
        runInBackground(nullptr, QString(), false,
                        [](const IoProgress&) { throw OdError_InvalidIndex(); }),
        OdError_InvalidIndex);
}

void TestBackgroundWork::showsHowFarLongWorkHasCome()
{
    QSemaphore seen;
    int value = -1;
    int maximum = 0;
    whenShown([&](CProgressDialog& shown) {
        // The dialog reads the progress from its own timer; ask once that has run.
        auto* bar = shown.findChild<QProgressBar*>();
        connect(bar, &QProgressBar::valueChanged, &shown, [&, bar] {
            value = bar->value();
            maximum = bar->maximum();
            seen.release();
        });
    });
    runInBackground(nullptr, QStringLiteral("long"), false, [&](const IoProgress& progress) {
        progress(1, 4);
        seen.acquire();
    });
    QCOMPARE(value * 4, maximum);
}

void TestBackgroundWork::stopsTheWorkWhenTheUserCancels()
{
    std::atomic<bool> stopped{false};
    whenShown([](CProgressDialog& shown) {
        auto* cancel = shown.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Cancel);
        QTest::mouseClick(cancel, Qt::LeftButton);
        QVERIFY(!cancel->isEnabled());
        QVERIFY(shown.isVisible());
    });
    const auto work = [&](const IoProgress& progress) {
        while (progress(1, 2))
            std::this_thread::yield();
        stopped = true;
        throw OdError(OdResult::Cancelled, QStringLiteral("stopped"));
    };
    QVERIFY_EXCEPTION_THROWN(runInBackground(nullptr, QString(), false, work), OdError);
    QVERIFY(stopped);
    QVERIFY(!dialog());
}

void TestBackgroundWork::cancelsWhenTheDialogIsClosed()
{
    whenShown([](CProgressDialog& shown) { QTest::keyClick(&shown, Qt::Key_Escape); });
    bool cancelled = false;
    runInBackground(nullptr, QString(), false, [&](const IoProgress& progress) {
        while (progress(1, 2))
            std::this_thread::yield();
        cancelled = true;
    });
    QVERIFY(cancelled);
}

void TestBackgroundWork::holdsPaintingWhileTheDrawingIsRead()
{
    QWidget drawing;
    drawing.show();
    QVERIFY(QTest::qWaitForWindowExposed(&drawing));
    for (const bool holds : {false, true}) {
        QSemaphore seen;
        bool updates = false;
        bool dialogUpdates = false;
        whenShown([&](CProgressDialog& shown) {
            updates = drawing.updatesEnabled();
            dialogUpdates = shown.updatesEnabled();
            seen.release();
        });
        runInBackground(&drawing, QString(), holds, [&](const IoProgress&) { seen.acquire(); });
        QCOMPARE(updates, !holds);
        QVERIFY(dialogUpdates);
        QVERIFY(drawing.updatesEnabled());
    }
}

QTEST_MAIN(TestBackgroundWork)
#include "test_background_work.moc"
