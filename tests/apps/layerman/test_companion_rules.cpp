#include "CompanionFixture.h"
#include "database/tables/OdDbLayerTable.h"
#include "database/tables/OdDbLayerTableRecord.h"

/// The rules of the palette, with its own words: line breaks are blanks here, so that a refusal is
/// one line.
class CompanionRules : public CompanionFixture
{
protected:
    CompanionRules()
    {
        drawing("plan.dxf", {{"Walls"}, {"Cold", 1}, {"x|Far", 16}, {"Roof"}});
        before = bytesOf(QStringLiteral("plan.dxf"));
    }

    /// Edits a copy and gives what was told; the exit code is 5.
    std::string refusal(const char* words)
    {
        const Finished done = layerman((std::string("set plan.dxf -o out.dxf ") + words).c_str());
        EXPECT_EQ(5, done.exitCode) << words;
        return done.errors;
    }
    bool isFrozen(const char* name)
    {
        return read(QStringLiteral("out.dxf"))
            ->layerTable()
            .getAt(QString::fromUtf8(name))
            .safeOpenObject<OdDbLayerTableRecord>()
            ->isFrozen();
    }

    QByteArray before;
};

TEST_F(CompanionRules, TheCurrentLayerIsNotFrozenAndTheOthersAre)
{
    EXPECT_EQ("plan.dxf: 0: Cannot freeze current layer. Specify a different layer\n"
              "1 drawing: 3 layers changed, 1 refused.\n",
              refusal("--search * freeze=yes"));
    EXPECT_FALSE(isFrozen("0"));
    for (const char* name : {"Walls", "Roof", "x|Far"})
        EXPECT_TRUE(isFrozen(name)) << name;
}

TEST_F(CompanionRules, LayerZeroAndThoseOfReferencesAreNotRenamed)
{
    const std::string text =
        "The selected layer cannot be renamed. The following layers cannot be renamed: 1. Layer 0 "
        "2. Xref-dependent Layers\n1 drawing: 0 layers changed, 1 refused.\n";
    EXPECT_EQ("plan.dxf: 0: " + text, refusal("--search 0 name=Null"));
    EXPECT_EQ("plan.dxf: x|Far: " + text, refusal("--search x`|* name=Near"));
    EXPECT_EQ(before, bytesOf(QStringLiteral("out.dxf")));
}

TEST_F(CompanionRules, ANameIsTakenOnce)
{
    EXPECT_EQ("plan.dxf: Walls: There is a layer \"roof\" already.\n"
              "1 drawing: 0 layers changed, 1 refused.\n",
              refusal("--search Walls name=roof"));
    EXPECT_EQ(0, layerman("set plan.dxf --dry-run --search Walls name=WALLS").exitCode);
}

TEST_F(CompanionRules, OneLayerIsRenamedAndOneMadeCurrent)
{
    EXPECT_EQ("plan.dxf: name: One layer must be chosen, and 2 are.\n"
              "1 drawing: 0 layers changed, 2 refused.\n",
              refusal("--search Walls,Roof name=Dach"));
    EXPECT_EQ("plan.dxf: name: One layer must be chosen, and none is.\n"
              "1 drawing: 0 layers changed, 1 refused.\n",
              refusal("--search None name=Dach"));
    EXPECT_EQ("plan.dxf: current: Multiple layers cannot be made current. please select a single "
              "layer.\n1 drawing: 0 layers changed, 5 refused.\n",
              refusal("--search * current=yes"));
    EXPECT_EQ(before, bytesOf(QStringLiteral("out.dxf")));
}

TEST_F(CompanionRules, FrozenLayersAndThoseOfReferencesAreNotMadeCurrent)
{
    const std::string text = "The following Layers Cannot be made current. .Xref dependent layers "
                             ".Frozen layers\n1 drawing: 0 layers changed, 1 refused.\n";
    EXPECT_EQ("plan.dxf: Cold: " + text, refusal("--search Cold current=yes"));
    EXPECT_EQ("plan.dxf: x|Far: " + text, refusal("--search x`|Far current=yes"));
}

TEST_F(CompanionRules, TheCurrentLayerIsTurnedOffWithANoteUnlessItIsToStay)
{
    const Finished off = layerman("set plan.dxf -o out.dxf --search 0,Walls on=no");
    EXPECT_EQ(0, off.exitCode);
    EXPECT_EQ("plan.dxf: 0: This is the current layer; it is turned off.\n"
              "1 drawing: 2 layers changed.\n",
              off.errors);
    const Finished kept =
        layerman("set plan.dxf -o out.dxf --search 0,Walls on=no --keep-current-on");
    EXPECT_EQ(0, kept.exitCode);
    EXPECT_EQ("plan.dxf: 0: This is the current layer; it stays on.\n"
              "1 drawing: 1 layer changed.\n",
              kept.errors);
    EXPECT_EQ("name,on\n0,yes\nCold,yes\nRoof,yes\nWalls,no\nx|Far,yes\n",
              layerman("list out.dxf --columns name,on --format csv").output);
}

TEST_F(CompanionRules, ViewportPropertiesNeedASheetAndTheRestIsDone)
{
    EXPECT_EQ("plan.dxf: vpcolor: No layout with an active viewport is current.\n"
              "1 drawing: 1 layer changed, 1 refused.\n",
              refusal("--search Walls vpcolor=1 locked=yes"));
    for (const char* edit :
         {"vpfreeze=yes", "vplinetype=DASHED", "vplineweight=0.5", "vpplotstyle=Normal"})
    {
        EXPECT_NE(std::string::npos,
                  refusal((std::string("--search Walls ") + edit).c_str())
                      .find(": No layout with an active viewport is current.\n"))
            << edit;
    }
}

TEST_F(CompanionRules, PlotStylesFollowColorsWhereTheyHaveNoNames)
{
    EXPECT_EQ("plan.dxf: plotstyle: In this drawing a layer's plot style follows its color.\n"
              "1 drawing: 0 layers changed, 1 refused.\n",
              refusal("--search Walls plotstyle=Normal"));
}

TEST_F(CompanionRules, ADryRunRefusesTheSame)
{
    const Finished dry = layerman("set plan.dxf --dry-run --search 0,Walls freeze=yes");
    EXPECT_EQ(5, dry.exitCode);
    EXPECT_EQ("plan.dxf: Walls: freeze no -> yes\n", dry.output);
    EXPECT_EQ("plan.dxf: 0: Cannot freeze current layer. Specify a different layer\n"
              "1 drawing: 1 layer would change, 1 refused.\n",
              dry.errors);
}

TEST_F(CompanionRules, ALayerThatIsSoAlreadyIsNotRefused)
{
    drawing("cold.dxf", {{"Walls", 1}});
    QByteArray text = bytesOf(QStringLiteral("cold.dxf"));
    text.replace("$CLAYER\n8\n0\n", "$CLAYER\n8\nWalls\n");
    write("cold.dxf", text);
    const Finished done = layerman("set cold.dxf --in-place --search Walls freeze=yes");
    EXPECT_EQ(0, done.exitCode) << done.errors;
    EXPECT_EQ(text, bytesOf(QStringLiteral("cold.dxf")));
}

TEST_F(CompanionRules, AFrozenLayerIsNotMadeCurrentEvenWhereItIsSoAlready)
{
    drawing("cold.dxf", {{"Walls", 1}});
    QByteArray text = bytesOf(QStringLiteral("cold.dxf"));
    text.replace("$CLAYER\n8\n0\n", "$CLAYER\n8\nWalls\n");
    write("cold.dxf", text);
    const Finished done = layerman("set cold.dxf --in-place --search Walls current=yes");
    EXPECT_EQ(5, done.exitCode);
    EXPECT_EQ("cold.dxf: Walls: The following Layers Cannot be made current. .Xref dependent "
              "layers .Frozen layers\n1 drawing: 0 layers changed, 1 refused.\n",
              done.errors);
    EXPECT_EQ(text, bytesOf(QStringLiteral("cold.dxf")));
}
