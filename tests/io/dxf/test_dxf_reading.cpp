#include "database/store/ObjectStore.h"
#include "database/tables/OdDbBlockTableRecord.h"
#include "database/tables/OdDbLayerTable.h"
#include "database/tables/OdDbLayerTableRecord.h"
#include "database/tables/OdDbLinetypeTableRecord.h"
#include "io/DrawingFile.h"
#include "support/drawings/DrawingText.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

std::unique_ptr<OdDbDatabase> read(const QByteArray& bytes)
{
    return readDrawing(bytes, QStringLiteral("reading.dxf"));
}

OdDbLayerTableRecordPtr layer(const OdDbDatabase& database, const char* name)
{
    return database.layerTable().getAt(QString::fromUtf8(name)).openObject<OdDbLayerTableRecord>();
}

TEST(DxfReading, FindsEveryPropertyOfALayer)
{
    const auto database = read(DrawingText::withLayers(
        {{"M-DUCT", 1 | 2 | 4, -30,
          DrawingText::groups({"420", " 16744192", "290", "     0", "1001", "AcAecLayerStandard",
                               "1000", "", "1000", "Supply ducts", "1001", "AcCmTransparency",
                               "1071", " 33554559"})},
         {"Plain"}}));
    const auto duct = layer(*database, "m-duct");
    ASSERT_TRUE(duct);
    EXPECT_EQ(duct->getName(), QStringLiteral("M-DUCT"));
    EXPECT_TRUE(duct->isOff());
    EXPECT_TRUE(duct->isFrozen());
    EXPECT_TRUE(duct->isLocked());
    EXPECT_TRUE(duct->VPDFLT());
    EXPECT_FALSE(duct->isPlottable());
    EXPECT_EQ(duct->color(), OdCmColor::fromRgb(255, 127, 0));
    EXPECT_EQ(duct->lineWeight(), OdDb::kLnWtByLwDefault);
    EXPECT_EQ(duct->description(), QStringLiteral("Supply ducts"));
    EXPECT_EQ(duct->state().transparency, 33554559u);
    EXPECT_EQ(duct->linetypeObjectId().openObject<OdDbLinetypeTableRecord>()->getName(),
              QStringLiteral("Continuous"));
    const auto plain = layer(*database, "Plain");
    EXPECT_FALSE(plain->isOff() || plain->isFrozen() || plain->isLocked() || plain->VPDFLT());
    EXPECT_TRUE(plain->isPlottable());
}

TEST(DxfReading, FindsViewportOverridesAndTheReconciledFlag)
{
    QByteArray bytes = DrawingText::withLayers(
        {{"Walls", 0, 7,
          DrawingText::groups({"102", "{ACAD_XDICTIONARY", "360", "70", "102", "}"})}});
    const QByteArray records = DrawingText::groups({"0",   "DICTIONARY",
                                                    "5",   "70",
                                                    "330", "31",
                                                    "100", "AcDbDictionary",
                                                    "280", "1",
                                                    "281", "1",
                                                    "3",   "ADSK_XREC_LAYER_COLOR_OVR",
                                                    "360", "71",
                                                    "3",   "ADSK_XREC_LAYER_RECONCILED",
                                                    "360", "72"})
        + DrawingText::groups({"0",   "XRECORD", "5",   "71",
                               "330", "70",      "100", "AcDbXrecord",
                               "280", "1",       "102", "{ADSK_LYR_COLOR_OVERRIDE",
                               "335", "A2",      "420", "-1023410175",
                               "102", "}",       "102", "{ADSK_LYR_COLOR_OVERRIDE",
                               "335", "0",       "420", "-1023410171",
                               "102", "}",       "102", "{ADSK_LYR_COLOR_OVERRIDE",
                               "335", "A3",      "420", "3255440414",
                               "102", "}"})
        + DrawingText::groups({"0", "XRECORD", "5", "72", "330", "70", "100", "AcDbXrecord", "280",
                               "1", "290", "1"});
    bytes.replace("0\nENDSEC\n0\nEOF", records + "0\nENDSEC\n0\nEOF");
    const auto database = read(bytes);
    const auto walls = layer(*database, "Walls");
    const auto viewport = [&](quint64 handle) {
        return database->getOdDbObjectId(OdDbHandle(handle));
    };
    EXPECT_EQ(walls->color(viewport(DrawingText::kFirstViewport)), OdCmColor::fromIndex(1));
    EXPECT_EQ(walls->color(viewport(DrawingText::kSecondViewport)), OdCmColor::fromRgb(10, 20, 30));
    EXPECT_EQ(walls->color(viewport(DrawingText::kOverallViewport)), OdCmColor::fromIndex(7));
    EXPECT_TRUE(walls->hasOverrides(viewport(DrawingText::kFirstViewport)));
    EXPECT_FALSE(walls->hasOverrides(viewport(DrawingText::kOverallViewport)));
    EXPECT_EQ(walls->state().reconciled, true);
}

TEST(DxfReading, TakesDrawingsWithoutHandlesOrHeader)
{
    const auto database = read(DrawingText::old({{"WALLS", 1, -3}, {"DOORS"}}));
    EXPECT_TRUE(layer(*database, "Walls")->isFrozen());
    EXPECT_TRUE(layer(*database, "Walls")->isOff());
    EXPECT_FALSE(database->getLayerZeroId().isNull()) << "made, since every drawing has it";
    EXPECT_EQ(database->audit(), QStringList());
}

TEST(DxfReading, MakesAndReportsLayersThatTheTableLacks)
{
    const auto database =
        read(DrawingText::withLayers({{"Walls"}, {"Doors"}}).replace("8\nWalls\n", "8\nGhost\n"));
    EXPECT_TRUE(layer(*database, "Ghost"));
    ASSERT_EQ(database->loadNotes().size(), 1);
    EXPECT_TRUE(database->loadNotes().first().contains(
        QStringLiteral("layer \"Ghost\" is used and missing from the layer table")));
    EXPECT_EQ(database->audit(), QStringList());
}

TEST(DxfReading, TakesEntitiesBeforeTheTables)
{
    const QByteArray whole = DrawingText::withLayers({{"Walls"}, {"Doors"}});
    const qsizetype tables = whole.indexOf("0\nSECTION\n2\nTABLES");
    const qsizetype entities = whole.indexOf("0\nSECTION\n2\nENTITIES");
    const qsizetype objects = whole.indexOf("0\nSECTION\n2\nOBJECTS");
    const auto database = read(whole.first(tables) + whole.sliced(entities, objects - entities)
                               + whole.sliced(tables, entities - tables) + whole.sliced(objects));
    database->layerTable().generateUsageData();
    EXPECT_TRUE(layer(*database, "Walls")->isInUse());
    EXPECT_TRUE(database->loadNotes().isEmpty());
    EXPECT_EQ(database->audit(), QStringList());
}

TEST(DxfReading, MatchesLayerNamesOfEntitiesWithoutCase)
{
    const auto database =
        read(DrawingText::withLayers({{"Walls"}, {"Doors"}}).replace("8\nWalls\n", "8\nwALLS\n"));
    EXPECT_TRUE(database->loadNotes().isEmpty());
    EXPECT_EQ(database->layerTable().count(), 3);
}

TEST(DxfReading, PutsEntitiesIntoTheirSpaces)
{
    const auto database = read(DrawingText::withLayers({{"Walls"}, {"Doors"}}));
    const ObjectStore& store = database->store();
    const auto line = database->getOdDbObjectId(OdDbHandle(0x1000));
    const auto viewport = database->getOdDbObjectId(OdDbHandle(DrawingText::kFirstViewport));
    EXPECT_EQ(store.owner(line.slot()), database->getModelSpaceId().slot());
    EXPECT_EQ(store.owner(viewport.slot()), database->getPaperSpaceId().slot());
    EXPECT_EQ(store.typeName(line.slot()), "LINE");
    EXPECT_FALSE(
        database->getModelSpaceId().openObject<OdDbBlockTableRecord>()->entityRuns().empty());
}

TEST(DxfReading, NotesDoubleHandlesAndNamesAndKeepsTheFirst)
{
    QByteArray bytes = DrawingText::withLayers({{"Walls", 4}, {"walls", 1}});
    bytes.replace("0\nLINE\n5\n1000\n", "0\nLINE\n5\n31\n");
    const auto database = read(bytes);
    EXPECT_TRUE(layer(*database, "WALLS")->isLocked());
    EXPECT_FALSE(layer(*database, "WALLS")->isFrozen());
    const QString notes = database->loadNotes().join(QLatin1Char('\n'));
    EXPECT_TRUE(notes.contains(QStringLiteral("layer \"walls\" is defined a second time")))
        << notes.toStdString();
    EXPECT_TRUE(notes.contains(QStringLiteral("handle 31 is used a second time, by a LINE")))
        << notes.toStdString();
    EXPECT_EQ(drawingBytes(*database), bytes);
}

TEST(DxfReading, CutsCirclesOfOwners)
{
    QByteArray bytes = DrawingText::withLayers({{"Walls"}});
    bytes.replace("0\nDICTIONARY\n5\n60\n330\n0\n", "0\nDICTIONARY\n5\n60\n330\n61\n");
    const auto database = read(bytes);
    EXPECT_TRUE(
        database->loadNotes().join(QLatin1Char(' ')).contains(QStringLiteral("form a circle")));
    EXPECT_EQ(database->layouts().size(), 3u);
}

TEST(DxfReading, CanBeCancelled)
{
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("large.dxf"));
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(DrawingText::withLayers({{"Walls"}, {"Doors"}}));
    file.close();
    quint64 total = 0;
    try {
        readDrawing(path, [&](quint64, quint64 all) {
            total = all;
            return false;
        });
        FAIL() << "was not cancelled";
    } catch (const OdError& error) {
        EXPECT_EQ(error.code(), OdResult::Cancelled);
    }
    EXPECT_EQ(total, static_cast<quint64>(file.size()));
}

} // namespace
