#include "database/objects/OdDbEntity.h"
#include "database/objects/OdDbLayout.h"
#include "database/tables/OdDbLayerTable.h"
#include "database/tables/OdDbLayerTableRecord.h"
#include "database/tables/OdDbLinetypeTableRecord.h"
#include "io/DrawingFile.h"
#include "support/drawings/DrawingText.h"

#include <gtest/gtest.h>

namespace {

class LayerRecords : public testing::Test
{
protected:
    OdDbObjectId layer(const char* name) const
    {
        return m_database->layerTable().getAt(QString::fromLatin1(name));
    }
    OdDbLayerTableRecordPtr write(const char* name) const
    {
        return layer(name).safeOpenObject<OdDbLayerTableRecord>(OdDb::kForWrite);
    }

    std::unique_ptr<OdDbDatabase> m_database =
        readDrawing(DrawingText::withLayers({{"Walls"}, {"Doors", 16}, {"Roof"}}),
                    QStringLiteral("layers.dxf"));
};

TEST_F(LayerRecords, AreWrittenOnlyWhenOpenForWrite)
{
    const auto layer0 = layer("0").safeOpenObject<OdDbLayerTableRecord>();
    EXPECT_THROW(layer0->setIsOff(true), OdError_NotOpenForWrite);
    EXPECT_THROW(layer0->setIsOff(false), OdError_NotOpenForWrite);
}

TEST_F(LayerRecords, OpenOnlyAsWhatTheyAre)
{
    EXPECT_FALSE(layer("Walls").openObject<OdDbLinetypeTableRecord>());
    EXPECT_THROW(layer("Walls").safeOpenObject<OdDbLinetypeTableRecord>(),
                 OdError_NotThatKindOfClass);
    EXPECT_THROW(OdDbObjectId().safeOpenObject<OdDbLayerTableRecord>(), OdError);
    EXPECT_TRUE(m_database->getLayerTableId().openObject<OdDbLayerTable>());
    EXPECT_FALSE(m_database->getLinetypeTableId().openObject<OdDbLayerTable>());
}

TEST_F(LayerRecords, NamesAreGuarded)
{
    EXPECT_THROW(write("Walls")->setName({}), OdError);
    EXPECT_THROW(write("Walls")->setName(QStringLiteral("ROOF")), OdError);
    EXPECT_THROW(write("0")->setName(QStringLiteral("Zero")), OdError);
    EXPECT_THROW(write("Doors")->setName(QStringLiteral("Own doors")), OdError)
        << "comes from an external reference";
    write("Walls")->setName(QStringLiteral("WALLS"));
    EXPECT_EQ(layer("walls").openObject<OdDbLayerTableRecord>()->getName(),
              QStringLiteral("WALLS"));
}

TEST_F(LayerRecords, UsageComesFromEntities)
{
    m_database->layerTable().generateUsageData();
    EXPECT_TRUE(layer("Walls").openObject<OdDbLayerTableRecord>()->isInUse());
    EXPECT_FALSE(layer("Roof").openObject<OdDbLayerTableRecord>()->isInUse());
}

TEST_F(LayerRecords, PlotStylesGoByColourWhereTheDrawingSaysNothing)
{
    write("Walls")->setColor(OdCmColor::fromRgb(255, 0, 0));
    EXPECT_EQ(layer("Walls").openObject<OdDbLayerTableRecord>()->plotStyleName(),
              QStringLiteral("Color_1"));
}

TEST_F(LayerRecords, NameRanksFollowRenames)
{
    EXPECT_EQ(m_database->layerTable().nameRanks(), (std::vector<quint32>{0, 3, 1, 2}));
    write("Walls")->setName(QStringLiteral("A"));
    EXPECT_EQ(m_database->layerTable().nameRanks(), (std::vector<quint32>{0, 1, 2, 3}));
}

TEST_F(LayerRecords, AModelTabHasNoActiveViewport)
{
    EXPECT_TRUE(m_database->activeViewportId().isNull());
    EXPECT_EQ(m_database->getCTAB(), QStringLiteral("Model"));
}

TEST_F(LayerRecords, ASheetHasItsViewportsTheOverallOneFirst)
{
    const auto layouts = m_database->layouts();
    ASSERT_EQ(layouts.size(), 3u);
    EXPECT_EQ(layouts[1].openObject<OdDbLayout>()->getLayoutName(), QStringLiteral("Sheet A"));
    const auto viewports = layouts[1].openObject<OdDbLayout>()->getViewportArray();
    ASSERT_EQ(viewports.size(), 3u);
    EXPECT_EQ(viewports[0].getHandle().value(), DrawingText::kOverallViewport);
    EXPECT_TRUE(layouts[2].openObject<OdDbLayout>()->getViewportArray().empty());

    m_database->setCTAB(QStringLiteral("sheet a"));
    EXPECT_FALSE(m_database->getTILEMODE());
    EXPECT_EQ(m_database->activeViewportId(), viewports[0]);
    EXPECT_EQ(m_database->getCVPORT(), 1);
    m_database->setActiveViewport(viewports[2]);
    EXPECT_EQ(m_database->activeViewportId(), viewports[2]);
    EXPECT_EQ(m_database->getCVPORT(), 3);
    m_database->setCTAB(QStringLiteral("Sheet B"));
    EXPECT_TRUE(m_database->activeViewportId().isNull()) << "a sheet that was never opened";
    EXPECT_THROW(m_database->setCTAB(QStringLiteral("Sheet C")), OdError);
}

TEST_F(LayerRecords, AreFrozenPerViewport)
{
    const auto viewport = m_database->getOdDbObjectId(OdDbHandle(DrawingText::kFirstViewport))
                              .safeOpenObject<OdDbViewport>();
    EXPECT_TRUE(viewport->isLayerFrozenInViewport(layer("Walls")));
    EXPECT_FALSE(viewport->isLayerFrozenInViewport(layer("Roof")));
}

} // namespace
