#include "LayerStatesFixture.h"
#include "support/drawings/SharedDrawings.h"

#include <set>

namespace {

/// States of drawings that other programs made.
class ForeignLayerStates : public testing::Test
{
protected:
    void SetUp() override { KEST_GTEST_NEEDS_DRAWINGS(); }

    static std::vector<QString> namesIn(OdDbDatabase& drawing)
    {
        std::vector<QString> names;
        if (const auto states = LayerStateDictionary(drawing).open()) {
            for (const DictionaryEntry& entry : states->entries())
                names.push_back(entry.key);
        }
        return names;
    }

    /// Layers of a state that are there, in its order, and the codes of their groups.
    static std::vector<std::pair<OdDbObjectId, std::set<int>>> entriesOf(const LayerStates& states,
                                                                         const QString& name)
    {
        std::vector<std::pair<OdDbObjectId, std::set<int>>> entries;
        for (const LayerInfoInLS& layer : states.layers(name)) {
            if (layer.layerId.isNull())
                continue;
            entries.push_back({layer.layerId, {}});
            for (const GroupList::Group group : layer.stored)
                entries.back().second.insert(group.code);
        }
        return entries;
    }
    /// What is saved over a state leaves the order of its layers and the kinds of groups that they
    /// have; true colors alone come and go with those of the layers.
    static void expectKeptBySaving(LayerStates& states, const QString& name)
    {
        const auto before = entriesOf(states, name);
        states.save(name, LayerStateMask::kAll);
        const auto after = entriesOf(states, name);
        ASSERT_GE(after.size(), before.size());
        for (std::size_t i = 0; i < before.size(); ++i) {
            EXPECT_EQ(after[i].first, before[i].first);
            for (const int code : before[i].second) {
                if (code != StateGroup::kPackedColor && code != StateGroup::kBookName) {
                    EXPECT_EQ(after[i].second.count(code), 1u) << i << ", group " << code;
                }
            }
        }
    }
};

TEST_F(ForeignLayerStates, SurviveEveryEditThatIsTakenBack)
{
    int states = 0;
    for (const QString& path : SharedDrawings::files()) {
        SCOPED_TRACE(qPrintable(path));
        std::unique_ptr<OdDbDatabase> drawing;
        try {
            drawing = readDrawing(path);
        } catch (const OdError&) {
            continue; // some are damaged on purpose
        }
        LayerStates service(*drawing);
        for (const QString& name : namesIn(*drawing)) {
            SCOPED_TRACE(qPrintable(name));
            ++states;
            const LayerLook before = LayerLook::of(*drawing);
            const GroupList groups = LayerStateDictionary(*drawing).state(name)->groups();

            drawing->startUndoRecord();
            service.setLayers(name, service.layers(name));
            EXPECT_TRUE(LayerStateDictionary(*drawing).state(name)->groups() == groups);
            service.setDescription(name, QStringLiteral("changed here"));
            EXPECT_EQ(service.description(name), QStringLiteral("changed here"));
            EXPECT_EQ(LayerStateDictionary(*drawing).state(name)->groups().size(), groups.size());
            const auto again = readDrawing(drawingBytes(*drawing), path);
            EXPECT_TRUE(LayerStateDictionary(*again).state(name)->groups()
                        == LayerStateDictionary(*drawing).state(name)->groups())
                << "saved and read again";
            drawing->undo();
            EXPECT_TRUE(LayerLook::of(*drawing) == before);

            drawing->startUndoRecord();
            service.restore(name, {LayerStateMask::kAll, true, false});
            expectKeptBySaving(service, name);
            EXPECT_EQ(drawing->audit(), QStringList());
            drawing->undo();
            EXPECT_TRUE(LayerLook::of(*drawing) == before);
        }
    }
    EXPECT_GE(states, 5);
}

TEST_F(ForeignLayerStates, AreListedAndRestored)
{
    const auto drawing =
        readDrawing(SharedDrawings::file(QStringLiteral("haplokuon+netDxf__sample.dxf")));
    LayerStates states(*drawing);
    const auto all = states.list();
    ASSERT_EQ(all.size(), 2u);
    EXPECT_EQ(all[0].name, QStringLiteral("LayerState1"));
    for (const LayerStateSummary& state : all) {
        EXPECT_EQ(states.restoreMask(state.name), 2047);
        EXPECT_EQ(states.layers(state.name).size(), 7u);
        for (const LayerInfoInLS& info : states.layers(state.name)) {
            EXPECT_FALSE(info.layerId.isNull());
            EXPECT_FALSE(info.linetypeId.isNull());
        }
    }
    EXPECT_NE(LayerStateDictionary(*drawing).state(all[0].name)->groups(),
              LayerStateDictionary(*drawing).state(all[1].name)->groups());
    for (const LayerStateSummary& state : all) {
        drawing->startUndoRecord();
        states.restore(state.name, {LayerStateMask::kAll, false, false});
        auto saved = states.layers(state.name);
        for (const LayerInfoInLS& info : saved) {
            const auto layer = info.layerId.safeOpenObject<OdDbLayerTableRecord>();
            EXPECT_EQ(layer->isOff(), !info.has(LayerInfoInLS::kOn)) << qPrintable(info.name);
            EXPECT_EQ(layer->isLocked(), info.has(LayerInfoInLS::kLocked));
            EXPECT_EQ(layer->color(), info.fullColor());
            EXPECT_EQ(layer->linetypeObjectId(), info.linetypeId);
        }
    }
}

TEST_F(ForeignLayerStates, AgreeWithTheLayersTheyWereTakenFrom)
{
    const auto drawing = readDrawing(
        SharedDrawings::file(QStringLiteral("DomCR+ACadSharp__sample_AC1032_ascii.dxf")));
    LayerStates states(*drawing);
    EXPECT_TRUE(states.list().empty()) << "the snapshot of a named view is hidden";
    const auto layers = states.layers(QStringLiteral("ACAD_VIEWS_view_custom"));
    ASSERT_EQ(layers.size(), 14u);
    int odd = 0;
    for (const LayerInfoInLS& info : layers) {
        const auto layer = info.layerId.safeOpenObject<OdDbLayerTableRecord>();
        EXPECT_EQ(info.has(LayerInfoInLS::kOn), !layer->isOff()) << qPrintable(info.name);
        EXPECT_EQ(info.has(LayerInfoInLS::kFrozen), layer->isFrozen());
        EXPECT_EQ(info.has(LayerInfoInLS::kLocked), layer->isLocked());
        EXPECT_EQ(info.has(LayerInfoInLS::kPlottable), layer->isPlottable());
        EXPECT_EQ(info.has(LayerInfoInLS::kFrozenInNewViewports), layer->VPDFLT());
        EXPECT_EQ(info.fullColor(), layer->color()) << qPrintable(info.name);
        EXPECT_EQ(info.lineWeight, layer->lineWeight());
        EXPECT_EQ(info.linetypeId, layer->linetypeObjectId());
        odd += info.flags == (LayerInfoInLS::kOn | LayerInfoInLS::kPlottable) ? 0 : 1;
    }
    EXPECT_EQ(odd, 5) << "off, frozen, locked, not plotted, frozen in new viewports";
}

} // namespace
