#include "database/drawing/OdDbDatabase.h"
#include "database/objects/OdDbDictionary.h"
#include "database/objects/OdDbEntity.h"
#include "database/objects/OdDbXrecord.h"
#include "database/states/LayerStates.h"
#include "database/store/HeaderVariables.h"
#include "database/store/ObjectStore.h"
#include "database/tables/OdDbLayerTable.h"
#include "database/values/GroupCursor.h"
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

/// A drawing that was written, and looks at it for what it was not meant to say.
class Proof
{
public:
    explicit Proof(const OdDbDatabase& drawing)
        : m_drawing(drawing)
        , m_path(m_folder.filePath(QStringLiteral("made.dwg")))
        , m_pieces(DrawingSource::of(drawing).write(drawing))
    {
        writeDrawing(drawing, m_path);
        EXPECT_NO_THROW(verify(m_pieces));
    }
    const DwgMeant& meant() const { return *static_cast<const DwgMeant*>(m_pieces.meant.get()); }
    template <class Change>
    void expectMissed(const char* what, const Change& change) const
    {
        EXPECT_THROW(verify(meaningOtherwise(m_pieces, change)), OdError_FileAccess) << what;
    }
    /// The same for each entry of one of the maps.
    template <class Map, class Change>
    void expectEachMissed(Map DwgMeant::*map, const char* what, const Change& change) const
    {
        EXPECT_FALSE((meant().*map).empty()) << what;
        for (const auto& [key, value] : meant().*map)
            expectMissed(what, [&](DwgMeant& other) { change((other.*map)[key]); });
    }

private:
    void verify(const DrawingPieces& pieces) const
    {
        DrawingSource::of(m_drawing).verify(m_drawing, pieces, WrittenBytes(m_path));
    }

    const OdDbDatabase& m_drawing;
    QTemporaryDir m_folder;
    QString m_path;
    DrawingPieces m_pieces;
};

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
    drawing->createXrecord(drawing->getNamedObjectsDictionaryId(), QStringLiteral("More"))
        .safeOpenObject<OdDbXrecord>(OdDb::kForWrite)
        ->setXData({{1001, "ACAD"}, {1040, "1.5"}});

    const Proof proof(*drawing);
    EXPECT_EQ(proof.meant().variables.size(), 2u);
    EXPECT_GE(proof.meant().entries.size(), 2u);
    proof.expectEachMissed(&DwgMeant::frozen, "frozen", [](auto& list) { list.push_back(1); });
    proof.expectEachMissed(&DwgMeant::layers, "layer", [](quint64& handle) { ++handle; });
    proof.expectEachMissed(&DwgMeant::xData, "xData", [](auto& list) { list.append(1070, "1"); });
    proof.expectEachMissed(&DwgMeant::variables, "variable", [](auto& text) { text += u'x'; });
    proof.expectEachMissed(&DwgMeant::groups, "groups", [](auto& list) { list.append(1, "x"); });
    proof.expectEachMissed(&DwgMeant::entries, "entries", [](auto& list) { list.pop_back(); });
    proof.expectEachMissed(&DwgMeant::entries, "entry", [](auto& list) { ++list[0].handle; });
    proof.expectEachMissed(&DwgMeant::records, "record", [](auto& bytes) { bytes += '\1'; });
    proof.expectMissed("removed", [](auto& other) { other.removed.insert(MadeHandle::Style); });
}

TEST_P(MadeSaves, SettingsAndNewEntitiesAreLookedFor)
{
    drawing->setHeaderVariable(QStringLiteral("$LTSCALE"), 40, QStringLiteral("2.125"));
    drawing->setHeaderVariable(QStringLiteral("$CELTYPE"), 6, QStringLiteral("DASHED"));
    drawing->setHeaderVariable(QStringLiteral("$MEASUREMENT"), 70, QStringLiteral("0"));
    GroupList groups = {{62, "3"}, {10, "1.5"}, {20, "2.5"}, {30, "0"}};
    for (const auto& [code, value] : {std::pair(40, "2.5"), {1, "it"}, {50, "30.5"}})
        groups.append(code, value);
    const quint64 text =
        drawing->addEntity("TEXT", groups, drawing->getModelSpaceId(), drawing->getCLAYER())
            .getHandle()
            .value();

    const Proof proof(*drawing);
    EXPECT_EQ(proof.meant().settings.size(), 3u);
    proof.expectEachMissed(&DwgMeant::settings, "setting", [](auto& value) { value += u'2'; });
    proof.expectMissed("no such setting",
                       [](auto& other) { other.settings[QStringLiteral("$NONE")]; });
    for (const GroupList::Group& group : groups) {
        proof.expectMissed("group", [&](DwgMeant& other) {
            GroupList changed;
            for (const GroupList::Group& old : groups)
                changed.append(old.code,
                               old.value.toByteArray() + (old.code == group.code ? "1" : ""));
            other.entities[text].groups = changed;
        });
    }
    proof.expectEachMissed(&DwgMeant::entities, "linetype", [](auto& made) { ++made.linetype; });
    proof.expectEachMissed(&DwgMeant::entities, "kind", [](auto& made) { ++made.linetypeKind; });
    proof.expectEachMissed(&DwgMeant::layers, "layer", [](quint64& handle) { ++handle; });
}

TEST_P(MadeSaves, NewEntitiesHaveTheirLinetypesWeightsAndColors)
{
    const auto line = [&](int code, const char* value) {
        return drawing
            ->addEntity(
                "LINE",
                {{code, value}, {10, "0"}, {20, "0"}, {30, "0"}, {11, "5"}, {21, "5"}, {31, "1"}},
                drawing->getModelSpaceId(), drawing->getCLAYER())
            .getHandle()
            .value();
    };
    const std::pair<int, const char*> properties[] = {
        {6, "ByBlock"}, {6, "byblock"}, {6, "Continuous"}, {6, "DASHED"}, {62, "0"},  {62, "255"},
        {370, "-3"},    {370, "-2"},    {370, "0"},        {370, "211"},  {48, "0.5"}};
    std::map<quint64, std::pair<int, QByteArray>> drawn;
    for (const auto& [code, value] : properties)
        drawn[line(code, value)] = {code, value};
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("drawn.dwg"));
    ASSERT_NO_THROW(writeDrawing(*drawing, path));
    const auto again = readDrawing(path);
    const auto cursor = again->makeCursor();
    for (const auto& [handle, property] : drawn) {
        cursor->open(again->store().find(handle));
        QByteArray found;
        while (cursor->next()) {
            if (cursor->code() == property.first)
                found = cursor->bytes().toByteArray();
        }
        EXPECT_EQ(found.toLower(), property.second.toLower());
    }
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

TEST_P(MadeSaves, VariablesOfTheDictionaryBringTheirClass)
{
    MadeDrawing bare = MadeDrawing::sample(GetParam());
    bare.hasVariables = false;
    drawing = readDrawing(DwgMaker(bare).bytes(), QStringLiteral("bare.dwg"));
    drawing->setDictionaryVariable(QStringLiteral("LAYEREVAL"), QStringLiteral("2"));
    drawing->setDictionaryVariable(QStringLiteral("OTHER"), QStringLiteral("x"));
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("bare.dwg"));
    EXPECT_EQ(writeDrawing(*drawing, path).notKept, QStringList());
    const auto again = readDrawing(path);
    EXPECT_EQ(DwgFiles::faults(*again), QStringList());
    EXPECT_EQ(again->dictionaryVariable(QStringLiteral("LAYEREVAL")), QStringLiteral("2"));
    EXPECT_EQ(again->dictionaryVariable(QStringLiteral("OTHER")), QStringLiteral("x"));
    // The next one finds it there.
    again->setDictionaryVariable(QStringLiteral("LAYERNOTIFY"), QStringLiteral("7"));
    const DwgParts before(drawingBytes(*drawing));
    const DwgParts after(drawingBytes(*again));
    EXPECT_EQ(after.faults(), QStringList());
    EXPECT_TRUE(before.file().section(DwgSection::Classes)
                == after.file().section(DwgSection::Classes));
}

TEST_P(MadeSaves, ExtendedDataOfADictionaryKeepTheOrderOfTheirApplications)
{
    const auto set = [this](const GroupList& xData) {
        drawing->getNamedObjectsDictionaryId()
            .safeOpenObject<OdDbDictionary>(OdDb::kForWrite)
            ->setXData(xData);
    };
    set({{1001, "ACAD"}, {1000, "first"}, {1001, "OTHER"}, {1040, "1.50"}});
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("made.dwg"));
    ASSERT_NO_THROW(writeDrawing(*drawing, path));
    drawing = readDrawing(path);
    // Taken out and put back at the end, in other letters, with one that has nothing.
    set({{1001, "other"}, {1040, "1.5"}, {1001, "NONE"}, {1001, "ACAD"}, {1000, "second"}});
    ASSERT_NO_THROW(writeDrawing(*drawing, path));
    const auto again = readDrawing(path);
    const GroupList now =
        again->getNamedObjectsDictionaryId().safeOpenObject<OdDbDictionary>()->xData();
    QByteArray said;
    for (const GroupList::Group& group : now)
        said += group.value.toByteArray() + ' ';
    EXPECT_EQ(said, "ACAD second OTHER 1.5 ");
}

TEST_P(MadeSaves, ExtendedDataOfARecordHave16KilobytesAtMost)
{
    const auto root =
        drawing->getNamedObjectsDictionaryId().safeOpenObject<OdDbDictionary>(OdDb::kForWrite);
    constexpr int kNearlyFull = 1800; // numbers of nine bytes
    GroupList groups = {{1001, "ONE"}};
    for (int i = 0; i < kNearlyFull; ++i)
        groups.append(1040, "1");
    groups.append(1001, "TWO");
    groups.append(1040, "2");
    root->setXData(groups);
    EXPECT_EQ(saved().notKept, QStringList());
    for (int i = 0; i < 100; ++i)
        groups.append(1040, "2");
    root->setXData(groups);
    const QStringList told = saved().notKept;
    ASSERT_EQ(told.size(), 1);
    EXPECT_TRUE(told[0].contains(QStringLiteral("\"TWO\"")));
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
