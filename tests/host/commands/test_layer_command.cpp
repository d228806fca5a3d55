#include "database/states/LayerStates.h"
#include "database/tables/OdDbLayerTable.h"
#include "database/tables/OdDbLayerTableRecord.h"
#include "database/tables/OdDbLinetypeTableRecord.h"
#include "host/support/HostFixture.h"

#include <chrono>

namespace {
TestDrawing office()
{
    TestDrawing drawing;
    drawing.add({.name = "A-WALL"}).add({.name = "A-DOOR", .flags = 4}).add({.name = "S-BEAM"});
    drawing.add({.name = "S-ICE", .flags = 1}).add({.name = "ref|Door", .flags = 16});
    drawing.add({.name = "A.B"}).add({.name = "Defpoints", .plots = false});
    return drawing.addLine("A-WALL");
}
} // namespace

/// The command in a script: all answers stand on its line.
class LayerCommandLine : public HostFixture
{
protected:
    void SetUp() override { drawing = open(office()).database(); }

    const OdDbLayerTableRecordPtr layer(const char* name) const
    {
        const auto record =
            drawing->layerTable().getAt(QString::fromUtf8(name)).openObject<OdDbLayerTableRecord>();
        EXPECT_TRUE(record) << name;
        return record;
    }
    bool has(const char* name) const { return drawing->layerTable().has(QString::fromUtf8(name)); }
    /// The layers of which that is so, in table order.
    std::string where(bool (OdDbLayerTableRecord::*flag)() const) const
    {
        QStringList names;
        for (const OdDbObjectId id : drawing->layerTable().records()) {
            const auto record = id.openObject<OdDbLayerTableRecord>();
            if ((record.get()->*flag)())
                names << record->getName();
        }
        return names.join(QLatin1Char(' ')).toStdString();
    }
    std::string printed() const { return frontEnd.printed.join(QLatin1Char('|')).toStdString(); }

    OdDbDatabase* drawing = nullptr;
};

TEST_F(LayerCommandLine, SwitchesLayersByNamesAndPatterns)
{
    EXPECT_EQ("", run("-LAYER OFF A-WALL,s-* Freeze S-* LOck a-wall Unlock A-DOOR"));
    EXPECT_EQ("A-WALL S-BEAM S-ICE", where(&OdDbLayerTableRecord::isOff));
    EXPECT_EQ("S-BEAM S-ICE", where(&OdDbLayerTableRecord::isFrozen));
    EXPECT_EQ("A-WALL", where(&OdDbLayerTableRecord::isLocked));
    EXPECT_EQ("", run("-LAYER ON * Thaw ~S-I* Plot No A-*"));
    EXPECT_EQ("", where(&OdDbLayerTableRecord::isOff));
    EXPECT_EQ("S-ICE", where(&OdDbLayerTableRecord::isFrozen));
    EXPECT_FALSE(layer("A-DOOR")->isPlottable());
    EXPECT_TRUE(layer("S-BEAM")->isPlottable());
    EXPECT_EQ("", printed());
}

TEST_F(LayerCommandLine, IsNamedInCapitalsAndWithUnderscores)
{
    for (const char* line : {"-layer LO A-WALL", "_-LAYER U A-WALL", "-_LAYER _LOck A-WALL"})
        EXPECT_EQ("", run(line)) << line;
    EXPECT_TRUE(layer("A-WALL")->isLocked());
}

TEST_F(LayerCommandLine, ATextThatIsALayersNameIsThatLayerAlone)
{
    EXPECT_EQ("", run("-LAYER LOck A.B"));
    EXPECT_TRUE(layer("A.B")->isLocked());
    EXPECT_EQ("", run("-LAYER New A-B Unlock A.B LOck A`.B"));
    EXPECT_FALSE(layer("A-B")->isLocked());
    EXPECT_TRUE(layer("A.B")->isLocked());
}

TEST_F(LayerCommandLine, NamedLayersThatAreNotThereMakeItFailAfterTheRestIsDone)
{
    EXPECT_EQ("There is no layer \"NOSUCH\". There is no layer \"Nor this\".",
              run("-LAYER LOck \"NOSUCH,A-WALL,Nor this\" OFF S-BEAM"));
    EXPECT_TRUE(layer("A-WALL")->isLocked());
    EXPECT_TRUE(layer("S-BEAM")->isOff());
}

TEST_F(LayerCommandLine, APatternThatMatchesNoneIsToldAndIsNoFailure)
{
    EXPECT_EQ("", run("-LAYER OFF X*,S-BEAM"));
    EXPECT_TRUE(layer("S-BEAM")->isOff());
    EXPECT_EQ("No layer matches \"X*\".", printed());
}

TEST_F(LayerCommandLine, AScriptThatForgetsTheLayersFailsWhereNoneIsMeant)
{
    EXPECT_EQ("\"Layers to freeze:\" is asked, and the line holds no answer.",
              run("-LAYER Freeze"));
    EXPECT_EQ("", run("-LAYER Freeze \"\""));
    EXPECT_EQ("", run("-LAYER Color red"));
}

TEST_F(LayerCommandLine, TheCurrentLayerIsNotFrozen)
{
    EXPECT_EQ("The layer \"0\" is current and cannot be frozen.", run("-LAYER Freeze 0,A-WALL"));
    EXPECT_EQ("A-WALL S-ICE", where(&OdDbLayerTableRecord::isFrozen));
    EXPECT_EQ("", run("-LAYER Freeze *"));
    EXPECT_FALSE(layer("0")->isFrozen());
    EXPECT_TRUE(layer("S-BEAM")->isFrozen());
    EXPECT_EQ("The layer \"0\" is current and cannot be frozen.", printed());
}

TEST_F(LayerCommandLine, TheCurrentLayerIsTurnedOffUnlessTheScriptSaysNo)
{
    EXPECT_EQ("", run("-LAYER OFF 0,A-WALL No LOck S-BEAM"));
    EXPECT_EQ("A-WALL", where(&OdDbLayerTableRecord::isOff));
    EXPECT_TRUE(layer("S-BEAM")->isLocked());
    EXPECT_EQ("", run("-LAYER OFF 0 New N1"));
    EXPECT_TRUE(layer("0")->isOff());
    EXPECT_TRUE(has("N1"));
    EXPECT_EQ("", run("-LAYER ON 0 OFF 0 Yes"));
    EXPECT_TRUE(layer("0")->isOff());
}

TEST_F(LayerCommandLine, GivesColoursByIndexNameAndRgb)
{
    EXPECT_EQ("", run("-LAYER Color 30 A-WALL C red A-DOOR C 255,127,0 S-*"));
    EXPECT_EQ(OdCmColor::fromIndex(30), layer("A-WALL")->color());
    EXPECT_EQ(OdCmColor::fromIndex(1), layer("A-DOOR")->color());
    EXPECT_EQ(OdCmColor::fromRgb(255, 127, 0), layer("S-BEAM")->color());
    EXPECT_EQ("", run("-LAYER Color WHITE \"\""));
    EXPECT_EQ(OdCmColor::fromIndex(7), layer("0")->color());
    for (const char* wrong : {"0", "256", "pink", "1,2", "1,2,256", "-3"}) {
        const QByteArray line = QByteArray("-LAYER Color ") + wrong + " A-WALL";
        EXPECT_EQ(std::string("A color is an index from 1 to 255, a name from red to white, or "
                              "\"r,g,b\"; \"")
                      + wrong + "\" is none.",
                  run(line.constData()));
    }
    EXPECT_EQ(OdCmColor::fromIndex(30), layer("A-WALL")->color());
}

TEST_F(LayerCommandLine, GivesLinetypesAndLineweights)
{
    EXPECT_EQ("", run("-LAYER Ltype continuous A-* LWeight 0.34 A-* LW Default S-*"));
    EXPECT_EQ(35, layer("A-WALL")->lineWeight());
    EXPECT_EQ(-3, layer("S-BEAM")->lineWeight());
    EXPECT_EQ("", run("-LAYER LWeight \"0.010\"\"\" A-WALL"));
    EXPECT_EQ(25, layer("A-WALL")->lineWeight());
    EXPECT_EQ("The drawing has no linetype \"wavy\" for layers.", run("-LAYER L wavy A-WALL"));
    EXPECT_EQ("The drawing has no linetype \"ByLayer\" for layers.",
              run("-LAYER L ByLayer A-WALL"));
    EXPECT_EQ("A lineweight is Default or a width from 0.00 mm to 2.11 mm; \"3\" is none.",
              run("-LAYER LW 3 A-WALL"));
    run("LWUNITS 0");
    EXPECT_EQ("", run("-LAYER LWeight 0.083 A-WALL"));
    EXPECT_EQ(211, layer("A-WALL")->lineWeight());
}

TEST_F(LayerCommandLine, GivesTransparencyDescriptionAndNoPlotStyleWhereColoursDecide)
{
    EXPECT_EQ("", run("-LAYER TR 50 A-WALL Description \"outer walls, load bearing\" A-*"));
    EXPECT_EQ(50, OdDbLayerTableRecord::transparencyPercent(layer("A-WALL")->transparency()));
    EXPECT_EQ("outer walls, load bearing", layer("A-DOOR")->description().toStdString());
    EXPECT_EQ("", run("-LAYER D \"\" A-DOOR"));
    EXPECT_EQ("", layer("A-DOOR")->description().toStdString());
    EXPECT_EQ("A transparency is an integer from 0 to 90; \"91\" is none.",
              run("-LAYER TR 91 A-WALL"));
    EXPECT_EQ("In this drawing a layer's plot style follows its color.",
              run("-LAYER PStyle Fine A-WALL"));
    EXPECT_EQ("", run("-LAYER PStyle Fine A-*"));
    EXPECT_EQ("In this drawing a layer's plot style follows its color.|1 more layer was left as "
              "it is.",
              printed());
}

TEST_F(LayerCommandLine, MakesLayersUnderNamesThatAreAllowed)
{
    EXPECT_EQ("", run("-LAYER New \"N1, N2 with blanks,Größe\""));
    EXPECT_TRUE(has("n1") && has("N2 with blanks") && has("größe"));
    EXPECT_EQ("There is a layer \"a-wall\" already.", run("-LAYER New a-wall,N3"));
    EXPECT_TRUE(has("N3"));
    for (const char* wrong : {"A<B", "A>B", "A/B", "A:B", "A?", "*A", "A|B", "A=B", "A`B", "A\\B"})
        EXPECT_NE("", run((QByteArray("-LAYER New ") + wrong).constData())) << wrong;
    EXPECT_EQ("\"A*\" cannot be a layer's name: none of <>/\":;?*|,=`\\ may be in it.",
              run("-LAYER New A*"));
    const QByteArray longest(254, 'L');
    EXPECT_EQ("", run((QByteArray("-LAYER New ") + longest).constData()));
    EXPECT_EQ("A layer's name has at most 254 characters; this one has 255.",
              run((QByteArray("-LAYER New ") + longest + 'L').constData()));
}

TEST_F(LayerCommandLine, SetAndMakeChooseTheCurrentLayer)
{
    EXPECT_EQ("", run("-LAYER Set a-wall"));
    EXPECT_EQ("A-WALL", core.sysvars().text(QStringLiteral("CLAYER")).toStdString());
    EXPECT_EQ("", run("-LAYER Make Fresh Color red"));
    EXPECT_EQ("Fresh", core.sysvars().text(QStringLiteral("CLAYER")).toStdString());
    EXPECT_EQ(OdCmColor::fromIndex(1), layer("Fresh")->color());
    EXPECT_EQ("", run("-LAYER M A-DOOR"));
    EXPECT_EQ("A-DOOR", core.sysvars().text(QStringLiteral("CLAYER")).toStdString());
    EXPECT_EQ("The layer \"S-ICE\" is frozen and cannot be current.", run("-LAYER Set S-ICE"));
    EXPECT_EQ("There is no layer \"Roof\" in this drawing.", run("-LAYER Set Roof"));
}

TEST_F(LayerCommandLine, RenamesByTheRules)
{
    EXPECT_EQ("", run("-LAYER Rename A-WALL a-Wall Rename S-BEAM \"Steel beams\""));
    EXPECT_EQ("a-Wall", layer("A-WALL")->getName().toStdString());
    EXPECT_TRUE(has("Steel beams"));
    EXPECT_EQ("Layer 0 cannot be renamed.", run("-LAYER R 0 Zero"));
    EXPECT_EQ("The layer \"ref|Door\" belongs to an external reference and cannot be renamed.",
              run("-LAYER R ref|Door Door"));
    EXPECT_EQ("There is a layer \"a-wall\" already.", run("-LAYER R A-DOOR a-wall"));
    EXPECT_EQ("There is no layer \"Roof\".", run("-LAYER R Roof Top"));
    EXPECT_NE("", run("-LAYER R A-DOOR A,B"));
    EXPECT_TRUE(has("A-DOOR"));
}

TEST_F(LayerCommandLine, DeletesWhatNothingNeeds)
{
    EXPECT_EQ("", run("-LAYER DELete A-DOOR,S-BEAM"));
    EXPECT_FALSE(has("A-DOOR") || has("S-BEAM"));
    EXPECT_EQ("The layer \"0\" cannot be deleted: every drawing has it. "
              "The layer \"Defpoints\" cannot be deleted: every drawing has it. "
              "The layer \"A-WALL\" cannot be deleted: objects lie on it. "
              "The layer \"ref|Door\" cannot be deleted: it belongs to an external reference.",
              run("-LAYER DEL 0,defpoints,A-WALL,ref|Door"));
    EXPECT_EQ("The layer \"A.B\" cannot be deleted: it is current.", run("-LAYER Set A.B DEL A.B"));
    EXPECT_EQ("", run("-LAYER Set 0 DEL *"));
    EXPECT_EQ(4, drawing->layerTable().count());
    EXPECT_EQ(QStringList(), drawing->audit());
}

TEST_F(LayerCommandLine, ListsTheLayersOfAPattern)
{
    EXPECT_EQ("", run("-LAYER ? A-*"));
    ASSERT_EQ(1, frontEnd.printed.size());
    EXPECT_TRUE(frontEnd.printed[0].contains(QStringLiteral("A-WALL")));
    EXPECT_FALSE(frontEnd.printed[0].contains(QStringLiteral("S-BEAM")));
    EXPECT_TRUE(frontEnd.printed[0].endsWith(QStringLiteral("2 layers.")));
}

TEST_F(LayerCommandLine, SavesRestoresAndDeletesStates)
{
    EXPECT_EQ("", run("-LAYER stAte Save Morning OFF A-* A Restore Morning"));
    EXPECT_FALSE(layer("A-WALL")->isOff());
    EXPECT_EQ("", run("-LAYER OFF A-WALL A S morning ON A-WALL A R Morning A ?"));
    EXPECT_TRUE(layer("A-WALL")->isOff());
    EXPECT_EQ("Morning", printed());
    EXPECT_EQ("", run("-LAYER A D Morning"));
    EXPECT_FALSE(LayerStates(*drawing).has(QStringLiteral("Morning")));
    EXPECT_NE("", run("-LAYER A R Morning"));
}

TEST_F(LayerCommandLine, NewLayersAwaitReviewWhileTheyAreEvaluated)
{
    EXPECT_EQ("", run("LAYEREVAL 2"));
    EXPECT_EQ("", run("-LAYER New Fresh"));
    EXPECT_FALSE(layer("Fresh")->isReconciled());
    // The drawing was never reviewed: its other layers do not become new as well.
    EXPECT_TRUE(layer("0")->isReconciled());
    EXPECT_EQ("", run("-LAYER REConcile *"));
    EXPECT_TRUE(layer("Fresh")->isReconciled());
    EXPECT_EQ("", run("LAYEREVALCTL 0"));
    EXPECT_EQ("", run("-LAYER New Other"));
    EXPECT_NE(std::optional(false), layer("Other")->state().reconciled);
    run("LAYEREVALCTL 1");
}

TEST_F(LayerCommandLine, IsOneUndoStep)
{
    EXPECT_EQ("", run("-LAYER New N1 OFF A-* Rename S-BEAM Steel DELete A.B Set N1"));
    EXPECT_EQ("-LAYER", core.documents().curDocument()->undoNames().undoName().toStdString());
    EXPECT_EQ("", run("U"));
    EXPECT_FALSE(has("N1"));
    EXPECT_EQ("", where(&OdDbLayerTableRecord::isOff));
    EXPECT_TRUE(has("S-BEAM") && has("A.B"));
    EXPECT_EQ("There is nothing to undo.", run("U"));
    EXPECT_EQ("", run("REDO"));
    EXPECT_TRUE(has("N1") && has("Steel"));
    EXPECT_EQ(QStringList(), drawing->audit());
}

TEST_F(LayerCommandLine, WhatAFailedRunDidStaysAsOneUndoStep)
{
    EXPECT_EQ("One of ?, New, Make, Set, Rename, DELete, REConcile, ON, OFF, Freeze, Thaw, LOck, "
              "Unlock, Plot, Color, Ltype, LWeight, TRansparency, PStyle, Description, stAte is "
              "needed; \"Frob\" is none.",
              run("-LAYER OFF A-WALL Frob S-BEAM"));
    EXPECT_TRUE(layer("A-WALL")->isOff());
    EXPECT_FALSE(drawing->isUndoRecordOpen());
    EXPECT_EQ("", run("U"));
    EXPECT_FALSE(layer("A-WALL")->isOff());
}

/// The command with a person who answers.
class LayerCommandDialogue : public LayerCommandLine
{
protected:
    void SetUp() override
    {
        LayerCommandLine::SetUp();
        frontEnd.interactive = true;
    }
    std::string answer(std::initializer_list<const char*> answers)
    {
        for (const char* text : answers)
            frontEnd.answers.emplace_back(QString::fromUtf8(text));
        return run("-LAYER");
    }
    const QString options = QStringLiteral(
        "Layers [?/New/Make/Set/Rename/DELete/REConcile/ON/OFF/Freeze/Thaw/LOck/Unlock/Plot/Color/"
        "Ltype/LWeight/TRansparency/PStyle/Description/stAte]:");
};

TEST_F(LayerCommandDialogue, LoopsUntilAnEmptyAnswerAndTellsWhatItDid)
{
    EXPECT_EQ("", answer({"Freeze", "S-*", "Color", "red", "", ""}));
    EXPECT_EQ((QStringList{options, QStringLiteral("Layers to freeze:"), options,
                           QStringLiteral("Color, as an index, a name or r,g,b:"),
                           QStringLiteral("Layers <0>:"), options}),
              frontEnd.prompts);
    EXPECT_EQ("2 layers matched, 1 changed.|1 layer matched, 1 changed.", printed());
    EXPECT_EQ(OdCmColor::fromIndex(1), layer("0")->color());
}

TEST_F(LayerCommandDialogue, AWrongAnswerIsToldAndAskedForAgain)
{
    EXPECT_EQ("", answer({"L", "wavy", "Continuous", "A-WALL", "O", ""}));
    EXPECT_EQ("The drawing has no linetype \"wavy\" for layers.|1 layer matched, 0 changed.|\"O\" "
              "can stand for ON, OFF.",
              printed());
}

TEST_F(LayerCommandDialogue, WhatIsLeftOfAWronglyTypedLineIsDropped)
{
    frontEnd.answers = {QString()};
    EXPECT_EQ("", run("-LAYER Frob A-WALL OFF S-BEAM"));
    EXPECT_EQ(QStringList{options}, frontEnd.prompts);
    EXPECT_FALSE(layer("S-BEAM")->isOff());
}

TEST_F(LayerCommandDialogue, RefusalsAreToldAndTheCommandGoesOn)
{
    EXPECT_EQ("",
              answer({"Set", "S-ICE", "Freeze", "0", "DEL", "A-WALL,NOSUCH", "LO", "S-BEAM", ""}));
    EXPECT_EQ("The layer \"S-ICE\" is frozen and cannot be current.|"
              "The layer \"0\" is current and cannot be frozen.|1 layer matched, 0 changed.|"
              "There is no layer \"NOSUCH\".|"
              "The layer \"A-WALL\" cannot be deleted: objects lie on it.|"
              "1 layer matched, 0 changed.|1 layer matched, 1 changed.",
              printed());
    EXPECT_TRUE(layer("S-BEAM")->isLocked());
}

TEST_F(LayerCommandDialogue, AsksBeforeTheCurrentLayerIsTurnedOff)
{
    EXPECT_EQ("", answer({"OFF", "0,A-WALL", "No", ""}));
    EXPECT_TRUE(frontEnd.prompts.contains(
        QStringLiteral("The layer \"0\" is current. Turn it off? [Yes/No] <Yes>:")));
    EXPECT_EQ("A-WALL", where(&OdDbLayerTableRecord::isOff));
    EXPECT_EQ("", answer({"OFF", "0", "", ""}));
    EXPECT_TRUE(layer("0")->isOff());
    frontEnd.prompts.clear();
    EXPECT_EQ("", answer({"OFF", "0", ""}));
    EXPECT_EQ(3, frontEnd.prompts.size()); // off already: no question
}

TEST_F(LayerCommandDialogue, CancellingKeepsWhatWasDone)
{
    frontEnd.answers = {QStringLiteral("OFF"), QStringLiteral("A-WALL"), QStringLiteral("Color"),
                        std::nullopt};
    EXPECT_EQ("*Cancel*", run("-LAYER"));
    EXPECT_TRUE(layer("A-WALL")->isOff());
    EXPECT_FALSE(drawing->isUndoRecordOpen());
    EXPECT_EQ("", core.sysvars().text(QStringLiteral("CMDNAMES")).toStdString());
}

TEST_F(LayerCommandDialogue, ReplacesAStateOnlyWhenToldTo)
{
    EXPECT_EQ("", answer({"A", "Save", "S", "OFF", "A-WALL", "A", "Save", "S", "", ""}));
    EXPECT_TRUE(frontEnd.prompts.contains(
        QStringLiteral("There is a state \"S\". Replace it? [Yes/No] <No>:")));
    EXPECT_EQ("", answer({"A", "R", "S", ""}));
    EXPECT_FALSE(layer("A-WALL")->isOff());
}

TEST(LayerCommandSpeed, ThousandsOfNamesInALargeTableTakeSeconds)
{
    RecordingFrontEnd frontEnd;
    QTemporaryDir folder;
    HostCore core(frontEnd, folder.path());
    TestDrawing many;
    for (int i = 0; i < 20'000; ++i)
        many.add({.name = "L" + QByteArray::number(i)});
    OdDbDatabase& drawing =
        *core.files().open(many.writeTo(folder.path(), QStringLiteral("m.dxf"))).database();
    QStringList names;
    for (int i = 0; i < 5'000; ++i)
        names << QStringLiteral("l%1").arg(i * 3);
    const auto start = std::chrono::steady_clock::now();
    EXPECT_TRUE(core.commands()
                    .run(QStringLiteral("-LAYER Freeze L* LOck ") + names.join(QLatin1Char(',')))
                    .isDone());
    const std::chrono::duration<double> took = std::chrono::steady_clock::now() - start;
    RecordProperty("seconds", std::to_string(took.count()));
    // Searched one by one, the names alone would take fifty million comparisons.
    EXPECT_LT(took.count(), 5);
    const auto layer =
        drawing.layerTable().getAt(QStringLiteral("L18")).openObject<OdDbLayerTableRecord>();
    EXPECT_TRUE(layer->isFrozen() && layer->isLocked());
    EXPECT_EQ("", core.commands().run(QStringLiteral("U")).sentence.toStdString());
    EXPECT_FALSE(layer->isFrozen());
}
