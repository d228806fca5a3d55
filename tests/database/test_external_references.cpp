#include "database/tables/OdDbBlockTableRecord.h"
#include "database/tables/OdDbLayerTable.h"
#include "support/drawings/DrawingText.h"
#include "support/drawings/EditedDrawing.h"

#include <QDir>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

QString name(const char* text)
{
    return QString::fromUtf8(text);
}

/// Blocks of external references with their flags, paths and further groups.
struct Reference
{
    QByteArray name;
    int flags;
    QByteArray path;
    QByteArray more = {};
};

QByteArray withReferences(const QList<Reference>& references,
                          const QList<DrawingText::Layer>& layers)
{
    QByteArray records;
    QByteArray blocks;
    for (qsizetype i = 0; i < references.size(); ++i) {
        const Reference& reference = references[i];
        const QByteArray number = QByteArray::number(i);
        records += DrawingText::groups({"0", "BLOCK_RECORD", "5", "C" + number, "330", "1", "100",
                                        "AcDbSymbolTableRecord", "100", "AcDbBlockTableRecord", "2",
                                        reference.name, "340", "0"});
        blocks +=
            DrawingText::groups({"0", "BLOCK", "5", "D" + number, "330", "C" + number, "100",
                                 "AcDbEntity", "8", "0", "100", "AcDbBlockBegin", "2",
                                 reference.name, "70", QByteArray::number(reference.flags)})
            + reference.more
            + DrawingText::groups(
                {"10",  "1.0",          "20", "2.0",    "30",  "0.0",         "3",   reference.name,
                 "1",   reference.path, "0",  "ENDBLK", "5",   "E" + number,  "330", "C" + number,
                 "100", "AcDbEntity",   "8",  "0",      "100", "AcDbBlockEnd"});
    }
    QByteArray text = DrawingText::withLayers(layers);
    text.replace("0\nENDTAB\n0\nENDSEC\n0\nSECTION\n2\nBLOCKS\n",
                 records + "0\nENDTAB\n0\nENDSEC\n0\nSECTION\n2\nBLOCKS\n" + blocks);
    return text;
}

OdDbBlockTableRecordPtr block(const EditedDrawing& drawing, const char* text)
{
    return drawing->table(OdDbTableKind::Block)
        .getAt(name(text))
        .safeOpenObject<OdDbBlockTableRecord>();
}

TEST(ExternalReference, IsWhatItsFlagsSay)
{
    const EditedDrawing drawing(withReferences({{"attached", 4 + 32, "./plan.dwg"},
                                                {"overlay", 12, "C:\\site\\plan.dwg"},
                                                {"missing", 4, "../gone.dwg"},
                                                {"unloaded", 4, "old.dwg", "71\n1\n"},
                                                {"plain", 2, ""}},
                                               {{"Walls"}}));
    const struct
    {
        const char* name;
        bool external, overlay, resolved, unloaded;
        const char* path;
    } kExpected[] = {{"attached", true, false, true, false, "./plan.dwg"},
                     {"overlay", true, true, false, false, "C:\\site\\plan.dwg"},
                     {"missing", true, false, false, false, "../gone.dwg"},
                     {"unloaded", true, false, false, true, "old.dwg"},
                     {"plain", false, false, false, false, ""}};
    for (const auto& wanted : kExpected) {
        const auto found = block(drawing, wanted.name);
        EXPECT_EQ(found->isFromExternalReference(), wanted.external) << wanted.name;
        EXPECT_EQ(found->isFromOverlayReference(), wanted.overlay) << wanted.name;
        EXPECT_EQ(found->isResolved(), wanted.resolved) << wanted.name;
        EXPECT_EQ(found->isUnloaded(), wanted.unloaded) << wanted.name;
        EXPECT_EQ(found->pathName(), name(wanted.path)) << wanted.name;
        EXPECT_FALSE(found->isLayout()) << wanted.name;
        EXPECT_EQ(found->origin()[1], 2.0);
    }
    EXPECT_FALSE(block(drawing, "*Model_Space")->isFromExternalReference());
    EXPECT_EQ(drawing.saved(), drawing.original());
}

TEST(DependentLayer, KnowsItsReferenceAlsoANestedOne)
{
    const EditedDrawing drawing(withReferences(
        {{"outer", 36, "outer.dwg"}, {"inner", 36, "inner.dwg"}, {"plain", 0, ""}},
        {{"outer|Walls", 16}, {"INNER|Doors", 17}, {"plain|Roof"}, {"gone|Lost", 16}, {"Walls"}}));
    const auto reference = [&](const char* layer) {
        return drawing.layer(layer)->externalReference();
    };
    EXPECT_EQ(reference("outer|walls"), block(drawing, "outer")->objectId());
    EXPECT_EQ(reference("inner|doors"), block(drawing, "inner")->objectId()) << "in either case";
    EXPECT_TRUE(reference("plain|Roof").isNull()) << "its block is none of a reference";
    EXPECT_TRUE(reference("gone|Lost").isNull()) << "there is no such block";
    EXPECT_TRUE(reference("Walls").isNull());
    EXPECT_TRUE(drawing.layer("outer|Walls")->isDependent());
    EXPECT_TRUE(drawing.layer("inner|Doors")->isFrozen());
    EXPECT_FALSE(drawing.layer("Walls")->isDependent());
}

TEST(DependentLayer, CannotBeRenamedAndChangesOtherwise)
{
    const EditedDrawing drawing(
        withReferences({{"plan", 36, "plan.dwg"}}, {{"plan|Walls", 48, 3}, {"Doors"}}));
    try {
        drawing.layer("plan|Walls")->setName(name("Walls"));
        FAIL() << "the other drawing gives it its name";
    } catch (const OdError& error) {
        EXPECT_EQ(error.code(), OdResult::NotApplicable);
    }
    drawing.layer("plan|Walls")->setIsLocked(true);
    drawing.layer("plan|Walls")->setIsOff(true);
    QByteArray expected = drawing.original();
    const qsizetype at = expected.indexOf("plan|Walls");
    expected.replace(expected.indexOf("    48\n", at), 6, "    52");
    expected.replace(expected.indexOf("     3\n", at), 6, "    -3");
    EXPECT_EQ(drawing.saved(), expected) << "its flags as a layer of a reference stay";
}

TEST(ExternalReference, IsNotReadFromTheDisk)
{
    // A file of that name would be no drawing; nothing comes of it.
    QTemporaryDir folder;
    const QString path = folder.filePath(name("plan.dwg"));
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("no drawing");
    file.close();
    const EditedDrawing drawing(
        withReferences({{"plan", 36, path.toUtf8()}}, {{"plan|Walls", 16}, {"Doors"}}));
    EXPECT_EQ(drawing->loadNotes(), QStringList());
    EXPECT_EQ(block(drawing, "plan")->pathName(), path);
    EXPECT_EQ(drawing->layerTable().count(), 3);
}

} // namespace
