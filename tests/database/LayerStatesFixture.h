#pragma once

#include "database/objects/OdDbDictionary.h"
#include "database/objects/OdDbEntity.h"
#include "database/objects/OdDbXrecord.h"
#include "database/states/LayerStateDictionary.h"
#include "database/states/LayerStateMask.h"
#include "database/states/LayerStates.h"
#include "database/tables/OdDbLayerTable.h"
#include "database/tables/OdDbLayerTableRecord.h"
#include "io/DrawingFile.h"
#include "support/drawings/DrawingText.h"

#include <functional>
#include <gtest/gtest.h>

/// Everything that operations on layer states may change, as one value.
struct LayerLook
{
    std::vector<LayerState> layers;
    std::vector<DictionaryEntry> states;
    std::vector<GroupList> records;
    std::vector<std::vector<OdDbObjectId>> frozen; ///< per viewport of the current layout
    QStringList linetypes;

    bool operator==(const LayerLook&) const = default;

    static LayerLook of(OdDbDatabase& drawing)
    {
        LayerLook look;
        for (const OdDbObjectId id : drawing.layerTable().records())
            look.layers.push_back(id.safeOpenObject<OdDbLayerTableRecord>()->state());
        for (const OdDbObjectId id : drawing.table(OdDbTableKind::Linetype).records())
            look.linetypes.append(id.safeOpenObject<OdDbSymbolTableRecord>()->getName());
        if (const auto states = LayerStateDictionary(drawing).open())
            look.states = states->entries();
        for (const DictionaryEntry& entry : look.states) {
            const auto record = entry.value.openObject<OdDbXrecord>();
            look.records.push_back(record ? record->groups() : GroupList());
        }
        for (const OdDbObjectId id : drawing.viewportsOf(drawing.getPaperSpaceId()))
            look.frozen.push_back(id.safeOpenObject<OdDbViewport>()->frozenLayers());
        return look;
    }
};

/// Layers 0, Walls (dashed), Roof and Floor, two sheets as DrawingText makes them.
class LayerStatesFixture : public testing::Test
{
protected:
    void SetUp() override
    {
        write("Walls")->setLinetypeObjectId(linetype("DASHED"));
        m_drawing->endUndoRecord();
    }

    OdDbObjectId layer(const char* name) const
    {
        return m_drawing->layerTable().getAt(QString::fromUtf8(name));
    }
    OdDbLayerTableRecordPtr read(const char* name) const
    {
        return layer(name).safeOpenObject<OdDbLayerTableRecord>();
    }
    OdDbLayerTableRecordPtr write(const char* name) const
    {
        return layer(name).safeOpenObject<OdDbLayerTableRecord>(OdDb::kForWrite);
    }
    OdDbObjectId linetype(const char* name) const
    {
        return m_drawing->table(OdDbTableKind::Linetype).getAt(QString::fromUtf8(name));
    }
    OdDbObjectId viewport(quint64 handle) const
    {
        return m_drawing->getOdDbObjectId(OdDbHandle(handle));
    }
    void freezeIn(quint64 viewportHandle, const char* name) const
    {
        viewport(viewportHandle)
            .safeOpenObject<OdDbViewport>(OdDb::kForWrite)
            ->freezeLayersInViewport({layer(name)});
    }
    bool isFrozenIn(quint64 viewportHandle, const char* name) const
    {
        return viewport(viewportHandle)
            .safeOpenObject<OdDbViewport>()
            ->isLayerFrozenInViewport(layer(name));
    }
    /// The groups of a state.
    GroupList groups(const QString& name) const
    {
        return LayerStateDictionary(*m_drawing).state(name)->groups();
    }
    /// A state as another program may have stored it.
    void store(const QString& name, const GroupList& groups) const
    {
        LayerStateDictionary(*m_drawing).create(name)->setGroups(groups);
    }
    void restore(const QString& name, int mask = LayerStateMask::kAll, bool turnOffOthers = false,
                 bool asOverrides = false)
    {
        m_states.restore(name, {mask, turnOffOthers, asOverrides});
    }
    bool isSame(const QString& name) const
    {
        for (const LayerStateSummary& state : m_states.list()) {
            if (state.name == name)
                return state.sameAsDrawing;
        }
        ADD_FAILURE() << "no state " << qPrintable(name);
        return false;
    }

    /// Runs an edit in an undo record of its own, takes it back and does it again.
    void expectUndoable(const std::function<void()>& edit)
    {
        const LayerLook before = LayerLook::of(*m_drawing);
        m_drawing->startUndoRecord();
        edit();
        m_drawing->endUndoRecord();
        const LayerLook after = LayerLook::of(*m_drawing);
        EXPECT_FALSE(before == after) << "nothing was changed";
        EXPECT_EQ(m_drawing->audit(), QStringList());
        ASSERT_TRUE(m_drawing->undo());
        EXPECT_TRUE(LayerLook::of(*m_drawing) == before) << "undo";
        EXPECT_EQ(m_drawing->audit(), QStringList());
        ASSERT_TRUE(m_drawing->redo());
        EXPECT_TRUE(LayerLook::of(*m_drawing) == after) << "redo";
        EXPECT_EQ(m_drawing->audit(), QStringList());
    }
    /// The result code of the error that is raised; Ok where there is none.
    static OdResult failureOf(const std::function<void()>& call)
    {
        try {
            call();
        } catch (const OdError& error) {
            EXPECT_TRUE(error.description().endsWith(QLatin1Char('.')));
            return error.code();
        }
        return OdResult::Ok;
    }

    std::unique_ptr<OdDbDatabase> m_drawing = readDrawing(
        DrawingText::withLayers({{"Walls"}, {"Roof"}, {"Floor"}}), QStringLiteral("states.dxf"));
    LayerStates m_states{*m_drawing};
    const QString m_plan = QStringLiteral("Plan");
};
