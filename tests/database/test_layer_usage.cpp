#include "database/objects/OdDbEntity.h"
#include "database/tables/OdDbLayerTable.h"
#include "support/drawings/DrawingText.h"
#include "support/drawings/EditedDrawing.h"

#include <gtest/gtest.h>

namespace {

/// One layer for each thing that can lie on one; layer "Unused" for none.
QByteArray drawing()
{
    QByteArray text = DrawingText::withLayers({{"Line"},
                                               {"Polyline"},
                                               {"Vertex"},
                                               {"Insert"},
                                               {"Attribute"},
                                               {"Frame"},
                                               {"InBlock"},
                                               {"Border"},
                                               {"Unused"}});
    // Of the lines only the first stays.
    const qsizetype second = text.indexOf("0\nLINE\n5\n1001\n");
    text.remove(second, text.indexOf("0\nVIEWPORT\n") - second);
    const auto entity = [](const char* type, const char* handle, const char* layer) {
        return DrawingText::groups({"0", type, "5", handle, "100", "AcDbEntity", "8", layer});
    };
    text.replace("2\nENTITIES\n",
                 "2\nENTITIES\n" + entity("POLYLINE", "200", "Polyline")
                     + entity("VERTEX", "201", "Vertex") + entity("VERTEX", "202", "VERTEX")
                     + entity("SEQEND", "203", "Polyline") + entity("INSERT", "204", "Insert")
                     + entity("ATTRIB", "205", "Attribute") + entity("SEQEND", "206", "Insert"));
    text.replace("0\nBLOCK\n5\n55\n330\n52\n100\nAcDbEntity\n8\n0\n",
                 "0\nBLOCK\n5\n55\n330\n52\n100\nAcDbEntity\n8\nFrame\n");
    text.replace("0\nENDBLK\n5\n55E\n", entity("CIRCLE", "207", "InBlock") + "0\nENDBLK\n5\n55E\n");
    const qsizetype viewport = text.indexOf("0\nVIEWPORT\n5\nA2\n");
    return text.replace(text.indexOf("8\n0\n", viewport), 4, "8\nBorder\n");
}

class LayerUsage : public testing::Test
{
protected:
    LayerUsage() { m_drawing->layerTable().generateUsageData(); }

    quint32 uses(const char* name) const
    {
        const OdDbLayerTable& layers = m_drawing->layerTable();
        return layers.useCount(layers.getAt(QString::fromLatin1(name)).slot());
    }
    void move(quint64 handle, const char* layer) const
    {
        m_drawing.object(handle)
            .safeOpenObject<OdDbEntity>(OdDb::kForWrite)
            ->setLayer(m_drawing->layerTable().getAt(QString::fromLatin1(layer)));
    }

    const EditedDrawing m_drawing{drawing()};
};

TEST_F(LayerUsage, CountsEntitiesOfAllBlocksTheirPartsBlockFramesAndViewportBorders)
{
    EXPECT_EQ(uses("Line"), 1u);
    EXPECT_EQ(uses("Polyline"), 2u) << "and the end of its vertices";
    EXPECT_EQ(uses("Vertex"), 2u) << "in either case";
    EXPECT_EQ(uses("Insert"), 2u);
    EXPECT_EQ(uses("Attribute"), 1u);
    EXPECT_EQ(uses("Frame"), 1u);
    EXPECT_EQ(uses("InBlock"), 1u);
    EXPECT_EQ(uses("Border"), 1u);
    EXPECT_EQ(uses("Unused"), 0u);
    EXPECT_EQ(uses("0"), 7u) << "five frames of blocks and two viewports";
}

TEST_F(LayerUsage, FollowsEntitiesToOtherLayersAndBack)
{
    m_drawing->startUndoRecord();
    move(0x207, "Unused");
    EXPECT_EQ(uses("Unused"), 1u);
    EXPECT_EQ(uses("InBlock"), 0u);
    EXPECT_TRUE(m_drawing.layer("Unused")->isInUse());
    EXPECT_FALSE(m_drawing.layer("InBlock")->isInUse());
    m_drawing->undo();
    EXPECT_EQ(uses("Unused"), 0u);
    EXPECT_EQ(uses("InBlock"), 1u);
    m_drawing->redo();
    EXPECT_EQ(uses("Unused"), 1u);
    EXPECT_EQ(uses("InBlock"), 0u);
}

TEST_F(LayerUsage, FollowsErasedEntitiesWithTheirParts)
{
    m_drawing->startUndoRecord();
    m_drawing.object(0x200).safeOpenObject<OdDbEntity>(OdDb::kForWrite)->erase();
    EXPECT_EQ(uses("Polyline"), 0u);
    EXPECT_EQ(uses("Vertex"), 0u);
    EXPECT_EQ(uses("Insert"), 2u) << "the next entity stays";
    m_drawing->undo();
    EXPECT_EQ(uses("Polyline"), 2u);
    EXPECT_EQ(uses("Vertex"), 2u);
    m_drawing->redo();
    EXPECT_EQ(uses("Polyline"), 0u);
    EXPECT_EQ(uses("Vertex"), 0u);
}

TEST_F(LayerUsage, IsTheSameAfterEditsAsCountedAnew)
{
    move(0x1000, "Vertex");
    m_drawing.object(0x204).safeOpenObject<OdDbEntity>(OdDb::kForWrite)->erase();
    move(0x200, "Unused");
    const auto again = m_drawing.reread();
    again->layerTable().generateUsageData();
    for (const OdDbObjectId id : m_drawing->layerTable().records()) {
        const QString name = id.safeOpenObject<OdDbLayerTableRecord>()->getName();
        EXPECT_EQ(uses(name.toLatin1().constData()),
                  again->layerTable().useCount(again->layerTable().getAt(name).slot()))
            << name.toStdString();
    }
}

} // namespace
