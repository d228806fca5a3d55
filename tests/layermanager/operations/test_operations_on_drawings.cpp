#include "database/objects/OdDbLayout.h"
#include "database/values/OdError.h"
#include "layermanager/LayerDrawing.h"
#include "layermanager/layers/operations/LayerActions.h"
#include "layermanager/layers/operations/LayerDeletion.h"
#include "layermanager/layers/operations/LayerOperations.h"
#include "layermanager/layers/operations/LayerOverrides.h"
#include "layermanager/layers/operations/NewLayer.h"
#include "sdk/CKestPreferenceManager.h"
#include "support/FakeHost.h"
#include "support/drawings/SharedDrawings.h"

#include <QScopedValueRollback>

#include <functional>
#include <gtest/gtest.h>
#include <set>

namespace {

using Layers = std::vector<OdDbObjectId>;

/// Operations on all layers of drawings that other programs made.
class OperationsOnDrawings : public testing::Test
{
protected:
    void SetUp() override { KEST_GTEST_NEEDS_DRAWINGS(); }

    using Visit = std::function<void(OdDbDatabase&)>;
    using Operation = std::function<LayerOutcome(OdDbDatabase&, const Layers&)>;

    /// Each drawing that can be read, in its first sheet with viewports where it has one.
    void visitAll(const Visit& visit)
    {
        SharedDrawings::eachReadable([&](const QString& path, std::unique_ptr<OdDbDatabase> read) {
            SCOPED_TRACE(qPrintable(path));
            OdDbDatabase& drawing = m_host.open(std::move(read), path);
            for (const OdDbObjectId layout : drawing.layouts()) {
                const auto opened = layout.safeOpenObject<OdDbLayout>();
                if (opened->getViewportArray().empty())
                    continue;
                drawing.setCTAB(opened->getLayoutName());
                break;
            }
            drawing.endUndoRecord();
            visit(drawing);
            m_host.close(drawing);
        });
    }

    /// Runs an operation, takes it back and forth, and takes it back in the end.
    static void runThereAndBack(OdDbDatabase& drawing, const char* what, const Operation& operation)
    {
        SCOPED_TRACE(what);
        const QByteArray before = drawingBytes(drawing);
        const QStringList oldFaults = drawing.audit();
        const LayerOutcome outcome = operation(drawing, drawing.layerTable().records());
        drawing.endUndoRecord();
        const QByteArray after = drawingBytes(drawing);
        EXPECT_EQ(oldFaults, drawing.audit());
        if (outcome.isEmpty()) {
            EXPECT_TRUE(before == after);
            return;
        }
        EXPECT_TRUE(drawing.undo());
        EXPECT_TRUE(before == drawingBytes(drawing)) << "undone";
        EXPECT_TRUE(drawing.redo());
        EXPECT_TRUE(after == drawingBytes(drawing)) << "redone";
        EXPECT_EQ(oldFaults, drawing.audit());
        EXPECT_TRUE(drawing.undo());
    }

    static std::set<QString> namesOf(const OdDbDatabase& drawing)
    {
        std::set<QString> names;
        for (const QString& name : layer_drawing::names(drawing.layerTable().records()))
            names.insert(name);
        return names;
    }

    FakeHost m_host;
    QScopedValueRollback<bool> m_combine{
        CKestPreferenceManager::instance().CombineLayerPropPreference, false};
};

} // namespace

TEST_F(OperationsOnDrawings, CanEachBeTakenBackAndForthToTheByte)
{
    const std::pair<const char*, Operation> operations[] = {
        {"lock",
         [](OdDbDatabase& drawing, const Layers& all) {
             return toggleLayerFlag(drawing, LayerColumn::Locked, all.front(), all);
         }},
        {"freeze",
         [](OdDbDatabase& drawing, const Layers& all) {
             return giveEachLayer(drawing, LayerColumn::Freeze, true, all);
         }},
        {"freeze in the viewport",
         [](OdDbDatabase& drawing, const Layers& all) {
             return giveEachLayer(drawing, LayerColumn::VpFreeze, true, all);
         }},
        {"color in the viewport",
         [](OdDbDatabase& drawing, const Layers& all) {
             return giveEachLayer(drawing, LayerColumn::VpColor, OdCmColor::fromIndex(202), all);
         }},
        {"freeze in all viewports",
         [](OdDbDatabase& drawing, const Layers& all) {
             return freezeInAllViewports(drawing, all, true);
         }},
        {"thaw in all viewports",
         [](OdDbDatabase& drawing, const Layers& all) {
             return freezeInAllViewports(drawing, all, false);
         }},
        {"remove overrides",
         [](OdDbDatabase& drawing, const Layers& all) {
             return removeLayerOverrides(drawing, OverrideScope::AllViewports, all);
         }},
        {"isolate",
         [](OdDbDatabase& drawing, const Layers& all) {
             return isolateLayers(drawing, {&all.back(), 1}, all);
         }},
        {"reconcile",
         [](OdDbDatabase& drawing, const Layers& all) { return reconcileLayers(drawing, all); }},
        {"new layer",
         [](OdDbDatabase& drawing, const Layers& all) {
             return makeNewLayer(drawing, NewLayerKind::FrozenInAllViewports, all.back());
         }},
        {"delete",
         [](OdDbDatabase& drawing, const Layers& all) { return deleteLayers(drawing, all); }},
    };
    int drawings = 0;
    visitAll([&](OdDbDatabase& drawing) {
        ++drawings;
        for (const auto& [what, operation] : operations)
            runThereAndBack(drawing, what, operation);
    });
    EXPECT_GT(drawings, 0);
}

TEST_F(OperationsOnDrawings, DeleteExactlyTheLayersThatNothingInTheSavedDrawingNeeds)
{
    std::size_t deleted = 0;
    visitAll([&](OdDbDatabase& drawing) {
        const LayerOutcome outcome = deleteLayers(drawing, drawing.layerTable().records());
        deleted += outcome.changed.size();
        for (const LayerRefusal& refusal : outcome.refused)
            EXPECT_FALSE(refusal.why.isEmpty());
        // A layer that an entity still names would come back when the drawing is read.
        const auto again = readDrawing(drawingBytes(drawing), QStringLiteral("again.dxf"));
        EXPECT_EQ(namesOf(drawing), namesOf(*again));
        EXPECT_EQ(again->audit(), drawing.audit());
    });
    EXPECT_GT(deleted, 0u);
}
