#include "SavingFixture.h"
#include "io/files/DrawingLock.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSysInfo>

namespace {

using State = DrawingLock::State;

class Locking : public SavingFixture
{
protected:
    /// Another process that holds the drawing's lock until it is ended.
    void holdElsewhere(QProcess& process, const QString& drawing)
    {
        start(process, "lock", drawing);
        ASSERT_TRUE(process.waitForReadyRead());
        ASSERT_EQ(process.readAllStandardOutput(), "held\n");
    }
    static void end(QProcess& process)
    {
        process.closeWriteChannel();
        ASSERT_TRUE(process.waitForFinished());
    }
};

TEST_F(Locking, ALockIsAFileBesideTheDrawingWhileItLives)
{
    put(path("plan.dxf"), "drawing");
    {
        const DrawingLock lock(path("plan.dxf"));
        EXPECT_EQ(lock.state(), State::Held);
        EXPECT_TRUE(QFileInfo::exists(path(".plan.dxf.lock")));
    }
    EXPECT_EQ(names(), QStringList{QStringLiteral("plan.dxf")});
}

TEST_F(Locking, AnotherProcessHoldsItAndIsNamed)
{
    put(path("plan.dxf"), "drawing");
    QProcess other;
    ASSERT_NO_FATAL_FAILURE(holdElsewhere(other, path("plan.dxf")));
    DrawingLock lock(path("plan.dxf"));
    EXPECT_EQ(lock.state(), State::Elsewhere);
    EXPECT_EQ(
        lock.holder(),
        QStringLiteral("process %1 on %2").arg(other.processId()).arg(QSysInfo::machineHostName()));
    EXPECT_EQ(lock.retry(), State::Elsewhere);
    ASSERT_NO_FATAL_FAILURE(end(other));
    EXPECT_EQ(lock.retry(), State::Held);
}

TEST_F(Locking, TheLockOfAProcessThatDiedIsTakenOver)
{
    put(path("plan.dxf"), "drawing");
    QProcess other;
    ASSERT_NO_FATAL_FAILURE(holdElsewhere(other, path("plan.dxf")));
    other.kill();
    ASSERT_TRUE(other.waitForFinished());
    ASSERT_TRUE(QFileInfo::exists(path(".plan.dxf.lock")));
    EXPECT_EQ(DrawingLock(path("plan.dxf")).state(), State::Held);
}

TEST_F(Locking, LinksToADrawingShareItsLock)
{
    put(path("plan.dxf"), "drawing");
    ASSERT_TRUE(QFile::link(path("plan.dxf"), path("other.dxf")));
    QProcess other;
    ASSERT_NO_FATAL_FAILURE(holdElsewhere(other, path("other.dxf")));
    EXPECT_EQ(DrawingLock(path("plan.dxf")).state(), State::Elsewhere);
    ASSERT_NO_FATAL_FAILURE(end(other));
}

TEST_F(Locking, WhereNoMarkCanBeMadeThereIsNoLock)
{
    EXPECT_EQ(DrawingLock(path("absent/plan.dxf")).state(), State::Unavailable);
    const QString longName = folder() + QLatin1Char('/') + QString(255, QLatin1Char('n'));
    put(longName, "drawing");
    EXPECT_EQ(DrawingLock(longName).state(), State::Unavailable);
}

} // namespace
