#include "FilterDrawing.h"
#include "layermanager/filters/tree/ExternalReferences.h"
#include "layermanager/filters/tree/FilterNode.h"

#include <QRegularExpression>

#include <algorithm>
#include <gtest/gtest.h>

namespace {

struct Block
{
    QByteArray name;
    int flags;
    QList<QByteArray> inserted = {};
};

QByteArray withBlocks(const QList<Block>& blocks, const QList<DrawingText::Layer>& layers)
{
    QByteArray records;
    QByteArray definitions;
    for (qsizetype i = 0; i < blocks.size(); ++i) {
        const Block& block = blocks[i];
        const QByteArray number = QByteArray::number(i);
        records += DrawingText::groups({"0", "BLOCK_RECORD", "5", "C" + number, "330", "1", "100",
                                        "AcDbSymbolTableRecord", "100", "AcDbBlockTableRecord", "2",
                                        block.name, "340", "0"});
        definitions += DrawingText::groups({"0",   "BLOCK",
                                            "5",   "D" + number,
                                            "330", "C" + number,
                                            "100", "AcDbEntity",
                                            "8",   "0",
                                            "100", "AcDbBlockBegin",
                                            "2",   block.name,
                                            "70",  QByteArray::number(block.flags),
                                            "10",  "0.0",
                                            "20",  "0.0",
                                            "30",  "0.0",
                                            "3",   block.name,
                                            "1",   block.name + ".dwg"});
        for (qsizetype k = 0; k < block.inserted.size(); ++k)
            definitions += DrawingText::groups({"0",   "INSERT",
                                                "5",   "F" + number + QByteArray::number(k),
                                                "330", "C" + number,
                                                "100", "AcDbEntity",
                                                "8",   "0",
                                                "100", "AcDbBlockReference",
                                                "2",   block.inserted[k],
                                                "10",  "0.0",
                                                "20",  "0.0",
                                                "30",  "0.0"});
        definitions += DrawingText::groups({"0", "ENDBLK", "5", "E" + number, "330", "C" + number,
                                            "100", "AcDbEntity", "8", "0", "100", "AcDbBlockEnd"});
    }
    QByteArray text = DrawingText::withLayers(layers);
    text.replace("0\nENDTAB\n0\nENDSEC\n0\nSECTION\n2\nBLOCKS\n",
                 records + "0\nENDTAB\n0\nENDSEC\n0\nSECTION\n2\nBLOCKS\n" + definitions);
    return text;
}

void describe(const FilterNode& node, const QString& indent, QStringList& lines)
{
    lines << indent + node.key.name;
    for (const auto& child : node.children)
        describe(*child, indent + QLatin1Char('.'), lines);
}

QStringList shown(const FilterDrawing& drawing)
{
    QStringList lines;
    describe(*readFilterNodes(*drawing).root, QString(), lines);
    return lines;
}

} // namespace

TEST(ExternalReferenceNodes, NestAsTheirBlocksInsertEachOther)
{
    const FilterDrawing drawing(withBlocks({{"site", 36, {"house", "plain", "HOUSE"}},
                                            {"plain", 0, {"loner"}},
                                            {"house", 36, {"room"}},
                                            {"room", 12},
                                            {"loner", 36}},
                                           {{"A"}}));
    EXPECT_EQ(shown(drawing),
              texts({"All", ".All used layers", ".External References", "..site", "...house",
                     "....room", "..loner"}));
}

TEST(ExternalReferenceNodes, ShowReferencesThatHoldEachOtherOnce)
{
    const FilterDrawing drawing(
        withBlocks({{"a", 36, {"b"}}, {"b", 36, {"a", "b"}}, {"c", 36, {"b"}}}, {{"A"}}));
    QStringList lines = shown(drawing);
    for (const char* name : {"a", "b", "c"})
        EXPECT_EQ(
            lines.filter(QRegularExpression(QStringLiteral("^\\.+%1$").arg(QLatin1String(name))))
                .size(),
            1)
            << name;
}

TEST(ExternalReferenceNodes, NestOnlySoDeepHoweverLongTheirChain)
{
    constexpr int kLength = 150;
    QList<Block> chain;
    for (int i = 0; i < kLength; ++i)
        chain.append({"r" + QByteArray::number(i), 36, {"r" + QByteArray::number(i + 1)}});
    const FilterDrawing drawing(withBlocks(chain, {{"A"}}));
    const QStringList lines = shown(drawing);
    EXPECT_EQ(lines.size(), kLength + 3);
    const auto dots = [](const QString& line) { return line.count(QLatin1Char('.')); };
    const auto deepest =
        *std::max_element(lines.begin(), lines.end(),
                          [&](const QString& a, const QString& b) { return dots(a) < dots(b); });
    EXPECT_EQ(dots(deepest), 65) << "the first one has two dots";
    EXPECT_EQ(lines.filter(QRegularExpression(QStringLiteral("^\\.\\.r"))).size(), 3);
}

TEST(ExternalReferenceNodes, AreNotThereWithoutReferences)
{
    const FilterDrawing drawing(withBlocks({{"plain", 0}}, {{"A"}}));
    EXPECT_EQ(shown(drawing), texts({"All", ".All used layers"}));
}

TEST(ExternalReferenceNodes, StandBeforeTheDrawingsOwnFilters)
{
    FilterDrawing drawing(withBlocks({{"plan", 36}}, {{"A"}}));
    drawing.group("G", {"A"});
    EXPECT_EQ(shown(drawing),
              texts({"All", ".All used layers", ".External References", "..plan", ".G"}));
}

TEST(ExternalReferenceNodes, ShowTheLayersOfTheirReference)
{
    const FilterDrawing drawing(
        withBlocks({{"plan", 36}, {"roof", 36}},
                   {{"plan|Walls", 48}, {"Own"}, {"roof|Tiles", 48}, {"plan|Doors", 48}}));
    const auto layersOf = [&](const char* name) {
        const FilterNodes nodes = readFilterNodes(*drawing);
        const FilterNode* node = nodes.root->find({QString::fromUtf8(name)}, true);
        std::vector<OdDbObjectId> in;
        std::vector<OdDbObjectId> other;
        layersOfExternalReference(*drawing, node->block, in, other);
        EXPECT_EQ(in.size() + other.size(), 5u) << "layer 0 too";
        return layer_drawing::names(in);
    };
    EXPECT_EQ(layersOf("plan"), texts({"plan|Walls", "plan|Doors"}));
    EXPECT_EQ(layersOf("roof"), texts({"roof|Tiles"}));
    EXPECT_EQ(layersOf("External References"), texts({"plan|Walls", "roof|Tiles", "plan|Doors"}));
}
