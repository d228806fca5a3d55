#include "database/filters/FilterCriteria.h"
#include "database/values/OdError.h"
#include "layerman/arguments/DecodedName.h"
#include "layerman/arguments/FileList.h"
#include "layerman/arguments/NearestName.h"
#include "layerman/arguments/Operands.h"
#include "layerman/arguments/UsageError.h"

#include <QBuffer>
#include <QRegularExpression>

#include <gtest/gtest.h>

namespace {

const CommandInfo& command(CommandId id)
{
    return commands()[static_cast<std::size_t>(id)];
}

QStringList words(const char* line)
{
    return QString::fromUtf8(line).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

ParsedCommand parsed(const char* line, CommandId id = CommandId::Set)
{
    return ParsedCommand(command(id), words(line));
}

std::string operands(const char* line)
{
    return parsed(line).operands().join(QLatin1Char(' ')).toStdString();
}

/// The sentence of the UsageError that a call raises.
template <class Call>
std::string refusal(const Call& call)
{
    try {
        call();
    } catch (const UsageError& error) {
        return error.sentence().toStdString();
    }
    return "nothing was refused";
}

std::string refusalOf(const char* line, CommandId id = CommandId::Set)
{
    return refusal([&] { parsed(line, id); });
}

QStringList namesIn(const QByteArray& bytes)
{
    QByteArray copy = bytes;
    QBuffer buffer(&copy);
    buffer.open(QIODevice::ReadOnly);
    return namesFrom(buffer);
}

std::string refusedList(const QByteArray& bytes)
{
    try {
        namesIn(bytes);
    } catch (const OdError& error) {
        return error.description().toStdString();
    }
    return "nothing was refused";
}

} // namespace

TEST(Arguments, OptionsAndOperandsStandInAnyOrder)
{
    for (const char* line :
         {"a.dxf --search A* --invert -o out x=1", "--search=A* a.dxf -o out --invert x=1",
          "-oout --invert --search A* a.dxf x=1"})
    {
        const ParsedCommand set = parsed(line);
        EXPECT_EQ("a.dxf x=1", operands(line));
        EXPECT_EQ(QStringLiteral("A*"), set.value(OptionId::Search));
        EXPECT_EQ(QStringLiteral("out"), set.value(OptionId::Output));
        EXPECT_TRUE(set.has(OptionId::Invert));
        EXPECT_FALSE(set.has(OptionId::InPlace));
        EXPECT_EQ(std::nullopt, set.value(OptionId::Filter));
    }
}

TEST(Arguments, TheHelpOfExpressionsNamesEveryKey)
{
    const QString help = QString::fromUtf8(optionInfo(OptionId::Expr).text);
    for (const FilterCriteria::Criterion& criterion : FilterCriteria::all()) {
        const QRegularExpression word(QStringLiteral("\\b%1\\b").arg(QLatin1String(criterion.key)));
        EXPECT_TRUE(help.contains(word)) << criterion.key;
    }
}

TEST(Arguments, AValueMayHoldEqualsSignsAndDashesOrNothing)
{
    const ParsedCommand set = parsed("--expr=NAME==\"A\" --filter --odd--");
    EXPECT_EQ(QStringLiteral("NAME==\"A\""), set.value(OptionId::Expr));
    EXPECT_EQ(QStringLiteral("--odd--"), set.value(OptionId::Filter));
    EXPECT_EQ(QString(), parsed("--search=").value(OptionId::Search));
    const ParsedCommand empty(command(CommandId::List), {QStringLiteral("--search"), QString()});
    EXPECT_EQ(QString(), empty.value(OptionId::Search));
}

TEST(Arguments, TwoDashesEndTheOptionsAndOneIsAnOperand)
{
    EXPECT_EQ("- --invert -- -o", operands("- -- --invert -- -o"));
    EXPECT_FALSE(parsed("-- --invert").has(OptionId::Invert));
}

TEST(Arguments, AnUnknownOptionIsToldWithTheNearestOne)
{
    EXPECT_EQ("set has no option --fitler; the nearest is --filter.", refusalOf("--fitler=x"));
    EXPECT_EQ("list has no option --in-place; the nearest is --invert.",
              refusalOf("--in-place", CommandId::List));
    EXPECT_EQ("filters has no option --search; the nearest is --help.",
              refusalOf("--search A*", CommandId::Filters));
    EXPECT_EQ("list has no option -x; the nearest is --expr.", refusalOf("-x", CommandId::List));
}

TEST(Arguments, AnOptionHasItsValueOnceAndOnlyWhereItTakesOne)
{
    EXPECT_EQ("--filter needs a value: NAME.", refusalOf("a.dxf --filter"));
    EXPECT_EQ("-o needs a value: OUT.", refusalOf("-o"));
    EXPECT_EQ("--invert takes no value.", refusalOf("--invert=yes"));
    EXPECT_EQ("--search is given twice.", refusalOf("--search a --search b"));
    EXPECT_TRUE(parsed("--invert --invert").has(OptionId::Invert));
}

TEST(Arguments, EveryOptionOfEveryCommandIsUnderstood)
{
    for (const CommandInfo& info : commands()) {
        for (const OptionId id : info.options) {
            const OptionInfo& option = optionInfo(id);
            QStringList line{QStringLiteral("--") + QLatin1String(option.name)};
            if (option.argument)
                line << QStringLiteral("value");
            EXPECT_TRUE(ParsedCommand(info, line).has(id)) << info.name << ' ' << option.name;
            EXPECT_EQ(id, option.id) << "the table is in the order of the ids";
        }
    }
}

TEST(Arguments, AFormatIsOneOfTheCommands)
{
    EXPECT_EQ(QStringLiteral("table"), formatOf(parsed("a.dxf", CommandId::List)));
    EXPECT_EQ(QStringLiteral("csv"), formatOf(parsed("--format csv", CommandId::List)));
    EXPECT_EQ("filters has no format \"csv\"; expected one of table, json.",
              refusal([] { formatOf(parsed("--format csv", CommandId::Filters)); }));
}

TEST(Arguments, TheNearestNameNeedsTheFewestChanges)
{
    EXPECT_EQ(0, nearest_name::distance(QStringLiteral("Walls"), QStringLiteral("WALLS")));
    EXPECT_EQ(3, nearest_name::distance(QStringLiteral("kitten"), QStringLiteral("sitting")));
    EXPECT_EQ(4, nearest_name::distance(QString(), QStringLiteral("four")));
    const QStringList names{QStringLiteral("roof"), QStringLiteral("doors"), QStringLiteral("door"),
                            QStringLiteral("door")};
    EXPECT_EQ((QStringList{QStringLiteral("door"), QStringLiteral("doors")}),
              nearest_name::of(QStringLiteral("dor"), names, 2));
    EXPECT_EQ(QStringList(), nearest_name::of(QStringLiteral("x"), {}));
}

TEST(Arguments, AListHoldsANameALine)
{
    EXPECT_EQ((QStringList{QStringLiteral("a.dxf"), QStringLiteral("b c.dxf"),
                           QStringLiteral("Wände.dxf")}),
              namesIn("a.dxf\r\n\nb c.dxf\nWände.dxf"));
    EXPECT_EQ(QStringList(), namesIn(""));
}

TEST(Arguments, AListOfSomethingElseIsRefusedAtItsLine)
{
    EXPECT_EQ("standard input, line 2: expected a file name, found a null character.",
              refusedList(QByteArray("a.dxf\nb\0c\n", 10)));
    EXPECT_EQ("standard input, line 1: this is longer than a file name can be.",
              refusedList(QByteArray(200'000, 'a')));
    EXPECT_EQ("standard input, line 1: this name holds bytes that are no text.",
              refusedList("W\xE4nde.dxf"));
}

TEST(Arguments, BytesThatAreNoTextAreNoName)
{
    EXPECT_EQ(QStringLiteral("Wände"), decodedName("W\xC3\xA4nde"));
    EXPECT_EQ(QString(), decodedName(""));
    EXPECT_EQ(std::nullopt, decodedName("W\xE4nde"));
    EXPECT_EQ(QString(QChar(0xFFFD)), decodedName("\xEF\xBF\xBD"));
}

TEST(Arguments, StandardInputIsReadOnceAndNoNameIsEmpty)
{
    EXPECT_EQ("- can be given once only.", refusal([] {
                  fileList({QStringLiteral("-"), QStringLiteral("-")});
              }));
    EXPECT_EQ("A file name is needed; the one given is empty.",
              refusal([] { fileList({QString()}); }));
    EXPECT_EQ("list needs a drawing.", refusal([] {
                  const ParsedCommand list = parsed("--inches", CommandId::List);
                  requiredFiles(list, list.operands());
              }));
}
