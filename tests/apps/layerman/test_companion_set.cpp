#include "CompanionFixture.h"
#include "database/objects/OdDbEntity.h"
#include "database/tables/OdDbLayerTable.h"
#include "database/tables/OdDbLayerTableRecord.h"
#include "io/DrawingFile.h"

class CompanionSet : public CompanionFixture
{
protected:
    /// What a dry run tells, with the exit code where it is not 0.
    std::string wouldDo(const char* words)
    {
        const QByteArray before = bytesOf(QStringLiteral("plan.dxf"));
        const Finished done = layerman((std::string("set plan.dxf --dry-run ") + words).c_str());
        EXPECT_EQ(before, bytesOf(QStringLiteral("plan.dxf")));
        EXPECT_EQ(QStringList{QStringLiteral("plan.dxf")}, files());
        return (done.exitCode == 0 ? "" : std::to_string(done.exitCode) + ' ') + done.output;
    }
    /// The lines that an edit of the drawing in place changes.
    std::string changes(const char* words)
    {
        const QByteArray before = bytesOf(QStringLiteral("plan.dxf"));
        const Finished done = layerman((std::string("set plan.dxf --in-place ") + words).c_str());
        EXPECT_EQ(0, done.exitCode) << done.errors;
        EXPECT_EQ(QStringList(), read(QStringLiteral("plan.dxf"))->audit());
        return changedLines(before, bytesOf(QStringLiteral("plan.dxf")))
            .join(QStringLiteral("; "))
            .toStdString();
    }
    OdDbLayerTableRecordPtr layer(const OdDbDatabase& drawing, const char* name)
    {
        return drawing.layerTable()
            .getAt(QString::fromUtf8(name))
            .safeOpenObject<OdDbLayerTableRecord>();
    }
};

TEST_F(CompanionSet, ChangesNothingInTheFileButWhatItIsAskedTo)
{
    drawing("plan.dxf", {{"Walls", 0, 3}, {"Doors", 0, 3}, {"Roof"}});
    EXPECT_EQ("0 -> 4", changes("--search Walls locked=yes"));
    EXPECT_EQ("3 -> -3", changes("--search Walls on=no"));
    EXPECT_EQ("-3 -> -1; 3 -> 1", changes("--expr COLOR==\"3\" color=red"));
    EXPECT_EQ("4 -> 7", changes("--search wa* freeze=yes newvpfreeze=1"));
    EXPECT_EQ("Continuous -> DASHED", changes("--search Roof linetype=dashed"));
    EXPECT_EQ("-3 -> 25", changes("--search Roof lineweight=0.25"));
    EXPECT_EQ("0 -> Doors", changes("--search Doors current=yes"));
    EXPECT_EQ("Roof -> Dach", changes("--search Roof name=Dach"));
}

TEST_F(CompanionSet, SetsWhatNeedsGroupsOfItsOwn)
{
    drawing("plan.dxf", {{"Walls"}, {"Doors"}});
    const Finished done = layerman({QStringLiteral("set"), QStringLiteral("plan.dxf"),
                                    QStringLiteral("--in-place"), QStringLiteral("--search=Walls"),
                                    QStringLiteral("plot=no"), QStringLiteral("color=1,2,3"),
                                    QStringLiteral("description=Outer, \"thick\" = ones")});
    EXPECT_EQ(0, done.exitCode);
    EXPECT_EQ("1 drawing: 1 layer changed.\n", done.errors);
    const auto drawing = read(QStringLiteral("plan.dxf"));
    EXPECT_EQ(QStringList(), drawing->audit());
    EXPECT_FALSE(layer(*drawing, "Walls")->isPlottable());
    EXPECT_EQ(OdCmColor::fromRgb(1, 2, 3), layer(*drawing, "Walls")->color());
    EXPECT_EQ("Outer, \"thick\" = ones", layer(*drawing, "Walls")->description().toStdString());
    EXPECT_TRUE(layer(*drawing, "Doors")->isPlottable());
}

TEST_F(CompanionSet, TellsInADryRunWhatWouldChange)
{
    drawing("plan.dxf", {{"Walls", 4}, {"Doors", 0, -1}, {"Roof"}});
    EXPECT_EQ("plan.dxf: 0: locked no -> yes\nplan.dxf: Doors: locked no -> yes\n"
              "plan.dxf: Roof: locked no -> yes\n",
              wouldDo("--search * locked=yes"));
    EXPECT_EQ("plan.dxf: Roof: on yes -> no\n", wouldDo("--search [dr]* on=no"));
    EXPECT_EQ("plan.dxf: Roof: name Roof -> Dach\nplan.dxf: Roof: color white -> 9\n"
              "plan.dxf: Roof: linetype Continuous -> DASHED\n"
              "plan.dxf: Roof: lineweight Default -> 0.25 mm\nplan.dxf: Roof: plot yes -> no\n"
              "plan.dxf: Roof: newvpfreeze no -> yes\nplan.dxf: Roof: description \"\" -> new\n"
              "plan.dxf: Roof: current no -> yes\n",
              wouldDo("--search Roof name=Dach color=9 linetype=DASHED lineweight=0.26 plot=no "
                      "newvpfreeze=on description=new current=yes"));
    EXPECT_EQ("", wouldDo("--search Walls locked=yes on=yes"));
    EXPECT_EQ("5 plan.dxf: Walls: freeze no -> yes\n", wouldDo("--search 0,Walls freeze=yes"));
    EXPECT_EQ("1 drawing: 1 layer would change.\n",
              layerman("set plan.dxf --dry-run --search [dr]* on=no").errors);
}

TEST_F(CompanionSet, GivesPropertiesInTheOrderOfTheLine)
{
    drawing("plan.dxf", {{"Walls", 1}});
    EXPECT_EQ(5, layerman("set plan.dxf --dry-run --search Walls current=yes freeze=no").exitCode);
    EXPECT_EQ(0, layerman("set plan.dxf --dry-run --search Walls freeze=no current=yes").exitCode);
}

TEST_F(CompanionSet, WorksInTheActiveViewportOfASheet)
{
    sheet("plan.dxf", {{"Walls"}, {"Doors"}});
    const Finished done =
        layerman("set plan.dxf --in-place --search Walls,Doors vpfreeze=yes vpcolor=3 "
                 "vplinetype=dashed vplineweight=0.5");
    EXPECT_EQ(0, done.exitCode) << done.errors;
    EXPECT_EQ("1 drawing: 2 layers changed.\n", done.errors);
    const auto drawing = read(QStringLiteral("plan.dxf"));
    EXPECT_EQ(QStringList(), drawing->audit());
    const OdDbObjectId viewport = drawing->activeViewportId();
    const auto walls = layer(*drawing, "Walls");
    EXPECT_EQ(OdCmColor::fromIndex(3), walls->color(viewport));
    EXPECT_EQ(OdCmColor::fromIndex(7), walls->color());
    EXPECT_EQ(50, walls->lineWeight(viewport));
    EXPECT_NE(walls->linetypeObjectId(), walls->linetypeObjectId(viewport));
    for (const char* name : {"Walls", "Doors"})
        EXPECT_TRUE(viewport.safeOpenObject<OdDbViewport>()->isLayerFrozenInViewport(
            layer(*drawing, name)->objectId()));
    EXPECT_EQ("plan.dxf: Walls: vpfreeze yes -> no\n", wouldDo("--search W* vpfreeze=no"));
}

TEST_F(CompanionSet, MarksLayersAsNewAndLeavesTheOthersReviewed)
{
    drawing("plan.dxf", {{"Walls"}, {"Doors"}});
    EXPECT_EQ("plan.dxf: Walls: reconciled yes -> no\nplan.dxf: Doors: reconciled yes -> no\n",
              [&] {
                  std::string told = wouldDo("--search Walls,Doors reconciled=no");
                  const std::string doors = "plan.dxf: Doors: reconciled yes -> no\n";
                  EXPECT_EQ(0u, told.find(doors)) << "by name";
                  return told.substr(doors.size()) + doors;
              }());
    EXPECT_EQ(0, layerman("set plan.dxf --in-place --search Walls reconciled=no").exitCode);
    EXPECT_EQ("name,reconciled\n0,yes\nDoors,yes\nWalls,no\n",
              layerman("list plan.dxf --columns name,reconciled --format csv").output);
    EXPECT_EQ(0, layerman("set plan.dxf --in-place --search Walls reconciled=yes").exitCode);
    EXPECT_TRUE(layer(*read(QStringLiteral("plan.dxf")), "Walls")->isReconciled());
}

TEST_F(CompanionSet, GivesPlotStylesWhereTheyHaveNames)
{
    styled("plan.dxf", {{"Walls"}, {"Doors"}});
    EXPECT_EQ("plan.dxf: Walls: plotstyle Normal -> Thin\n",
              wouldDo("--search Walls plotstyle=Thin"));
    EXPECT_EQ("1 drawing: 0 layers would change.\n",
              layerman("set plan.dxf --dry-run --search Walls plotstyle=NORMAL").errors);
    const Finished unknown = layerman("set plan.dxf --in-place --search Walls plotstyle=Thick");
    EXPECT_EQ(3, unknown.exitCode);
    EXPECT_EQ("layerman: plan.dxf has no plot style \"Thick\".\n"
              "1 drawing: 0 layers changed, 1 drawing failed.\n",
              unknown.errors);
}

TEST_F(CompanionSet, ADrawingWithoutTheLinetypeFailsAsAWhole)
{
    drawing("plan.dxf", {{"Walls"}});
    const QByteArray before = bytesOf(QStringLiteral("plan.dxf"));
    for (const char* linetype : {"DOTTED", "ByLayer"}) {
        const Finished done = layerman(
            (std::string("set plan.dxf --in-place --search * color=1 linetype=") + linetype)
                .c_str());
        EXPECT_EQ(3, done.exitCode);
        EXPECT_EQ(std::string("layerman: plan.dxf has no linetype \"") + linetype
                      + "\" for layers.\n1 drawing: 0 layers changed, 1 drawing failed.\n",
                  done.errors);
    }
    EXPECT_EQ(before, bytesOf(QStringLiteral("plan.dxf")));
}

TEST_F(CompanionSet, WhatItCannotDoIsAWrongCallBeforeAnyFileIsRead)
{
    const auto wrong = [this](const char* words, const std::string& sentence) {
        const Finished done = layerman((std::string("set absent.dxf ") + words).c_str());
        EXPECT_EQ(1, done.exitCode) << words;
        EXPECT_EQ(0u, done.errors.find("layerman: " + sentence + "\nUsage: layerman set "))
            << done.errors;
    };
    wrong("--search *", "set needs something to set, such as locked=yes.");
    wrong("locked=yes --in-place",
          "set needs --filter, --expr or --search; --search \"*\" takes all layers.");
    wrong("--search * locked=yes", "set needs -o OUT, --in-place or --dry-run.");
    wrong("--search * lock=yes --in-place",
          "There is no property \"lock\"; the nearest is locked. A file of that name is written "
          "./lock=yes.");
    wrong("--search * color=999 --in-place",
          "A color is an index from 1 to 255, a name from red to white, or \"r,g,b\"; \"999\" is "
          "none.");
    wrong("--search A name=A* --in-place",
          "The following characters are not valid in Layer Names: <>/\":;?*|,=`\\");
    EXPECT_EQ(1, layerman("set --search A locked=yes --in-place").exitCode);
}

TEST_F(CompanionSet, AFileMayLookLikeAProperty)
{
    drawing("color=1.dxf", {{"Walls"}});
    const Finished done = layerman("set ./color=1.dxf --search Walls locked=yes --in-place");
    EXPECT_EQ(0, done.exitCode) << done.errors;
    EXPECT_TRUE(layer(*read(QStringLiteral("color=1.dxf")), "Walls")->isLocked());
}

TEST_F(CompanionSet, TellsWhatTheVersionOfAFileCannotHold)
{
    write("plan.dxf", DrawingText::old({{"WALLS"}}));
    const Finished done = layerman("set plan.dxf --in-place --search WALLS color=1,2,3 plot=no");
    EXPECT_EQ(0, done.exitCode);
    EXPECT_EQ("plan.dxf: The drawing's version cannot hold the true color of layer \"WALLS\".\n"
              "plan.dxf: The drawing's version cannot hold the plot switch of layer \"WALLS\".\n"
              "1 drawing: 1 layer changed.\n",
              done.errors);
}
