#include "host/application/HostOptionTable.h"

#include <gtest/gtest.h>

namespace {
using Mode = HostOptions::Mode;

HostOptions parse(std::initializer_list<const char*> arguments)
{
    QStringList list;
    for (const char* argument : arguments)
        list << QString::fromUtf8(argument);
    return HostOptions::parse(list);
}

std::string error(std::initializer_list<const char*> arguments)
{
    const HostOptions options = parse(arguments);
    EXPECT_EQ(Mode::Error, options.mode);
    return options.error.toStdString();
}
} // namespace

TEST(HostOptions, FilesAreOpenedInAWindow)
{
    const HostOptions options = parse({"a.dxf", "b.dxf"});
    EXPECT_EQ(Mode::Window, options.mode);
    EXPECT_EQ(2, options.files.size());
}

TEST(HostOptions, BatchTakesAScriptAndOneDrawing)
{
    const HostOptions options = parse({"--config", "dir", "--batch", "-", "a.dxf"});
    EXPECT_EQ(Mode::Batch, options.mode);
    EXPECT_EQ("-", options.script.toStdString());
    EXPECT_EQ("dir", options.configFolder.toStdString());
    EXPECT_EQ("a.dxf", options.files.value(0).toStdString());
    EXPECT_EQ("One drawing can be given; there are 2.", error({"--batch", "s", "a", "b"}));
}

TEST(HostOptions, ScreenshotTakesAPicture)
{
    const HostOptions options = parse({"--screenshot", "out.png", "a.dxf"});
    EXPECT_EQ(Mode::Screenshot, options.mode);
    EXPECT_EQ("out.png", options.picture.toStdString());
}

TEST(HostOptions, HelpAndVersionAreModes)
{
    EXPECT_EQ(Mode::Help, parse({"--help"}).mode);
    EXPECT_EQ(Mode::Help, parse({"-h"}).mode);
    EXPECT_EQ(Mode::Version, parse({"--version"}).mode);
}

TEST(HostOptions, WrongUsageIsASentence)
{
    EXPECT_EQ("There is no option --frob.", error({"--frob"}));
    EXPECT_EQ("--batch needs a value.", error({"--batch"}));
    EXPECT_EQ("--screenshot does not go with another mode.",
              error({"--batch", "s", "--screenshot", "p"}));
}

TEST(HostOptions, AfterTwoDashesEverythingIsAFile)
{
    EXPECT_EQ("--frob.dxf", parse({"--", "--frob.dxf"}).files.value(0).toStdString());
}

TEST(HostOptions, AValueMayFollowAnEqualsSign)
{
    const HostOptions options = parse({"--config=my=dir", "--batch=-", "a.dxf"});
    EXPECT_EQ(Mode::Batch, options.mode);
    EXPECT_EQ("my=dir", options.configFolder.toStdString());
    EXPECT_EQ("-", options.script.toStdString());
    EXPECT_EQ("--version takes no value.", error({"--version=2"}));
    EXPECT_EQ("There is no option --frob.", error({"--frob=1"}));
}

TEST(HostOptions, UsageNamesEveryOptionThatIsForUsers)
{
    int hidden = 0;
    for (const HostOptionInfo& option : hostOptionTable()) {
        const bool isNamed = HostOptions::usage().contains(QLatin1String(option.name));
        EXPECT_EQ(option.text != nullptr, isNamed) << option.name;
        hidden += option.text ? 0 : 1;
    }
    EXPECT_EQ(2, hidden);
}

TEST(HostOptions, NoLineOfTheUsageIsWiderThanATerminal)
{
    for (const QString& line : HostOptions::usage().split(QLatin1Char('\n')))
        EXPECT_LE(line.size(), 79) << line.toStdString();
}

TEST(HostOptions, StandardInputIsTheScriptOrTheDrawing)
{
    EXPECT_EQ(QStringList{QStringLiteral("-")}, parse({"--batch", "a.scr", "-"}).files);
    EXPECT_EQ("Standard input is the script or the drawing, not both.",
              error({"--batch", "-", "-"}));
}
