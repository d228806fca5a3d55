#include "SavingFixture.h"
#include "io/DrawingFile.h"

#include <QFileInfo>

#include <atomic>
#include <chrono>
#include <random>
#include <thread>

namespace {

using Microseconds = std::chrono::microseconds;

constexpr int kKills = 100;
/// The latest moment of a kill, in saves.
constexpr double kLatestKill = 3;

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
    void killAfter(Microseconds delay)
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
    /// Puts the drawing there as a save does; tells how long that took, on this machine at this
    /// time.
    Microseconds save(const QByteArray& bytes) const
    {
        const auto drawing = readDrawing(bytes, {});
        const auto start = std::chrono::steady_clock::now();
        writeDrawing(*drawing, path("plan.dxf"));
        return std::chrono::duration_cast<Microseconds>(std::chrono::steady_clock::now() - start);
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
    std::uniform_real_distribution<double> delay(0, kLatestKill);
    Microseconds oneSave = save(before);
    int olds = 0;
    int news = 0;
    int interrupted = 0;
    {
        const Lookout lookout(path("plan.dxf"));
        for (int kill = 0; kill < kKills; ++kill) {
            // Each process starts from the same drawing, under the eyes of the lookout.
            if (contents(path("plan.dxf")) != before)
                oneSave = save(before);
            ASSERT_NO_FATAL_FAILURE(
                killAfter(std::chrono::duration_cast<Microseconds>(oneSave * delay(random))));
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

    save(before);
    EXPECT_EQ(leftovers(), 0) << "The next save clears away what killed ones left.";
}

} // namespace
