#include "CompanionFixture.h"
#include "layerman/ExitStatus.h"

#include <QFile>
#include <QFileInfo>
#include <QProcess>

namespace {

QString page()
{
    QFile file(QStringLiteral(KEST_DOCS "/layerman.md"));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return QString::fromUtf8(file.readAll());
}

struct Example
{
    QString line;
    QString printed;
};

/// The command lines of the page, each with what stands below it.
QList<Example> examples()
{
    QList<Example> found;
    bool isConsole = false;
    for (const QString& line : page().split(QLatin1Char('\n'))) {
        if (line.startsWith(QStringLiteral("```")))
            isConsole = line == QStringLiteral("```console");
        else if (isConsole && line.startsWith(QStringLiteral("$ ")))
            found.append({line.mid(2), {}});
        else if (isConsole)
            found.last().printed += line + QLatin1Char('\n');
    }
    return found;
}

} // namespace

class CompanionPage : public CompanionFixture
{
protected:
    /// Runs a line in a shell; both streams in the order in which they came.
    std::string run(const QString& line)
    {
        QProcess shell;
        QProcessEnvironment withProgram = environment;
        withProgram.insert(QStringLiteral("PATH"),
                           QFileInfo(QStringLiteral(LAYERMAN_PROGRAM)).path() + QLatin1Char(':')
                               + environment.value(QStringLiteral("PATH")));
        shell.setProcessEnvironment(withProgram);
        shell.setWorkingDirectory(folder.path());
        shell.setProcessChannelMode(QProcess::MergedChannels);
        shell.start(QStringLiteral("/bin/sh"), {QStringLiteral("-c"), line});
        EXPECT_TRUE(shell.waitForFinished());
        return shell.readAll().toStdString();
    }
};

TEST_F(CompanionPage, EveryExamplePrintsWhatThePageSays)
{
    ASSERT_TRUE(QFile::copy(QStringLiteral(KEST_SAMPLES "/office.dxf"),
                            path(QStringLiteral("office.dxf"))));
    const QList<Example> all = examples();
    EXPECT_GE(all.size(), 9);
    for (const Example& example : all)
        EXPECT_EQ(example.printed.toStdString(), run(example.line)) << example.line.toStdString();
}

TEST_F(CompanionPage, ListsTheExitCodesAsTheProgramDoes)
{
    const QString text = page();
    for (const ExitStatusInfo& info : exitStatuses()) {
        const QString row = QStringLiteral("| %1 | %2 |")
                                .arg(static_cast<int>(info.status))
                                .arg(QLatin1String(info.text));
        EXPECT_TRUE(text.contains(row)) << row.toStdString();
    }
}
