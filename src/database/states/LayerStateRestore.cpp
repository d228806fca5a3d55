#include "database/states/LayerStateRestore.h"

#include "database/drawing/OdDbDatabase.h"
#include "database/states/LayerStateMask.h"
#include "database/states/SavedSettings.h"
#include "database/states/stored/StoredLayerReader.h"
#include "database/store/NameIndex.h"
#include "database/store/ObjectStore.h"
#include "database/tables/OdDbLayerTable.h"

#include <QCoreApplication>

LayerStateRestore::LayerStateRestore(OdDbDatabase& drawing, const Options& options)
    : m_drawing(drawing)
    , m_options(options)
    , m_layers(drawing)
{ }

void LayerStateRestore::run(const GroupList& state)
{
    if (m_options.asOverrides && !m_layers.viewport())
        throw OdError(OdResult::NotApplicable,
                      QCoreApplication::translate(
                          "LayerStates",
                          "Only a layout with an active viewport can take viewport overrides."));
    std::vector<bool> restored(m_drawing.store().size(), false);
    StoredLayerReader reader(state);
    for (StoredLayer saved; reader.next(saved);) {
        const OdDbObjectId id = m_layers.layer(saved);
        if (id.isNull())
            continue;
        restored[id.slot()] = true;
        restoreLayer(saved, id);
        collectVisibility(saved, id);
    }
    if (m_options.turnOffOthers)
        turnOff(restored);
    if (!m_layers.viewport() || (m_freeze.empty() && m_thaw.empty()))
        return;
    const auto viewport =
        m_layers.viewport()->objectId().safeOpenObject<OdDbViewport>(OdDb::kForWrite);
    viewport->thawLayersInViewport(m_thaw);
    viewport->freezeLayersInViewport(m_freeze);
}

void LayerStateRestore::restoreLayer(const StoredLayer& saved, OdDbObjectId id)
{
    const auto layer = id.safeOpenObject<OdDbLayerTableRecord>(OdDb::kForWrite);
    if (m_options.asOverrides)
        SavedSettings::applyAsOverrides(saved, m_options.mask, m_layers,
                                        m_layers.viewport()->objectId(), *layer);
    else
        SavedSettings::apply(saved, m_options.mask, m_layers, *layer);
}

void LayerStateRestore::collectVisibility(const StoredLayer& saved, OdDbObjectId id)
{
    using enum LayerStateMask::Bit;
    if (!m_layers.viewport() || !saved.flags)
        return;
    // As overrides, a layer that was off or frozen is frozen in the viewport instead.
    const int acting = m_options.asOverrides ? kOn | kFrozen | kViewportFrozen : kViewportFrozen;
    const int mask = m_options.mask & acting;
    if (mask == 0)
        return;
    quint32 hiding = 0;
    hiding |= (mask & kOn) != 0 ? StoredLayer::kOff : 0u;
    hiding |= (mask & kFrozen) != 0 ? StoredLayer::kFrozen : 0u;
    hiding |= (mask & kViewportFrozen) != 0 ? StoredLayer::kFrozenInViewport : 0u;
    const bool frozen = (*saved.flags & hiding) != 0;
    if (frozen != m_layers.viewport()->isLayerFrozenInViewport(id))
        (frozen ? m_freeze : m_thaw).push_back(id);
}

void LayerStateRestore::turnOff(const std::vector<bool>& restored)
{
    const OdDbLayerTable& table = m_drawing.layerTable();
    const std::vector<quint32>& slotsInOrder = table.slotsInOrder();
    for (quint32 position = 0; position < slotsInOrder.size(); ++position) {
        const quint32 slot = slotsInOrder[position];
        // Reserved layers are nobody's to switch.
        if (!table.names().isActive(position) || table.names().key(position).startsWith('*')
            || restored[slot])
            continue;
        const OdDbObjectId id = m_drawing.idOfSlot(slot);
        if (id == m_drawing.getCLAYER())
            continue;
        if (m_options.asOverrides)
            m_freeze.push_back(id);
        else
            id.safeOpenObject<OdDbLayerTableRecord>(OdDb::kForWrite)->setIsOff(true);
    }
}
