#include "database/tables/OdDbLayerTable.h"

#include "database/drawing/OdDbDatabase.h"
#include "database/store/NameIndex.h"
#include "database/store/ObjectStore.h"
#include "database/tables/OdDbLayerTableRecord.h"

OdDbObjectId OdDbLayerTable::add(const QString& name)
{
    return add(newLayerState(name));
}

OdDbObjectId OdDbLayerTable::add(const LayerState& state)
{
    auto layer = std::make_unique<OdDbLayerTableRecord>();
    layer->stateForLoading() = state;
    const OdDbObjectId added = addRecord(std::move(layer));
    if (state.reconciled)
        reconciledRecordsChanged(1);
    return added;
}

LayerState OdDbLayerTable::newLayerState(const QString& name) const
{
    LayerState state;
    state.name = name;
    state.linetype = database()->getLinetypeContinuousId();
    if (const auto zero = database()->getLayerZeroId().openObject<OdDbLayerTableRecord>())
        state.plotStyle = zero->state().plotStyle;
    return state;
}

void OdDbLayerTable::generateUsageData() const
{
    if (std::exchange(m_usesKnown, true))
        return;
    const ObjectStore& store = database()->store();
    const std::vector<quint32>& layers = store.layers();
    std::vector<quint32> counts(store.size(), 0);
    for (quint32 slot = 0; slot < layers.size(); ++slot) {
        if (layers[slot] < counts.size() && !store.has(slot, ObjectStore::kErased))
            ++counts[layers[slot]];
    }
    for (const quint32 layer : slotsInOrder()) {
        if (counts[layer] > 0)
            m_uses.emplace(layer, counts[layer]);
    }
}

quint32 OdDbLayerTable::useCount(quint32 layerSlot) const
{
    const auto it = m_uses.find(layerSlot);
    return it == m_uses.end() ? 0 : it->second;
}

void OdDbLayerTable::useChanged(quint32 layerSlot, int by)
{
    if (m_usesKnown)
        m_uses[layerSlot] += static_cast<quint32>(by);
}

bool OdDbLayerTable::hasReconciledBaseline() const
{
    if (!m_reconciledRecords) {
        int found = 0;
        for (const quint32 slot : slotsInOrder()) {
            const auto layer = database()->idOfSlot(slot).openObject<OdDbLayerTableRecord>();
            if (layer && layer->state().reconciled)
                ++found;
        }
        m_reconciledRecords = found;
    }
    return *m_reconciledRecords > 0;
}

void OdDbLayerTable::startReconciledBaseline()
{
    if (hasReconciledBaseline())
        return;
    for (const OdDbObjectId id : records())
        id.safeOpenObject<OdDbLayerTableRecord>(OdDb::kForWrite)->setIsReconciled(true);
}

void OdDbLayerTable::reconciledRecordsChanged(int by)
{
    if (m_reconciledRecords)
        *m_reconciledRecords += by;
}

const std::vector<quint32>& OdDbLayerTable::nameRanks() const
{
    if (m_ranks.size() != slotsInOrder().size())
        m_ranks = names().ranks();
    return m_ranks;
}
