#include "CompanionFixture.h"
#include "layerman/ExitStatus.h"
#include "layerman/arguments/HelpText.h"
#include "layerman/arguments/ManPage.h"
#include "layerman/editing/PropertyTable.h"
#include "layerman/listing/ColumnTable.h"

#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>

namespace {

/// The manual without its mark-up.
QString plainManual()
{
    QString text = manPage();
    text.remove(QRegularExpression(QStringLiteral("\\\\f[BR]")));
    text.replace(QStringLiteral("\\-"), QStringLiteral("-"));
    return text;
}

/// What a program complains about when it reads the manual; nothing where it is not installed.
std::optional<std::string> complaints(const char* program, const QStringList& arguments)
{
    const QString path = QStandardPaths::findExecutable(QLatin1String(program));
    if (path.isEmpty())
        return std::nullopt;
    QProcess process;
    process.start(path, arguments);
    EXPECT_TRUE(process.waitForStarted());
    process.write(manPage().toUtf8());
    process.closeWriteChannel();
    EXPECT_TRUE(process.waitForFinished());
    EXPECT_EQ(0, process.exitCode());
    const QByteArray page = process.readAllStandardOutput();
    // Small containers have a script in its place, which says so.
    if (page.contains("has been minimized"))
        return std::nullopt;
    EXPECT_TRUE(page.contains("layerman"));
    return process.readAllStandardError().toStdString();
}

} // namespace

class CompanionHelp : public CompanionFixture
{ };

TEST_F(CompanionHelp, IsPrintedByTheProgramAndByEachCommand)
{
    const Finished help = layerman("--help");
    EXPECT_EQ(0, help.exitCode);
    EXPECT_EQ(0u, help.output.find("Usage: layerman list "));
    EXPECT_EQ("", help.errors);
    EXPECT_EQ(help.output, layerman("-h").output);
    for (const CommandInfo& command : commands()) {
        const Finished own = layerman({QLatin1String(command.name), QStringLiteral("--help")});
        EXPECT_EQ(0, own.exitCode);
        EXPECT_EQ(commandHelp(command).toStdString(), own.output);
    }
    EXPECT_EQ("layerman " KEST_VERSION "\n", layerman("--version").output);
}

TEST_F(CompanionHelp, NamesEveryOptionOperandColumnPropertyAndExitCode)
{
    const auto requireIn = [](const QString& text, const QString& what, const char* where) {
        EXPECT_TRUE(text.contains(what)) << where << " lacks " << what.toStdString();
    };
    const QString manual = plainManual();
    for (const CommandInfo& command : commands()) {
        const QString help = commandHelp(command);
        for (const OptionId id : command.options) {
            requireIn(help, QStringLiteral("  ") + optionText(optionInfo(id)), command.name);
            requireIn(manual,
                      QStringLiteral(".TP\n") + optionText(optionInfo(id)) + QLatin1Char('\n'),
                      "manual");
        }
        for (const OperandInfo& operand : command.operands)
            requireIn(help, QLatin1String(operand.name), command.name);
    }
    for (const ListColumn& column : listColumns()) {
        requireIn(commandHelp(commands()[0]),
                  QStringLiteral("\n  %1 ").arg(QLatin1String(column.name)), "list --help");
        requireIn(manual, QStringLiteral(".TP\n%1\n").arg(QLatin1String(column.name)), "manual");
    }
    for (const PropertyInfo& property : properties()) {
        const QString text =
            QLatin1String(property.name) + QLatin1Char('=') + QLatin1String(property.value);
        requireIn(commandHelp(commands()[2]), QStringLiteral("\n  ") + text, "set --help");
        requireIn(manual, QStringLiteral(".TP\n%1\n").arg(text), "manual");
    }
    for (const ExitStatusInfo& info : exitStatuses()) {
        const int code = static_cast<int>(info.status);
        requireIn(programHelp(), QStringLiteral("\n  %1 ").arg(code), "--help");
        requireIn(manual, QStringLiteral(".TP\n%1\n").arg(code), "manual");
    }
}

TEST_F(CompanionHelp, TheSynopsisNamesEveryOption)
{
    for (const CommandInfo& command : commands()) {
        const QString synopsis = QLatin1String(command.synopsis);
        for (const OptionId id : command.options) {
            const OptionInfo& option = optionInfo(id);
            const QString spelled = option.letter != 0
                ? QStringLiteral("-%1").arg(QLatin1Char(option.letter))
                : QStringLiteral("--") + QLatin1String(option.name);
            const QString withValue = option.argument && id != OptionId::Format
                ? spelled + QLatin1Char(' ') + QLatin1String(option.argument)
                : spelled;
            EXPECT_TRUE(id == OptionId::Help || synopsis.contains(withValue))
                << command.name << ' ' << withValue.toStdString();
        }
    }
}

TEST_F(CompanionHelp, NoLineIsWiderThanATerminal)
{
    QString all = programHelp();
    for (const CommandInfo& command : commands())
        all += commandHelp(command) + usageHint(&command);
    for (const QString& line : all.split(QLatin1Char('\n')))
        EXPECT_LE(line.size(), 79) << line.toStdString();
}

TEST_F(CompanionHelp, TheManualIsWhatTheProgramWrites)
{
    const Finished manual = layerman("--man-page");
    EXPECT_EQ(0, manual.exitCode);
    EXPECT_EQ(manPage().toStdString(), manual.output);
    EXPECT_EQ(std::string::npos, layerman("--help").output.find("--man-page"));
}

TEST_F(CompanionHelp, TypesettersFindNothingToWarnAbout)
{
    const auto groff = complaints("groff",
                                  {QStringLiteral("-man"), QStringLiteral("-Tascii"),
                                   QStringLiteral("-ww"), QStringLiteral("-")});
    const auto man = complaints(
        "man", {QStringLiteral("--warnings"), QStringLiteral("-l"), QStringLiteral("-")});
    if (!groff && !man)
        GTEST_SKIP() << "Neither groff nor man is installed; the manual was not set.";
    EXPECT_EQ("", groff.value_or(""));
    EXPECT_EQ("", man.value_or(""));
}

TEST_F(CompanionHelp, TheProgramLinksNoWindowSystem)
{
    const QString ldd = QStandardPaths::findExecutable(QStringLiteral("ldd"));
    if (ldd.isEmpty())
        GTEST_SKIP() << "ldd is not installed; what the program links was not looked at.";
    QProcess process;
    process.start(ldd, {QStringLiteral(LAYERMAN_PROGRAM)});
    ASSERT_TRUE(process.waitForFinished());
    const std::string libraries = process.readAllStandardOutput().toStdString();
    EXPECT_NE(std::string::npos, libraries.find("libkest_io"));
    for (const char* unwanted : {"Qt6Widgets", "Qt6Gui"})
        EXPECT_EQ(std::string::npos, libraries.find(unwanted)) << libraries;
}

TEST_F(CompanionHelp, AWrongCallIsToldWithItsUsageAndIsOne)
{
    const auto wrong = [this](const char* words, const std::string& sentence, const char* usage) {
        const Finished done = layerman(words);
        EXPECT_EQ(1, done.exitCode) << words;
        EXPECT_EQ("", done.output) << words;
        EXPECT_EQ(0u, done.errors.find("layerman: " + sentence + "\nUsage: layerman "))
            << done.errors;
        EXPECT_NE(std::string::npos, done.errors.find(usage)) << done.errors;
    };
    wrong("", "A command is needed.", "More: layerman --help\n");
    wrong("lst", "There is no command \"lst\"; the nearest is list.", "More: layerman --help\n");
    wrong("--inches list", "A command is needed before --inches.", "More: layerman --help\n");
    wrong("list", "list needs a drawing.", "More: layerman list --help\n");
    wrong("list a.dxf --fitler x", "list has no option --fitler; the nearest is --filter.",
          "More: layerman list --help\n");
    wrong("list a.dxf --format xml",
          "list has no format \"xml\"; expected one of table, csv, json.",
          "More: layerman list --help\n");
    wrong("list a.dxf --columns colour", "There is no column \"colour\"; the nearest is color.",
          "More: layerman list --help\n");
    wrong("list a.dxf --invert", "--invert needs --filter, --expr or --search.",
          "More: layerman list --help\n");
    wrong("list a.dxf --filter A --expr B",
          "--filter and --expr both say which layers; give one of them.",
          "More: layerman list --help\n");
    wrong("filters", "filters needs a drawing.", "More: layerman filters --help\n");
}
