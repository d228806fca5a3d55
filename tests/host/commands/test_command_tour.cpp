#include "database/tables/OdDbLayerTable.h"
#include "host/support/HostFixture.h"
#include "host/sysvars/SysvarTable.h"
#include "sdk/commands/OdEdCommandStack.h"

#include <QFile>

namespace {
/// One command of the host: lines that show what it does and what it refuses, and all that is said
/// meanwhile. "{DIR}" is a folder with the drawings plan.dxf, sheet.dxf and other.dxf; what fails
/// is marked
/// "!", what the window is told to do stands in brackets.
struct Stop
{
    const char* command;
    const char* script;
    const char* transcript;
};

void PrintTo(const Stop& stop, std::ostream* out)
{
    *out << stop.command;
}

constexpr Stop kTour[] = {
    {"-LAYER",
     "OPEN {DIR}/plan.dxf\n"
     "-LAYER New Roof Color blue Roof Freeze Wall LOck Roof,Door Set Roof\n"
     "-LAYER ? R*\n"
     "CLAYER\n"
     "-LAYER Freeze Roof\n"
     "U\n"
     "CLAYER\n",
     "Cur  Use  Name  On   Freeze  Lock  Color  Linetype    Lineweight  Plot Style  Plot  New VP "
     "Freeze  Description\n"
     "---  ---  ----  ---  ------  ----  -----  ----------  ----------  ----------  ----  "
     "-------------  -----------\n"
     "*         Roof  Yes  No      Yes   blue   Continuous  Default     Color_5     Yes   No\n"
     "1 layer.\n"
     "CLAYER = \"Roof\"\n"
     "! The layer \"Roof\" is current and cannot be frozen.\n"
     "CLAYER = \"0\"\n"},
    {"CIRCLE",
     "OPEN {DIR}/other.dxf\n"
     "CIRCLE 5,5 2.5\n"
     "CIRCLE 2P 0,0 10,0\n"
     "CIRCLE 5,5 -1\n"
     "DBMOD\n"
     "UNDO 2\n"
     "DBMOD\n",
     "! A length above 0 is needed; \"-1\" is none.\n"
     "DBMOD = 1 (cannot be set)\n"
     "DBMOD = 0 (cannot be set)\n"},
    {"CLOSE",
     "OPEN {DIR}/plan.dxf\n"
     "CLAYER Wall\n"
     "CLOSE\n"
     "CLOSE Cancel\n"
     "DWGNAME\n"
     "CLOSE No\n"
     "DWGNAME\n"
     "CLOSE\n",
     "! \"Save the changes to plan.dxf? [Yes/No/Cancel]:\" is asked, and the line holds no "
     "answer.\n"
     "! *Cancel*\n"
     "DWGNAME = \"plan.dxf\" (cannot be set)\n"
     "DWGNAME = \"\" (cannot be set)\n"
     "! There is no drawing open.\n"},
    {"CLOSEALL",
     "OPEN {DIR}/plan.dxf\n"
     "CLAYER Wall\n"
     "OPEN {DIR}/other.dxf\n"
     "CLOSEALL Yes\n"
     "DWGNAME\n"
     "OPEN {DIR}/plan.dxf\n"
     "CLAYER\n",
     "DWGNAME = \"\" (cannot be set)\n"
     "CLAYER = \"Wall\"\n"},
    {"ERASE",
     "OPEN {DIR}/plan.dxf\n"
     "LINE 0,0 10,0 10,10\n"
     "ERASE Last\n"
     "-LAYER DELete Wall\n"
     "ERASE All\n"
     "DBMOD\n"
     "ERASE\n",
     "DBMOD = 1 (cannot be set)\n"
     "! Objects are to be selected, and the line names none.\n"},
    {"LAYERS",
     "LAYERS\n"
     "OPEN {DIR}/other.dxf\n"
     "LAYERS\n",
     "! There is no drawing open.\n"
     "Cur  Use  Name  On   Freeze  Lock  Color  Linetype    Lineweight  Plot Style  Plot  New VP "
     "Freeze  Description\n"
     "---  ---  ----  ---  ------  ----  -----  ----------  ----------  ----------  ----  "
     "-------------  -----------\n"
     "*    x    0     Yes  No      No    white  Continuous  Default     Color_7     Yes   No\n"
     "1 layer.\n"},
    {"LAYOUT",
     "OPEN {DIR}/plan.dxf\n"
     "LAYOUT Set Layout1\n"
     "LAYOUT ?\n"
     "LAYOUT Set Attic\n",
     "  Model\n"
     "* Layout1\n"
     "! There is no layout \"Attic\".\n"},
    {"LINE",
     "OPEN {DIR}/plan.dxf\n"
     "-LAYER Set Door\n"
     "LINE 0,0 10,0 @0,10 Close\n"
     "LINE 0,0 home\n"
     "-LAYER Set 0 DELete Door\n",
     "! A point is needed, such as 10,20 or @5,0 or @5<90; \"home\" is none.\n"
     "! The layer \"Door\" cannot be deleted: objects lie on it.\n"},
    {"MODEL",
     "OPEN {DIR}/plan.dxf\n"
     "TILEMODE 0\n"
     "MODEL\n"
     "CTAB\n",
     "CTAB = \"Model\"\n"},
    {"MSPACE",
     "OPEN {DIR}/plan.dxf\n"
     "MSPACE\n"
     "OPEN {DIR}/sheet.dxf\n"
     "LAYOUT Set Layout1\n"
     "CVPORT\n"
     "MSPACE 50,50\n"
     "CVPORT\n"
     "MSPACE 5000,5000\n",
     "! Viewports are worked in on a sheet; this is model space.\n"
     "CVPORT = 1\n"
     "CVPORT = 2\n"
     "! There is no viewport at 5000,5000.\n"},
    {"NEW",
     "NEW\n"
     "DWGNAME\n"
     "NEW\n"
     "DWGNAME\n",
     "DWGNAME = \"Drawing1\" (cannot be set)\n"
     "DWGNAME = \"Drawing2\" (cannot be set)\n"},
    {"OPEN",
     "OPEN {DIR}/plan.dxf\n"
     "OPEN {DIR}/other.dxf\n"
     "DWGNAME\n"
     "OPEN {DIR}/plan.dxf\n"
     "DWGNAME\n"
     "OPEN\n",
     "DWGNAME = \"other.dxf\" (cannot be set)\n"
     "DWGNAME = \"plan.dxf\" (cannot be set)\n"
     "! \"File to open:\" is asked, and the line holds no answer.\n"},
    {"PAN",
     "PAN 1,1\n"
     "OPEN {DIR}/plan.dxf\n"
     "PAN 1,1\n"
     "PAN 0,0 5,5\n",
     "! There is no drawing open.\n"},
    {"PSPACE",
     "OPEN {DIR}/sheet.dxf\n"
     "PSPACE\n"
     "LAYOUT Set Layout1\n"
     "MSPACE\n"
     "PSPACE\n"
     "CVPORT\n",
     "! Viewports are worked in on a sheet; this is model space.\n"
     "CVPORT = 1\n"},
    {"QUIT",
     "OPEN {DIR}/plan.dxf\n"
     "CLAYER Wall\n"
     "QUIT Maybe\n"
     "QUIT No\n",
     "! One of Yes, No, Cancel is needed; \"Maybe\" is none.\n"
     "[quit]\n"},
    {"REDO",
     "OPEN {DIR}/plan.dxf\n"
     "REDO\n"
     "CLAYER Wall\n"
     "LTSCALE 2\n"
     "UNDO 2\n"
     "REDO 2\n"
     "LTSCALE\n",
     "! There is nothing to redo.\n"
     "LTSCALE = 2\n"},
    {"REGEN",
     "REGEN\n"
     "OPEN {DIR}/plan.dxf\n"
     "REGEN\n",
     "! There is no drawing open.\n"
     "[regen]\n"},
    {"REGENALL",
     "OPEN {DIR}/plan.dxf\n"
     "REGENALL now\n"
     "REGENALL\n",
     "[regen all]\n"
     "! REGENALL has no use for the answer \"now\".\n"
     "[regen all]\n"},
    {"SAVE",
     "OPEN {DIR}/plan.dxf\n"
     "CLAYER Wall\n"
     "DBMOD\n"
     "SAVE\n"
     "DBMOD\n"
     "NEW\n"
     "SAVE\n",
     "DBMOD = 1 (cannot be set)\n"
     "DBMOD = 0 (cannot be set)\n"
     "! \"File to save to:\" is asked, and the line holds no answer.\n"},
    {"SAVEAS",
     "OPEN {DIR}/plan.dxf\n"
     "SAVEAS {DIR}/copy\n"
     "DWGNAME\n"
     "SAVEAS {DIR}/no/such/folder/copy.dxf\n"
     "DWGNAME\n",
     "DWGNAME = \"copy.dxf\" (cannot be set)\n"
     "! {DIR}/no/such/folder/copy.dxf cannot be written: No such file or directory. The file is "
     "as it was.\n"
     "DWGNAME = \"copy.dxf\" (cannot be set)\n"},
    {"SELECT",
     "OPEN {DIR}/plan.dxf\n"
     "SELECT\n"
     "SELECT LAyer Roof\n"
     "SELECT LAyer Wall All\n"
     "SELECT nothing\n",
     "! Objects are to be selected, and the line names none.\n"
     "! There is no layer \"Roof\".\n"
     "! A point or one of Window, Crossing, ALL, Last, LAyer, Previous, Remove, Add, Undo is "
     "needed; "
     "\"nothing\" is neither.\n"},
    {"SETVAR",
     "OPEN {DIR}/plan.dxf\n"
     "SETVAR LWUNITS 0\n"
     "SETVAR ? LW[du]*\n"
     "SETVAR LWUNITS 2\n"
     "LTSCALE 0.5\n"
     "ltscale\n",
     "LWDEFAULT = 25\n"
     "LWDISPLAY = 0\n"
     "LWUNITS = 0\n"
     "! LWUNITS takes an integer from 0 to 1; 2 is out of range.\n"
     "LTSCALE = 0.5\n"},
    {"TEXT",
     "OPEN {DIR}/plan.dxf\n"
     "TEXT 0,0 2 0 \"Living room\"\n"
     "DBMOD\n"
     "TEXT 0,0 2 east Hall\n"
     "U\n"
     "U\n",
     "DBMOD = 1 (cannot be set)\n"
     "! An angle in degrees is needed; \"east\" is none.\n"
     "! There is nothing to undo.\n"},
    {"U",
     "OPEN {DIR}/plan.dxf\n"
     "CLAYER Wall\n"
     "U\n"
     "CLAYER\n"
     "U\n",
     "CLAYER = \"0\"\n"
     "! There is nothing to undo.\n"},
    {"UNDO",
     "OPEN {DIR}/plan.dxf\n"
     "UNDO Mark\n"
     "CLAYER Wall\n"
     "UNDO BEgin\n"
     "LTSCALE 2\n"
     "TEXTSIZE 9\n"
     "UNDO End\n"
     "UNDO 1\n"
     "TEXTSIZE\n"
     "CLAYER\n"
     "UNDO Back\n"
     "CLAYER\n"
     "UNDO None\n",
     "TEXTSIZE = 2.5\n"
     "CLAYER = \"Wall\"\n"
     "CLAYER = \"0\"\n"
     "! A number of steps is needed; \"None\" is none.\n"},
    {"ZOOM",
     "ZOOM Extents\n"
     "OPEN {DIR}/plan.dxf\n"
     "ZOOM Extents\n",
     "! There is no drawing open.\n"
     "[zoom extents]\n"},
};
} // namespace

class CommandTour : public HostFixture, public testing::WithParamInterface<Stop>
{
protected:
    void SetUp() override
    {
        TestDrawing().addViewport(50, 50).writeTo(folder.path(), QStringLiteral("sheet.dxf"));
        TestDrawing()
            .add({.name = "Wall"})
            .add({.name = "Door"})
            .writeTo(folder.path(), QStringLiteral("plan.dxf"));
        TestDrawing().writeTo(folder.path(), QStringLiteral("other.dxf"));
    }
    QString inFolder(const char* text) const
    {
        return QString::fromUtf8(text).replace(QStringLiteral("{DIR}"), folder.path());
    }
    /// What was said since the last call.
    QString heard(const QString& failure)
    {
        QString text;
        for (const QString& line : std::exchange(frontEnd.printed, {}))
            text += line + QLatin1Char('\n');
        for (const std::string& call : std::exchange(frontEnd.calls, {}))
            text += QStringLiteral("[%1]\n").arg(QString::fromStdString(call));
        return failure.isEmpty() ? text : text + QStringLiteral("! %1\n").arg(failure);
    }
};

TEST_P(CommandTour, DoesWhatItsScriptShows)
{
    QString transcript;
    const QStringList lines = inFolder(GetParam().script).split(QLatin1Char('\n'));
    for (const QString& line : lines)
        transcript += heard(core.commands().run(line).sentence);
    EXPECT_EQ(inFolder(GetParam().transcript).toStdString(), transcript.toStdString());
    EXPECT_TRUE(QString::fromUtf8(GetParam().script)
                    .contains(QString::fromUtf8(GetParam().command) + QLatin1Char('\n'))
                || QString::fromUtf8(GetParam().script)
                       .contains(QString::fromUtf8(GetParam().command) + QLatin1Char(' ')));
    for (HostDocument* document : core.documents().documents())
        EXPECT_EQ(QStringList(), document->database()->audit());
}

INSTANTIATE_TEST_SUITE_P(AllCommands, CommandTour, testing::ValuesIn(kTour), [](const auto& stop) {
    std::string name = stop.param.command;
    std::erase(name, '-');
    return name == stop.param.command ? name : "Dash" + name;
});

/// A host without modules has its own commands only.
class CommandTable : public HostFixture
{ };

TEST_F(CommandTable, EveryCommandIsOnTheTour)
{
    QStringList toured;
    for (const Stop& stop : kTour)
        toured << QString::fromUtf8(stop.command);
    QStringList registered = odedRegCmds()->localNames();
    registered.sort();
    toured.sort();
    EXPECT_EQ(registered.join(QLatin1Char(' ')).toStdString(),
              toured.join(QLatin1Char(' ')).toStdString());
}

TEST_F(CommandTable, EveryCommandAndVariableIsInTheManual)
{
    QFile manual(QStringLiteral(KEST_DOCS "/commands.md"));
    ASSERT_TRUE(manual.open(QIODevice::ReadOnly));
    const QString text = QString::fromUtf8(manual.readAll());
    QStringList names = odedRegCmds()->localNames();
    for (const SysvarDefinition& variable : sysvarTable())
        names << QLatin1String(variable.name);
    for (const QString& name : names)
        EXPECT_TRUE(text.contains(QLatin1Char('`') + name + QLatin1Char('`')))
            << name.toStdString();
}
