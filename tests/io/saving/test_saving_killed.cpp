#include "SavingFixture.h"
#include "io/DrawingFile.h"

#include <QFileInfo>

#include <atomic>
#include <chrono>
#include <random>
#include <thread>

namespace {

using namespace std::chrono_literals;

constexpr int kKills = 100;
/// A handful of saves of the drawing below.
constexpr auto kLatestKill = 60ms;

/// Looks for a file without a pause.
class Lookout
{
public:
    explicit Lookout(const QString& path)
        : m_thread([this, path](const std::stop_token& stop) {
            while (!stop.stop_requested()) {
                ++m_looks;
                if (!QFileInfo::exists(path))
                    ++m_missed;
            }
        })
    { }

    quint64 looks() const { return m_looks; }
    quint64 missed() const { return m_missed; }

private:
    std::atomic<quint64> m_looks = 0;
    std::atomic<quint64> m_missed = 0;
    std::jthread m_thread;
};

class SavingKilled : public SavingFixture
{
protected:
    void killAfter(std::chrono::microseconds delay)
    {
        QProcess process;
        start(process, "loop", path("plan.dxf"));
        ASSERT_TRUE(process.waitForReadyRead());
        ASSERT_EQ(process.readAllStandardOutput(), "ready\n");
        std::this_thread::sleep_for(delay);
        process.kill();
        ASSERT_TRUE(process.waitForFinished());
        ASSERT_EQ(process.exitStatus(), QProcess::CrashExit);
    }
    qsizetype leftovers() const { return names().filter(QStringLiteral(".tmp")).size(); }
};

TEST_F(SavingKilled, AtAnyMomentTheFileIsTheOldOrTheNewOne)
{
    const QByteArray before = generated(100, 10000);
    const QByteArray after = drawingBytes(*edited(before));
    ASSERT_NE(before, after);
    put(path("plan.dxf"), before);
    std::mt19937 random(20);
    std::uniform_int_distribution<int> delay(
        0, static_cast<int>(std::chrono::microseconds(kLatestKill).count()));
    int olds = 0;
    int news = 0;
    int interrupted = 0;
    {
        const Lookout lookout(path("plan.dxf"));
        for (int kill = 0; kill < kKills; ++kill) {
            // Each process starts from the same drawing, under the eyes of the lookout.
            if (contents(path("plan.dxf")) != before)
                writeDrawing(*readDrawing(before, {}), path("plan.dxf"));
            ASSERT_NO_FATAL_FAILURE(killAfter(std::chrono::microseconds(delay(random))));
            const QByteArray found = contents(path("plan.dxf"));
            ASSERT_TRUE(found == before || found == after) << "kill " << kill;
            ++(found == before ? olds : news);
            if (QFileInfo::exists(path("plan.dxf~"))) {
                const QByteArray backup = contents(path("plan.dxf~"));
                ASSERT_TRUE(backup == before || backup == after) << "backup, kill " << kill;
            }
            interrupted += leftovers() > 0;
        }
        EXPECT_EQ(lookout.missed(), 0u);
        EXPECT_GT(lookout.looks(), 100000u);
    }
    // Otherwise nothing was at stake.
    EXPECT_GT(olds, kKills / 20);
    EXPECT_GT(news, kKills / 20);
    EXPECT_GT(interrupted, kKills / 4);
    RecordProperty("interruptedSaves", interrupted);

    writeDrawing(*readDrawing(before, {}), path("plan.dxf"));
    EXPECT_EQ(leftovers(), 0) << "The next save clears away what killed ones left.";
}

} // namespace
