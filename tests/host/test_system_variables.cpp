#include "database/HeaderVariables.h"
#include "database/OdDbLayerTable.h"
#include "host/support/HostFixture.h"
#include "host/sysvars/SysvarTable.h"
#include "sdk/KestStatus.h"

#include <QSet>
#include <QSettings>

namespace {
TestDrawing threeLayers()
{
    TestDrawing drawing;
    drawing.add({.name = "Wall"});
    drawing.add({.name = "Ice", .flags = 1});
    drawing.add({.name = "ref|Door", .flags = 16});
    return drawing;
}
} // namespace

class SystemVariables : public HostFixture
{
protected:
    /// The sentence with which a value is refused; empty when it is taken.
    std::string refusal(const char* name, const SysvarValue& value)
    {
        try {
            core.sysvars().setValue(QLatin1String(name), value);
        } catch (const OdError& error) {
            return error.what();
        }
        return {};
    }
    int number(const char* name) const
    {
        int value = -999;
        EXPECT_EQ(kest::kNormal, constCore().getInt(QLatin1String(name), value));
        return value;
    }
    std::string text(const char* name) const
    {
        QString value;
        EXPECT_EQ(kest::kNormal, constCore().getString(QLatin1String(name), value));
        return value.toStdString();
    }
    const HostSysvarManager& constCore() const
    {
        return const_cast<SystemVariables*>(this)->core.sysvars();
    }
};

TEST_F(SystemVariables, EveryRowOfTheTableIsFoundByItsNameAndNamesAreUnique)
{
    QSet<QString> names;
    for (const SysvarDefinition& row : sysvarTable()) {
        const QString name = QLatin1String(row.name);
        EXPECT_EQ(&row, findSysvar(name)) << row.name;
        EXPECT_EQ(&row, findSysvar(name.toLower())) << row.name;
        EXPECT_FALSE(names.contains(name)) << row.name;
        EXPECT_TRUE(row.isText || (row.minimum <= row.fallback && row.fallback <= row.maximum))
            << row.name;
        names.insert(name);
    }
}

TEST_F(SystemVariables, NamesAreFoundWhateverTheirCase)
{
    EXPECT_EQ(kest::kNormal, core.sysvars().setInt(QStringLiteral("LwUnits"), 0));
    EXPECT_EQ(0, number("LWUNITS"));
    EXPECT_EQ(0, number("lwunits"));
}

TEST_F(SystemVariables, AnUnknownNameIsAnErrorAndSaysSo)
{
    int value = 7;
    EXPECT_EQ(kest::kError, core.sysvars().getInt(QStringLiteral("NOSUCH"), value));
    EXPECT_EQ(7, value);
    EXPECT_EQ("There is no system variable \"NOSUCH\".", refusal("NOSUCH", 1));
}

TEST_F(SystemVariables, UserVariablesStartAtTheirDefaults)
{
    EXPECT_EQ(1, number("LAYERMANAGERSTATE"));
    EXPECT_EQ(1, number("SHOWLAYERUSAGE"));
    EXPECT_EQ(1, number("LWUNITS"));
    EXPECT_EQ(1, number("LAYEREVALCTL"));
    EXPECT_EQ(1, number("WNDLMDI"));
}

TEST_F(SystemVariables, AValueOutOfRangeIsRefusedInWordsAndChangesNothing)
{
    EXPECT_EQ("LWUNITS takes an integer from 0 to 1; 2 is out of range.", refusal("LWUNITS", 2));
    EXPECT_EQ(kest::kError, core.sysvars().setInt(QStringLiteral("LWUNITS"), -1));
    EXPECT_EQ(1, number("LWUNITS"));
}

TEST_F(SystemVariables, AValueOfTheOtherTypeIsRefused)
{
    open(threeLayers());
    EXPECT_EQ("LWUNITS takes an integer.", refusal("LWUNITS", QStringLiteral("1")));
    EXPECT_EQ("CLAYER takes text.", refusal("CLAYER", 0));
    QString value;
    EXPECT_EQ(kest::kError, core.sysvars().getString(QStringLiteral("LWUNITS"), value));
}

TEST_F(SystemVariables, UserVariablesOutliveTheHost)
{
    QTemporaryDir other;
    const QString file = QDir(other.path()).filePath(QStringLiteral("kest.ini"));
    {
        UserSettings settings(other.path());
        CommandState state;
        HostSysvarManager variables(core.documents(), state, settings);
        EXPECT_EQ(kest::kNormal, variables.setInt(QStringLiteral("LAYERMANAGERSTATE"), 0));
        settings.save();
    }
    UserSettings again(other.path());
    CommandState state;
    const HostSysvarManager variables(core.documents(), state, again);
    int value = -1;
    EXPECT_EQ(kest::kNormal, variables.getInt(QStringLiteral("LAYERMANAGERSTATE"), value));
    EXPECT_EQ(0, value);
    EXPECT_EQ(0,
              QSettings(file, QSettings::IniFormat)
                  .value(QStringLiteral("Variables/LAYERMANAGERSTATE"))
                  .toInt());
}

TEST_F(SystemVariables, ASettingsFileWithNonsenseGivesTheDefault)
{
    core.settings().setValue(QStringLiteral("Variables/LWUNITS"), QStringLiteral("blue"));
    core.settings().setValue(QStringLiteral("Variables/WNDLMDI"), 99);
    EXPECT_EQ(1, number("LWUNITS"));
    EXPECT_EQ(1, number("WNDLMDI"));
}

TEST_F(SystemVariables, WithoutADrawingItsVariablesAreErrors)
{
    QString value;
    EXPECT_EQ(kest::kError, core.sysvars().getString(QStringLiteral("CLAYER"), value));
    EXPECT_EQ("There is no drawing open.", refusal("TILEMODE", 1));
}

TEST_F(SystemVariables, ClayerIsTheCurrentLayerAndSettingItIsUndone)
{
    OdDbDatabase& drawing = *open(threeLayers()).database();
    EXPECT_EQ("0", text("CLAYER"));
    drawing.startUndoRecord();
    EXPECT_EQ(kest::kNormal,
              core.sysvars().setString(QStringLiteral("CLAYER"), QStringLiteral("WALL")));
    EXPECT_EQ("Wall", text("CLAYER"));
    EXPECT_EQ(drawing.layerTable().getAt(QStringLiteral("wall")), drawing.getCLAYER());
    EXPECT_TRUE(drawing.undo());
    EXPECT_EQ("0", text("CLAYER"));
}

TEST_F(SystemVariables, ClayerCanBeReadAndSetAsAnId)
{
    OdDbDatabase& drawing = *open(threeLayers()).database();
    const OdDbObjectId wall = drawing.layerTable().getAt(QStringLiteral("Wall"));
    EXPECT_EQ(kest::kNormal, core.sysvars().setId(QStringLiteral("clayer"), wall));
    OdDbObjectId read;
    EXPECT_EQ(kest::kNormal, core.sysvars().getId(QStringLiteral("CLAYER"), read));
    EXPECT_EQ(wall, read);
    EXPECT_EQ(kest::kError, core.sysvars().getId(QStringLiteral("CTAB"), read));
    EXPECT_EQ(kest::kError, core.sysvars().setId(QStringLiteral("CLAYER"), OdDbObjectId()));
}

TEST_F(SystemVariables, LayersThatCannotBeCurrentAreRefusedWithTheReason)
{
    open(threeLayers());
    EXPECT_EQ("There is no layer \"Roof\" in this drawing.",
              refusal("CLAYER", QStringLiteral("Roof")));
    EXPECT_EQ("The layer \"Ice\" is frozen and cannot be current.",
              refusal("CLAYER", QStringLiteral("ice")));
    EXPECT_EQ("The layer \"ref|Door\" belongs to an external reference and cannot be current.",
              refusal("CLAYER", QStringLiteral("ref|Door")));
    EXPECT_EQ("0", text("CLAYER"));
}

TEST_F(SystemVariables, CtabAndTilemodeFollowEachOther)
{
    open(threeLayers());
    EXPECT_EQ("Model", text("CTAB"));
    EXPECT_EQ(1, number("TILEMODE"));
    EXPECT_EQ("", refusal("CTAB", QStringLiteral("layout1")));
    EXPECT_EQ("Layout1", text("CTAB"));
    EXPECT_EQ(0, number("TILEMODE"));
    EXPECT_EQ("", refusal("TILEMODE", 1));
    EXPECT_EQ("Model", text("CTAB"));
    EXPECT_NE("", refusal("CTAB", QStringLiteral("Nowhere")));
}

TEST_F(SystemVariables, CvportTakesViewportsOfTheCurrentLayoutOnly)
{
    open(threeLayers());
    EXPECT_EQ(2, number("CVPORT"));
    EXPECT_EQ("Model has no viewport 5.", refusal("CVPORT", 5));
    EXPECT_EQ("", refusal("CTAB", QStringLiteral("Layout1")));
    EXPECT_EQ(1, number("CVPORT"));
    EXPECT_EQ("Layout1 has no viewport 9.", refusal("CVPORT", 9));
    EXPECT_EQ("", refusal("CVPORT", 1));
}

TEST_F(SystemVariables, HeaderVariablesOfTheDrawingAreSetThereAndUndone)
{
    OdDbDatabase& drawing = *open(threeLayers()).database();
    drawing.startUndoRecord();
    EXPECT_EQ("", refusal("LWDISPLAY", 1));
    EXPECT_EQ(1, number("LWDISPLAY"));
    EXPECT_EQ(1, drawing.header().intValue(QStringLiteral("$LWDISPLAY"), 0));
    EXPECT_TRUE(drawing.undo());
    EXPECT_EQ(0, number("LWDISPLAY"));
    EXPECT_EQ(1, number("VISRETAIN"));
    EXPECT_EQ(1, number("PSTYLEMODE"));
    EXPECT_EQ("PSTYLEMODE cannot be set.", refusal("PSTYLEMODE", 0));
}

TEST_F(SystemVariables, NewLayerEvaluationIsReadFromTheDrawingsDictionary)
{
    QByteArray bytes = threeLayers().bytes();
    // The value groups of LAYEREVAL and LAYERNOTIFY, in this order.
    const QByteArray zero("280\n0\n  1\n0\n");
    bytes.replace(bytes.indexOf(zero), zero.size(), "280\n0\n  1\n2\n");
    bytes.replace(bytes.indexOf(zero), zero.size(), "280\n0\n  1\n15\n");
    QFile file(path("eval.dxf"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
    file.close();
    core.files().open(file.fileName());
    EXPECT_EQ(2, number("LAYEREVAL"));
    EXPECT_EQ(15, number("LAYERNOTIFY"));
}

TEST_F(SystemVariables, CommandVariablesTellWhatRuns)
{
    EXPECT_EQ(0, number("CMDACTIVE"));
    EXPECT_EQ("", text("CMDNAMES"));
    core.commandState().push(QStringLiteral("-LAYER"));
    EXPECT_EQ(1, number("CMDACTIVE"));
    EXPECT_EQ("-LAYER", text("CMDNAMES"));
    core.commandState().push(QStringLiteral("SETVAR"));
    core.commandState().setScript(true);
    EXPECT_EQ(1 + 2 + 4, number("CMDACTIVE"));
    EXPECT_EQ("-LAYER'SETVAR", text("CMDNAMES"));
    EXPECT_EQ("CMDNAMES cannot be set.", refusal("CMDNAMES", QStringLiteral("x")));
    core.commandState().pop();
    core.commandState().pop();
    EXPECT_EQ(0, number("CMDACTIVE"));
}

TEST_F(SystemVariables, UndoctlTellsAnOpenGroup)
{
    EXPECT_EQ(5, number("UNDOCTL"));
    HostDocument& document = open(threeLayers());
    document.beginUndoGroup();
    EXPECT_EQ(5 + 8, number("UNDOCTL"));
    document.endUndoGroup();
    EXPECT_EQ(5, number("UNDOCTL"));
}

TEST_F(SystemVariables, FileVariablesNameTheDrawing)
{
    open(threeLayers());
    EXPECT_EQ("plan.dxf", text("DWGNAME"));
    EXPECT_EQ(folder.path().toStdString() + '/', text("DWGPREFIX"));
    EXPECT_EQ(0, number("DBMOD"));
    EXPECT_EQ("", refusal("CLAYER", QStringLiteral("Wall")));
    EXPECT_EQ(1, number("DBMOD"));
}

TEST_F(SystemVariables, TextIsUnderstoodByTheVariablesType)
{
    core.sysvars().setText(QStringLiteral("LWUNITS"), QStringLiteral(" 0 "));
    EXPECT_EQ("0", core.sysvars().text(QStringLiteral("lwunits")).toStdString());
    try {
        core.sysvars().setText(QStringLiteral("LWUNITS"), QStringLiteral("mm"));
        FAIL() << "A word was taken for an integer.";
    } catch (const OdError& error) {
        EXPECT_STREQ("LWUNITS takes an integer from 0 to 1; \"mm\" is none.", error.what());
    }
}
