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

QByteArray entity(const char* type, const char* handle, const char* layer,
                  const QByteArray& more = {})
{
    return DrawingText::groups({"0", type, "5", handle, "330", "50", "100", "AcDbEntity"})
        + (layer ? DrawingText::groups({"8", layer}) : QByteArray())
        + DrawingText::groups({"100", "AcDbPart"}) + more;
}

/// A drawing with more entities and more objects.
QByteArray withMore(const QByteArray& entities, const QByteArray& objects = {})
{
    return DrawingText::withLayers({{"Walls"}, {"Doors"}, {"Roof"}})
        .replace("2\nENTITIES\n", "2\nENTITIES\n" + entities)
        .replace("0\nENDSEC\n0\nEOF", objects + "0\nENDSEC\n0\nEOF");
}

QByteArray sequences()
{
    return entity("POLYLINE", "200", "Walls") + entity("VERTEX", "201", "WALLS")
        + entity("VERTEX", "202", "Doors") + entity("SEQEND", "203", "walls")
        + entity("INSERT", "204", "Roof", DrawingText::groups({"66", "1", "2", "B"}))
        + entity("ATTRIB", "205", "Walls") + entity("SEQEND", "206", "Walls");
}

/// The layer table's extension dictionary with one record under a key of it.
QByteArray withTableRecord(const char* key, const QByteArray& groups)
{
    return withMore({},
                    DrawingText::groups({"0",   "DICTIONARY",  "5",   "70",
                                         "330", "2",           "100", "AcDbDictionary",
                                         "280", "1",           "281", "1",
                                         "3",   key,           "360", "71",
                                         "0",   "DICTIONARY",  "5",   "71",
                                         "330", "70",          "100", "AcDbDictionary",
                                         "281", "1",           "3",   "one",
                                         "350", "72",          "0",   "XRECORD",
                                         "5",   "72",          "330", "71",
                                         "100", "AcDbXrecord", "280", "1"})
                        + groups)
        .replace("2\nLAYER\n5\n2\n", "2\nLAYER\n5\n2\n102\n{ACAD_XDICTIONARY\n360\n70\n102\n}\n");
}

void renameIn(OdDbDatabase& database, const char* from, const char* to)
{
    database.layerTable()
        .getAt(name(from))
        .safeOpenObject<OdDbLayerTableRecord>(OdDb::kForWrite)
        ->setName(name(to));
}

void eraseIn(OdDbDatabase& database, const char* layer)
{
    database.layerTable()
        .getAt(name(layer))
        .safeOpenObject<OdDbLayerTableRecord>(OdDb::kForWrite)
        ->erase();
}

void moveTo(OdDbDatabase& database, quint64 handle, const char* layer)
{
    database.getOdDbObjectId(OdDbHandle(handle))
        .safeOpenObject<OdDbEntity>(OdDb::kForWrite)
        ->setLayer(database.layerTable().getAt(name(layer)));
}

// Renaming

TEST(RenamedLayer, IsNamedAnewInEntitiesTheirPartsAndDifferentlyCasedOnes)
{
    const QByteArray text = withMore(sequences());
    const auto edit = [](OdDbDatabase& database) { renameIn(database, "walls", "Mauern"); };
    const EditedDrawing drawing(text);
    edit(*drawing);
    for (const char* handle : {"5=200", "5=1000"})
        EXPECT_TRUE(
            has(drawing.record(handle[2] == '2' ? "POLYLINE" : "LINE", handle), "8=Mauern"));
    EXPECT_TRUE(has(drawing.record("VERTEX", "5=201"), "8=Mauern"));
    EXPECT_TRUE(has(drawing.record("VERTEX", "5=202"), "8=Doors"));
    EXPECT_TRUE(has(drawing.record("SEQEND", "5=203"), "8=Mauern"));
    EXPECT_TRUE(has(drawing.record("ATTRIB", "5=205"), "8=Mauern"));
    EXPECT_TRUE(has(drawing.record("SEQEND", "5=206"), "8=Mauern"));
    EXPECT_TRUE(has(drawing.record("INSERT", "5=204"), "8=Roof"));
    EXPECT_TRUE(has(drawing.record("LAYER", "5=31"), "2=Mauern"));
    EXPECT_FALSE(drawing.saved().toLower().contains("walls"));
    for (const int codeBytes : {1, 2})
        EXPECT_TRUE(EditedDrawing::isSameInBinary(text, codeBytes, edit));
}

TEST(RenamedLayer, IsNamedAnewInBlockFrames)
{
    QByteArray text = withMore({});
    text.replace("0\nBLOCK\n5\n55\n330\n52\n100\nAcDbEntity\n8\n0\n",
                 "0\nBLOCK\n5\n55\n330\n52\n100\nAcDbEntity\n8\nWalls\n");
    text.replace("0\nENDBLK\n5\n55E\n330\n52\n100\nAcDbEntity\n8\n0\n",
                 "0\nENDBLK\n5\n55E\n330\n52\n100\nAcDbEntity\n8\nWalls\n");
    const EditedDrawing drawing(text);
    renameIn(*drawing, "Walls", "Mauern");
    EXPECT_EQ(drawing.saved(), QByteArray(text).replace("\nWalls\n", "\nMauern\n"));
}

TEST(RenamedLayer, IsNamedAnewInExtendedDataOfEntitiesAndObjects)
{
    const QByteArray data = DrawingText::groups({"1001", "KEST", "1003", "WALLS", "1003", "Doors"});
    const QByteArray text =
        withMore(entity("CIRCLE", "200", "Roof", data),
                 DrawingText::groups({"0", "PLACEHOLDER", "5", "75", "330", "60"}) + data);
    const EditedDrawing drawing(text);
    renameIn(*drawing, "Walls", "Mauern");
    EXPECT_EQ(
        drawing.saved(),
        QByteArray(text).replace("\nWALLS\n", "\nMauern\n").replace("\nWalls\n", "\nMauern\n"));
}

TEST(RenamedLayer, IsNamedAnewInTheHeaderAndInListsOfLayers)
{
    QByteArray text = withMore({}, DrawingText::groups({"0",   "LAYER_FILTER",
                                                        "5",   "75",
                                                        "330", "60",
                                                        "100", "AcDbFilter",
                                                        "100", "AcDbLayerFilter",
                                                        "8",   "Walls",
                                                        "8",   "Doors",
                                                        "0",   "LAYER_INDEX",
                                                        "5",   "76",
                                                        "330", "60",
                                                        "100", "AcDbIndex",
                                                        "40",  "1.0",
                                                        "100", "AcDbLayerIndex",
                                                        "8",   "WALLS",
                                                        "360", "77",
                                                        "90",  "1"}));
    text.replace("9\n$CLAYER\n8\n0\n", "9\n$CLAYER\n8\nWalls\n");
    const EditedDrawing drawing(text);
    renameIn(*drawing, "Walls", "Mauern");
    EXPECT_EQ(EditedDrawing::variable(drawing.saved(), "$CLAYER"), "Mauern");
    EXPECT_TRUE(has(drawing.record("LAYER_FILTER", "5=75"), "8=Mauern 8=Doors"));
    EXPECT_TRUE(has(drawing.record("LAYER_INDEX", "5=76"), "8=Mauern 360=77"));
}

TEST(RenamedLayer, IsNamedAnewInTheVariablesThatNameLayers)
{
    const QByteArray text =
        withMore({}, DrawingText::groups({"0",   "DICTIONARY",
                                          "5",   "80",
                                          "330", "60",
                                          "100", "AcDbDictionary",
                                          "281", "1",
                                          "3",   "HPLAYER",
                                          "350", "81",
                                          "3",   "DIMLAYER",
                                          "350", "82",
                                          "3",   "OTHER",
                                          "350", "83",
                                          "0",   "DICTIONARYVAR",
                                          "5",   "81",
                                          "330", "80",
                                          "100", "DictionaryVariables",
                                          "280", "0",
                                          "1",   "WALLS",
                                          "0",   "DICTIONARYVAR",
                                          "5",   "82",
                                          "330", "80",
                                          "100", "DictionaryVariables",
                                          "280", "0",
                                          "1",   "Doors",
                                          "0",   "DICTIONARYVAR",
                                          "5",   "83",
                                          "330", "80",
                                          "100", "DictionaryVariables",
                                          "280", "0",
                                          "1",   "Walls"}))
            .replace("3\nACAD_LAYOUT\n", "3\nAcDbVariableDictionary\n350\n80\n3\nACAD_LAYOUT\n");
    const EditedDrawing drawing(text);
    renameIn(*drawing, "Walls", "Mauern");
    EXPECT_TRUE(has(drawing.record("DICTIONARYVAR", "5=81"), "1=Mauern"));
    EXPECT_TRUE(has(drawing.record("DICTIONARYVAR", "5=82"), "1=Doors"));
    EXPECT_TRUE(has(drawing.record("DICTIONARYVAR", "5=83"), "1=Walls")) << "no layer is meant";
}

TEST(RenamedLayer, IsTheSameLayerInStatesThatGoByName)
{
    const EditedDrawing drawing(withTableRecord(
        "ACAD_LAYERSTATES",
        DrawingText::groups({"91",    "2047", "301", "",     "290", "0", "302",   "WALLS", "8",
                             "Doors", "90",   "8",   "62",   "1",   "8", "Walls", "90",    "9",
                             "62",    "3",    "8",   "Gone", "90",  "8", "62",    "5"})));
    renameIn(*drawing, "Walls", "Mauern");
    EXPECT_TRUE(has(drawing.record("XRECORD", "5=72"),
                    "302=Mauern 330=32 90=8 62=1 330=31 90=9 62=3 8=Gone 90=8 62=5"));
}

TEST(RenamedLayer, IsNamedAnewAmongTheLayersFrozenInOldViewports)
{
    QByteArray text = DrawingText::withLayers({{"WALLS"}, {"DOORS"}, {"ROOF"}});
    text.replace("AC1018", "AC1014");
    const QByteArray names =
        DrawingText::groups({"1001", "ACAD", "1000", "MVIEW", "1002", "{", "1070", "16", "1002",
                             "{", "1003", "WALLS", "1003", "DOORS", "1002", "}", "1002", "}"});
    text.replace("22\n0.0\n45\n20.0\n90\n32864\n0\nENDSEC",
                 "22\n0.0\n45\n20.0\n90\n32864\n" + names + "0\nENDSEC");
    const EditedDrawing drawing(text);
    const OdDbObjectId viewport = drawing.object(DrawingText::kSecondViewport);
    EXPECT_EQ(viewport.safeOpenObject<OdDbViewport>()->frozenLayers().size(), 2u);
    renameIn(*drawing, "WALLS", "MAUERN");
    EXPECT_EQ(drawing.saved(), QByteArray(text).replace("\nWALLS\n", "\nMAUERN\n"));
    const auto change = viewport.safeOpenObject<OdDbViewport>(OdDb::kForWrite);
    change->thawLayersInViewport({drawing.layer("DOORS")->objectId()});
    change->freezeLayersInViewport({drawing.layer("ROOF")->objectId()});
    EXPECT_TRUE(has(drawing.record("VIEWPORT", "5=A3"),
                    "1070=16 1002={ 1003=MAUERN 1003=ROOF 1002=} 1002=}"));
}

TEST(RenamedLayers, MaySwapTheirNames)
{
    const QByteArray text = withMore(sequences());
    const EditedDrawing drawing(text);
    renameIn(*drawing, "Walls", "Third");
    renameIn(*drawing, "Doors", "Walls");
    renameIn(*drawing, "Third", "Doors");
    EXPECT_TRUE(has(drawing.record("LAYER", "5=31"), "2=Doors"));
    EXPECT_TRUE(has(drawing.record("LAYER", "5=32"), "2=Walls"));
    EXPECT_TRUE(has(drawing.record("LINE", "5=1000"), "8=Doors"));
    EXPECT_TRUE(has(drawing.record("LINE", "5=1001"), "8=Walls"));
    EXPECT_TRUE(has(drawing.record("VERTEX", "5=202"), "8=Walls"));
    EXPECT_FALSE(drawing.saved().contains("Third"));
}

TEST(RenamedLayer, IsRefusedWhereTheEncodingOfOldVersionsCannotHoldIt)
{
    for (const char* version : {"AC1009", "AC1014"}) {
        const EditedDrawing drawing(withMore({}).replace("AC1018", version));
        renameIn(*drawing, "Walls", "Стены");
        try {
            drawing.saved();
            FAIL() << version;
        } catch (const OdError& error) {
            EXPECT_EQ(error.description(),
                      name("The name \"Стены\" has characters that the drawing's encoding cannot "
                           "hold; rename it before saving."));
        }
    }
}

TEST(RenamedLayer, IsEscapedWhereTheEncodingOfLaterVersionsCannotHoldIt)
{
    for (const char* version : {"AC1015", "AC1018"}) {
        const EditedDrawing drawing(withMore({}).replace("AC1018", version));
        renameIn(*drawing, "Walls", "Стены");
        EXPECT_TRUE(
            has(drawing.record("LINE", "5=1000"), "8=\\U+0421\\U+0442\\U+0435\\U+043D\\U+044B"));
        EXPECT_FALSE(drawing.reread()->layerTable().getAt(name("стены")).isNull());
    }
}

// Erasing layers

TEST(ErasedLayer, TakesItsRecordItsCountAndItsDictionaryAlong)
{
    QByteArray text = withMore({}, DrawingText::groups({"0",   "DICTIONARY",
                                                        "5",   "90",
                                                        "330", "33",
                                                        "100", "AcDbDictionary",
                                                        "280", "1",
                                                        "3",   "SUB",
                                                        "360", "91",
                                                        "0",   "DICTIONARY",
                                                        "5",   "91",
                                                        "330", "90",
                                                        "100", "AcDbDictionary",
                                                        "3",   "LEAF",
                                                        "350", "92",
                                                        "0",   "XRECORD",
                                                        "5",   "92",
                                                        "330", "91",
                                                        "100", "AcDbXrecord",
                                                        "1",   "x"}));
    text.replace("0\nLAYER\n5\n33\n", "0\nLAYER\n5\n33\n102\n{ACAD_XDICTIONARY\n360\n90\n102\n}\n");
    text.replace("2\nLAYER\n5\n2\n330\n0\n100\nAcDbSymbolTable\n70\n1\n",
                 "2\nLAYER\n5\n2\n330\n0\n100\nAcDbSymbolTable\n70\n4\n");
    const EditedDrawing drawing(text);
    drawing->startUndoRecord();
    eraseIn(*drawing, "Roof");
    EXPECT_EQ(drawing.record("LAYER", "5=33"), "");
    EXPECT_TRUE(has(drawing.record("TABLE", "2=LAYER"), "70=3"));
    for (const char* handle : {"\n90\n330", "\n91\n330", "\n92\n330"})
        EXPECT_FALSE(drawing.saved().contains(handle)) << handle;
    drawing->undo();
    EXPECT_EQ(drawing.saved(), text);
}

TEST(ErasedLayer, LeavesTheViewportsThatFreezeIt)
{
    for (const char* code : {"331", "341"}) {
        QByteArray text = withMore({}).replace("331\n31\n", QByteArray(code) + "\n33\n");
        const EditedDrawing drawing(text);
        eraseIn(*drawing, "Roof");
        EXPECT_FALSE(
            has(drawing.record("VIEWPORT", "5=A2"), (QByteArray(code) + "=33").constData()));
        EXPECT_TRUE(has(drawing.record("VIEWPORT", "5=A2"), "45=20.0 90=32864"));
    }
}

TEST(ErasedLayer, IsFrozenAgainAfterUndoInAViewportReadWhileItWasGone)
{
    const EditedDrawing drawing(withMore({}).replace("331\n31\n", "331\n33\n"));
    const OdDbObjectId viewport = drawing.object(DrawingText::kFirstViewport);
    drawing->startUndoRecord();
    eraseIn(*drawing, "Roof");
    EXPECT_EQ(drawing->audit(), QStringList());
    viewport.safeOpenObject<OdDbViewport>();
    drawing->undo();
    const OdDbObjectId roof = drawing.layer("Roof")->objectId();
    EXPECT_TRUE(viewport.safeOpenObject<OdDbViewport>()->isLayerFrozenInViewport(roof));
    viewport.safeOpenObject<OdDbViewport>(OdDb::kForWrite)
        ->freezeLayersInViewport({drawing.layer("Doors")->objectId()});
    EXPECT_TRUE(has(drawing.record("VIEWPORT", "5=A2"), "45=20.0 331=33 331=32 90=32864"));
}

TEST(ErasedLayer, LeavesTheFilterGroupsThatHaveIt)
{
    const EditedDrawing drawing(
        withTableRecord("ACLYDICTIONARY",
                        DrawingText::groups({"1", "AcLyLayerGroup", "90", "1", "300", "Shell",
                                             "330", "31", "330", "33", "330", "32"})));
    eraseIn(*drawing, "Roof");
    EXPECT_TRUE(has(drawing.record("XRECORD", "5=72"), "300=Shell 330=31 330=32"));
}

TEST(ErasedLayer, LeavesTheStatesByHandleAndByName)
{
    for (const auto& entry :
         {DrawingText::groups({"330", "33"}), DrawingText::groups({"8", "ROOF"})}) {
        const EditedDrawing drawing(withTableRecord(
            "ACAD_LAYERSTATES",
            DrawingText::groups({"91", "2047", "302", "0", "330", "31", "90", "8", "62", "1"})
                + entry
                + DrawingText::groups(
                    {"90", "9", "62", "3", "331", "22", "330", "32", "90", "8", "62", "5"})));
        eraseIn(*drawing, "Roof");
        const std::string record = drawing.record("XRECORD", "5=72");
        EXPECT_TRUE(has(record, "330=31 90=8 62=1 330=32 90=8 62=5")) << record;
    }
}

// Layers that the table lacks

TEST(MissingLayer, IsMadeReportedAndWrittenOnlyWhenItIsEdited)
{
    const QByteArray text = withMore(entity("CIRCLE", "200", "Unlisted"));
    const EditedDrawing drawing(text);
    ASSERT_EQ(drawing->loadNotes().size(), 1);
    EXPECT_TRUE(drawing->loadNotes().first().endsWith(
        name("layer \"Unlisted\" is used and missing from the layer table.")));
    EXPECT_EQ(drawing.saved(), text);
    drawing->startUndoRecord();
    drawing.layer("unlisted")->setIsLocked(true);
    EXPECT_TRUE(has(drawing.record("LAYER", "2=Unlisted"), "70=4 62=7 6=Continuous 370=-3"));
    EXPECT_TRUE(drawing.reread()->loadNotes().isEmpty());
    drawing->undo();
    EXPECT_EQ(drawing.saved(), text);
}

TEST(MissingLayer, IsRenamedInTheEntitiesThatUseIt)
{
    const EditedDrawing drawing(withMore(entity("CIRCLE", "200", "Unlisted")));
    renameIn(*drawing, "Unlisted", "Listed");
    EXPECT_TRUE(has(drawing.record("CIRCLE", "5=200"), "8=Listed"));
    EXPECT_FALSE(drawing.record("LAYER", "2=Listed").empty());
    EXPECT_TRUE(drawing.reread()->loadNotes().isEmpty());
}

// Entities

TEST(ErasedEntity, TakesItsPartsAlongAndUndoBringsAllBack)
{
    const EditedDrawing drawing(withMore(sequences()));
    drawing->startUndoRecord();
    for (const quint64 handle : {0x200u, 0x204u})
        drawing.object(handle).safeOpenObject<OdDbEntity>(OdDb::kForWrite)->erase();
    for (const quint64 handle : {0x201u, 0x202u, 0x203u, 0x205u, 0x206u})
        EXPECT_TRUE(drawing.object(handle).isErased()) << handle;
    EXPECT_EQ(drawing.saved(), withMore({}));
    drawing->undo();
    EXPECT_EQ(drawing.saved(), drawing.original());
    drawing->redo();
    EXPECT_EQ(drawing.saved(), withMore({}));
}

TEST(ErasedEntity, LeavesTheEndOfItsBlock)
{
    QByteArray text = withMore({});
    const QByteArray circle = DrawingText::groups(
        {"0", "CIRCLE", "5", "200", "330", "52", "100", "AcDbEntity", "8", "Walls"});
    QByteArray with = text;
    with.replace("0\nENDBLK\n5\n55E\n", circle + "0\nENDBLK\n5\n55E\n");
    const EditedDrawing drawing(with);
    drawing.object(0x200).safeOpenObject<OdDbEntity>(OdDb::kForWrite)->erase();
    EXPECT_EQ(drawing.saved(), text);
}

TEST(ErasedEntity, LeavesTheGroupsThatHaveIt)
{
    const QByteArray first = entity("LINE", "200", "Walls");
    const QByteArray others = entity("LINE", "201", "Walls") + entity("LINE", "202", "Walls");
    const auto group = [](const char* handle, std::initializer_list<const char*> members) {
        QByteArray groups = DrawingText::groups(
            {"0", "GROUP", "5", handle, "330", "D", "100", "AcDbGroup", "70", "0", "71", "1"});
        for (const char* member : members)
            groups += DrawingText::groups({"340", member});
        return groups;
    };
    const QByteArray other = group("61", {"201", "202"});
    const EditedDrawing drawing(
        withMore(first + others, group("60", {"200", "0201", "0200"}) + other));
    drawing->startUndoRecord();
    drawing.object(0x200).safeOpenObject<OdDbEntity>(OdDb::kForWrite)->erase();
    EXPECT_EQ(drawing.saved(), withMore(others, group("60", {"0201"}) + other));
    drawing->undo();
    EXPECT_EQ(drawing.saved(), drawing.original());
}

TEST(MovedEntity, HasItsNewLayerWhereTheOldOneStood)
{
    const QByteArray text = withMore(sequences());
    const auto edit = [](OdDbDatabase& database) { moveTo(database, 0x1000, "Roof"); };
    const EditedDrawing drawing(text);
    edit(*drawing);
    EXPECT_EQ(drawing.record("LINE", "5=1000").substr(0, 37),
              "5=1000 330=50 100=AcDbEntity 8=Roof 1");
    for (const int codeBytes : {1, 2})
        EXPECT_TRUE(EditedDrawing::isSameInBinary(text, codeBytes, edit));
}

TEST(MovedEntity, GetsAGroupInThePartOfAllEntitiesWhereItHadNone)
{
    const EditedDrawing drawing(withMore(entity("CIRCLE", "200", nullptr)));
    EXPECT_EQ(drawing.object(0x200).safeOpenObject<OdDbEntity>()->layerId(),
              drawing->getLayerZeroId());
    moveTo(*drawing, 0x200, "Roof");
    EXPECT_EQ(drawing.record("CIRCLE", "5=200"), "5=200 330=50 100=AcDbEntity 8=Roof 100=AcDbPart");
}

TEST(MovedEntity, OfTheOldestVersionsGetsItBehindItsHandle)
{
    const QByteArray text = DrawingText::old({{"WALLS"}, {"ROOF"}})
                                .replace("0\nLINE\n8\nWALLS\n10", "0\nLINE\n5\n1A\n10");
    const EditedDrawing drawing(text);
    moveTo(*drawing, 0x1A, "ROOF");
    EXPECT_EQ(drawing.record("LINE", "5=1A").substr(0, 13), "5=1A 8=ROOF 1");
}

TEST(MovedEntity, FollowsTheNewNameOfItsNewLayer)
{
    const EditedDrawing drawing(withMore({}));
    moveTo(*drawing, 0x1000, "Roof");
    renameIn(*drawing, "Roof", "Dach");
    renameIn(*drawing, "Walls", "Roof");
    EXPECT_TRUE(has(drawing.record("LINE", "5=1000"), "8=Dach"));
    EXPECT_EQ(drawing.reread()->layerTable().count(), 4);
}

} // namespace
