#include "database/store/HeaderVariables.h"
#include "database/tables/OdDbLayerTable.h"
#include "database/values/GroupCursor.h"
#include "host/application/HostView.h"
#include "host/support/HostFixture.h"
#include "host/sysvars/SysvarTable.h"
#include "sdk/KestStatus.h"

#include <QSet>
#include <QSettings>
#include <QSignalSpy>

namespace {
TestDrawing threeLayers()
{
    TestDrawing drawing;
    drawing.add({.name = "Wall"});
    drawing.add({.name = "Ice", .flags = 1});
    drawing.add({.name = "ref|Door", .flags = 16});
    return drawing;
}

/// A view that stands still.
class StillView : public HostView
{
public:
    double pickReach() const override { return 1; }
    double height() const override { return 12.5; }
    Vec2 centre() const override { return {3, -4.25}; }
    void showBox(const Box2&) override { }
    void showAll(double) override { }
    void centreOn(Vec2, double) override { }
    bool showPrevious() override { return false; }
    void setDragging(bool) override { }
};

/// Remembers which variables of the drawing were told to have changed.
class HeaderListener : public OdDbDatabaseReactor
{
public:
    explicit HeaderListener(OdDbDatabase& drawing)
        : m_drawing(drawing)
    {
        m_drawing.addReactor(this);
    }
    ~HeaderListener() override { m_drawing.removeReactor(this); }
    void headerSysVarChanged(const OdDbDatabase*, const QString& name) override { names << name; }

    QStringList names;

private:
    OdDbDatabase& m_drawing;
};
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
        EXPECT_TRUE(row.type == SysvarType::Text || row.type == SysvarType::Point
                    || (row.minimum <= row.fallback && row.fallback <= row.maximum))
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
    EXPECT_EQ("LWUNITS takes an integer from 0 to 1.", refusal("LWUNITS", QStringLiteral("1")));
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

TEST_F(SystemVariables, EveryVariableOfTheDrawingThatCanBeSetIsUndoneAndToldToListeners)
{
    OdDbDatabase& drawing = *open(threeLayers()).database();
    const std::pair<const char*, const char*> values[] = {
        {"CECOLOR", "red"},   {"CELTSCALE", "2.5"},   {"CELTYPE", "ByBlock"}, {"CELWEIGHT", "35"},
        {"CLAYER", "Wall"},   {"CTAB", "Layout1"},    {"INSUNITS", "6"},      {"LAYEREVAL", "2"},
        {"LTSCALE", "0.125"}, {"LWDISPLAY", "1"},     {"MEASUREMENT", "0"},   {"PSLTSCALE", "0"},
        {"TEXTSIZE", "7"},    {"LAYERNOTIFY", "-12"}, {"TILEMODE", "0"},      {"VISRETAIN", "0"},
    };
    QStringList covered{QStringLiteral("CVPORT")}; // needs a viewport, see below
    for (const auto& [name, value] : values) {
        const QString variable = QLatin1String(name);
        covered << variable;
        const QString before = core.sysvars().text(variable);
        HeaderListener listener(drawing);
        drawing.startUndoRecord();
        core.sysvars().setText(variable, QLatin1String(value));
        EXPECT_EQ(value, core.sysvars().text(variable).toStdString()) << name;
        EXPECT_TRUE(listener.names.contains(variable)) << name;
        listener.names.clear();
        EXPECT_TRUE(drawing.undo()) << name;
        EXPECT_TRUE(listener.names.contains(variable)) << name << " is undone";
        EXPECT_EQ(before.toStdString(), core.sysvars().text(variable).toStdString()) << name;
        EXPECT_NE(before, QLatin1String(value)) << name;
    }
    for (const SysvarDefinition& row : sysvarTable()) {
        const bool isKept = row.place == SysvarPlace::Drawing && !row.isReadOnly();
        EXPECT_TRUE(!isKept || covered.contains(QLatin1String(row.name))) << row.name;
    }
}

TEST_F(SystemVariables, AVariableThatTheDrawingDidNotHaveIsToldWhenItComesGoesAndComesAgain)
{
    OdDbDatabase& drawing = *open(threeLayers()).database();
    const QString name = QStringLiteral("SOMETHING");
    HeaderListener listener(drawing);
    drawing.startUndoRecord();
    drawing.setDictionaryVariable(name, QStringLiteral("5"));
    EXPECT_EQ(QStringList{name}, std::exchange(listener.names, {}));
    EXPECT_TRUE(drawing.undo());
    EXPECT_EQ(QString(), drawing.dictionaryVariable(name));
    EXPECT_EQ(QStringList{name}, std::exchange(listener.names, {}));
    EXPECT_TRUE(drawing.redo());
    EXPECT_EQ("5", drawing.dictionaryVariable(name).toStdString());
    EXPECT_EQ(QStringList{name}, listener.names);
}

TEST_F(SystemVariables, VariablesOfTheDrawingAreSavedWithIt)
{
    open(threeLayers());
    for (const char* line : {"CECOLOR 30", "CELTYPE bylayer", "CELWEIGHT -3", "LTSCALE 0.1",
                             "TEXTSIZE 4", "LAYEREVAL 1", "LAYERNOTIFY -5", "INSUNITS 4"})
        EXPECT_EQ("", run(line)) << line;
    EXPECT_EQ("", run("SAVE"));
    EXPECT_EQ("", run("CLOSE"));
    EXPECT_EQ("", run(("OPEN " + path("plan.dxf").toUtf8()).constData()));
    EXPECT_EQ("30", text("CECOLOR"));
    EXPECT_EQ("ByLayer", text("CELTYPE"));
    EXPECT_EQ(-3, number("CELWEIGHT"));
    EXPECT_EQ("0.1", core.sysvars().text(QStringLiteral("LTSCALE")).toStdString());
    EXPECT_EQ("4", core.sysvars().text(QStringLiteral("TEXTSIZE")).toStdString());
    EXPECT_EQ(1, number("LAYEREVAL"));
    EXPECT_EQ(-5, number("LAYERNOTIFY"));
    EXPECT_EQ(4, number("INSUNITS"));
}

TEST_F(SystemVariables, RealsAreReadAndSetByModulesAndHaveARange)
{
    open(threeLayers());
    EXPECT_EQ(kest::kNormal, core.sysvars().setReal(QStringLiteral("ltscale"), 0.5));
    double value = 0;
    EXPECT_EQ(kest::kNormal, core.sysvars().getReal(QStringLiteral("LTSCALE"), value));
    EXPECT_EQ(0.5, value);
    EXPECT_EQ(kest::kError, core.sysvars().setReal(QStringLiteral("LTSCALE"), 0));
    EXPECT_EQ(kest::kError, core.sysvars().getReal(QStringLiteral("LWUNITS"), value));
    EXPECT_EQ(kest::kError, core.sysvars().setReal(QStringLiteral("LWUNITS"), 1));
    EXPECT_EQ("LTSCALE takes a number above 0, up to 1e+09; -1 is out of range.",
              refusal("LTSCALE", -1.0));
    EXPECT_EQ("LTSCALE takes a number above 0, up to 1e+09; \"wide\" is none.",
              run("LTSCALE wide"));
    EXPECT_NE("", run("LTSCALE nan"));
    EXPECT_NE("", run("LTSCALE inf"));
    EXPECT_EQ(0.5, std::get<double>(core.sysvars().value(QStringLiteral("LTSCALE"))));
}

TEST_F(SystemVariables, PropertiesOfNewObjectsAreCheckedAgainstTheDrawing)
{
    open(threeLayers());
    EXPECT_EQ("ByLayer", text("CECOLOR"));
    EXPECT_EQ("", refusal("CECOLOR", QStringLiteral("3")));
    EXPECT_EQ("green", text("CECOLOR"));
    EXPECT_EQ("", refusal("CECOLOR", QStringLiteral("byblock")));
    EXPECT_EQ("ByBlock", text("CECOLOR"));
    EXPECT_EQ("CECOLOR takes ByLayer, ByBlock, an index from 1 to 255 or a name from red to white; "
              "\"1,2,3\" is none.",
              refusal("CECOLOR", QStringLiteral("1,2,3")));
    EXPECT_EQ("The drawing has no linetype \"wavy\".", refusal("CELTYPE", QStringLiteral("wavy")));
    EXPECT_EQ("34 is no lineweight; the nearest one is 35.", refusal("CELWEIGHT", 34));
}

TEST_F(SystemVariables, TheViewIsKnownWhereThereIsOne)
{
    EXPECT_EQ("VIEWSIZE is known only while a drawing is shown in a window.", run("VIEWSIZE"));
    StillView view;
    frontEnd.shownView = &view;
    EXPECT_EQ("3,-4.25,0", core.sysvars().text(QStringLiteral("VIEWCTR")).toStdString());
    EXPECT_EQ("12.5", core.sysvars().text(QStringLiteral("VIEWSIZE")).toStdString());
    EXPECT_EQ("VIEWCTR cannot be set.", run("VIEWCTR 0,0"));
}

TEST_F(SystemVariables, AChangeOfAUserVariableIsToldOnce)
{
    QSignalSpy told(&core.sysvars(), &HostSysvarManager::userVariableChanged);
    EXPECT_EQ("", refusal("LAYLOCKFADECTL", 30));
    EXPECT_EQ("", refusal("laylockfadectl", 30));
    EXPECT_NE("", refusal("LAYLOCKFADECTL", 91));
    ASSERT_EQ(1, told.size());
    EXPECT_EQ(QStringLiteral("LAYLOCKFADECTL"), told[0][0].toString());
}

TEST_F(SystemVariables, DrawingsTellWhetherTheyHaveAFileAndMayBeWritten)
{
    EXPECT_EQ("", run("NEW"));
    EXPECT_EQ(0, number("DWGTITLED"));
    open(threeLayers());
    EXPECT_EQ(1, number("DWGTITLED"));
    EXPECT_EQ(1, number("WRITESTAT"));
    core.documents().curDocument()->file().isReadOnly = true;
    EXPECT_EQ(0, number("WRITESTAT"));
}

TEST_F(SystemVariables, AQuestionMarkListsWhatMatchesAPattern)
{
    open(threeLayers());
    EXPECT_EQ("", run("SETVAR ? lw*"));
    EXPECT_EQ((QStringList{QStringLiteral("LWDEFAULT = 25"), QStringLiteral("LWDISPLAY = 0"),
                           QStringLiteral("LWUNITS = 1")}),
              frontEnd.printed);
    frontEnd.printed.clear();
    EXPECT_EQ("", run("SETVAR ? X*"));
    EXPECT_EQ(QStringList{QStringLiteral("No system variable matches \"X*\".")}, frontEnd.printed);
}

TEST_F(SystemVariables, WhatAFileSaysOutOfRangeCountsAsNotSaidAndCanBeSetRight)
{
    QByteArray bytes = TestDrawing().bytes();
    const auto say = [&](const char* name, const char* value) {
        const qsizetype at = bytes.indexOf(name);
        ASSERT_GT(at, 0) << name;
        const qsizetype code = bytes.indexOf('\n', at) + 1;
        const qsizetype begin = bytes.indexOf('\n', code) + 1;
        bytes.replace(begin, bytes.indexOf('\n', begin) - begin, value);
    };
    say("$LTSCALE", "nan");
    say("$TEXTSIZE", "inf");
    say("$CELTSCALE", "-1");
    say("$CELWEIGHT", "12345");
    say("$CECOLOR", "99999");
    QFile file(path("odd.dxf"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
    file.close();
    OdDbDatabase& drawing = *core.files().open(path("odd.dxf")).database();
    EXPECT_EQ("LTSCALE = 1|TEXTSIZE = 2.5|CELTSCALE = 1|CELWEIGHT = -1|CECOLOR = \"ByLayer\"", [&] {
        for (const char* name : {"LTSCALE", "TEXTSIZE", "CELTSCALE", "CELWEIGHT", "CECOLOR"})
            EXPECT_EQ("", run(name));
        return frontEnd.printed.join(QLatin1Char('|')).toStdString();
    }());
    EXPECT_EQ("", run("TEXT 0,0 \"\" 0 Hall"));
    for (quint32 slot = 0; slot < drawing.store().size(); ++slot) {
        if (drawing.store().typeName(slot) != "TEXT")
            continue;
        const auto groups = drawing.makeCursor();
        groups->open(slot);
        while (groups->next()) {
            EXPECT_TRUE(groups->code() != 48 && groups->code() != 62 && groups->code() != 370);
            EXPECT_TRUE(groups->code() != 40 || groups->text() == QLatin1String("2.5"));
        }
    }
    EXPECT_EQ("", run("LTSCALE 1"));
    EXPECT_EQ("1.0", drawing.header().value(QStringLiteral("$LTSCALE")).toStdString());
}
