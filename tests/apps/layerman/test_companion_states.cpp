#include "CompanionFixture.h"
#include "database/states/LayerStates.h"
#include "database/tables/OdDbLayerTable.h"
#include "database/tables/OdDbLayerTableRecord.h"
#include "io/DrawingFile.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

/// "plan.dxf" has Walls (on, color 1) and Doors (frozen, color 2), and what a test makes of it.
class CompanionStates : public CompanionFixture
{
protected:
    CompanionStates() { drawing("plan.dxf", {{"Walls", 0, 1}, {"Doors", 1, 2}}); }

    /// Runs "states plan.dxf WORDS"; what is written to the streams follows the exit code.
    std::string states(const char* words) const
    {
        const Finished done = layerman((std::string("states plan.dxf ") + words).c_str());
        return std::to_string(done.exitCode) + '\n' + done.output + done.errors;
    }
    std::string set(const char* words) const
    {
        return layerman((std::string("set plan.dxf --in-place ") + words).c_str()).errors;
    }
    /// Rows of the table behind its two heading lines.
    std::string rows(const char* file = "plan.dxf") const
    {
        const Finished done = layerman((std::string("states ") + file + " list").c_str());
        EXPECT_EQ(0, done.exitCode) << done.errors;
        QStringList lines = QString::fromStdString(done.output).split(QLatin1Char('\n'));
        lines = lines.mid(2);
        for (QString& line : lines)
            line = line.simplified();
        return lines.join(QLatin1Char('\n')).trimmed().toStdString();
    }
    /// "Walls on 1, Doors frozen 2" and so on.
    std::string layers() const
    {
        QStringList texts;
        const auto plan = read(QStringLiteral("plan.dxf"));
        for (const OdDbObjectId id : plan->layerTable().records()) {
            const auto layer = id.safeOpenObject<OdDbLayerTableRecord>();
            texts << QStringLiteral("%1%2%3 %4")
                         .arg(layer->getName(), layer->isOff() ? QStringLiteral(" off") : QString(),
                              layer->isFrozen() ? QStringLiteral(" frozen") : QString())
                         .arg(layer->color().colorIndex());
        }
        return texts.join(QStringLiteral(", ")).toStdString();
    }
};

TEST_F(CompanionStates, AreListedWithSpaceLikenessLayersMaskAndDescription)
{
    EXPECT_EQ("", rows());
    EXPECT_EQ("0\n1 drawing: 1 layer state saved.\n", states("save First --in-place"));
    EXPECT_EQ("0\n1 drawing: 1 layer state saved.\n",
              states("save Second --mask color,ON --description Colors --in-place"));
    EXPECT_EQ("First Model Yes 3 all\nSecond Model Yes 3 on,color Colors", rows());
    set("--search Walls freeze=yes");
    EXPECT_EQ("First Model No 3 all\nSecond Model Yes 3 on,color Colors", rows())
        << "likeness is about what is restored";
    set("--search Walls color=5");
    EXPECT_EQ("First Model No 3 all\nSecond Model No 3 on,color Colors", rows());
}

TEST_F(CompanionStates, AreListedAsJson)
{
    ASSERT_EQ("0", states("save A --mask none --in-place").substr(0, 1));
    ASSERT_EQ(0,
              layerman({QStringLiteral("states"), QStringLiteral("plan.dxf"),
                        QStringLiteral("save"), QStringLiteral("Quote \" and \\"),
                        QStringLiteral("--mask=freeze,plotstyle"), QStringLiteral("--in-place")})
                  .exitCode);
    const Finished done = layerman("states plan.dxf gone.dxf list --format json");
    EXPECT_EQ(6, done.exitCode);
    QJsonParseError error;
    const QJsonArray all =
        QJsonDocument::fromJson(QByteArray::fromStdString(done.output), &error).array();
    ASSERT_EQ(QJsonParseError::NoError, error.error) << done.output;
    ASSERT_EQ(2, all.size());
    EXPECT_EQ(QStringLiteral("plan.dxf"), all[0][QStringLiteral("file")].toString());
    const QJsonArray listed = all[0][QStringLiteral("states")].toArray();
    ASSERT_EQ(2, listed.size());
    const QJsonObject expected{{QStringLiteral("name"), QStringLiteral("Quote \" and \\")},
                               {QStringLiteral("space"), QStringLiteral("model")},
                               {QStringLiteral("sameAsDrawing"), true},
                               {QStringLiteral("layers"), 3},
                               {QStringLiteral("restores"),
                                QJsonArray{QStringLiteral("freeze"), QStringLiteral("plotstyle")}},
                               {QStringLiteral("description"), QString()}};
    EXPECT_EQ(expected, listed[1].toObject());
    EXPECT_EQ(QJsonArray(), listed[0][QStringLiteral("restores")].toArray());
    EXPECT_TRUE(all[1].toObject().contains(QStringLiteral("error")));
}

TEST_F(CompanionStates, OfALayoutSaySo)
{
    sheet("sheet.dxf", {{"Walls"}});
    EXPECT_EQ(0, layerman("states sheet.dxf save Here --in-place").exitCode);
    EXPECT_EQ("Here Layout Yes 2 all", rows("sheet.dxf"));
}

TEST_F(CompanionStates, BringBackWhatTheirMaskOrTheGivenOneNames)
{
    ASSERT_EQ("0", states("save Start --mask freeze --in-place").substr(0, 1));
    set("--search Walls freeze=yes color=5");
    set("--search Doors freeze=no on=no");
    EXPECT_EQ("0 7, Walls frozen 5, Doors off 2", layers());
    EXPECT_EQ("0\n1 drawing: 1 layer state restored.\n", states("restore start --in-place"));
    EXPECT_EQ("0 7, Walls 5, Doors off frozen 2", layers());
    EXPECT_EQ("0\n1 drawing: 1 layer state restored.\n",
              states("restore Start --mask all --in-place"));
    EXPECT_EQ("0 7, Walls 1, Doors frozen 2", layers());
    EXPECT_EQ("Start Model Yes 3 freeze", rows()) << "the state is as it was";
}

TEST_F(CompanionStates, TurnOffLayersThatTheyDoNotHaveWhenAskedTo)
{
    ASSERT_EQ("0", states("save Old --in-place").substr(0, 1));
    ASSERT_EQ("0", states("export Old old.las").substr(0, 1));
    drawing("plan.dxf", {{"Walls", 0, 1}, {"Roof", 0, 3}, {"Doors", 0, 2}});
    ASSERT_EQ("0", states("import old.las --in-place").substr(0, 1));
    EXPECT_EQ("0", states("restore Old --in-place").substr(0, 1));
    EXPECT_EQ("0 7, Walls 1, Roof 3, Doors frozen 2", layers());
    EXPECT_EQ("0", states("restore Old --turn-off-missing --in-place").substr(0, 1));
    EXPECT_EQ("0 7, Walls 1, Roof off 3, Doors frozen 2", layers());
}

TEST_F(CompanionStates, AreSavedOverOnlyWhenAskedTo)
{
    ASSERT_EQ("0", states("save A --description Before --mask on --in-place").substr(0, 1));
    set("--search Walls color=5");
    const QByteArray before = bytesOf(QStringLiteral("plan.dxf"));
    EXPECT_EQ("5\nplan.dxf: There is a layer state \"a\" already; --replace saves over it.\n"
              "1 drawing: 0 layer states saved, 1 refused.\n",
              states("save a --in-place"));
    EXPECT_EQ(before, bytesOf(QStringLiteral("plan.dxf")));
    EXPECT_EQ("0", states("save a --replace --in-place").substr(0, 1));
    EXPECT_EQ("A Model Yes 3 on Before", rows()) << "mask and description stay";
    EXPECT_EQ("0",
              states("save a --replace --mask all --description After --in-place").substr(0, 1));
    EXPECT_EQ("A Model Yes 3 all After", rows());
}

TEST_F(CompanionStates, AreRenamedAndDeleted)
{
    ASSERT_EQ("0", states("save A --in-place").substr(0, 1));
    ASSERT_EQ("0", states("save B --in-place").substr(0, 1));
    EXPECT_EQ("0\n1 drawing: 1 layer state renamed.\n", states("rename a Dach/Ö* --in-place"));
    EXPECT_EQ("Dach/Ö* Model Yes 3 all\nB Model Yes 3 all", rows());
    EXPECT_EQ("5", states("rename B dach/ö* --in-place").substr(0, 1));
    EXPECT_EQ("0\n1 drawing: 1 layer state deleted.\n", states("delete b --in-place"));
    EXPECT_EQ("Dach/Ö* Model Yes 3 all", rows());
    EXPECT_EQ("3\nlayerman: plan.dxf: The drawing has no layer state \"b\".\n"
              "1 drawing: 0 layer states deleted, 1 drawing failed.\n",
              states("delete b --in-place"));
}

TEST_F(CompanionStates, GoFromDrawingToDrawingThroughAFile)
{
    ASSERT_EQ("0",
              states("save Day --description Floor --mask freeze,color --in-place").substr(0, 1));
    EXPECT_EQ("0\n1 drawing: 1 layer state exported.\n", states("export Day day.las"));
    drawing("one.dxf", {{"Walls", 1, 4}, {"Doors", 0, 4}});
    drawing("two.dxf", {{"Walls", 0, 4}});
    const Finished done = layerman("states one.dxf two.dxf import day.las --in-place");
    EXPECT_EQ(0, done.exitCode);
    EXPECT_EQ("2 drawings: 2 layer states imported.\n", done.errors);
    EXPECT_EQ("Day Model No 3 freeze,color Floor", rows("one.dxf"));
    EXPECT_EQ(0, layerman("states one.dxf restore day -o plan.dxf").exitCode);
    EXPECT_EQ("0 7, Walls 1, Doors frozen 2", layers());
    EXPECT_EQ(QStringList(), read(QStringLiteral("two.dxf"))->audit());

    EXPECT_EQ("0", states("export Day again.las").substr(0, 1));
    EXPECT_EQ(bytesOf(QStringLiteral("day.las")), bytesOf(QStringLiteral("again.las")));
}

TEST_F(CompanionStates, OfAFileReplaceOthersOnlyWhenAskedTo)
{
    ASSERT_EQ("0", states("save Day --in-place").substr(0, 1));
    ASSERT_EQ("0", states("export Day day.las").substr(0, 1));
    set("--search Walls color=5");
    ASSERT_EQ("0", states("save DAY --replace --in-place").substr(0, 1));
    EXPECT_EQ("5\nplan.dxf: There is a layer state \"Day\" already; --replace saves over it.\n"
              "1 drawing: 0 layer states imported, 1 refused.\n",
              states("import day.las --in-place"));
    EXPECT_EQ("Day Model Yes 3 all", rows());
    EXPECT_EQ("0\n1 drawing: 1 layer state imported.\n",
              states("import day.las --replace --in-place"));
    EXPECT_EQ("Day Model No 3 all", rows());
}

TEST_F(CompanionStates, OfAFileComeInBesideThoseThatCannotBeReplaced)
{
    ASSERT_EQ("0", states("save Own --in-place").substr(0, 1));
    QByteArray plan = bytesOf(QStringLiteral("plan.dxf"));
    const QByteArray lineEnd = plan.contains("\r\n") ? "\r\n" : "\n";
    const qsizetype key = plan.lastIndexOf('\n', plan.indexOf(lineEnd + "Own" + lineEnd) - 1) + 1;
    plan.insert(key, QByteArrayList{"3", "ref__day", "350", "0", ""}.join(lineEnd));
    write("plan.dxf", plan);
    ASSERT_EQ("ref__day Reference\nOwn Model Yes 3 all", rows());
    write("two.las",
          "  0\r\nLAYERSTATEDICTIONARY\r\n  0\r\nLAYERSTATE\r\n  1\r\nNight\r\n"
          " 91\r\n2047\r\n  8\r\nWalls\r\n 62\r\n5\r\n"
          "  0\r\nLAYERSTATE\r\n  1\r\nref__day\r\n 91\r\n2047\r\n");
    const std::string told = states("import two.las --replace --in-place");
    EXPECT_EQ('5', told.front()) << told;
    EXPECT_NE(std::string::npos, told.find("1 layer state imported, 1 refused.")) << told;
    EXPECT_EQ("ref__day Reference\nOwn Model Yes 3 all\nNight Model No 1 all", rows());
}

TEST_F(CompanionStates, TellInADryRunWhatARestoreWouldChange)
{
    ASSERT_EQ("0", states("save Day --in-place").substr(0, 1));
    set("--search Walls freeze=yes color=5");
    const QByteArray before = bytesOf(QStringLiteral("plan.dxf"));
    EXPECT_EQ("0\nplan.dxf: Walls: freeze yes -> no\nplan.dxf: Walls: color blue -> red\n"
              "1 drawing: 1 layer state would be restored.\n",
              states("restore Day --dry-run"));
    EXPECT_EQ(before, bytesOf(QStringLiteral("plan.dxf")));
    EXPECT_EQ("0\n1 drawing: 1 layer state would be deleted.\n", states("delete Day --dry-run"));
    EXPECT_EQ(before, bytesOf(QStringLiteral("plan.dxf")));
}

TEST_F(CompanionStates, FailWhereFilesAreNotWhatTheyShouldBe)
{
    write("broken.las", "0\r\nLAYERSTATEDICTIONARY\r\n0\r\nLAYERSTATE\r\n 1\r\n");
    const std::string broken = states("import broken.las --in-place");
    EXPECT_EQ("3\nlayerman: broken.las", broken.substr(0, 22)) << broken;
    EXPECT_EQ('3', states("import gone.las --in-place").front());
    ASSERT_EQ("0", states("save Day --in-place").substr(0, 1));
    EXPECT_EQ('4', states("export Day nowhere/day.las").front());
    EXPECT_EQ('1', states("export Day plan.dxf").front());
    EXPECT_EQ('3', states("export Night night.las").front());
    EXPECT_FALSE(files().contains(QStringLiteral("night.las")));
    EXPECT_EQ("Day Model Yes 3 all", rows());
}

TEST_F(CompanionStates, RefuseWrongCalls)
{
    for (const char* words :
         {"", "lst", "list x", "save --in-place", "save A B --in-place", "save A",
          "rename A --in-place", "delete A", "list --in-place",
          "save A --turn-off-missing --in-place", "restore A --replace --in-place",
          "save A --mask colour --in-place", "save A --mask on,,freeze --in-place",
          "export A a.las --in-place", "export A a.las --dry-run",
          "restore A --filter x --in-place", "list --format csv"})
    {
        const std::string told = states(words);
        EXPECT_EQ('1', told.front()) << words << ": " << told;
    }
    EXPECT_EQ('1', std::to_string(layerman("states list").exitCode).front());
    EXPECT_EQ('1',
              std::to_string(layerman("states plan.dxf plan.dxf export A a.las").exitCode).front());
    EXPECT_EQ(QStringList{QStringLiteral("plan.dxf")}, files());
}

TEST_F(CompanionStates, OfFilesNamedLikeAnActionAreReachedByTheirFolder)
{
    drawing("list", {{"Walls"}});
    const Finished done = layerman("states ./list list");
    EXPECT_EQ("1 drawing: 0 layer states listed.\n", done.errors);
}
