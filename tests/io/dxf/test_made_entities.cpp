#include "database/objects/OdDbEntity.h"
#include "database/objects/OdDbLayout.h"
#include "database/store/ObjectStore.h"
#include "database/tables/OdDbBlockTableRecord.h"
#include "database/tables/OdDbLayerTable.h"
#include "database/values/GroupCursor.h"
#include "database/values/GroupList.h"
#include "io/DrawingFile.h"
#include "support/drawings/DrawingText.h"
#include "support/drawings/EditedDrawing.h"

#include <gtest/gtest.h>

namespace {

const QByteArray kPlain = DrawingText::withLayers({{"Walls"}, {"Doors"}});

GroupList lineGroups()
{
    return {{62, "3"},   {370, "50"}, {420, "255"}, {440, "33554559"}, {100, "AcDbLine"}, {10, "1"},
            {20, "2.5"}, {30, "0"},   {11, "4"},    {21, "-5.25"},     {31, "0"}};
}

GroupList textGroups(const QByteArray& text)
{
    return {{100, "AcDbText"}, {10, "0"}, {20, "0"},        {30, "0"},
            {40, "2.5"},       {1, text}, {100, "AcDbText"}};
}

OdDbObjectId layerOf(OdDbDatabase& drawing, const char* name)
{
    return drawing.layerTable().getAt(QString::fromUtf8(name));
}

OdDbObjectId addLine(OdDbDatabase& drawing)
{
    return drawing.addEntity("LINE", lineGroups(), drawing.getModelSpaceId(),
                             layerOf(drawing, "Walls"));
}

/// "10=1 20=2.5 ...": the groups from the layer on, as a cursor tells them.
std::string read(const OdDbDatabase& drawing, OdDbObjectId id)
{
    const auto cursor = drawing.makeCursor();
    cursor->open(id.slot());
    std::string groups;
    bool isOwn = false;
    while (cursor->next()) {
        isOwn = isOwn || cursor->code() == 8;
        if (isOwn)
            groups += (groups.empty() ? "" : " ") + std::to_string(cursor->code()) + '='
                + cursor->text().trimmed().toStdString();
    }
    return groups;
}

QByteArray ofVersion(const char* version)
{
    return QByteArray(kPlain).replace("AC1018", version);
}

constexpr const char* kLine = "8=Walls 62=3 370=50 420=255 440=33554559 100=AcDbLine 10=1 20=2.5 "
                              "30=0 11=4 21=-5.25 31=0";

} // namespace

TEST(MadeEntities, are_read_through_the_same_cursor_as_those_of_the_file)
{
    const EditedDrawing drawing(kPlain);
    EXPECT_EQ(read(*drawing, addLine(*drawing)), kLine);
}

TEST(MadeEntities, stand_last_in_their_block_and_count_as_use_of_their_layer)
{
    const EditedDrawing drawing(kPlain);
    const OdDbObjectId doors = layerOf(*drawing, "Doors");
    drawing->layerTable().generateUsageData();
    ASSERT_FALSE(doors.openObject<OdDbLayerTableRecord>()->isInUse());
    const OdDbObjectId made =
        drawing->addEntity("LINE", lineGroups(), drawing->getModelSpaceId(), doors);
    EXPECT_TRUE(doors.openObject<OdDbLayerTableRecord>()->isInUse());
    const auto space = drawing->getModelSpaceId().openObject<OdDbBlockTableRecord>();
    EXPECT_EQ(space->entityRuns().back().end, made.slot() + 1);
    EXPECT_EQ(made.openObject<OdDbEntity>()->layerId(), doors);
    drawing->undo();
    EXPECT_TRUE(made.isErased());
    EXPECT_FALSE(doors.openObject<OdDbLayerTableRecord>()->isInUse());
    drawing->redo();
    EXPECT_FALSE(made.isErased());
    EXPECT_TRUE(doors.openObject<OdDbLayerTableRecord>()->isInUse());
}

TEST(MadeEntities, are_written_behind_those_of_their_space)
{
    const EditedDrawing drawing(kPlain);
    addLine(*drawing);
    const QByteArray saved = drawing.saved();
    EXPECT_EQ(EditedDrawing::count(saved, "LINE"), EditedDrawing::count(kPlain, "LINE") + 1);
    const auto again = drawing.reread();
    const quint32 last =
        again->getModelSpaceId().openObject<OdDbBlockTableRecord>()->entityRuns().back().end - 1;
    EXPECT_EQ(read(*again, again->idOfSlot(last)), kLine);
    EXPECT_EQ(again->idOfSlot(last).getHandle().value() > 0, true);
    EXPECT_TRUE(again->audit().isEmpty());
}

TEST(MadeEntities, that_were_taken_back_leave_the_bytes_of_the_file)
{
    const EditedDrawing drawing(kPlain);
    addLine(*drawing);
    drawing->undo();
    EXPECT_EQ(drawing.saved(), kPlain);
    drawing->redo();
    EXPECT_NE(drawing.saved(), kPlain);
}

TEST(MadeEntities, that_were_erased_are_not_written)
{
    const EditedDrawing drawing(kPlain);
    addLine(*drawing).safeOpenObject(OdDb::kForWrite)->erase();
    EXPECT_EQ(drawing.saved(), kPlain);
}

TEST(MadeEntities, follow_their_layer_through_a_renaming_and_a_move)
{
    const EditedDrawing drawing(kPlain);
    const OdDbObjectId line = addLine(*drawing);
    drawing.layer("Walls")->setName(QStringLiteral("Outer walls"));
    EXPECT_EQ(read(*drawing, line).substr(0, 13), "8=Outer walls");
    EXPECT_NE(EditedDrawing::record(drawing.saved(), "LINE", "62=3").find("8=Outer walls"),
              std::string::npos);
    line.safeOpenObject<OdDbEntity>(OdDb::kForWrite)->setLayer(layerOf(*drawing, "Doors"));
    EXPECT_NE(EditedDrawing::record(drawing.saved(), "LINE", "62=3").find("8=Doors"),
              std::string::npos);
}

TEST(MadeEntities, of_a_sheet_stand_where_the_file_keeps_that_sheet)
{
    const EditedDrawing drawing(kPlain);
    std::vector<OdDbObjectId> made;
    for (const OdDbObjectId layout : drawing->layouts()) {
        const OdDbObjectId space = layout.openObject<OdDbLayout>()->getBlockTableRecordId();
        made.push_back(drawing->addEntity("LINE", lineGroups(), space, layerOf(*drawing, "Walls")));
    }
    ASSERT_EQ(made.size(), 3u);
    const auto again = drawing.reread();
    for (std::size_t i = 0; i < made.size(); ++i) {
        const OdDbObjectId found = again->getOdDbObjectId(made[i].getHandle());
        ASSERT_FALSE(found.isNull());
        EXPECT_EQ(found.openObject<OdDbEntity>()->ownerId().getHandle(),
                  made[i].openObject<OdDbEntity>()->ownerId().getHandle());
    }
    EXPECT_TRUE(again->audit().isEmpty());
}

TEST(MadeEntities, of_a_block_stand_before_its_end)
{
    const QByteArray text = QByteArray(kPlain).replace(
        "0\nSECTION\n2\nENTITIES\n",
        "0\nSECTION\n2\nBLOCKS\n0\nBLOCK\n8\n0\n2\nChair\n70\n0\n10\n0\n20\n0\n30\n0\n"
        "0\nCIRCLE\n8\n0\n10\n0\n20\n0\n40\n1\n0\nENDBLK\n8\n0\n0\nENDSEC\n0\nSECTION\n2\nENTITIES"
        "\n");
    const EditedDrawing drawing(text);
    const OdDbObjectId chair = drawing->table(OdDbTableKind::Block).getAt(QStringLiteral("Chair"));
    ASSERT_FALSE(chair.isNull());
    drawing->addEntity("LINE", lineGroups(), chair, layerOf(*drawing, "Walls"));
    const QByteArray saved = drawing.saved();
    const qsizetype line = saved.indexOf("AcDbLine", saved.indexOf("CIRCLE"));
    EXPECT_GT(line, saved.indexOf("CIRCLE"));
    EXPECT_LT(line, saved.indexOf("ENDBLK", saved.indexOf("CIRCLE")));
}

TEST(MadeEntities, leave_out_what_the_version_cannot_hold)
{
    struct Case
    {
        const char* version;
        const char* groups;
    };
    for (const Case& expected : {
             Case{"AC1009", "8=Walls 62=3 10=1 20=2.5 30=0 11=4 21=-5.25 31=0"},
             Case{"AC1014", "8=Walls 62=3 100=AcDbLine 10=1 20=2.5 30=0 11=4 21=-5.25 31=0"},
             Case{"AC1015", "8=Walls 62=3 370=50 100=AcDbLine 10=1 20=2.5 30=0 11=4 21=-5.25 31=0"},
             Case{"AC1032", kLine},
         })
    {
        const EditedDrawing drawing(ofVersion(expected.version));
        const OdDbObjectId line = addLine(*drawing);
        EXPECT_EQ(read(*drawing, line), expected.groups) << expected.version;
        const auto again = drawing.reread();
        const OdDbObjectId found = again->getOdDbObjectId(line.getHandle());
        ASSERT_FALSE(found.isNull()) << expected.version;
        EXPECT_EQ(read(*again, found), expected.groups) << expected.version;
    }
}

TEST(MadeEntities, of_a_drawing_without_handles_get_none)
{
    const EditedDrawing drawing(DrawingText::old({{"Walls"}}));
    addLine(*drawing);
    EXPECT_EQ(EditedDrawing::record(drawing.saved(), "LINE", "62=3"),
              "8=Walls 62=3 10=1 20=2.5 30=0 11=4 21=-5.25 31=0");
}

TEST(MadeEntities, have_texts_in_the_encoding_of_the_file)
{
    const QByteArray text = QByteArray("R\xC3\xA4ume \xE2\x82\xAC \xE6\xBC\xA2");
    const EditedDrawing drawing(ofVersion("AC1015"));
    const OdDbObjectId made = drawing->addEntity(
        "TEXT", textGroups(text), drawing->getModelSpaceId(), drawing->getLayerZeroId());
    EXPECT_NE(read(*drawing, made).find("1=" + text.toStdString()), std::string::npos);
    const auto again = drawing.reread();
    EXPECT_NE(
        read(*again, again->getOdDbObjectId(made.getHandle())).find("1=" + text.toStdString()),
        std::string::npos);
}

TEST(MadeEntities, are_the_same_in_a_binary_drawing)
{
    for (const int codeBytes : {1, 2}) {
        EXPECT_TRUE(EditedDrawing::isSameInBinary(codeBytes == 1 ? ofVersion("AC1009") : kPlain,
                                                  codeBytes,
                                                  [](OdDbDatabase& drawing) { addLine(drawing); }));
    }
}

TEST(MadeEntities, make_the_section_that_a_file_lacks)
{
    QByteArray text = kPlain;
    const qsizetype begin = text.indexOf("0\nSECTION\n2\nENTITIES\n");
    const qsizetype end = text.indexOf("0\nENDSEC\n", begin) + 9;
    text.remove(begin, end - begin);
    const EditedDrawing drawing(text);
    const OdDbObjectId line = addLine(*drawing);
    const auto again = drawing.reread();
    EXPECT_EQ(read(*again, again->getOdDbObjectId(line.getHandle())), kLine);
}

TEST(MadeEntities, lie_on_layers_of_their_drawing_only)
{
    const EditedDrawing drawing(kPlain);
    EXPECT_THROW(drawing->addEntity("LINE", lineGroups(), drawing->getModelSpaceId(), {}), OdError);
    EXPECT_THROW(drawing->addEntity("LINE", lineGroups(), drawing->getLayerZeroId(),
                                    layerOf(*drawing, "Walls")),
                 OdError);
    EXPECT_FALSE(drawing->hasUndo());
    EXPECT_EQ(drawing.saved(), kPlain);
}
