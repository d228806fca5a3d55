#include "CompanionFixture.h"
#include "database/tables/OdDbLayerTable.h"
#include "database/tables/OdDbLayerTableRecord.h"
#include "io/DrawingFile.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>

namespace {

/// Rows of cells, after RFC 4180.
QList<QStringList> csvRows(const std::string& output)
{
    QList<QStringList> rows;
    QStringList row;
    QString cell;
    bool isQuoted = false;
    const QString text = QString::fromStdString(output);
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text[i];
        if (isQuoted && c == u'"' && i + 1 < text.size() && text[i + 1] == u'"') {
            cell += text[++i];
        } else if (c == u'"') {
            isQuoted = !isQuoted;
        } else if (!isQuoted && (c == u',' || c == u'\n')) {
            row << cell;
            cell.clear();
            if (c == u'\n')
                rows << std::exchange(row, {});
        } else {
            cell += c;
        }
    }
    EXPECT_TRUE(row.isEmpty() && cell.isEmpty() && !isQuoted) << "the last line has no end";
    return rows;
}

QJsonArray parsed(const std::string& output)
{
    QJsonParseError error;
    const auto json = QJsonDocument::fromJson(QByteArray::fromStdString(output), &error);
    EXPECT_EQ(QJsonParseError::NoError, error.error) << error.errorString().toStdString() << output;
    return json.array();
}

QJsonObject layerOf(const QJsonArray& drawings, int drawing, const char* name)
{
    for (const QJsonValue value : drawings[drawing].toObject()[QStringLiteral("layers")].toArray())
        if (value[QStringLiteral("name")].toString() == QLatin1String(name))
            return value.toObject();
    ADD_FAILURE() << "no layer " << name;
    return {};
}

} // namespace

class CompanionList : public CompanionFixture
{
protected:
    static constexpr const char* kShell = "/bin/sh";

    /// The names that a list of one drawing holds, with blanks between.
    std::string names(const QStringList& options, const QString& file = QStringLiteral("plan.dxf"))
    {
        QStringList arguments{QStringLiteral("list"), file, QStringLiteral("--columns=name"),
                              QStringLiteral("--format=csv")};
        const Finished done = layerman(arguments + options);
        EXPECT_EQ(0, done.exitCode) << done.errors;
        QStringList found = QString::fromStdString(done.output).split(QLatin1Char('\n'));
        EXPECT_EQ(QStringLiteral("name"), found.takeFirst());
        found.removeLast();
        return found.join(QLatin1Char(' ')).toStdString();
    }
    std::string names(const char* option, const char* value)
    {
        return names({QString::fromUtf8(option), QString::fromUtf8(value)});
    }
    /// The program as a shell calls it, which needs one.
    Finished inShell(const QString& arguments)
    {
        QProcess shell;
        shell.setWorkingDirectory(folder.path());
        const QString line = QStringLiteral("'%1' ").arg(QStringLiteral(LAYERMAN_PROGRAM));
        shell.start(QString::fromLatin1(kShell), {QStringLiteral("-c"), line + arguments});
        EXPECT_TRUE(shell.waitForFinished());
        return {shell.exitCode(), shell.readAllStandardOutput().toStdString(),
                shell.readAllStandardError().toStdString()};
    }
    static bool hasShell() { return QFile::exists(QString::fromLatin1(kShell)); }
    QString plan()
    {
        return drawing("plan.dxf",
                       {{"Walls", 4, 1}, {"doors", 0, -3}, {"A10", 1}, {"A2", 0, 1}, {"*Hidden"}});
    }
};

TEST_F(CompanionList, IsATableByNameWithTheGridsTitles)
{
    drawing("plan.dxf", {{"walls", 5, -1}, {"Doors"}});
    const Finished list = layerman("list plan.dxf --columns name,status,on,freeze,locked,color");
    EXPECT_EQ("Layer Name  Status         On   Freeze  Locked  Color\n"
              "----------  -------------  ---  ------  ------  -----\n"
              "0           Current layer  yes  no      no      white\n"
              "Doors       Not in use     yes  no      no      white\n"
              "walls       In use         no   yes     yes     red\n",
              list.output);
    EXPECT_EQ("1 drawing, 3 of 3 layers listed.\n", list.errors);
    EXPECT_EQ(0, list.exitCode);
}

TEST_F(CompanionList, WithoutAChoiceHasTheColumnsOfModelSpace)
{
    plan();
    EXPECT_EQ(0u,
              layerman("list plan.dxf --format csv")
                  .output.find("status,name,on,freeze,locked,color,linetype,lineweight,"
                               "plotstyle,plot,newvpfreeze,description\nCurrent layer,0,yes,"
                               "no,no,white,Continuous,Default,Color_7,yes,no,\n"));
}

TEST_F(CompanionList, LeavesOutLayersOfProgramsUnlessAFilterShowsThem)
{
    plan();
    EXPECT_EQ("0 A10 A2 doors Walls", names({}));
    EXPECT_EQ("*Hidden 0 A10 A2 doors Walls", names("--filter", "all"));
    EXPECT_EQ("*Hidden", names("--expr", "NAME==\"`*H*\""));
    EXPECT_EQ("1 drawing, 5 of 6 layers listed.\n", layerman("list plan.dxf").errors);
}

TEST_F(CompanionList, SearchesAsThePaletteDoes)
{
    plan();
    EXPECT_EQ("A10 A2", names("--search", "a#*"));
    EXPECT_EQ("0 A10 A2 doors Walls", names("--search", ""));
    EXPECT_EQ("0 A10 A2 doors Walls", names("--search", "~"));
    EXPECT_EQ("doors Walls", names("--search", "[dw]*"));
    EXPECT_EQ("0 doors", names("--search", "d*,0"));
    EXPECT_EQ("0 doors Walls", names({QStringLiteral("--search=A*"), QStringLiteral("--invert")}));
}

TEST_F(CompanionList, ChoosesByAnExpressionInAnySpelling)
{
    plan();
    EXPECT_EQ("A2 Walls", names("--expr", "COLOR==\"1\""));
    EXPECT_EQ("A10 A2 Walls", names("--expr", "( NAME == \"A*\" or COLOR==\"red\")"));
    EXPECT_EQ("A2", names("--expr", "( NAME == \"A*\" or OFF==\"true\") and COLOR==\"1\""));
    EXPECT_EQ("*Hidden 0 A10 doors",
              names({QStringLiteral("--expr=COLOR==\"1\""), QStringLiteral("--invert")}));
    EXPECT_EQ("Walls",
              names({QStringLiteral("--expr=COLOR==\"1\""), QStringLiteral("--search=w*")}));
}

TEST_F(CompanionList, AnExpressionThatSaysNothingIsAWrongCall)
{
    plan();
    const auto wrong = [this](const char* expression, const char* part) {
        const Finished done = layerman({QStringLiteral("list"), QStringLiteral("absent.dxf"),
                                        QStringLiteral("--expr"), QString::fromUtf8(expression)});
        EXPECT_EQ(1, done.exitCode) << expression;
        EXPECT_NE(std::string::npos, done.errors.find(part)) << done.errors;
        EXPECT_EQ(std::string::npos, done.errors.find("absent.dxf")) << "it was read";
    };
    for (const char* none : {"", "NAME", "A*", "NAME=\"A*\"", "NAME==\"A*", "NAME==\"A*\" AND",
                             "NAME==\"A*\" NOT COLOR==\"1\""})
        wrong(none, " is no filter expression; expected criteria such as NAME==\"A*\"");
    wrong("COLOUR==\"1\"", "--expr knows no criterion COLOUR; the nearest is COLOR.");
    for (const char* unsayable :
         {"COLOR==\"999\"", "LOCKED==\"maybe\"", "LINEWEIGHT==\"0.99\"", "NAME==\"\"",
          "NAME==\"A*\" AND NAME==\"*1\"", "NEWVPFROZEN==\"True\" AND VPFROZEN==\"True\"",
          "LOCKED==\"True\" AND LOCKED==\"False\""})
        wrong(unsayable, " cannot be said in rows of criteria; expected True or False");
}

TEST_F(CompanionList, ALinetypeThatADrawingLacksFailsThatDrawing)
{
    drawing("a.dxf", {{"A"}});
    QByteArray text = DrawingText::withLayers({{"A"}});
    text.replace("2\nDASHED\n", "2\nDOTTED\n");
    write("b.dxf", text);
    const Finished done =
        layerman({QStringLiteral("list"), QStringLiteral("a.dxf"), QStringLiteral("b.dxf"),
                  QStringLiteral("--expr=LINETYPE==\"dashed\" OR NAME==\"A\"")});
    EXPECT_EQ(6, done.exitCode);
    EXPECT_EQ("layerman: b.dxf has no linetype \"dashed\", which --expr asks for.\n"
              "2 drawings, 1 of 2 layers listed, 1 drawing failed.\n",
              done.errors);
}

TEST_F(CompanionList, ReadsLineweightsOfExpressionsInMillimetresWhateverIsPrinted)
{
    drawing("plan.dxf", {{"A", 0, 7, DrawingText::groups({"370", "35"})}});
    QByteArray text = bytesOf(QStringLiteral("plan.dxf"));
    text.replace("370\n    -3\n370\n35\n", "370\n35\n");
    write("plan.dxf", text);
    const QStringList list{QStringLiteral("list"), QStringLiteral("plan.dxf"),
                           QStringLiteral("--columns=name,lineweight"),
                           QStringLiteral("--format=csv"),
                           QStringLiteral("--expr=LINEWEIGHT==\"0.35\"")};
    EXPECT_EQ("name,lineweight\nA,0.35 mm\n", layerman(list).output);
    EXPECT_EQ("name,lineweight\nA,\"0.014\"\"\"\n",
              layerman(list + QStringList{QStringLiteral("--inches")}).output);
}

TEST_F(CompanionList, CsvIsReadBackWhateverTheNames)
{
    auto database = readDrawing(DrawingText::withLayers({{"A"}, {"B"}}), QStringLiteral("x"));
    const QString odd = QStringLiteral("a,\"b\"\nWände");
    database->layerTable()
        .getAt(QStringLiteral("A"))
        .safeOpenObject<OdDbLayerTableRecord>(OdDb::kForWrite)
        ->setDescription(odd);
    write("plan.dxf", drawingBytes(*database));
    const auto rows =
        csvRows(layerman("list plan.dxf --format csv --columns name,description,handle").output);
    EXPECT_EQ((QList<QStringList>{
                  {QStringLiteral("name"), QStringLiteral("description"), QStringLiteral("handle")},
                  {QStringLiteral("0"), QString(), QStringLiteral("30")},
                  {QStringLiteral("A"), odd, QStringLiteral("31")},
                  {QStringLiteral("B"), QString(), QStringLiteral("32")}}),
              rows);
}

TEST_F(CompanionList, CsvOfSeveralDrawingsTellsTheFileUnlessColumnsAreChosen)
{
    drawing("a.dxf", {});
    drawing("b.dxf", {});
    EXPECT_EQ("file,status,name,on,freeze,locked,color,linetype,lineweight,plotstyle,plot,"
              "newvpfreeze,description\n"
              "a.dxf,Current layer,0,yes,no,no,white,Continuous,Default,Color_7,yes,no,\n"
              "b.dxf,Current layer,0,yes,no,no,white,Continuous,Default,Color_7,yes,no,\n",
              layerman("list a.dxf b.dxf --format csv").output);
    EXPECT_EQ("name\n0\n0\n", layerman("list a.dxf b.dxf --format csv --columns name").output);
}

TEST_F(CompanionList, JsonHasTruthNumbersAndNothing)
{
    drawing("plan.dxf", {{"Walls", 5, -1}, {"Off", 0, -9}});
    const QJsonArray json = parsed(layerman("list plan.dxf --format json --columns "
                                            "name,on,freeze,color,lineweight,vpcolor,used,"
                                            "vpfreeze,reconciled,handle")
                                       .output);
    ASSERT_EQ(1, json.size());
    EXPECT_EQ(QStringLiteral("plan.dxf"), json[0].toObject()[QStringLiteral("file")].toString());
    const QJsonObject expected{{QStringLiteral("name"), QStringLiteral("Walls")},
                               {QStringLiteral("on"), false},
                               {QStringLiteral("freeze"), true},
                               {QStringLiteral("color"), 1},
                               {QStringLiteral("lineweight"), QStringLiteral("Default")},
                               {QStringLiteral("vpcolor"), QJsonValue::Null},
                               {QStringLiteral("vpfreeze"), QJsonValue::Null},
                               {QStringLiteral("used"), true},
                               {QStringLiteral("reconciled"), true},
                               {QStringLiteral("handle"), QStringLiteral("31")}};
    EXPECT_EQ(expected, layerOf(json, 0, "Walls"));
}

TEST_F(CompanionList, JsonOfASheetHasTheActiveViewport)
{
    sheet("plan.dxf", {{"Walls"}});
    auto database = readDrawing(path(QStringLiteral("plan.dxf")));
    const OdDbObjectId viewport = database->activeViewportId();
    ASSERT_FALSE(viewport.isNull());
    {
        const auto layer = database->layerTable()
                               .getAt(QStringLiteral("Walls"))
                               .safeOpenObject<OdDbLayerTableRecord>(OdDb::kForWrite);
        layer->setColor(OdCmColor::fromRgb(1, 2, 3), viewport);
        layer->setLineWeight(25, viewport);
    }
    write("plan.dxf", drawingBytes(*database));
    const QJsonObject walls =
        layerOf(parsed(layerman("list plan.dxf --format json --columns "
                                "name,vpfreeze,vpcolor,vplinetype,vplineweight,vpplotstyle,color")
                           .output),
                0, "Walls");
    const QJsonObject expected{
        {QStringLiteral("name"), QStringLiteral("Walls")},
        {QStringLiteral("vpfreeze"), false},
        {QStringLiteral("vpcolor"), QStringLiteral("1,2,3")},
        {QStringLiteral("vplinetype"), QStringLiteral("Continuous")},
        {QStringLiteral("vplineweight"), 0.25},
        {QStringLiteral("vpplotstyle"), walls[QStringLiteral("vpplotstyle")]},
        {QStringLiteral("color"), 7}};
    EXPECT_EQ(expected, walls);
    EXPECT_TRUE(
        walls[QStringLiteral("vpplotstyle")].toString().startsWith(QStringLiteral("Color_")));
}

TEST_F(CompanionList, JsonIsValidWhateverFails)
{
    plan();
    write("broken.dxf", "no drawing \x1b\"");
    for (const char* files : {"plan.dxf", "broken.dxf", "broken.dxf plan.dxf absent.dxf plan.dxf"})
    {
        const QStringList words = QString::fromUtf8(files).split(QLatin1Char(' '));
        const QJsonArray json = parsed(
            layerman(QStringList{QStringLiteral("list"), QStringLiteral("--format=json")} + words)
                .output);
        ASSERT_EQ(words.size(), json.size());
        for (int i = 0; i < json.size(); ++i) {
            const QJsonObject drawing = json[i].toObject();
            EXPECT_EQ(words[i], drawing[QStringLiteral("file")].toString());
            const bool isPlan = words[i] == QStringLiteral("plan.dxf");
            EXPECT_EQ(isPlan, drawing.contains(QStringLiteral("layers")));
            EXPECT_EQ(!isPlan, drawing[QStringLiteral("error")].toString().contains(words[i]));
        }
    }
    EXPECT_EQ(QJsonArray(), parsed(layerman("list --format json -").output));
}

TEST_F(CompanionList, SeveralDrawingsStandUnderTheirNames)
{
    drawing("a.dxf", {});
    drawing("b.dxf", {});
    const Finished list = layerman("list a.dxf absent.dxf b.dxf --columns name");
    EXPECT_EQ("a.dxf:\nLayer Name\n----------\n0\n\nb.dxf:\nLayer Name\n----------\n0\n",
              list.output);
    EXPECT_EQ(6, list.exitCode);
    EXPECT_NE(std::string::npos, list.errors.find("layerman: absent.dxf"));
    EXPECT_NE(std::string::npos,
              list.errors.find("\n3 drawings, 2 of 2 layers listed, 1 drawing failed.\n"));
}

TEST_F(CompanionList, NamesOfDrawingsComeFromStandardInput)
{
    drawing("a.dxf", {});
    drawing("b c.dxf", {});
    drawing("z.dxf", {});
    const Finished list =
        layerman("list --columns file,name - z.dxf --format csv", "a.dxf\n\nb c.dxf\r\n");
    EXPECT_EQ("file,name\na.dxf,0\nb c.dxf,0\nz.dxf,0\n", list.output);
    EXPECT_EQ(0, list.exitCode);
    const Finished none = layerman("list -", "");
    EXPECT_EQ(0, none.exitCode);
    EXPECT_EQ("0 drawings, 0 of 0 layers listed.\n", none.errors);
    const Finished bad = layerman("list -", QByteArray("a\0b\n", 4));
    EXPECT_EQ(3, bad.exitCode);
    EXPECT_EQ("layerman: standard input, line 1: expected a file name, found a null character.\n",
              bad.errors);
}

TEST_F(CompanionList, DrawingsThatCannotBeReadAreThree)
{
    write("broken.dxf", "no drawing");
    const Finished one = layerman("list broken.dxf");
    EXPECT_EQ(3, one.exitCode);
    EXPECT_EQ(0u, one.errors.find("layerman: broken.dxf, line 1: "));
    EXPECT_EQ(3, layerman("list broken.dxf absent.dxf").exitCode);
    EXPECT_EQ(
        0u,
        layerman("list ./broken.dxf").errors.find("layerman: ./broken.dxf: broken.dxf, line 1: "));
}

TEST_F(CompanionList, AFilterThatADrawingLacksIsThreeAndNearOnesAreNamed)
{
    plan();
    const Finished list = layerman("list plan.dxf --filter usedlayers");
    EXPECT_EQ(3, list.exitCode);
    EXPECT_EQ("layerman: plan.dxf has no filter \"usedlayers\"; the nearest of its filters: \"All "
              "used layers\", \"All\".\n"
              "1 drawing, 0 of 0 layers listed, 1 drawing failed.\n",
              list.errors);
    EXPECT_EQ("0 A10 A2 doors Walls",
              names({QStringLiteral("--filter=ALL"), QStringLiteral("--search=~`**")}));
}

TEST_F(CompanionList, AListThatCannotBePrintedIsFour)
{
    plan();
    if (!QFile::exists(QStringLiteral("/dev/full")))
        GTEST_SKIP() << "This system has no /dev/full.";
    const Finished list = inShell(QStringLiteral("list plan.dxf > /dev/full"));
    EXPECT_EQ(4, list.exitCode);
    EXPECT_TRUE(
        list.errors.ends_with("layerman: What was listed could not be printed to its end.\n"));
}

TEST_F(CompanionList, AListOfNamesThatCannotBeReadIsThree)
{
    if (!hasShell())
        GTEST_SKIP() << "This system has no /bin/sh.";
    plan();
    for (const char* input : {"<&-", "< ."}) {
        const Finished list = inShell(QStringLiteral("list - ") + QLatin1String(input));
        EXPECT_EQ(3, list.exitCode) << input;
        EXPECT_EQ("layerman: Standard input, which was to name the drawings, cannot be read.\n",
                  list.errors);
    }
}

TEST_F(CompanionList, ANameThatIsNoTextIsAWrongCall)
{
    if (!hasShell())
        GTEST_SKIP() << "This system has no /bin/sh.";
    const Finished list = inShell(QStringLiteral("list \"$(printf 'W\\344nde.dxf')\""));
    EXPECT_EQ(1, list.exitCode);
    EXPECT_TRUE(list.errors.starts_with(
        "layerman: \"W\xEF\xBF\xBDnde.dxf\" holds bytes that are no text.\n"));
}

TEST_F(CompanionList, QuotesTheBeginningOfALongExpressionOnly)
{
    plan();
    const QString endless = QStringLiteral("NAME==\"") + QString(50'000, QLatin1Char('a'));
    const Finished unclosed = layerman(
        {QStringLiteral("list"), QStringLiteral("plan.dxf"), QStringLiteral("--expr"), endless});
    EXPECT_EQ(1, unclosed.exitCode);
    EXPECT_LT(unclosed.errors.size(), 1000u);
    EXPECT_NE(std::string::npos, unclosed.errors.find("aaa...\" is no filter expression"));
    const Finished deep = layerman({QStringLiteral("list"), QStringLiteral("plan.dxf"),
                                    QStringLiteral("--expr"), QString(50'000, QLatin1Char('('))});
    EXPECT_EQ(1, deep.exitCode);
    EXPECT_TRUE(deep.errors.starts_with(
        "layerman: --expr is too large: at most 256 rows once all is multiplied out, of 64 "
        "criteria each, and parentheses 32 deep can be read.\n"));
}

TEST_F(CompanionList, ControlCharactersOfADrawingAreEscapedInTables)
{
    auto database = readDrawing(DrawingText::withLayers({{"A"}}), QStringLiteral("x"));
    database->layerTable()
        .getAt(QStringLiteral("A"))
        .safeOpenObject<OdDbLayerTableRecord>(OdDb::kForWrite)
        ->setDescription(QStringLiteral("red \x1b[31m\nnext"));
    write("plan.dxf", drawingBytes(*database));
    const std::string table = layerman("list plan.dxf --columns name,description").output;
    EXPECT_NE(std::string::npos, table.find("A           red \\x1b[31m\\nnext\n")) << table;
    EXPECT_EQ(std::string::npos, table.find('\x1b'));
}
