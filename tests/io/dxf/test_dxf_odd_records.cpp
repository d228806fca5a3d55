#include "database/tables/OdDbLayerTable.h"
#include "database/tables/OdDbLayerTableRecord.h"
#include "io/DrawingFile.h"
#include "support/drawings/DrawingText.h"

#include <gtest/gtest.h>

namespace {

OdDbLayerTableRecordPtr layer(const OdDbDatabase& database, const char* name)
{
    return database.layerTable()
        .getAt(QString::fromUtf8(name))
        .safeOpenObject<OdDbLayerTableRecord>(OdDb::kForWrite);
}

std::unique_ptr<OdDbDatabase> read(const QByteArray& bytes)
{
    return readDrawing(bytes, QStringLiteral("odd.dxf"));
}

/// The drawing as it comes back after a save; its audit must be clean both times.
std::unique_ptr<OdDbDatabase> saved(const OdDbDatabase& database)
{
    EXPECT_EQ(database.audit(), QStringList());
    auto again = read(drawingBytes(database));
    EXPECT_EQ(again->audit(), QStringList());
    return again;
}

TEST(OddRecords, ATrueColourBeforeItsTimeFollowsTheLayersColour)
{
    QByteArray bytes = DrawingText::withLayers(
        {{"Walls", 0, 30, DrawingText::groups({"420", "16744192"})}, {"Doors"}});
    bytes.replace("AC1018", "AC1015");
    const auto database = read(bytes);
    layer(*database, "Walls")->setColor(OdCmColor::fromIndex(3));
    auto again = saved(*database);
    EXPECT_EQ(layer(*again, "Walls")->color(), OdCmColor::fromIndex(3));
    layer(*database, "Walls")->setColor(OdCmColor::fromRgb(1, 2, 3));
    again = saved(*database);
    EXPECT_EQ(layer(*again, "Walls")->color(), OdCmColor::fromRgb(1, 2, 3));
    layer(*database, "Doors")->setColor(OdCmColor::fromRgb(1, 2, 3));
    EXPECT_EQ(drawingBytes(*database).count("\n420\n"), 1) << "none is added";
}

TEST(OddRecords, OfTwoGroupsWithOneCodeTheFirstIsReadAndWritten)
{
    const auto database = read(DrawingText::withLayers(
        {{"Walls", 1, 5,
          DrawingText::groups({"70", "0", "62", "6", "2", "Other", "370", "50", "370", "70"})}}));
    const auto walls = layer(*database, "Walls");
    EXPECT_TRUE(walls->isFrozen());
    EXPECT_EQ(walls->color(), OdCmColor::fromIndex(5));
    walls->setIsFrozen(false);
    walls->setIsLocked(true);
    walls->setColor(OdCmColor::fromIndex(1));
    const auto again = saved(*database);
    EXPECT_FALSE(layer(*again, "Walls")->isFrozen());
    EXPECT_TRUE(layer(*again, "Walls")->isLocked());
    EXPECT_EQ(layer(*again, "Walls")->color(), OdCmColor::fromIndex(1));
}

TEST(OddRecords, AGroupThatGoesTakesItsDoublesAlong)
{
    const auto database = read(DrawingText::withLayers(
        {{"Walls", 0, 30, DrawingText::groups({"420", "16744192", "420", "255", "420", "1"})}}));
    layer(*database, "Walls")->setColor(OdCmColor::fromIndex(3));
    const auto again = saved(*database);
    EXPECT_EQ(layer(*again, "Walls")->color(), OdCmColor::fromIndex(3));
    EXPECT_FALSE(drawingBytes(*database).contains("\n420\n"));
}

TEST(OddRecords, WhatStandsInAnApplicationsGroupIsNotTheRecords)
{
    const QByteArray group =
        DrawingText::groups({"102", "{OTHER", "2", "Mine", "70", "1", "62", "1", "102", "}"});
    QByteArray bytes = DrawingText::withLayers({{"Walls", 4, 5}});
    for (const QByteArray record : {"0\nLAYER\n5\n31\n", "0\nLTYPE\n5\n23\n"})
        bytes.replace(record, record + group);
    const auto database = read(bytes);
    EXPECT_FALSE(layer(*database, "Walls")->isFrozen());
    EXPECT_EQ(layer(*database, "Walls")->color(), OdCmColor::fromIndex(5));
    EXPECT_TRUE(database->table(OdDbTableKind::Linetype).has(QStringLiteral("DASHED")));
    layer(*database, "Walls")->setIsFrozen(true);
    const auto again = saved(*database);
    EXPECT_TRUE(layer(*again, "Walls")->isFrozen());
    EXPECT_TRUE(layer(*again, "Walls")->isLocked());
    EXPECT_TRUE(drawingBytes(*database).contains(group));
}

TEST(OddRecords, EditsStayOutOfAnApplicationsGroupThatNeverEnds)
{
    const auto database = read(DrawingText::withLayers(
        {{"Walls", 0, 7, DrawingText::groups({"102", "{OPEN", "1", "x"})}}));
    layer(*database, "Walls")->setColor(OdCmColor::fromRgb(1, 2, 3));
    layer(*database, "Walls")->setIsPlottable(false);
    const auto again = saved(*database);
    EXPECT_EQ(layer(*again, "Walls")->color(), OdCmColor::fromRgb(1, 2, 3));
    EXPECT_FALSE(layer(*again, "Walls")->isPlottable());
}

} // namespace
