#include "database/store/HeaderVariables.h"
#include "database/tables/OdDbBlockTableRecord.h"
#include "database/tables/OdDbLayerTable.h"
#include "database/tables/OdDbLayerTableRecord.h"
#include "io/DrawingFile.h"
#include "io/dxf/read/DxfObjectSource.h"
#include "support/drawings/BinaryDrawing.h"
#include "support/drawings/DrawingText.h"

#include <gtest/gtest.h>

namespace {

/// A drawing in one of the three forms: 0 is text, else the bytes of a group code.
std::unique_ptr<OdDbDatabase> read(const QByteArray& text, int codeBytes)
{
    return readDrawing(codeBytes > 0 ? BinaryDrawing::fromText(text, codeBytes) : text,
                       QStringLiteral("landmarks.dxf"));
}

const DxfLandmarks& landmarks(const OdDbDatabase& database)
{
    return dynamic_cast<const DxfObjectSource&>(*database.source()).landmarks();
}

TEST(DxfLandmarks, AreTheEndsOfSectionsAndTables)
{
    for (const int codeBytes : {0, 1, 2}) {
        const auto database = read(DrawingText::withLayers({{"Walls"}}), codeBytes);
        const DxfLandmarks& marks = landmarks(*database);
        const ObjectStore& store = database->store();
        EXPECT_EQ(marks.codeBytes, codeBytes);
        quint32 last = 0;
        for (const quint32 end :
             {marks.headerEnd, marks.tablesEnd, marks.blocksEnd, marks.objectsEnd}) {
            ASSERT_LT(end, store.fileRecords());
            EXPECT_EQ(store.type(end), RecordType::EndSec);
            EXPECT_GT(end, last);
            last = end;
        }
        EXPECT_EQ(store.type(marks.headerEnd + 1), RecordType::Section);
        EXPECT_EQ(store.type(marks.tablesEnd - 1), RecordType::EndTab);
        EXPECT_EQ(store.type(marks.blocksEnd - 1), RecordType::EndBlk);
        EXPECT_EQ(store.type(marks.objectsEnd - 1), RecordType::Layout);
        EXPECT_EQ(store.type(marks.objectsEnd + 1), RecordType::Eof);
        ASSERT_EQ(marks.tables.size(), 3u);
        const DxfLandmarks::Table* layers = marks.table("LAYER");
        ASSERT_TRUE(layers);
        EXPECT_EQ(store.handle(layers->begin), 2u);
        EXPECT_EQ(store.type(layers->end), RecordType::EndTab);
        EXPECT_EQ(layers->end - layers->begin, 3u) << "two layers between them";
        EXPECT_FALSE(marks.table("APPID"));
    }
}

TEST(DxfLandmarks, AreMissingWhereTheFileHasNone)
{
    const auto database = read(DrawingText::old({{"WALLS"}}), 0);
    const DxfLandmarks& marks = landmarks(*database);
    EXPECT_EQ(marks.headerEnd, ObjectStore::kNone);
    EXPECT_EQ(marks.blocksEnd, ObjectStore::kNone);
    EXPECT_EQ(marks.objectsEnd, ObjectStore::kNone);
    EXPECT_EQ(database->store().type(marks.tablesEnd), RecordType::EndSec);
}

TEST(DxfLandmarks, ATableWithoutItsEndIsRefused)
{
    const QByteArray bytes =
        DrawingText::withLayers({{"Walls"}}).replace("0\nENDTAB\n0\nENDSEC", "0\nENDSEC");
    try {
        read(bytes, 0);
        FAIL() << "nothing could be added to its tables";
    } catch (const OdError& error) {
        EXPECT_TRUE(error.description().endsWith(
            QStringLiteral("a section ends inside a table; expected ENDTAB first.")));
    }
}

TEST(DxfLandmarks, EntitiesMayStandInSeveralSections)
{
    QByteArray bytes = DrawingText::withLayers({{"Walls"}, {"Doors"}, {"Roof"}});
    bytes.replace("0\nLINE\n5\n1001\n", "0\nENDSEC\n0\nSECTION\n2\nENTITIES\n0\nLINE\n5\n1001\n");
    const auto database = read(bytes, 0);
    EXPECT_EQ(database->audit(), QStringList());
    for (const quint64 handle : {0x1000u, 0x1001u})
        EXPECT_EQ(database->store().owner(database->getOdDbObjectId(OdDbHandle(handle)).slot()),
                  database->getModelSpaceId().slot());
    EXPECT_EQ(database->getModelSpaceId().openObject<OdDbBlockTableRecord>()->entityRuns().size(),
              3u)
        << "the block's own and two sections";
}

TEST(DxfLandmarks, AreTheRecordsThatNameLayersInExtendedData)
{
    for (const int codeBytes : {0, 1, 2}) {
        QByteArray text = DrawingText::withLayers({{"Walls"}, {"Doors"}, {"Roof"}});
        const QByteArray data =
            DrawingText::groups({"1001", "KEST", "1003", "Roof", "1003", "Doors"});
        text.replace("21\n1.5\n31\n0.0\n", "21\n1.5\n31\n0.0\n" + data);
        text.replace("0\nENDSEC\n0\nEOF", data + "0\nENDSEC\n0\nEOF");
        const auto database = read(text, codeBytes);
        const quint32 line = database->getOdDbObjectId(OdDbHandle(0x1001)).slot();
        const quint32 layout = database->getOdDbObjectId(OdDbHandle(0x64)).slot();
        EXPECT_EQ(landmarks(*database).layerNameUsers, (std::vector<quint32>{line, layout}));
    }
}

TEST(DxfBlocks, ALayerThatOnlyTheFrameOfABlockLiesOnIsInUse)
{
    for (const int codeBytes : {0, 1, 2}) {
        QByteArray text = DrawingText::withLayers({{"Begin"}, {"End"}, {"Empty"}, {"Line"}});
        text.replace("0\nBLOCK\n5\n55\n330\n52\n100\nAcDbEntity\n8\n0\n",
                     "0\nBLOCK\n5\n55\n330\n52\n100\nAcDbEntity\n8\nBegin\n");
        text.replace("0\nENDBLK\n5\n55E\n330\n52\n100\nAcDbEntity\n8\n0\n",
                     "0\nENDBLK\n5\n55E\n330\n52\n100\nAcDbEntity\n8\nEnd\n");
        for (const char* name : {"Begin", "End", "Empty"})
            text.replace(QByteArray("AcDbEntity\n8\n") + name + "\n100\nAcDbLine",
                         "AcDbEntity\n8\nLine\n100\nAcDbLine");
        const auto database = read(text, codeBytes);
        database->layerTable().generateUsageData();
        const auto inUse = [&](const char* name) {
            return database->layerTable()
                .getAt(QLatin1String(name))
                .safeOpenObject<OdDbLayerTableRecord>()
                ->isInUse();
        };
        EXPECT_TRUE(inUse("Begin"));
        EXPECT_TRUE(inUse("End"));
        EXPECT_TRUE(inUse("Line"));
        EXPECT_FALSE(inUse("Empty"));
        EXPECT_TRUE(inUse("0")) << "the other blocks' frames";
        EXPECT_EQ(database->audit(), QStringList());
        EXPECT_EQ(database->getOdDbObjectId(OdDbHandle(0x55E)).slot(),
                  database->getOdDbObjectId(OdDbHandle(0x55)).slot() + 1);
    }
}

TEST(DxfComments, MayStandBetweenRecordsAndInsideThem)
{
    const QByteArray plain = DrawingText::withLayers({{"Walls", 1}, {"Doors"}});
    const QByteArray comment = DrawingText::groups({"999", "a remark"});
    for (const int codeBytes : {0, 1, 2}) {
        QByteArray text = comment;
        const QList<QByteArray> lines = plain.split('\n');
        for (qsizetype i = 0; i + 1 < lines.size(); i += 2)
            text += lines[i] + '\n' + lines[i + 1] + '\n' + comment;
        const auto database = read(text, codeBytes);
        EXPECT_EQ(database->audit(), QStringList());
        EXPECT_EQ(database->loadNotes(), QStringList());
        EXPECT_EQ(database->layerTable().count(), 3);
        EXPECT_TRUE(database->layerTable()
                        .getAt(QStringLiteral("Walls"))
                        .safeOpenObject<OdDbLayerTableRecord>()
                        ->isFrozen());
        EXPECT_EQ(database->header().value(QStringLiteral("$TILEMODE")), QStringLiteral("1"));
        EXPECT_EQ(database->layouts().size(), 3u);
    }
}

} // namespace
