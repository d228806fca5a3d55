#include "sdk/commands/OdEdCommandStack.h"

#include <gtest/gtest.h>

namespace {

class NamedCommand : public OdEdCommand
{
public:
    NamedCommand(const QString& group, const QString& global, const QString& local, int flags = 0)
        : m_group(group)
        , m_global(global)
        , m_local(local)
        , m_flags(flags)
    {
        ++s_alive;
    }
    ~NamedCommand() override { --s_alive; }
    QString groupName() const override { return m_group; }
    QString globalName() const override { return m_global; }
    QString localName() const override { return m_local; }
    void execute(OdEdCommandContext*) override { }
    int flags() const override { return m_flags; }
    void undefine(bool) override { }

    static int s_alive;

private:
    QString m_group;
    QString m_global;
    QString m_local;
    int m_flags;
};

int NamedCommand::s_alive = 0;

OdEdCommandPtr command(const char* group, const char* global, const char* local, int flags = 0)
{
    return odrxCreate<NamedCommand>(QString::fromLatin1(group), QString::fromLatin1(global),
                                    QString::fromLatin1(local), flags);
}

} // namespace

TEST(CommandStack, FindsACommandByEachOfItsNamesWithoutRegardToCase)
{
    OdEdCommandStack stack;
    const OdEdCommandPtr line = command("DRAW", "_LINE", "LINIE");
    ASSERT_TRUE(stack.addCommand(line));
    for (const char* name : {"LINIE", "linie", "_LINE", "_line", "_LINIE", "_Linie"})
        EXPECT_EQ(stack.lookup(QString::fromLatin1(name)), line) << name;
    for (const char* name : {"LINE", "", "_", "LIN", "__LINE"})
        EXPECT_TRUE(stack.lookup(QString::fromLatin1(name)).isNull()) << name;
}

TEST(CommandStack, RefusesASecondCommandOfTheSameGlobalNameInAGroup)
{
    OdEdCommandStack stack;
    EXPECT_TRUE(stack.addCommand(command("DRAW", "_LINE", "LINE")));
    EXPECT_FALSE(stack.addCommand(command("draw", "_line", "OTHER")));
    EXPECT_FALSE(stack.addCommand({}));
    EXPECT_TRUE(stack.addCommand(command("OTHER", "_LINE", "LINE")));
    EXPECT_EQ(stack.commands().size(), 2u);
}

TEST(CommandStack, LetsTheFirstRegistrationOfANameWinAndTheNextOneSucceedIt)
{
    OdEdCommandStack stack;
    const OdEdCommandPtr first = command("A", "_LINE", "LINE");
    const OdEdCommandPtr second = command("B", "_LINE", "LINE");
    stack.addCommand(first);
    stack.addCommand(second);
    EXPECT_EQ(stack.lookup(QStringLiteral("LINE")), first);
    stack.removeCommand(QStringLiteral("a"), QStringLiteral("_line"));
    EXPECT_EQ(stack.lookup(QStringLiteral("LINE")), second);
}

TEST(CommandStack, PrefersALocalNameToAGlobalOne)
{
    OdEdCommandStack stack;
    const OdEdCommandPtr global = command("A", "ZOOM", "VERGROESSERN");
    const OdEdCommandPtr local = command("B", "_OTHER", "ZOOM");
    stack.addCommand(global);
    stack.addCommand(local);
    EXPECT_EQ(stack.lookup(QStringLiteral("zoom")), local);
}

TEST(CommandStack, RemovesAWholeGroupAndReleasesItsCommands)
{
    {
        OdEdCommandStack stack;
        stack.addCommand(command("KEST_COMMAND_LAYERMAN", "_LAYER", "LAYER"));
        stack.addCommand(command("DRAW", "_LINE", "LINE"));
        stack.addCommand(command("KEST_COMMAND_LAYERMAN", "_LAYERCLOSE", "LAYERCLOSE"));
        EXPECT_TRUE(stack.hasGroup(QStringLiteral("kest_command_layerman")));
        stack.removeGroup(QStringLiteral("KEST_COMMAND_LAYERMAN"));
        EXPECT_FALSE(stack.hasGroup(QStringLiteral("KEST_COMMAND_LAYERMAN")));
        EXPECT_TRUE(stack.lookup(QStringLiteral("LAYER")).isNull());
        EXPECT_FALSE(stack.lookup(QStringLiteral("LINE")).isNull());
        EXPECT_EQ(NamedCommand::s_alive, 1);
    }
    EXPECT_EQ(NamedCommand::s_alive, 0);
}

TEST(CommandStack, ListsTheNamesThatUsersTypeInAlphabeticalOrder)
{
    OdEdCommandStack stack;
    stack.addCommand(command("A", "_ZOOM", "zoom", OdEd::kTransparent));
    stack.addCommand(command("A", "__MARKER", "__MARKER", OdEd::kNoUndoMarker));
    stack.addCommand(command("A", "_LAYER", "LAYER", OdEd::kPalette | OdEd::kUsePickSet));
    stack.addCommand(command("B", "_LAYER", "LAYER"));
    EXPECT_EQ(stack.localNames(), QStringList({QStringLiteral("LAYER"), QStringLiteral("zoom")}));
}

TEST(CommandStack, IsOnePerProcess)
{
    ASSERT_NE(odedRegCmds(), nullptr);
    EXPECT_EQ(odedRegCmds(), odedRegCmds());
    EXPECT_TRUE(odedRegCmds()->commands().empty());
}
