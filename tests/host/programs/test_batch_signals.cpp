#include "host/support/TestDrawing.h"

#include <QDir>
#include <QElapsedTimer>
#include <QProcess>
#include <QTemporaryDir>

#include <csignal>
#include <gtest/gtest.h>
#include <sys/types.h>

/// The program in batch mode, met by a signal.
class BatchSignals : public testing::Test
{
protected:
    void start(const QStringList& arguments)
    {
        process.start(QStringLiteral(KEST_PROGRAM),
                      QStringList{QStringLiteral("--config"), config.path()} + arguments);
        ASSERT_TRUE(process.waitForStarted());
    }
    void runScript(const QString& drawing, const QByteArray& script)
    {
        QFile file(config.filePath(QStringLiteral("s.scr")));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(script);
        file.close();
        start({QStringLiteral("--batch"), file.fileName(), drawing});
    }
    void send(int signal) const
    {
        ASSERT_EQ(0, ::kill(static_cast<pid_t>(process.processId()), signal));
    }
    void waitForEnd()
    {
        ASSERT_TRUE(process.waitForFinished());
        EXPECT_EQ(QProcess::NormalExit, process.exitStatus());
    }
    /// All files beside the drawing, hidden ones included.
    QStringList files() const
    {
        return QDir(folder.path()).entryList(QDir::Files | QDir::Hidden, QDir::Name);
    }
    QString path(const char* name) const { return folder.filePath(QString::fromUtf8(name)); }

    QTemporaryDir config;
    QTemporaryDir folder;
    QProcess process;
};

TEST_F(BatchSignals, AScriptThatWaitsForInputEndsAndLeavesNoLock)
{
    const QString drawing = TestDrawing().writeTo(folder.path(), QStringLiteral("a.dxf"));
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
        start({QStringLiteral("--batch"), QStringLiteral("-"), drawing});
        process.write("LTSCALE 3\nLTSCALE\n");
        ASSERT_TRUE(process.waitForReadyRead());
        EXPECT_EQ("LTSCALE = 3\n", process.readAllStandardOutput().toStdString());
        ASSERT_EQ((QStringList{QStringLiteral(".a.dxf.lock"), QStringLiteral("a.dxf")}), files());
        send(signal);
        waitForEnd();
        EXPECT_EQ(128 + signal, process.exitCode());
        EXPECT_EQ("-:2: The script was stopped here.\n",
                  process.readAllStandardError().toStdString());
        EXPECT_EQ(QStringList{QStringLiteral("a.dxf")}, files());
    }
}

TEST_F(BatchSignals, ASaveUnderWayIsFinishedOrLeavesNothing)
{
    TestDrawing large;
    for (int i = 0; i < 40'000; ++i)
        large.add({.name = "LAYER-" + QByteArray::number(i)});
    QTemporaryDir source;
    const QString drawing = large.writeTo(source.path(), QStringLiteral("large.dxf"));
    const qint64 wholeSize = QFileInfo(drawing).size();
    runScript(drawing,
              "SAVEAS \"" + path("out.dxf").toUtf8() + "\"\nSAVEAS \"" + path("second.dxf").toUtf8()
                  + "\"\n");
    // The save is under way once anything lies in the folder.
    QElapsedTimer patience;
    patience.start();
    while (files().isEmpty() && patience.elapsed() < 60'000) {
    }
    ASSERT_FALSE(files().isEmpty());
    send(SIGTERM);
    waitForEnd();
    EXPECT_EQ(128 + SIGTERM, process.exitCode());
    const QStringList left = files();
    EXPECT_TRUE(left.isEmpty() || left == QStringList{QStringLiteral("out.dxf")})
        << left.join(QLatin1Char(' ')).toStdString();
    for (const QString& name : left)
        EXPECT_EQ(wholeSize, QFileInfo(folder.filePath(name)).size());
}

TEST_F(BatchSignals, AnOldFileIsKeptWholeWhenItsSaveIsStopped)
{
    TestDrawing large;
    for (int i = 0; i < 40'000; ++i)
        large.add({.name = "LAYER-" + QByteArray::number(i)});
    const QString drawing = large.writeTo(folder.path(), QStringLiteral("a.dxf"));
    const qint64 before = QFileInfo(drawing).size();
    runScript(drawing, "ISAVEBAK 0\nLTSCALE 123.456\nSAVE\nLTSCALE 1\nSAVE\n");
    QElapsedTimer patience;
    patience.start();
    while (files().size() < 3 && patience.elapsed() < 60'000) {
    } // drawing, lock, new file
    ASSERT_EQ(3, files().size());
    send(SIGINT);
    waitForEnd();
    EXPECT_EQ(128 + SIGINT, process.exitCode());
    EXPECT_EQ(QStringList{QStringLiteral("a.dxf")}, files());
    QFile file(drawing);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const bool isSaved = file.readAll().contains("123.456");
    EXPECT_EQ(before + (isSaved ? qint64(std::strlen("123.456") - std::strlen("1.0")) : 0),
              QFileInfo(drawing).size());
}
