#include "database/store/HeaderVariables.h"
#include "database/tables/OdDbLayerTable.h"
#include "database/tables/OdDbLayerTableRecord.h"
#include "io/DrawingFile.h"
#include "support/drawings/DrawingText.h"

#include <gtest/gtest.h>
#include <random>

namespace {

class Undo : public testing::Test
{
protected:
    OdDbObjectId layer(const char* name) const
    {
        return m_database->layerTable().getAt(QString::fromLatin1(name));
    }
    void freeze(const char* name, bool on = true)
    {
        layer(name).safeOpenObject<OdDbLayerTableRecord>(OdDb::kForWrite)->setIsFrozen(on);
    }
    bool isFrozen(const char* name) const
    {
        return layer(name).safeOpenObject<OdDbLayerTableRecord>()->isFrozen();
    }

    QByteArray m_bytes = DrawingText::withLayers({{"Walls"}, {"Doors"}, {"Roof"}});
    std::unique_ptr<OdDbDatabase> m_database = readDrawing(m_bytes, QStringLiteral("undo.dxf"));
};

TEST_F(Undo, TakesOneRecordBackAtATime)
{
    m_database->startUndoRecord();
    freeze("Walls");
    freeze("Doors");
    m_database->startUndoRecord();
    freeze("Roof");

    EXPECT_TRUE(m_database->undo());
    EXPECT_FALSE(isFrozen("Roof"));
    EXPECT_TRUE(isFrozen("Walls"));
    EXPECT_TRUE(m_database->undo());
    EXPECT_FALSE(isFrozen("Walls"));
    EXPECT_FALSE(isFrozen("Doors"));
    EXPECT_FALSE(m_database->hasUndo());
    EXPECT_FALSE(m_database->undo());
}

TEST_F(Undo, RedoBringsEveryRecordForward)
{
    m_database->startUndoRecord();
    freeze("Walls");
    m_database->undo();
    EXPECT_TRUE(m_database->hasRedo());
    EXPECT_TRUE(m_database->redo());
    EXPECT_TRUE(isFrozen("Walls"));
    EXPECT_FALSE(m_database->redo());
}

TEST_F(Undo, AnEditAfterUndoEndsRedo)
{
    m_database->startUndoRecord();
    freeze("Walls");
    m_database->undo();
    m_database->startUndoRecord();
    freeze("Doors");
    EXPECT_FALSE(m_database->hasRedo());
}

TEST_F(Undo, ARecordWithoutChangesTakesNoStep)
{
    m_database->startUndoRecord();
    freeze("Walls");
    m_database->startUndoRecord();
    m_database->startUndoRecord();
    EXPECT_TRUE(m_database->undo());
    EXPECT_FALSE(isFrozen("Walls"));
}

TEST_F(Undo, AChangeOutsideOfAnyRecordCanBeUndoneToo)
{
    freeze("Walls");
    EXPECT_TRUE(m_database->undo());
    EXPECT_FALSE(isFrozen("Walls"));
}

TEST_F(Undo, SettingTheValueThatIsThereIsNoChange)
{
    m_database->startUndoRecord();
    freeze("Walls", false);
    EXPECT_FALSE(m_database->hasUndo());
}

TEST_F(Undo, CoversNamesCurrentLayerAndHeaderVariables)
{
    m_database->startUndoRecord();
    layer("Walls")
        .safeOpenObject<OdDbLayerTableRecord>(OdDb::kForWrite)
        ->setName(QStringLiteral("Outer walls"));
    m_database->setCLAYER(layer("Doors"));
    m_database->setTILEMODE(false);
    m_database->setHeaderVariable(QStringLiteral("$LWDISPLAY"), 290, QStringLiteral("1"));

    m_database->undo();
    EXPECT_FALSE(layer("Walls").isNull());
    EXPECT_TRUE(layer("Outer walls").isNull());
    EXPECT_EQ(m_database->getCLAYER(), m_database->getLayerZeroId());
    EXPECT_TRUE(m_database->getTILEMODE());
    EXPECT_FALSE(m_database->header().contains(QStringLiteral("$LWDISPLAY")));
    EXPECT_EQ(m_database->audit(), QStringList());

    m_database->redo();
    EXPECT_FALSE(layer("outer walls").isNull());
    EXPECT_EQ(m_database->getCLAYER(), layer("Doors"));
    EXPECT_EQ(m_database->header().value(QStringLiteral("$LWDISPLAY")), QStringLiteral("1"));
    EXPECT_EQ(m_database->audit(), QStringList());
}

TEST_F(Undo, TheEditStampIsTheSameAgainWhenTheContentsAre)
{
    const quint64 clean = m_database->editStamp();
    m_database->startUndoRecord();
    freeze("Walls");
    const quint64 edited = m_database->editStamp();
    EXPECT_NE(edited, clean);
    m_database->undo();
    EXPECT_EQ(m_database->editStamp(), clean);
    m_database->redo();
    EXPECT_EQ(m_database->editStamp(), edited);
    freeze("Doors");
    EXPECT_NE(m_database->editStamp(), edited);
}

TEST_F(Undo, AnErasedLayerComesBack)
{
    m_database->startUndoRecord();
    layer("Roof").safeOpenObject<OdDbLayerTableRecord>(OdDb::kForWrite)->erase();
    EXPECT_TRUE(layer("Roof").isNull());
    EXPECT_EQ(m_database->layerTable().count(), 3);
    m_database->undo();
    EXPECT_FALSE(layer("Roof").isNull());
    EXPECT_EQ(m_database->layerTable().count(), 4);
    m_database->redo();
    EXPECT_TRUE(layer("Roof").isNull());
    EXPECT_EQ(m_database->audit(), QStringList());
}

TEST_F(Undo, RandomEditsUndoneGiveTheSameBytes)
{
    std::mt19937 random(7);
    const std::vector<OdDbObjectId> layers = m_database->layerTable().records();
    for (int step = 0; step < 2000; ++step) {
        if (random() % 4 == 0)
            random() % 2 ? m_database->undo() : m_database->redo();
        if (random() % 3 == 0)
            m_database->startUndoRecord();
        const OdDbObjectId id = layers[random() % layers.size()];
        const auto record = id.safeOpenObject<OdDbLayerTableRecord>(OdDb::kForWrite);
        switch (random() % 6) {
        case 0:
            record->setIsOff(!record->isOff());
            break;
        case 1:
            record->setIsLocked(!record->isLocked());
            break;
        case 2:
            record->setColor(OdCmColor::fromIndex(static_cast<int>(random() % 255) + 1));
            break;
        case 3:
            record->setLineWeight(static_cast<qint16>(random() % 2 ? 25 : 50));
            break;
        case 4:
            m_database->setCLAYER(id);
            break;
        default:
            record->setIsPlottable(!record->isPlottable());
            break;
        }
    }
    ASSERT_NE(drawingBytes(*m_database), m_bytes);
    while (m_database->undo()) {
    }
    EXPECT_EQ(drawingBytes(*m_database), m_bytes);
    EXPECT_EQ(m_database->audit(), QStringList());
}

} // namespace
