#include "CompanionFixture.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QProcess>

#include <csignal>
#include <sys/types.h>

class CompanionSignals : public CompanionFixture
{
protected:
    void start(const QStringList& arguments)
    {
        process.setWorkingDirectory(folder.path());
        process.start(QStringLiteral(LAYERMAN_PROGRAM), arguments);
        ASSERT_TRUE(process.waitForStarted());
    }
    void interrupt()
    {
        ASSERT_EQ(0, ::kill(static_cast<pid_t>(process.processId()), SIGINT));
        ASSERT_TRUE(process.waitForFinished());
        EXPECT_EQ(QProcess::NormalExit, process.exitStatus());
        EXPECT_EQ(130, process.exitCode());
    }
    /// Waits until a file is there.
    void await(const char* name)
    {
        QElapsedTimer patience;
        patience.start();
        while (!QFileInfo::exists(path(QLatin1String(name))) && patience.elapsed() < 60'000) {
        }
        ASSERT_TRUE(QFileInfo::exists(path(QLatin1String(name))));
    }
    /// Files "000.dxf" and so on, large enough that a run over all of them takes seconds.
    QStringList manyDrawings(int count)
    {
        Layers layers;
        for (int i = 0; i < 3'000; ++i)
            layers.append({"LAYER-" + QByteArray::number(i)});
        const QByteArray bytes = DrawingText::withLayers(layers);
        size = bytes.size();
        QStringList names;
        for (int i = 0; i < count; ++i)
            names << write(QByteArray::number(i).rightJustified(3, '0') + ".dxf", bytes);
        return names;
    }

    QProcess process;
    qint64 size = 0;
};

TEST_F(CompanionSignals, ASetEndsBetweenFilesAndLeavesWholeOnes)
{
    const QStringList drawings = manyDrawings(60);
    start(QStringList{QStringLiteral("set"), QStringLiteral("-o"), QStringLiteral("out/"),
                      QStringLiteral("--search=*"), QStringLiteral("locked=yes")}
          + drawings);
    await("out/001.dxf");
    interrupt();
    const QStringList done =
        QDir(path(QStringLiteral("out"))).entryList(QDir::Files | QDir::Hidden, QDir::Name);
    EXPECT_LT(done.size(), drawings.size()) << "it was finished before it was stopped";
    for (const QString& name : done) {
        EXPECT_TRUE(drawings.contains(name)) << name.toStdString();
        EXPECT_EQ(size, QFileInfo(path(QStringLiteral("out/") + name)).size());
    }
    EXPECT_EQ(drawings, files()) << "no lock is left";
}

TEST_F(CompanionSignals, AListThatIsStoppedIsStillValidJson)
{
    const QStringList drawings = manyDrawings(60);
    start(QStringList{QStringLiteral("list"), QStringLiteral("--format=json"),
                      QStringLiteral("--columns=name")}
          + drawings);
    ASSERT_TRUE(process.waitForReadyRead());
    interrupt();
    QJsonParseError error;
    const auto json = QJsonDocument::fromJson(process.readAllStandardOutput(), &error);
    EXPECT_EQ(QJsonParseError::NoError, error.error) << error.errorString().toStdString();
    EXPECT_GT(json.array().size(), 0);
    EXPECT_LT(json.array().size(), drawings.size());
}

#ifdef Q_OS_LINUX
TEST_F(CompanionSignals, AListOfNamesThatDoesNotEndIsStopped)
{
    start({QStringLiteral("list"), QStringLiteral("-")});
    // The process tells nothing while it waits; the system knows whether it minds the signal.
    const auto minds = [this] {
        QFile status(QStringLiteral("/proc/%1/status").arg(process.processId()));
        if (!status.open(QIODevice::ReadOnly))
            return false;
        const QByteArray text = status.readAll();
        const qsizetype at = text.indexOf("SigCgt:\t");
        return at >= 0
            && (text.mid(at + 8, 16).toULongLong(nullptr, 16) & (1u << (SIGINT - 1))) != 0;
    };
    QElapsedTimer patience;
    patience.start();
    while (!minds() && patience.elapsed() < 60'000) {
    }
    ASSERT_TRUE(minds());
    interrupt();
    EXPECT_EQ("0 drawings, 0 of 0 layers listed.\n", process.readAllStandardError().toStdString());
}
#endif
