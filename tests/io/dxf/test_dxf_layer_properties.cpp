#include "database/objects/OdDbDictionary.h"
#include "database/objects/OdDbEntity.h"
#include "database/objects/OdDbXrecord.h"
#include "database/tables/OdDbLayerTable.h"
#include "io/DrawingFile.h"
#include "support/drawings/DrawingText.h"
#include "support/drawings/EditedDrawing.h"

#include <gtest/gtest.h>

namespace {

QString name(const char* text)
{
    return QString::fromUtf8(text);
}

bool has(const std::string& record, const char* group)
{
    return (' ' + record + ' ').find(' ' + std::string(group) + ' ') != std::string::npos;
}

/// Layer Walls with these groups behind its lineweight.
QByteArray withGroups(std::initializer_list<QByteArray> groups, const char* version = "AC1018")
{
    return DrawingText::withLayers({{"Walls", 0, 3, DrawingText::groups(groups)}, {"Doors"}})
        .replace("AC1018", version);
}

/// Layer Walls with an extension dictionary of these entries, which hold these groups.
struct Extra
{
    QByteArray key;
    QByteArray groups;
};
QByteArray withExtras(const QList<Extra>& extras, const char* entryCode = "360")
{
    QByteArray text = DrawingText::withLayers({{"Walls"}, {"Doors"}});
    text.replace("0\nLAYER\n5\n31\n", "0\nLAYER\n5\n31\n102\n{ACAD_XDICTIONARY\n360\n70\n102\n}\n");
    QByteArray entries;
    QByteArray records;
    for (qsizetype i = 0; i < extras.size(); ++i) {
        const QByteArray handle = QByteArray::number(71 + i);
        entries += DrawingText::groups({"3", extras[i].key, entryCode, handle});
        records += DrawingText::groups(
                       {"0", "XRECORD", "5", handle, "330", "70", "100", "AcDbXrecord", "280", "1"})
            + extras[i].groups;
    }
    return text.replace("0\nENDSEC\n0\nEOF",
                        DrawingText::groups({"0", "DICTIONARY", "5", "70", "330", "31", "100",
                                             "AcDbDictionary", "280", "1", "281", "1"})
                            + entries + records + "0\nENDSEC\n0\nEOF");
}

QByteArray block(const char* mark, const char* viewport, const char* code, const char* value)
{
    return DrawingText::groups({"102", mark, "335", viewport, code, value, "102", "}"});
}

using Edit = EditedDrawing::Edit;

Edit onWalls(const std::function<void(OdDbLayerTableRecord&)>& edit)
{
    return [edit](OdDbDatabase& database) {
        edit(*database.layerTable()
                  .getAt(name("Walls"))
                  .safeOpenObject<OdDbLayerTableRecord>(OdDb::kForWrite));
    };
}

void expectTwins(const QByteArray& text, const Edit& edit)
{
    for (const int codeBytes : {1, 2})
        EXPECT_TRUE(EditedDrawing::isSameInBinary(text, codeBytes, edit));
}

// Description, transparency

TEST(Description, IsTheSecondStringOfItsApplicationInEitherCase)
{
    for (const char* application : {"AcAecLayerStandard", "ACAECLAYERSTANDARD"}) {
        const QByteArray text = withGroups({"1001", application, "1000", "", "1000", "old"});
        const EditedDrawing drawing(text);
        EXPECT_EQ(drawing.layer("Walls")->description(), name("old"));
        const Edit edit = onWalls([](auto& walls) { walls.setDescription(name("new")); });
        edit(*drawing);
        EXPECT_TRUE(has(drawing.record("LAYER", "2=Walls"), "1000= 1000=new"));
        EXPECT_FALSE(has(drawing.record("LAYER", "2=Walls"), "1000=old"));
        expectTwins(text, edit);
    }
}

TEST(Description, IsAddedBehindALoneFirstString)
{
    const QByteArray text =
        withGroups({"1001", "AcAecLayerStandard", "1000", "lone", "1001", "OTHER", "1000", "kept"});
    const EditedDrawing drawing(text);
    EXPECT_EQ(drawing.layer("Walls")->description(), QString());
    drawing.layer("Walls")->setDescription(name("new"));
    EXPECT_TRUE(has(drawing.record("LAYER", "2=Walls"),
                    "1001=AcAecLayerStandard 1000=lone 1000=new 1001=OTHER 1000=kept"));
}

TEST(Description, ComesBehindAnEmptyStringWhereALayerHasNone)
{
    const QByteArray text = withGroups({"1001", "OTHER", "1000", "kept"});
    const EditedDrawing drawing(text);
    drawing.layer("Walls")->setDescription(name("new"));
    EXPECT_TRUE(has(drawing.record("LAYER", "2=Walls"),
                    "1001=OTHER 1000=kept 1001=AcAecLayerStandard 1000= 1000=new"));
    EXPECT_EQ(drawing.reread()
                  ->layerTable()
                  .getAt(name("Walls"))
                  .safeOpenObject<OdDbLayerTableRecord>()
                  ->description(),
              name("new"));
}

TEST(Transparency, IsOneNumberOfItsApplication)
{
    const Edit half = onWalls([](auto& walls) {
        walls.setTransparency(OdDbLayerTableRecord::transparencyFromPercent(50));
    });
    const QByteArray absent = withGroups({});
    const EditedDrawing added(absent);
    half(*added);
    EXPECT_TRUE(has(added.record("LAYER", "2=Walls"), "1001=AcCmTransparency 1071=33554559"));
    expectTwins(absent, half);

    const QByteArray present = withGroups({"1001", "ACCMTRANSPARENCY", "1071", "33554457"});
    const EditedDrawing changed(present);
    half(*changed);
    EXPECT_TRUE(has(changed.record("LAYER", "2=Walls"), "1001=ACCMTRANSPARENCY 1071=33554559"));
    changed.layer("Walls")->setTransparency(0);
    EXPECT_EQ(changed.saved(), QByteArray(present).replace("33554457", "0"));
}

// Groups of the record

/// A drawing whose plot styles go by name; layer Walls has "Normal".
QByteArray withNamedPlotStyles()
{
    QByteArray text = withGroups({"390", "81"}, "AC1032");
    text.replace("9\n$TILEMODE", "9\n$PSTYLEMODE\n290\n0\n9\n$TILEMODE");
    text.replace("3\nACAD_LAYOUT\n", "3\nACAD_PLOTSTYLENAME\n350\n80\n3\nACAD_LAYOUT\n");
    text.replace(
        "0\nENDSEC\n0\nEOF",
        "0\nDICTIONARY\n5\n80\n330\n60\n100\nAcDbDictionary\n281\n1\n3\nNormal\n350\n81\n3\nThin\n"
        "350\n82\n0\nACDBPLACEHOLDER\n5\n81\n330\n80\n0\nACDBPLACEHOLDER\n5\n82\n330\n80\n"
        "0\nENDSEC\n0\nEOF");
    return text;
}

TEST(PlotStyle, ByNameIsAHandleInTheRecord)
{
    const QByteArray text = withNamedPlotStyles();
    const EditedDrawing drawing(text);
    EXPECT_EQ(drawing.layer("Walls")->plotStyleName(), name("Normal"));
    const Edit thin = onWalls([](auto& walls) { walls.setPlotStyleName(name("thin")); });
    thin(*drawing);
    EXPECT_EQ(drawing.saved(), QByteArray(text).replace("    -3\n390\n81\n", "    -3\n390\n82\n"));
    expectTwins(text, thin);
    EXPECT_THROW(drawing.layer("Walls")->setPlotStyleName(name("Thick")), OdError);
}

TEST(TrueColour, TakesTheNearestIndexAlongAndLeavesWithIts420)
{
    const QByteArray text = withGroups({});
    const EditedDrawing drawing(text);
    const Edit orange =
        onWalls([](auto& walls) { walls.setColor(OdCmColor::fromRgb(255, 127, 0)); });
    orange(*drawing);
    EXPECT_TRUE(has(drawing.record("LAYER", "2=Walls"), "62=30 420=16744192 6=Continuous"));
    expectTwins(text, orange);
    drawing.layer("Walls")->setColor(OdCmColor::fromIndex(3));
    EXPECT_EQ(drawing.saved(), text);
}

TEST(BookColour, IsItsNameBehindTheTrueColour)
{
    const QByteArray text = withGroups({});
    const EditedDrawing drawing(text);
    const Edit book = onWalls(
        [](auto& walls) { walls.setColor(OdCmColor::fromRgb(1, 2, 3, name("GUIDE$BLUE 7"))); });
    book(*drawing);
    EXPECT_TRUE(has(drawing.record("LAYER", "2=Walls"), "420=66051 430=GUIDE$BLUE 7 6=Continuous"));
    expectTwins(text, book);
    EXPECT_EQ(drawing.reread()
                  ->layerTable()
                  .getAt(name("Walls"))
                  .safeOpenObject<OdDbLayerTableRecord>()
                  ->color(),
              OdCmColor::fromRgb(1, 2, 3, name("GUIDE$BLUE 7")));
    drawing.layer("Walls")->setColor(OdCmColor::fromIndex(3));
    EXPECT_EQ(drawing.saved(), text);
}

TEST(BookColour, WithoutATrueColourIsTheIndex)
{
    const EditedDrawing drawing(withGroups({"430", "GUIDE$BLUE 7"}));
    EXPECT_EQ(drawing.layer("Walls")->color().colorIndex(), 3);
    drawing.layer("Walls")->setIsOff(true);
    EXPECT_TRUE(has(drawing.record("LAYER", "2=Walls"), "62=-3 6=Continuous"));
}

TEST(Colour, OfALayerIsWhiteWhereTheFileHasNoneOfTheIndices)
{
    for (const int wrong : {0, 256, 1000, -256}) {
        const EditedDrawing drawing(DrawingText::withLayers({{"Walls", 0, wrong}, {"Doors"}}));
        EXPECT_EQ(drawing.layer("Walls")->color(), OdCmColor::fromIndex(7)) << wrong;
        EXPECT_EQ(drawing.layer("Walls")->isOff(), wrong < 0);
        drawing.layer("Walls")->setIsOff(true);
        const auto again = drawing.reread();
        const auto walls =
            again->layerTable().getAt(name("Walls")).safeOpenObject<OdDbLayerTableRecord>();
        EXPECT_TRUE(walls->isOff()) << wrong;
        EXPECT_EQ(walls->color(), OdCmColor::fromIndex(7)) << wrong;
    }
}

TEST(PlotSwitch, KeepsAWrittenGroupAndAddsAMissingOne)
{
    const QByteArray written = withGroups({"290", "     1"});
    const EditedDrawing drawing(written);
    drawing.layer("Walls")->setIsPlottable(false);
    EXPECT_EQ(drawing.saved(), QByteArray(written).replace("290\n     1", "290\n     0"));
    drawing.layer("Doors")->setIsPlottable(false);
    EXPECT_TRUE(has(drawing.record("LAYER", "2=Doors"), "6=Continuous 290=0 370=-3"));
}

TEST(Lineweight, OfAnotherProgramStaysUntilItIsEdited)
{
    QByteArray text = withGroups({});
    text.replace(text.indexOf("    -3", text.indexOf("Walls")), 6, "    33");
    const EditedDrawing drawing(text);
    EXPECT_EQ(drawing.layer("Walls")->lineWeight(), 33);
    drawing.layer("Walls")->setIsLocked(true);
    EXPECT_TRUE(has(drawing.record("LAYER", "2=Walls"), "370=33"));
    drawing.layer("Walls")->setLineWeight(35);
    EXPECT_TRUE(has(drawing.record("LAYER", "2=Walls"), "370=35"));
}

// Reconciled

TEST(ReconciledFlag, IsChangedInItsRecord)
{
    for (const char* entryCode : {"360", "350"}) {
        for (const bool was : {true, false}) {
            const QByteArray text =
                withExtras({{"ADSK_XREC_LAYER_RECONCILED",
                             DrawingText::groups({"290", was ? "1" : "0", "90", "5"})}},
                           entryCode);
            const EditedDrawing drawing(text);
            EXPECT_EQ(drawing.layer("Walls")->isReconciled(), was);
            drawing.layer("Walls")->setIsReconciled(!was);
            EXPECT_EQ(drawing.saved(),
                      QByteArray(text).replace(was ? "290\n1\n90" : "290\n0\n90",
                                               was ? "290\n0\n90" : "290\n1\n90"));
        }
    }
}

// Overrides

TEST(Overrides, OfEveryPropertyAreRecordsOfTheirOwn)
{
    const QByteArray text = DrawingText::withLayers({{"Walls"}, {"Doors"}});
    const Edit edit = [](OdDbDatabase& database) {
        const OdDbObjectId viewport =
            database.getOdDbObjectId(OdDbHandle(DrawingText::kFirstViewport));
        const auto walls = database.layerTable()
                               .getAt(name("Walls"))
                               .safeOpenObject<OdDbLayerTableRecord>(OdDb::kForWrite);
        walls->setColor(OdCmColor::fromRgb(10, 20, 30), viewport);
        walls->setLinetypeObjectId(database.table(OdDbTableKind::Linetype).getAt(name("DASHED")),
                                   viewport);
        walls->setLineWeight(35, viewport);
        walls->setTransparency(OdDbLayerTableRecord::transparencyFromPercent(50), viewport);
    };
    const EditedDrawing drawing(text);
    edit(*drawing);
    const auto record = [&](const char* mark) { return drawing.record("XRECORD", mark); };
    EXPECT_TRUE(has(record("102={ADSK_LYR_COLOR_OVERRIDE"),
                    "280=1 102={ADSK_LYR_COLOR_OVERRIDE 335=A2 420=-1039526882 102=}"));
    EXPECT_TRUE(has(record("102={ADSK_LYR_LINETYPE_OVERRIDE"),
                    "102={ADSK_LYR_LINETYPE_OVERRIDE 335=A2 343=23 102=}"));
    EXPECT_TRUE(has(record("102={ADSK_LYR_LINEWT_OVERRIDE"),
                    "102={ADSK_LYR_LINEWT_OVERRIDE 335=A2 91=35 102=}"));
    EXPECT_TRUE(has(record("102={ADSK_LYR_ALPHA_OVERRIDE"),
                    "102={ADSK_LYR_ALPHA_OVERRIDE 335=A2 440=33554559 102=}"));
    EXPECT_EQ(EditedDrawing::count(drawing.saved(), "XRECORD"), 4);
    expectTwins(text, edit);
    const auto again = drawing.reread();
    EXPECT_EQ(again->layerTable()
                  .getAt(name("Walls"))
                  .safeOpenObject<OdDbLayerTableRecord>()
                  ->state()
                  .overrides.size(),
              1u);
}

TEST(Overrides, OfThePlotStyleAreHandlesInNamedPlotStyleDrawings)
{
    const QByteArray text = withNamedPlotStyles();
    const EditedDrawing drawing(text);
    const OdDbObjectId viewport = drawing.object(DrawingText::kFirstViewport);
    drawing.layer("Walls")->setPlotStyleName(name("Thin"), viewport);
    EXPECT_TRUE(
        has(drawing.record("XRECORD", "102={ADSK_LYR_PLOTSTYLE_OVERRIDE"), "335=A2 343=82"));
    const auto again = drawing.reread();
    const auto walls = again->layerTable()
                           .getAt(name("Walls"))
                           .safeOpenObject<OdDbLayerTableRecord>(OdDb::kForWrite);
    const OdDbObjectId there = again->getOdDbObjectId(OdDbHandle(DrawingText::kFirstViewport));
    EXPECT_EQ(walls->plotStyleName(there), name("Thin"));
    EXPECT_EQ(walls->plotStyleName(), name("Normal"));
    walls->removePlotStyleOverride(there);
    EXPECT_FALSE(drawingBytes(*again).contains("PLOTSTYLE_OVERRIDE"));
}

TEST(Overrides, OfOneViewportLeaveOtherViewportsDeadBlocksAndUnknownGroups)
{
    const char* const mark = "{ADSK_LYR_COLOR_OVERRIDE";
    const QByteArray dead = block(mark, "0", "420", "-1023410175");
    const QByteArray second = block(mark, "A3", "420", "-1023410174");
    const QByteArray unknown = DrawingText::groups({"90", "77"});
    const auto drawingWith = [&](const QByteArray& first) {
        return withExtras({{"ADSK_XREC_LAYER_COLOR_OVR", dead + first + unknown + second}});
    };
    const EditedDrawing drawing(drawingWith(block(mark, "A2", "420", "-1023410175")));
    const OdDbObjectId first = drawing.object(DrawingText::kFirstViewport);
    drawing.layer("Walls")->setColor(OdCmColor::fromIndex(5), first);
    EXPECT_EQ(drawing.saved(), drawingWith(block(mark, "A2", "420", "-1023410171")));
    drawing.layer("Walls")->removeColorOverride(first);
    EXPECT_EQ(drawing.saved(), drawingWith({}));
}

TEST(Overrides, TakeTheirRecordAndItsEntryAlongWithTheLastOne)
{
    const QByteArray colours = block("{ADSK_LYR_COLOR_OVERRIDE", "A2", "420", "-1023410175");
    const QByteArray weights = block("{ADSK_LYR_LINEWT_OVERRIDE", "A2", "91", "35");
    const EditedDrawing drawing(withExtras(
        {{"ADSK_XREC_LAYER_COLOR_OVR", colours}, {"ADSK_XREC_LAYER_LINEWT_OVR", weights}}));
    drawing.layer("Walls")->removeColorOverride(drawing.object(DrawingText::kFirstViewport));
    EXPECT_EQ(drawing.record("XRECORD", "5=71"), "");
    EXPECT_TRUE(
        has(drawing.record("DICTIONARY", "5=70"), "281=1 3=ADSK_XREC_LAYER_LINEWT_OVR 360=72"));
    EXPECT_EQ(EditedDrawing::count(drawing.saved(), "XRECORD"), 1);
}

TEST(Overrides, AreReadFromNegativeAndFromUnsignedNumbers)
{
    for (const char* number : {"-1023410171", "3271557125"}) {
        const EditedDrawing drawing(
            withExtras({{"ADSK_XREC_LAYER_COLOR_OVR",
                         block("{ADSK_LYR_COLOR_OVERRIDE", "A2", "420", number)}}));
        EXPECT_EQ(drawing.layer("Walls")->color(drawing.object(DrawingText::kFirstViewport)),
                  OdCmColor::fromIndex(5))
            << number;
    }
}

TEST(Overrides, OfTheColourByLayerAreNone)
{
    const EditedDrawing drawing(
        withExtras({{"ADSK_XREC_LAYER_COLOR_OVR",
                     block("{ADSK_LYR_COLOR_OVERRIDE", "A2", "420", "-1073741824")}}));
    const OdDbObjectId viewport = drawing.object(DrawingText::kFirstViewport);
    EXPECT_FALSE(drawing.layer("Walls")->hasAnyOverrides());
    drawing.layer("Walls")->setColor(OdCmColor::fromIndex(5), viewport);
    EXPECT_TRUE(has(drawing.record("XRECORD", "5=71"), "335=A2 420=-1023410171 102=}"));
    EXPECT_EQ(EditedDrawing::count(drawing.saved(), "XRECORD"), 1);
}

TEST(Overrides, OfBookColoursHaveTheNameBehindTheNumber)
{
    const QByteArray text =
        withExtras({{"ADSK_XREC_LAYER_COLOR_OVR",
                     DrawingText::groups({"102", "{ADSK_LYR_COLOR_OVERRIDE", "335", "A2", "420",
                                          "-1039526882", "430", "GUIDE$RED", "102", "}"})}});
    const EditedDrawing drawing(text);
    const OdDbObjectId viewport = drawing.object(DrawingText::kFirstViewport);
    EXPECT_EQ(drawing.layer("Walls")->color(viewport).bookName(), name("GUIDE$RED"));
    drawing.layer("Walls")->setColor(OdCmColor::fromRgb(10, 20, 30, name("GUIDE$BLUE")), viewport);
    EXPECT_EQ(drawing.saved(), QByteArray(text).replace("GUIDE$RED", "GUIDE$BLUE"));
    drawing.layer("Walls")->setColor(OdCmColor::fromRgb(10, 20, 30), viewport);
    EXPECT_EQ(drawing.saved(), QByteArray(text).replace("430\nGUIDE$RED\n", ""));
}

TEST(Overrides, WithoutAValueInTheirBlockGetOne)
{
    const QByteArray mark = "{ADSK_LYR_LINEWT_OVERRIDE";
    const EditedDrawing drawing(
        withExtras({{"ADSK_XREC_LAYER_LINEWT_OVR",
                     DrawingText::groups({"102", mark, "335", "A2", "102", "}"})}}));
    drawing.layer("Walls")->setLineWeight(50, drawing.object(DrawingText::kFirstViewport));
    EXPECT_EQ(drawing.reread()
                  ->layerTable()
                  .getAt(name("Walls"))
                  .safeOpenObject<OdDbLayerTableRecord>()
                  ->state()
                  .overrides.begin()
                  ->second.lineWeight,
              qint16(50));
}

// Values kept for newer programs

TEST(RoundTripValues, GoWithThePropertyThatTheyShadow)
{
    const QByteArray pairs = DrawingText::groups(
        {"102", "MATERIAL",   "340", "61",    "102", "COLORTRUE", "90",  "-1039526882",
         "102", "LINEWEIGHT", "370", "35",    "102", "PLOTBIT",   "290", "0",
         "102", "EXTNAMES",   "1",   "WALLS", "2",   "Walls"});
    const QByteArray text = withExtras({{"ACAD_XREC_ROUNDTRIP", pairs}});
    const struct
    {
        Edit edit;
        const char* left;
    } kEdits[] = {
        {onWalls([](auto& walls) { walls.setColor(OdCmColor::fromIndex(1)); }),
         "280=1 102=MATERIAL 340=61 102=LINEWEIGHT 370=35 102=PLOTBIT 290=0 102=EXTNAMES 1=WALLS "
         "2=Walls"},
        {onWalls([](auto& walls) { walls.setLineWeight(50); }),
         "280=1 102=MATERIAL 340=61 102=COLORTRUE 90=-1039526882 102=PLOTBIT 290=0 102=EXTNAMES "
         "1=WALLS 2=Walls"},
        {onWalls([](auto& walls) { walls.setIsPlottable(false); }),
         "280=1 102=MATERIAL 340=61 102=COLORTRUE 90=-1039526882 102=LINEWEIGHT 370=35 "
         "102=EXTNAMES 1=WALLS 2=Walls"},
        {onWalls([](auto& walls) { walls.setName(name("Mauern")); }),
         "280=1 102=MATERIAL 340=61 102=COLORTRUE 90=-1039526882 102=LINEWEIGHT 370=35 102=PLOTBIT "
         "290=0"},
        {onWalls([](auto& walls) { walls.setIsLocked(true); }),
         "280=1 102=MATERIAL 340=61 102=COLORTRUE 90=-1039526882 102=LINEWEIGHT 370=35 102=PLOTBIT "
         "290=0 102=EXTNAMES 1=WALLS 2=Walls"},
    };
    for (const auto& [edit, left] : kEdits) {
        const EditedDrawing drawing(text);
        edit(*drawing);
        const std::string record = drawing.record("XRECORD", "5=71");
        EXPECT_EQ(record.substr(record.find("280=1")), left);
    }
}

TEST(RoundTripValues, TakeTheirRecordAlongWithTheLastOne)
{
    const EditedDrawing drawing(withExtras(
        {{"ACAD_XREC_ROUNDTRIP", DrawingText::groups({"102", "COLORACI", "70", "30"})}}));
    drawing.layer("Walls")->setColor(OdCmColor::fromIndex(1));
    EXPECT_EQ(EditedDrawing::count(drawing.saved(), "XRECORD"), 0);
    EXPECT_FALSE(has(drawing.record("DICTIONARY", "5=70"), "3=ACAD_XREC_ROUNDTRIP"));
}

// Versions

TEST(OldVersions, TellWhatTheyCannotHoldAndHaveItNowhere)
{
    const EditedDrawing drawing(DrawingText::old({{"WALLS"}}));
    const QString sentence = name("The drawing's version cannot hold %1 of layer \"WALLS\".");
    const auto walls = drawing.layer("WALLS");
    walls->setColor(OdCmColor::fromRgb(255, 127, 0));
    walls->setIsPlottable(false);
    walls->setLineWeight(35);
    walls->setIsReconciled();
    EXPECT_EQ(drawing.saved(), drawing.original().replace("62\n7\n", "62\n30\n"));
    EXPECT_EQ(
        drawing.notKept(),
        (QStringList{sentence.arg(name("the true color")), sentence.arg(name("the plot switch")),
                     sentence.arg(name("the lineweight")),
                     name("The drawing's version cannot hold layer filters, layer states, "
                          "viewport overrides and reviewed layers.")}));
}

TEST(OldVersions, HoldTheTrueColourFrom2004On)
{
    for (const char* version : {"AC1015", "AC1018"}) {
        const EditedDrawing drawing(withGroups({}, version));
        drawing.layer("Walls")->setColor(OdCmColor::fromRgb(255, 127, 0));
        const bool holds = QByteArrayView(version) == QByteArrayView("AC1018");
        EXPECT_EQ(has(drawing.record("LAYER", "2=Walls"), "420=16744192"), holds) << version;
        EXPECT_EQ(drawing.notKept().isEmpty(), holds) << version;
        EXPECT_TRUE(has(drawing.record("LAYER", "2=Walls"), "62=30")) << version;
    }
}

} // namespace
