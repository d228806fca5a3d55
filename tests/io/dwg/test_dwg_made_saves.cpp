#include "database/drawing/OdDbDatabase.h"
#include "database/objects/OdDbDictionary.h"
#include "database/objects/OdDbEntity.h"
#include "database/objects/OdDbXrecord.h"
#include "database/states/LayerStates.h"
#include "database/store/HeaderVariables.h"
#include "database/store/ObjectStore.h"
#include "database/tables/OdDbLayerTable.h"
#include "io/DrawingCodec.h"
#include "io/DrawingFile.h"
#include "io/dwg/records/SheetRecords.h"
#include "io/dwg/support/DwgFiles.h"
#include "io/dwg/support/DwgMaker.h"
#include "io/dwg/support/DwgParts.h"
#include "io/dwg/support/MadeHandles.h"
#include "io/dwg/support/MadeRecords.h"
#include "io/dwg/write/DwgMeant.h"
#include "io/files/WrittenBytes.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

struct Saved
{
    QByteArray bytes;
    QStringList notKept;
};

class MadeSaves : public testing::TestWithParam<DrawingVersion>
{
protected:
    std::unique_ptr<OdDbDatabase> drawing =
        readDrawing(DwgMaker::sample(GetParam()), QStringLiteral("made.dwg"));

    OdDbObjectId byHandle(quint64 handle) const
    {
        return drawing->idOfSlot(drawing->store().find(handle));
    }
    OdDbLayerTableRecordPtr layer(std::size_t number) const
    {
        return drawing->layerTable().records()[number].safeOpenObject<OdDbLayerTableRecord>(
            OdDb::kForWrite);
    }
    Saved saved() const
    {
        const DrawingPieces pieces = DrawingSource::of(*drawing).write(*drawing);
        Saved result{{}, pieces.report.notKept};
        for (const QByteArrayView part : pieces.parts)
            result.bytes.append(part.data(), part.size());
        EXPECT_EQ(DwgParts(result.bytes).faults(), QStringList());
        return result;
    }
    /// Whether what is written now passes for what the drawing says after one more edit.
    template <class Edit>
    void expectNoticed(const char* what, const Edit& edit)
    {
        QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("made.dwg"));
        const DrawingSource& source = DrawingSource::of(*drawing);
        const DrawingPieces pieces = source.write(*drawing);
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        for (const QByteArrayView part : pieces.parts)
            file.write(part.data(), part.size());
        file.close();
        EXPECT_NO_THROW(source.verify(*drawing, pieces, WrittenBytes(path))) << what;
        drawing->startUndoRecord();
        edit();
        drawing->endUndoRecord();
        EXPECT_THROW(source.verify(*drawing, pieces, WrittenBytes(path)), OdError_FileAccess)
            << what;
        drawing->undo();
    }
};

/// A copy of what a save means, with one thing of it changed.
template <class Change>
DrawingPieces meaningOtherwise(const DrawingPieces& pieces, const Change& change)
{
    const auto other =
        std::make_shared<DwgMeant>(*static_cast<const DwgMeant*>(pieces.meant.get()));
    change(*other);
    DrawingPieces changed;
    changed.report = pieces.report;
    changed.meant = other;
    return changed;
}

std::string versionName(const testing::TestParamInfo<DrawingVersion>& version)
{
    return "AC" + std::to_string(static_cast<int>(version.param));
}

/// Codes of the references to layers frozen in the viewport.
std::vector<int> frozenCodes(const QByteArray& file)
{
    const DwgParts parts(file);
    DwgRecord record(parts.format(), parts.records().at(MadeHandle::Viewport));
    EXPECT_TRUE(record.open(0));
    DwgHead head;
    DwgEntityHead entity;
    record.readHead(head, entity);
    const SheetRecords::Viewport viewport = SheetRecords::viewport(record);
    std::vector<int> codes;
    record.handles.seek(viewport.frozenAt.begin);
    while (record.handles.position() < viewport.frozenAt.end)
        codes.push_back(record.handles.handle().code);
    return codes;
}

TEST_P(MadeSaves, LayersFrozenInAViewportAreReferencesOfTheVersionsKind)
{
    const std::size_t before = frozenCodes(DwgMaker::sample(GetParam())).size();
    const OdDbObjectId added = drawing->layerTable().add(QStringLiteral("one more"));
    byHandle(MadeHandle::Viewport)
        .safeOpenObject<OdDbViewport>(OdDb::kForWrite)
        ->freezeLayersInViewport({added});
    const std::vector<int> codes = frozenCodes(saved().bytes);
    ASSERT_EQ(codes.size(), before + 1);
    EXPECT_EQ(codes.back(), GetParam() == DrawingVersion::V2000 ? 5 : 4);
}

TEST_P(MadeSaves, AnErasedViewportIsNamedByNoLayout)
{
    byHandle(MadeHandle::Viewport).safeOpenObject<OdDbEntity>(OdDb::kForWrite)->erase();
    byHandle(MadeHandle::SheetViewport).safeOpenObject<OdDbEntity>(OdDb::kForWrite)->erase();
    const Saved after = saved();
    EXPECT_EQ(after.notKept, QStringList());
    const DwgParts parts(after.bytes);
    DwgRecord record(parts.format(), parts.records().at(MadeHandle::Sheet));
    ASSERT_TRUE(record.open(0));
    DwgHead head;
    record.readHead(head);
    const SheetRecords::Layout layout = SheetRecords::layout(record);
    EXPECT_FALSE(record.hasFailed());
    EXPECT_EQ(layout.name, QStringLiteral("Sheet"));
    EXPECT_EQ(layout.block, quint64(MadeHandle::PaperSpace));
    EXPECT_EQ(layout.lastActiveViewport, 0u);
    EXPECT_TRUE(layout.viewports.empty());
}

TEST_P(MadeSaves, ARecordThatCannotBeSpelledIsNamedByNoDictionary)
{
    const OdDbObjectId root = drawing->getNamedObjectsDictionaryId();
    const OdDbObjectId nested = drawing->createDictionary(root, QStringLiteral("Nested"));
    const auto make = [&](OdDbObjectId dictionary, const char* key, const GroupList& groups) {
        drawing->createXrecord(dictionary, QString::fromLatin1(key))
            .safeOpenObject<OdDbXrecord>(OdDb::kForWrite)
            ->setGroups(groups);
    };
    const GroupList sound = {{1, "text"}, {70, "5"}};
    const GroupList odd = {{1, "text"}, {600, "no such form"}};
    make(root, "Sound", sound);
    make(root, "Odd", odd);
    make(nested, "Sound", sound);
    make(nested, "Odd", odd);
    const Saved after = saved();
    EXPECT_EQ(
        after.notKept,
        QStringList(QStringLiteral("A record holds groups that DWG drawings have no form for.")));
    const auto again = readDrawing(after.bytes, QStringLiteral("again.dwg"));
    EXPECT_EQ(again->audit(), QStringList());
    const auto top = again->getNamedObjectsDictionaryId().safeOpenObject<OdDbDictionary>();
    const auto below = top->getAt(QStringLiteral("Nested")).safeOpenObject<OdDbDictionary>();
    for (const auto& dictionary : {top, below}) {
        EXPECT_TRUE(dictionary->getAt(QStringLiteral("Odd")).isNull());
        EXPECT_TRUE(
            dictionary->getAt(QStringLiteral("Sound")).safeOpenObject<OdDbXrecord>()->groups()
            == sound);
    }
}

TEST_P(MadeSaves, ADescriptionLongerThanTheFormatCanHoldIsTold)
{
    constexpr qsizetype kTooLong = 40'000;
    const QString before = layer(1)->description();
    ASSERT_FALSE(before.isEmpty());
    layer(1)->setDescription(QString(kTooLong, QLatin1Char('x')));
    layer(1)->setIsFrozen(!layer(1)->isFrozen());
    const bool frozen = layer(1)->isFrozen();
    const Saved after = saved();
    ASSERT_EQ(after.notKept.size(), 1);
    EXPECT_TRUE(after.notKept[0].contains(QStringLiteral("AcAecLayerStandard")));
    const auto again = readDrawing(after.bytes, QStringLiteral("again.dwg"));
    const auto found = again->layerTable().records()[1].safeOpenObject<OdDbLayerTableRecord>();
    EXPECT_EQ(found->isFrozen(), frozen);
    EXPECT_EQ(found->description(), before);
    expectNoticed("another description is no reason",
                  [&] { layer(1)->setIsOff(!layer(1)->isOff()); });
}

TEST_P(MadeSaves, WhatWasWrittenMustSayWhatTheDrawingSays)
{
    // An edit of it makes each record one that is decoded again.
    layer(1)->setIsLocked(!layer(1)->isLocked());
    expectNoticed("name", [&] { layer(1)->setName(QStringLiteral("other name")); });
    expectNoticed("frozen", [&] { layer(1)->setIsFrozen(!layer(1)->isFrozen()); });
    expectNoticed("off", [&] { layer(1)->setIsOff(!layer(1)->isOff()); });
    expectNoticed("locked", [&] { layer(1)->setIsLocked(!layer(1)->isLocked()); });
    expectNoticed("plot", [&] { layer(1)->setIsPlottable(!layer(1)->isPlottable()); });
    expectNoticed("new viewports", [&] { layer(1)->setVPDFLT(!layer(1)->VPDFLT()); });
    expectNoticed("color", [&] { layer(1)->setColor(OdCmColor::fromIndex(99)); });
    expectNoticed("lineweight", [&] { layer(1)->setLineWeight(211); });
    expectNoticed("description", [&] { layer(1)->setDescription(QStringLiteral("other")); });
    expectNoticed("linetype",
                  [&] { layer(1)->setLinetypeObjectId(byHandle(MadeHandle::ByBlock)); });
    expectNoticed("current layer", [&] { drawing->setCLAYER(layer(2)->objectId()); });
}

TEST_P(MadeSaves, EachThingThatIsMeantIsLookedFor)
{
    // One edit of each kind.
    byHandle(MadeHandle::Viewport)
        .safeOpenObject<OdDbViewport>(OdDb::kForWrite)
        ->freezeLayersInViewport({layer(1)->objectId()});
    const quint32 line = drawing->store().find(
        MadeRecords::layerHandle(MadeDrawing::sample(GetParam()).layers.size()));
    drawing->idOfSlot(line)
        .safeOpenObject<OdDbEntity>(OdDb::kForWrite)
        ->setLayer(layer(2)->objectId());
    LayerStates(*drawing).add(QStringLiteral("one more"), QStringLiteral("described"));
    drawing->setDictionaryVariable(QStringLiteral("LAYEREVAL"), QStringLiteral("2"));
    drawing->setDictionaryVariable(QStringLiteral("OTHER"), QStringLiteral("new"));
    drawing->setHeaderVariable(QStringLiteral("$LTSCALE"), 40, QStringLiteral("2.125"));
    drawing->setHeaderVariable(QStringLiteral("$CELTYPE"), 6, QStringLiteral("DASHED"));
    drawing->setHeaderVariable(QStringLiteral("$MEASUREMENT"), 70, QStringLiteral("1"));
    drawing->createXrecord(drawing->getNamedObjectsDictionaryId(), QStringLiteral("More"))
        .safeOpenObject<OdDbXrecord>(OdDb::kForWrite)
        ->setXData({{1001, "ACAD"}, {1040, "1.5"}});
    const OdDbObjectId drawn = drawing->addEntity("TEXT",
                                                  {{62, "3"},
                                                   {100, "AcDbText"},
                                                   {10, "1.5"},
                                                   {20, "2.5"},
                                                   {30, "0"},
                                                   {40, "2.5"},
                                                   {1, "it"},
                                                   {50, "30.5"}},
                                                  drawing->getModelSpaceId(), drawing->getCLAYER());

    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("made.dwg"));
    writeDrawing(*drawing, path);
    const DrawingSource& source = DrawingSource::of(*drawing);
    const DrawingPieces pieces = source.write(*drawing);
    const auto& meant = *static_cast<const DwgMeant*>(pieces.meant.get());
    const WrittenBytes written(path);
    EXPECT_NO_THROW(source.verify(*drawing, pieces, written));
    const auto expectMissed = [&](const char* what, const auto& change) {
        EXPECT_THROW(source.verify(*drawing, meaningOtherwise(pieces, change), written),
                     OdError_FileAccess)
            << what;
    };
    ASSERT_EQ(meant.frozen.size(), 1u);
    expectMissed("frozen", [](DwgMeant& other) { other.frozen.begin()->second.push_back(1); });
    ASSERT_EQ(meant.layers.size(), 2u);
    for (const auto& [handle, layer] : meant.layers)
        expectMissed("layer", [handle = handle](DwgMeant& other) { ++other.layers[handle]; });
    ASSERT_EQ(meant.settings.size(), 3u);
    for (const auto& [name, value] : meant.settings)
        expectMissed("setting",
                     [name = name](DwgMeant& other) { other.settings[name] += QLatin1Char('2'); });
    expectMissed("no such setting",
                 [](DwgMeant& other) { other.settings[QStringLiteral("$NONE")]; });
    const quint64 text = drawn.getHandle().value();
    ASSERT_EQ(meant.entities.size(), 1u);
    for (const GroupList::Group& group : meant.entities.at(text).groups) {
        if (group.code == 100)
            continue;
        expectMissed("group of an entity", [&](DwgMeant& other) {
            GroupList changed;
            for (const GroupList::Group& old : meant.entities.at(text).groups)
                changed.append(old.code,
                               old.code == group.code ? QByteArray(old.value.toByteArray() + '1')
                                                      : old.value.toByteArray());
            other.entities[text].groups = changed;
        });
    }
    expectMissed("linetype of an entity",
                 [&](DwgMeant& other) { ++other.entities[text].linetype; });
    ASSERT_GE(meant.xData.size(), 1u);
    for (const auto& [handle, groups] : meant.xData)
        expectMissed("extended data",
                     [handle = handle](DwgMeant& other) { other.xData[handle].append(1070, "1"); });
    ASSERT_EQ(meant.variables.size(), 2u);
    for (const auto& [handle, value] : meant.variables)
        expectMissed("variable", [handle = handle](DwgMeant& other) {
            other.variables[handle] += QLatin1Char('x');
        });
    ASSERT_GE(meant.groups.size(), 1u);
    for (const auto& [handle, groups] : meant.groups)
        expectMissed("groups",
                     [handle = handle](DwgMeant& other) { other.groups[handle].append(1, "x"); });
    ASSERT_GE(meant.entries.size(), 2u);
    for (const auto& [handle, entries] : meant.entries) {
        expectMissed("entries",
                     [handle = handle](DwgMeant& other) { other.entries[handle].pop_back(); });
        expectMissed("entry",
                     [handle = handle](DwgMeant& other) { ++other.entries[handle][0].handle; });
    }
    expectMissed("record", [](DwgMeant& other) { other.records.begin()->second += '\1'; });
    expectMissed("removed", [](DwgMeant& other) { other.removed.insert(MadeHandle::Style); });
}

TEST_P(MadeSaves, TextsThatReadLikeEscapesStayWhatTheyAre)
{
    const QString odd = QStringLiteral("a\\U+0041 \\M+1828A \\u+0041");
    LayerStates(*drawing).add(odd, odd);
    drawing->setDictionaryVariable(QStringLiteral("LAYEREVAL"), odd);
    layer(1)->setDescription(odd);
    drawing->setHeaderVariable(QStringLiteral("$MENU"), 1, odd);
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("odd.dwg"));
    const SaveReport report = writeDrawing(*drawing, path);
    EXPECT_EQ(report.notKept, QStringList());
    const auto again = readDrawing(path);
    ASSERT_TRUE(LayerStates(*again).has(odd));
    EXPECT_EQ(LayerStates(*again).description(odd), odd);
    EXPECT_EQ(again->dictionaryVariable(QStringLiteral("LAYEREVAL")), odd);
    EXPECT_EQ(again->header().value(QStringLiteral("$MENU")), odd);
    EXPECT_EQ(
        again->layerTable().records()[1].safeOpenObject<OdDbLayerTableRecord>()->description(),
        odd);
}

TEST_P(MadeSaves, ADescriptionHas255CharactersAtMost)
{
    for (const int length : {255, 256}) {
        layer(1)->setDescription(QString(length, QLatin1Char('x')));
        EXPECT_EQ(saved().notKept.size(), length == 256 ? 1 : 0) << length;
    }
}

TEST_P(MadeSaves, ADrawingWhoseCurrentLayerIsNoneTakesAnotherTab)
{
    MadeDrawing odd = MadeDrawing::sample(GetParam());
    odd.references["$CLAYER"] = MadeHandle::Style;
    drawing = readDrawing(DwgMaker(odd).bytes(), QStringLiteral("odd.dwg"));
    ASSERT_EQ(drawing->getCLAYER(), drawing->getLayerZeroId());
    drawing->setTILEMODE(!drawing->getTILEMODE());
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("odd.dwg"));
    EXPECT_NO_THROW(writeDrawing(*drawing, path));
    EXPECT_EQ(readDrawing(path)->getTILEMODE(), drawing->getTILEMODE());
}

INSTANTIATE_TEST_SUITE_P(Versions, MadeSaves, testing::ValuesIn(MadeDrawing::kVersions),
                         versionName);

} // namespace
