#include "database/objects/OdDbEntity.h"
#include "database/states/LayerStateDictionary.h"
#include "database/streams/OdMemoryStream.h"
#include "database/tables/OdDbLayerTable.h"
#include "database/tables/OdDbLayerTableRecord.h"
#include "io/DrawingFile.h"
#include "io/las/LasWriter.h"
#include "sdk/CKestPreferenceManager.h"
#include "sdk/CLayerStateUtility.h"
#include "support/FakeHost.h"
#include "support/drawings/DrawingText.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

class LayerStateService : public testing::Test
{
protected:
    void TearDown() override
    {
        CKestPreferenceManager::instance().m_iDontListinXref = 0;
        CKestPreferenceManager::instance().m_iOffNotfoundLayer = 0;
    }
    OdDbLayerTableRecordPtr write(const char* name, OdDbDatabase* drawing = nullptr) const
    {
        return (drawing ? drawing : m_drawing.get())
            ->layerTable()
            .getAt(QString::fromLatin1(name))
            .safeOpenObject<OdDbLayerTableRecord>(OdDb::kForWrite);
    }
    std::vector<layStateEntry> list()
    {
        std::vector<layStateEntry> entries = {layStateEntry()};
        EXPECT_TRUE(m_service.GetDBLayStateIDs(entries));
        return entries;
    }
    /// The call fails and says why.
    void expectFailure(bool result)
    {
        EXPECT_FALSE(result);
        EXPECT_TRUE(m_service.lastError().endsWith(QLatin1Char('.')))
            << qPrintable(m_service.lastError());
    }

    std::unique_ptr<OdDbDatabase> m_drawing =
        readDrawing(DrawingText::withLayers({{"Walls"}, {"Roof"}}), QStringLiteral("a.dxf"));
    std::unique_ptr<OdDbDatabase> m_other = readDrawing(
        DrawingText::withLayers({{"WALLS"}, {"Cellar", 0, 3}}), QStringLiteral("b.dxf"));
    CLayerStateUtility m_service{m_drawing.get()};
    const QString m_plan = QStringLiteral("Plan");
    const QTemporaryDir m_folder;
    const QString m_path = m_folder.filePath(QStringLiteral("plan.las"));
};

TEST_F(LayerStateService, AddsListsSavesAndDeletes)
{
    EXPECT_TRUE(list().empty());
    EXPECT_TRUE(m_service.AddNewLayStateToDB(m_plan, QStringLiteral("first")));
    ASSERT_EQ(list().size(), 1u);
    EXPECT_EQ(list()[0].name, m_plan);
    EXPECT_EQ(list()[0].description, QStringLiteral("first"));
    EXPECT_FALSE(list()[0].isLayout);
    EXPECT_TRUE(list()[0].sameAsDrawing);
    expectFailure(m_service.AddNewLayStateToDB(QStringLiteral("PLAN"), {}));

    write("Walls")->setIsOff(true);
    EXPECT_FALSE(list()[0].sameAsDrawing);
    EXPECT_TRUE(m_service.SaveLayState(m_plan, 5));
    EXPECT_TRUE(m_service.lastError().isEmpty()) << "the refusal before is forgotten";
    EXPECT_TRUE(list()[0].sameAsDrawing);
    EXPECT_TRUE(m_service.SetLayStateDesc(m_plan, QStringLiteral("second")));
    EXPECT_EQ(list()[0].description, QStringLiteral("second"));
    EXPECT_TRUE(m_service.DeleteLayerState(m_plan));
    EXPECT_TRUE(list().empty());
    expectFailure(m_service.DeleteLayerState(m_plan));
    expectFailure(m_service.SaveLayState(m_plan, 5));
    expectFailure(m_service.SetLayStateDesc(m_plan, {}));
}

TEST_F(LayerStateService, Renames)
{
    m_service.AddNewLayStateToDB(m_plan, {});
    m_service.AddNewLayStateToDB(QStringLiteral("Other"), {});
    EXPECT_TRUE(m_service.RenameLayerState(m_plan, QStringLiteral("<any> text?")));
    EXPECT_EQ(list()[0].name, QStringLiteral("<any> text?"));
    expectFailure(
        m_service.RenameLayerState(QStringLiteral("Other"), QStringLiteral("<ANY> TEXT?")));
    expectFailure(m_service.RenameLayerState(QStringLiteral("none"), m_plan));
}

TEST_F(LayerStateService, RestoresAndKeepsTheMask)
{
    m_service.AddNewLayStateToDB(m_plan, {});
    write("Walls")->setIsOff(true);
    m_drawing->layerTable().add(QStringLiteral("New"));
    EXPECT_TRUE(m_service.RestoreLayState(m_plan, 2047, 0));
    EXPECT_FALSE(write("Walls")->isOff());
    EXPECT_FALSE(write("New")->isOff());
    EXPECT_TRUE(m_service.RestoreLayState(m_plan, 0, 1));
    EXPECT_TRUE(write("New")->isOff());
    EXPECT_TRUE(m_service.SaveLayState(m_plan, 0x245));
    int mask = 0;
    EXPECT_TRUE(m_service.RestoreLayMask(m_plan, mask));
    EXPECT_EQ(mask, 0x245);
    expectFailure(m_service.RestoreLayMask(QStringLiteral("none"), mask));
    EXPECT_EQ(mask, 0x245);
    expectFailure(m_service.RestoreLayState(QStringLiteral("none"), 2047, 0));
}

TEST_F(LayerStateService, MakesOverridesWhileThePreferenceAsksForThemAndALayoutCanTakeThem)
{
    m_service.AddNewLayStateToDB(m_plan, {});
    write("Walls")->setColor(OdCmColor::fromIndex(1));
    CKestPreferenceManager::instance().m_iOffNotfoundLayer = 2;
    m_drawing->setCTAB(QStringLiteral("Sheet A"));
    const OdDbObjectId viewport =
        m_drawing->getOdDbObjectId(OdDbHandle(DrawingText::kSecondViewport));
    m_drawing->setActiveViewport(viewport);
    EXPECT_FALSE(m_service.IsModelSpace());
    EXPECT_TRUE(m_service.RestoreLayState(m_plan, 0x20, 0));
    EXPECT_EQ(write("Walls")->color(viewport), OdCmColor::fromIndex(7));
    EXPECT_EQ(write("Walls")->color(), OdCmColor::fromIndex(1));

    for (const char* layout : {"Sheet B", "Model"}) { // a sheet never opened has no viewport
        m_drawing->setCTAB(QString::fromLatin1(layout));
        m_drawing->startUndoRecord();
        EXPECT_TRUE(m_service.RestoreLayState(m_plan, 0x20, 0));
        EXPECT_EQ(write("Walls")->color(), OdCmColor::fromIndex(7)) << layout;
        m_drawing->undo();
    }
    EXPECT_TRUE(m_service.IsModelSpace());
}

TEST_F(LayerStateService, LeavesStatesOfExternalReferencesOutWhenThePreferenceSaysSo)
{
    m_service.AddNewLayStateToDB(m_plan, {});
    LayerStateDictionary(*m_drawing)
        .open(OdDb::kForWrite)
        ->setAt(QStringLiteral("plan__night"), OdDbObjectId());
    EXPECT_EQ(list().size(), 2u);
    CKestPreferenceManager::instance().m_iDontListinXref = 1;
    EXPECT_EQ(list().size(), 1u);
    expectFailure(m_service.RestoreLayState(QStringLiteral("plan__night"), 2047, 0));
}

TEST_F(LayerStateService, EditsTheLayersOfAState)
{
    m_service.AddNewLayStateToDB(m_plan, {});
    std::vector<LayerInfoInLS> layers;
    EXPECT_TRUE(m_service.SetLayersInLS(m_plan, layers));
    ASSERT_EQ(layers.size(), 3u);
    EXPECT_TRUE(m_service.CheckForDifference(layers)) << "true means that it is the same";
    layers[0].flags ^= LayerInfoInLS::kOn;
    EXPECT_TRUE(m_service.UpdateLayerStateInfo(m_plan, layers));
    EXPECT_FALSE(m_service.CheckForDifference(layers));
    EXPECT_FALSE(list()[0].sameAsDrawing);
    EXPECT_TRUE(m_service.SaveLayState(m_plan, 0x20));
    EXPECT_TRUE(m_service.UpdateLayerStateInfo(m_plan, layers));
    EXPECT_TRUE(m_service.CheckForDifference(layers)) << "the mask names colors only";

    m_drawing->layerTable().add(QStringLiteral("New"));
    m_drawing->layerTable().add(QStringLiteral("*RESERVED"));
    QStringList names;
    EXPECT_TRUE(m_service.AddLayerList(names));
    EXPECT_EQ(names,
              (QStringList{QStringLiteral("0"), QStringLiteral("Walls"), QStringLiteral("Roof"),
                           QStringLiteral("New")}));
    LayerInfoInLS info;
    EXPECT_TRUE(m_service.FilLSInfo(QStringLiteral("New"), info));
    EXPECT_EQ(info.name, QStringLiteral("New"));
    EXPECT_EQ(info.plotStyleName, QStringLiteral("Color_7"));
    layers.push_back(info);
    EXPECT_TRUE(m_service.UpdateLayerStateInfo(m_plan, layers));
    EXPECT_TRUE(m_service.SetLayersInLS(m_plan, layers));
    EXPECT_EQ(layers.back().layerId, info.layerId);
    expectFailure(m_service.FilLSInfo(QStringLiteral("none"), info));
    expectFailure(m_service.SetLayersInLS(QStringLiteral("none"), layers));
    EXPECT_TRUE(layers.empty());
    expectFailure(m_service.UpdateLayerStateInfo(QStringLiteral("none"), layers));
}

TEST_F(LayerStateService, ExportsAndImportsAFile)
{
    write("Walls")->setIsLocked(true);
    m_service.AddNewLayStateToDB(m_plan, QStringLiteral("d"));
    EXPECT_TRUE(m_service.ExportLayState(m_plan, m_path));
    bool exists = false;
    expectFailure(m_service.ImportLayState(m_path, exists));
    EXPECT_TRUE(exists);
    EXPECT_TRUE(m_service.DeleteLayerState(m_plan));
    EXPECT_TRUE(m_service.ImportLayState(m_path, exists));
    EXPECT_FALSE(exists);
    EXPECT_TRUE(list()[0].sameAsDrawing);
    EXPECT_EQ(list()[0].description, QStringLiteral("d"));

    CLayerStateUtility other(m_other.get());
    EXPECT_TRUE(other.ImportLayState(m_path, exists));
    EXPECT_TRUE(m_other->layerTable().has(QStringLiteral("Roof")));
    expectFailure(m_service.ExportLayState(QStringLiteral("none"), m_path));
    expectFailure(m_service.ExportLayState(m_plan, m_folder.path()));
}

TEST_F(LayerStateService, ImportsAFileWithSeveralStatesByItsFirst)
{
    const GroupList groups = {{91, "2047"}, {8, "Walls"}, {90, "8"}};
    LasWriter::writeFile(
        {{m_plan, groups}, {QStringLiteral("Other"), groups}, {QStringLiteral("OTHER"), groups}},
        m_path);
    m_service.AddNewLayStateToDB(QStringLiteral("Other"), QStringLiteral("stays"));
    bool exists = true;
    EXPECT_TRUE(m_service.ImportLayState(m_path, exists));
    EXPECT_FALSE(exists);
    ASSERT_EQ(list().size(), 2u);
    EXPECT_EQ(list()[0].description, QStringLiteral("stays"));
    EXPECT_EQ(list()[1].name, m_plan);
}

TEST_F(LayerStateService, RefusesABadFileAndChangesNothing)
{
    QFile file(m_path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("0\nLAYERSTATEDICTIONARY\n0\nLAYERSTATE\n1\nA\n8\nNew\n90\nx\n");
    file.close();
    bool exists = true;
    expectFailure(m_service.ImportLayState(m_path, exists));
    EXPECT_FALSE(exists);
    EXPECT_TRUE(m_service.lastError().contains(QLatin1String("line 10")));
    EXPECT_FALSE(m_drawing->layerTable().has(QStringLiteral("New")));
    expectFailure(m_service.ImportLayState(m_folder.filePath(QStringLiteral("none.las")), exists));
    EXPECT_FALSE(exists);
}

TEST_F(LayerStateService, CopiesAStateThroughAStream)
{
    CLayerStateUtility source(m_other.get());
    EXPECT_TRUE(source.AddNewLayStateToDB(m_plan, QStringLiteral("from there")));
    OdStreamBufPtr stream = OdMemoryStream::createNew();
    EXPECT_TRUE(source.ExportLayState(m_plan, stream));
    expectFailure(m_service.ImportLayState(stream)); // it stands at the end
    stream->seek(0, OdDb::kSeekFromStart);
    m_drawing->startUndoRecord();
    EXPECT_TRUE(m_service.ImportLayState(stream));
    EXPECT_EQ(list()[0].description, QStringLiteral("from there"));
    EXPECT_EQ(write("Cellar")->color(), OdCmColor::fromIndex(3));
    stream->seek(0, OdDb::kSeekFromStart);
    expectFailure(m_service.ImportLayState(stream)); // the name is taken
    m_drawing->undo();
    EXPECT_TRUE(list().empty());
    EXPECT_FALSE(m_drawing->layerTable().has(QStringLiteral("Cellar")));

    OdStreamBufPtr none;
    expectFailure(m_service.ImportLayState(none));
    expectFailure(m_service.ExportLayState(m_plan, none));
}

TEST_F(LayerStateService, WorksOnTheCurrentDrawingWhenItWasGivenNone)
{
    CLayerStateUtility service;
    std::vector<layStateEntry> entries;
    EXPECT_FALSE(service.GetDBLayStateIDs(entries)) << "there is no host";
    EXPECT_EQ(service.lastError(), QStringLiteral("No drawing is open."));
    EXPECT_TRUE(service.IsModelSpace());
    EXPECT_FALSE(service.CheckForDifference({}));

    FakeHost host;
    OdDbDatabase& first = host.open(std::move(m_drawing));
    OdDbDatabase& second = host.open(std::move(m_other));
    EXPECT_TRUE(service.AddNewLayStateToDB(m_plan, {}));
    host.setCurrent(first);
    EXPECT_TRUE(service.GetDBLayStateIDs(entries));
    EXPECT_TRUE(entries.empty());
    host.setCurrent(second);
    EXPECT_TRUE(service.GetDBLayStateIDs(entries));
    EXPECT_EQ(entries.size(), 1u);
}

} // namespace
