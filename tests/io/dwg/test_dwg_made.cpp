#include "database/drawing/OdDbDatabase.h"
#include "database/filters/OdLyLayerFilterManager.h"
#include "database/objects/OdDbEntity.h"
#include "database/objects/OdDbLayout.h"
#include "database/states/LayerStates.h"
#include "database/store/HeaderVariables.h"
#include "database/store/ObjectStore.h"
#include "database/tables/OdDbLayerTable.h"
#include "database/tables/OdDbLinetypeTableRecord.h"
#include "database/values/GroupCursor.h"
#include "io/DrawingFile.h"
#include "io/dwg/support/DwgFiles.h"
#include "io/dwg/support/DwgMaker.h"
#include "io/dwg/support/DwgParts.h"
#include "io/dwg/support/MadeHandles.h"

#include <QFile>

#include <gtest/gtest.h>

namespace {

std::string versionName(const testing::TestParamInfo<DrawingVersion>& version)
{
    return "AC" + std::to_string(static_cast<int>(version.param));
}

std::unique_ptr<OdDbDatabase> opened(const QByteArray& bytes)
{
    return readDrawing(bytes, QStringLiteral("made.dwg"));
}

class DwgMade : public testing::TestWithParam<DrawingVersion>
{
protected:
    MadeDrawing made = MadeDrawing::sample(GetParam());

    QByteArray bytes() const { return DwgMaker(made).bytes(); }
    OdDbLayerTableRecordPtr layer(const OdDbDatabase& drawing, std::size_t number) const
    {
        return drawing.layerTable()
            .getAt(made.layers[number].state.name)
            .safeOpenObject<OdDbLayerTableRecord>();
    }
    QStringList names(const std::vector<std::size_t>& layers) const
    {
        QStringList names;
        for (const std::size_t layer : layers)
            names << made.layers[layer].state.name;
        return names;
    }
    static QStringList names(const std::vector<OdDbObjectId>& layers)
    {
        QStringList names;
        for (const OdDbObjectId id : layers)
            names << id.safeOpenObject<OdDbLayerTableRecord>()->getName();
        return names;
    }
    static OdDbObjectId byHandle(const OdDbDatabase& drawing, quint64 handle)
    {
        return drawing.idOfSlot(drawing.store().find(handle));
    }
};

TEST_P(DwgMade, HasNothingWrong)
{
    const QByteArray file = bytes();
    EXPECT_EQ(DwgParts(file).faults(), QStringList());
    const auto drawing = opened(file);
    EXPECT_EQ(DwgFiles::faults(*drawing), QStringList());
    EXPECT_EQ(drawing->loadNotes(), QStringList());
    EXPECT_EQ(drawing->audit(), QStringList());
}

TEST_P(DwgMade, LayersAreReadWithAllTheyHave)
{
    const auto drawing = opened(bytes());
    ASSERT_EQ(drawing->layerTable().records().size(), made.layers.size());
    for (std::size_t i = 0; i < made.layers.size(); ++i) {
        const LayerState& wanted = made.layers[i].state;
        SCOPED_TRACE(wanted.name.toStdString());
        EXPECT_EQ(names({drawing->layerTable().records()[i]}), QStringList(wanted.name));
        const auto found = layer(*drawing, i);
        EXPECT_EQ(found->isOff(), wanted.off);
        EXPECT_EQ(found->isFrozen(), wanted.frozen);
        EXPECT_EQ(found->isLocked(), wanted.locked);
        EXPECT_EQ(found->isPlottable(), wanted.plottable);
        EXPECT_EQ(found->VPDFLT(), wanted.frozenInNewViewports);
        EXPECT_EQ(found->color(), wanted.color);
        EXPECT_EQ(found->lineWeight(), wanted.lineWeight);
        EXPECT_EQ(found->description(), wanted.description);
        EXPECT_EQ(found->state().transparency, wanted.transparency);
        EXPECT_EQ(found->state().plotStyle.getHandle().value(), MadeHandle::PlotStyle);
        EXPECT_EQ(found->linetypeObjectId().safeOpenObject<OdDbLinetypeTableRecord>()->getName(),
                  made.layers[i].linetype);
    }
}

TEST_P(DwgMade, EntitiesAreReadOnTheirLayers)
{
    const auto drawing = opened(bytes());
    const std::unique_ptr<GroupCursor> groups = drawing->makeCursor();
    quint64 handle = MadeRecords::layerHandle(made.layers.size());
    for (const MadeDrawing::Entity& wanted : made.entities) {
        SCOPED_TRACE(wanted.type.toStdString());
        const quint32 slot = drawing->store().find(handle++);
        ASSERT_NE(slot, ObjectStore::kNone);
        EXPECT_EQ(drawing->store().typeName(slot), wanted.type);
        EXPECT_EQ(drawing->store().layer(slot), layer(*drawing, wanted.layer)->objectId().slot());
        const OdDbObjectId space =
            wanted.onSheet ? drawing->getPaperSpaceId() : drawing->getModelSpaceId();
        EXPECT_EQ(drawing->store().owner(slot), space.slot());
        std::map<int, QString> found;
        for (groups->open(slot); groups->next();)
            found[groups->code()] = groups->text();
        for (const GroupList::Group& group : wanted.groups) {
            if (group.code == 1)
                EXPECT_EQ(found[1], QString::fromUtf8(group.value));
            else
                EXPECT_NEAR(found[group.code].toDouble(), group.value.toDouble(), 1e-12)
                    << group.code;
        }
    }
}

TEST_P(DwgMade, ItsSheetHasAViewportWithLayersFrozenAndOverrides)
{
    const auto drawing = opened(bytes());
    QStringList sheets;
    for (const OdDbObjectId id : drawing->layouts())
        sheets << id.safeOpenObject<OdDbLayout>()->getLayoutName();
    EXPECT_EQ(sheets, QStringList({QStringLiteral("Model"), QStringLiteral("Sheet")}));
    ASSERT_EQ(drawing->store().viewports().size(), 2u);
    const OdDbObjectId viewport = byHandle(*drawing, MadeHandle::Viewport);
    EXPECT_EQ(names(viewport.safeOpenObject<OdDbViewport>()->frozenLayers()), names(made.frozen));
    const OdDbObjectId sheet = byHandle(*drawing, MadeHandle::SheetViewport);
    EXPECT_TRUE(sheet.safeOpenObject<OdDbViewport>()->frozenLayers().empty());
    for (std::size_t i = 0; i < made.layers.size(); ++i) {
        const bool overridden = i == made.override.layer;
        const auto found = layer(*drawing, i);
        EXPECT_EQ(found->state().overrides.size(), overridden ? 1u : 0u) << i;
        EXPECT_EQ(found->color(viewport),
                  overridden ? made.override.color : made.layers[i].state.color);
        EXPECT_EQ(found->lineWeight(viewport),
                  overridden ? made.override.lineWeight : made.layers[i].state.lineWeight);
    }
}

TEST_P(DwgMade, FiltersStatesAndSettingsAreRead)
{
    const auto drawing = opened(bytes());
    OdLyLayerFilterPtr root;
    OdLyLayerFilterPtr current;
    odlyGetLayerFilterManager(drawing.get())->getFilters(root, current);
    QStringList found;
    for (const OdLyLayerFilterPtr& filter : root->getNestedFilters()) {
        if (filter->dynamicallyGenerated())
            continue;
        found << filter->name() << filter->storedExpression();
        if (filter->isIdFilter()) {
            EXPECT_EQ(names(static_cast<const OdLyLayerGroup&>(*filter).layerIds()),
                      names(made.groupLayers));
        }
    }
    EXPECT_EQ(found, QStringList({made.groupName, QString(), made.ruleName, made.ruleExpression}));

    const LayerStates states(*drawing);
    ASSERT_EQ(states.list().size(), 1u);
    EXPECT_EQ(states.list()[0].name, made.stateName);
    EXPECT_EQ(states.list()[0].description, made.stateDescription);
    EXPECT_EQ(states.layers(made.stateName).size(), made.layers.size());
    EXPECT_TRUE(states.list()[0].sameAsDrawing);

    EXPECT_EQ(drawing->dictionaryVariable(QStringLiteral("LAYEREVAL")), QStringLiteral("1"));
    EXPECT_EQ(drawing->header().value(QStringLiteral("$LTSCALE")), QStringLiteral("1.5"));
    EXPECT_EQ(drawing->getCLAYER(), drawing->getLayerZeroId());
}

TEST_P(DwgMade, UneditedItKeepsEachByte)
{
    const QByteArray file = bytes();
    EXPECT_TRUE(drawingBytes(*opened(file)) == file);
}

TEST_P(DwgMade, TheSeedOfTheFuzzerIsWhatIsMadeNow)
{
    // make_dwg_seeds writes them anew.
    QFile seed(QStringLiteral(KEST_DWG_SEEDS "/AC%1.dwg").arg(static_cast<int>(GetParam())));
    ASSERT_TRUE(seed.open(QIODevice::ReadOnly)) << seed.fileName().toStdString();
    EXPECT_TRUE(seed.readAll() == bytes());
    EXPECT_LT(seed.size(), 10000);
}

INSTANTIATE_TEST_SUITE_P(Versions, DwgMade, testing::ValuesIn(MadeDrawing::kVersions), versionName);

} // namespace
