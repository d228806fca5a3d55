#include "database/objects/OdDbEntity.h"
#include "database/store/ObjectStore.h"
#include "database/tables/OdDbLayerTable.h"
#include "database/tables/OdDbLayerTableRecord.h"
#include "database/values/GroupCursor.h"
#include "io/DrawingFile.h"
#include "support/drawings/BinaryDrawing.h"
#include "support/drawings/DrawingText.h"
#include "support/drawings/SharedDrawings.h"

#include <QFile>

#include <functional>
#include <gtest/gtest.h>

namespace {

using Edit = std::function<void(OdDbDatabase&)>;

OdDbLayerTableRecordPtr layer(const OdDbDatabase& database, const char* name)
{
    return database.layerTable()
        .getAt(QString::fromUtf8(name))
        .safeOpenObject<OdDbLayerTableRecord>(OdDb::kForWrite);
}

/// A layer with every optional group, one with none; extended data that names a layer.
QByteArray drawing()
{
    QByteArray text = DrawingText::withLayers(
        {{"Walls"},
         {"Doors", 4, -30,
          DrawingText::groups({"420", "16744192", "430", "BOOK$RED", "290", "0", "1001",
                               "AcAecLayerStandard", "1000", "", "1000", "Swing doors", "1001",
                               "AcCmTransparency", "1071", "33554559"})},
         {"Roof"}});
    return text.replace("21\n1.5\n31\n0.0\n",
                        "21\n1.5\n31\n0.0\n1001\nKEST\n1003\nDoors\n1040\n2.5\n");
}

QByteArray edited(const QByteArray& bytes, const Edit& edit)
{
    const auto database = readDrawing(bytes, QStringLiteral("twin.dxf"));
    edit(*database);
    EXPECT_EQ(database->audit(), QStringList());
    return drawingBytes(*database);
}

/// Editing the binary form must give the binary form of the edited text.
void expectTwins(const Edit& edit)
{
    const QByteArray text = edited(drawing(), edit);
    ASSERT_NE(text, drawing()) << "nothing was edited";
    for (const int codeBytes : {1, 2}) {
        const QByteArray wanted = BinaryDrawing::fromText(text, codeBytes);
        const QByteArray found = edited(BinaryDrawing::fromText(drawing(), codeBytes), edit);
        qsizetype same = 0;
        while (same < std::min(found.size(), wanted.size()) && found[same] == wanted[same])
            ++same;
        EXPECT_TRUE(found == wanted)
            << codeBytes << " bytes for a code, differs from byte " << same << ": "
            << found.mid(same - 24, 64).toPercentEncoding().constData() << " wanted "
            << wanted.mid(same - 24, 64).toPercentEncoding().constData();
    }
}

TEST(BinaryDxfWriting, FlagsChangeInPlace)
{
    expectTwins([](OdDbDatabase& database) {
        layer(database, "Walls")->setIsFrozen(true);
        layer(database, "Doors")->setIsLocked(false);
        layer(database, "Roof")->setVPDFLT(true);
    });
}

TEST(BinaryDxfWriting, ColoursComeGoAndChange)
{
    expectTwins([](OdDbDatabase& database) {
        layer(database, "Walls")->setColor(OdCmColor::fromRgb(255, 127, 0));
        layer(database, "Doors")->setColor(OdCmColor::fromIndex(5));
        layer(database, "Roof")->setIsOff(true);
    });
    expectTwins([](OdDbDatabase& database) {
        layer(database, "Doors")->setColor(OdCmColor::fromRgb(1, 2, 3));
        layer(database, "Doors")->setIsOff(false);
    });
}

TEST(BinaryDxfWriting, LinetypesWeightsAndPlottingChange)
{
    expectTwins([](OdDbDatabase& database) {
        layer(database, "Walls")
            ->setLinetypeObjectId(
                database.table(OdDbTableKind::Linetype).getAt(QStringLiteral("dashed")));
        layer(database, "Walls")->setLineWeight(35);
        layer(database, "Walls")->setIsPlottable(false);
        layer(database, "Doors")->setIsPlottable(true);
    });
}

TEST(BinaryDxfWriting, DescriptionsAndTransparencyGoToExtendedData)
{
    expectTwins([](OdDbDatabase& database) {
        layer(database, "Walls")->setDescription(QStringLiteral("Wände\n壁"));
        layer(database, "Walls")
            ->setTransparency(OdDbLayerTableRecord::transparencyFromPercent(50));
        layer(database, "Doors")->setDescription({});
        layer(database, "Doors")->setTransparency(0);
    });
}

TEST(BinaryDxfWriting, ARenameReachesEntitiesAndExtendedData)
{
    expectTwins([](OdDbDatabase& database) {
        layer(database, "Walls")->setName(QStringLiteral("A much longer name for the walls"));
        layer(database, "Doors")->setName(QStringLiteral("D"));
        database.setCLAYER(layer(database, "D")->objectId());
    });
}

TEST(BinaryDxfWriting, LayersAreMadeAndErased)
{
    expectTwins([](OdDbDatabase& database) {
        const OdDbObjectId made = database.layerTable().add(QStringLiteral("Neu"));
        made.safeOpenObject<OdDbLayerTableRecord>(OdDb::kForWrite)
            ->setColor(OdCmColor::fromRgb(9, 8, 7));
        made.safeOpenObject<OdDbLayerTableRecord>(OdDb::kForWrite)
            ->setDescription(QStringLiteral("made here"));
        layer(database, "Roof")->erase();
    });
}

TEST(BinaryDxfWriting, ViewportsFreezeAndOverrideLayers)
{
    expectTwins([](OdDbDatabase& database) {
        const OdDbObjectId first =
            database.getOdDbObjectId(OdDbHandle(DrawingText::kFirstViewport));
        const OdDbObjectId second =
            database.getOdDbObjectId(OdDbHandle(DrawingText::kSecondViewport));
        const OdDbObjectId doors = layer(database, "Doors")->objectId();
        first.safeOpenObject<OdDbViewport>(OdDb::kForWrite)->thawAllLayersInViewport();
        second.safeOpenObject<OdDbViewport>(OdDb::kForWrite)->freezeLayersInViewport({doors});
        layer(database, "Walls")->setColor(OdCmColor::fromIndex(1), first);
        layer(database, "Walls")->setLineWeight(50, second);
        layer(database, "Roof")->setIsReconciled(true);
    });
}

TEST(BinaryDxfWriting, HeaderVariablesKeepTheirKind)
{
    expectTwins([](OdDbDatabase& database) {
        database.setCLAYER(layer(database, "Walls")->objectId());
        database.setTILEMODE(false);
        database.setHeaderVariable(QStringLiteral("$VISRETAIN"), 70, QStringLiteral("1"));
        database.setHeaderVariable(QStringLiteral("$LTSCALE"), 40, QStringLiteral("2.5"));
    });
}

TEST(BinaryDxfWriting, UndoLeadsBackToTheSameBytes)
{
    for (const int codeBytes : {1, 2}) {
        const QByteArray bytes = BinaryDrawing::fromText(drawing(), codeBytes);
        const auto database = readDrawing(bytes, QStringLiteral("undo.dxf"));
        database->startUndoRecord();
        layer(*database, "Walls")->setIsFrozen(true);
        layer(*database, "Doors")->setName(QStringLiteral("Gates"));
        database->layerTable().add(QStringLiteral("New"));
        ASSERT_NE(drawingBytes(*database), bytes);
        database->undo();
        EXPECT_EQ(drawingBytes(*database), bytes);
    }
}

/// All groups of a record, and what each is: to compare two files record by record.
std::string recordText(const OdDbDatabase& database, quint32 slot)
{
    std::string text;
    const std::unique_ptr<GroupCursor> groups = database.makeCursor();
    for (groups->open(slot); groups->next();) {
        text += std::to_string(groups->code()) + ' ';
        text += groups->bytes().toByteArray().toStdString() + '\n';
    }
    return text;
}

TEST(BinaryDxfWriting, OfRealDrawingsChangesTheEditedRecordsAlone)
{
    KEST_GTEST_NEEDS_DRAWINGS();
    int files = 0;
    for (const QString& path : SharedDrawings::files()) {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        const QByteArray bytes = file.readAll();
        if (!bytes.startsWith(BinaryDrawing::head()))
            continue;
        SCOPED_TRACE(path.toStdString());
        ++files;
        const auto before = readDrawing(bytes, QStringLiteral("before.dxf"));
        const auto database = readDrawing(bytes, QStringLiteral("edited.dxf"));
        for (const OdDbObjectId id : database->layerTable().records()) {
            const auto record = id.safeOpenObject<OdDbLayerTableRecord>(OdDb::kForWrite);
            record->setIsFrozen(!record->isFrozen());
            record->setColor(OdCmColor::fromIndex(3));
        }
        const auto after = readDrawing(drawingBytes(*database), QStringLiteral("after.dxf"));
        EXPECT_EQ(after->audit(), QStringList());
        ASSERT_EQ(after->store().fileRecords(), before->store().fileRecords());
        for (quint32 slot = 0; slot < before->store().fileRecords(); ++slot) {
            const std::string was = recordText(*before, slot);
            const std::string is = recordText(*after, slot);
            if (before->store().type(slot) == RecordType::Layer)
                EXPECT_NE(is, was);
            else
                ASSERT_EQ(is, was);
        }
        for (const OdDbObjectId id : database->layerTable().records()) {
            const auto wanted = id.safeOpenObject<OdDbLayerTableRecord>();
            const auto found =
                after->layerTable().getAt(wanted->getName()).safeOpenObject<OdDbLayerTableRecord>();
            EXPECT_EQ(found->isFrozen(), wanted->isFrozen());
            EXPECT_EQ(found->color(), wanted->color());
            EXPECT_EQ(found->description(), wanted->description());
        }
    }
    EXPECT_GE(files, 5);
}

} // namespace
