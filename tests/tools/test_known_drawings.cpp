#include "database/drawing/OdDbDatabase.h"
#include "database/objects/OdDbLayout.h"
#include "database/store/ObjectStore.h"
#include "database/tables/OdDbLayerTable.h"
#include "database/tables/OdDbLayerTableRecord.h"
#include "generator/DrawingGenerator.h"
#include "generator/GeneratedLayer.h"
#include "io/DrawingFile.h"

#include <QFile>

#include <gtest/gtest.h>

namespace {

QByteArray officeBytes()
{
    QFile file(QStringLiteral(KEST_SAMPLES "/office.dxf"));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return file.readAll();
}

QStringList layoutNames(const OdDbDatabase& database)
{
    QStringList names;
    for (const OdDbObjectId id : database.layouts())
        names << id.safeOpenObject<OdDbLayout>()->getLayoutName();
    return names;
}

quint32 countOf(const OdDbDatabase& database, RecordType type)
{
    quint32 count = 0;
    const ObjectStore& store = database.store();
    for (quint32 slot = 0; slot < store.size(); ++slot)
        count += store.type(slot) == type ? 1 : 0;
    return count;
}

class GeneratedDrawingOfVersion : public testing::TestWithParam<DrawingVersion>
{
protected:
    GeneratedDrawingOfVersion()
    {
        m_options.version = GetParam();
        m_options.layers = 300;
        m_options.entities = 2000;
        m_options.layouts = 3;
        m_bytes = QByteArray::fromStdString(generateDrawingBytes(m_options));
        m_database = readDrawing(m_bytes, QStringLiteral("generated.dxf"));
    }

    QString decoded(const std::string& text) const
    {
        return m_options.isAtLeast(DrawingVersion::V2013) ? QString::fromStdString(text)
                                                          : QString::fromLatin1(text.c_str());
    }

    DrawingOptions m_options;
    QByteArray m_bytes;
    std::unique_ptr<OdDbDatabase> m_database;
};

TEST_P(GeneratedDrawingOfVersion, IsSoundAndNothingHadToBeRepaired)
{
    EXPECT_EQ(m_database->audit(), QStringList());
    EXPECT_EQ(m_database->loadNotes(), QStringList());
}

TEST_P(GeneratedDrawingOfVersion, IsWrittenBackByteForByte)
{
    EXPECT_TRUE(drawingBytes(*m_database) == m_bytes);
}

TEST_P(GeneratedDrawingOfVersion, HasTheLayersThatWereAskedFor)
{
    const std::vector<OdDbObjectId> ids = m_database->layerTable().records();
    ASSERT_EQ(ids.size(), 300u);
    for (int index = 0; index < 300; ++index) {
        const GeneratedLayer wanted = generatedLayer(m_options, index);
        const auto layer =
            ids[static_cast<std::size_t>(index)].safeOpenObject<OdDbLayerTableRecord>();
        SCOPED_TRACE(wanted.name);
        EXPECT_EQ(layer->getName(), decoded(wanted.name));
        EXPECT_EQ(layer->isOff(), wanted.colourIndex < 0);
        EXPECT_EQ(layer->color().colorIndex(), std::abs(wanted.colourIndex));
        EXPECT_EQ(layer->isFrozen(), (wanted.flags & 1) != 0);
        EXPECT_EQ(layer->VPDFLT(), (wanted.flags & 2) != 0);
        EXPECT_EQ(layer->isLocked(), (wanted.flags & 4) != 0);
        EXPECT_EQ(layer->isPlottable(), wanted.plots);
        EXPECT_EQ(layer->lineWeight(), wanted.lineweight);
        EXPECT_EQ(layer->description(), decoded(wanted.description));
    }
}

TEST_P(GeneratedDrawingOfVersion, HasItsSheetsAndLines)
{
    EXPECT_EQ(layoutNames(*m_database),
              QStringList({QStringLiteral("Model"), QStringLiteral("Sheet 1"),
                           QStringLiteral("Sheet 2"), QStringLiteral("Sheet 3")}));
    EXPECT_EQ(countOf(*m_database, RecordType::Viewport), 9u);
    EXPECT_NEAR(countOf(*m_database, RecordType::Line), 1400, 100);
}

INSTANTIATE_TEST_SUITE_P(Drawings, GeneratedDrawingOfVersion,
                         testing::Values(DrawingVersion::V2000, DrawingVersion::V2004,
                                         DrawingVersion::V2013, DrawingVersion::V2018),
                         [](const auto& version) {
                             return std::string(versionName(version.param));
                         });

TEST(OfficeSample, IsSoundAndNothingHadToBeRepaired)
{
    const auto database = readDrawing(officeBytes(), QStringLiteral("office.dxf"));
    EXPECT_EQ(database->audit(), QStringList());
    EXPECT_EQ(database->loadNotes(), QStringList());
}

TEST(OfficeSample, IsWrittenBackByteForByte)
{
    const QByteArray bytes = officeBytes();
    EXPECT_TRUE(drawingBytes(*readDrawing(bytes, QStringLiteral("office.dxf"))) == bytes);
}

TEST(OfficeSample, HasLayersWithDataOfEveryKind)
{
    const auto database = readDrawing(officeBytes(), QStringLiteral("office.dxf"));
    const auto layer = [&](const char* name) {
        return database->layerTable()
            .getAt(QString::fromLatin1(name))
            .safeOpenObject<OdDbLayerTableRecord>();
    };
    EXPECT_EQ(database->layerTable().count(), 65);
    EXPECT_EQ(layer("A-DOOR")->description(), QStringLiteral("Door leaves"));
    EXPECT_TRUE(layer("A-DOOR-IDEN")->isOff());
    EXPECT_TRUE(layer("A-CLNG-GRID")->isFrozen());
    EXPECT_TRUE(layer("S-GRID")->isLocked());
    EXPECT_FALSE(layer("A-ANNO-VPRT")->isPlottable());
    EXPECT_EQ(layer("F-ESCP")->color(), OdCmColor::fromRgb(0x18, 0xA5, 0x58));
    EXPECT_EQ(layer("A-DOOR")->state().reconciled, true);
    EXPECT_EQ(layer("A-WALL-DEMO")->state().reconciled, false);
    EXPECT_EQ(layer("E-DATA-WLAN")->state().reconciled, std::nullopt);
    EXPECT_EQ(layer("A-WALL-GLAZ")->state().overrides.size(), 2u);
}

TEST(OfficeSample, HasTwoSheetsBesideTheModel)
{
    const auto database = readDrawing(officeBytes(), QStringLiteral("office.dxf"));
    EXPECT_EQ(layoutNames(*database),
              QStringList({QStringLiteral("Model"), QStringLiteral("A-201 Floor plan"),
                           QStringLiteral("E-201 Lighting and power")}));
    EXPECT_EQ(countOf(*database, RecordType::Viewport), 7u);
}

} // namespace
