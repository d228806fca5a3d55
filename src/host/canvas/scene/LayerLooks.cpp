#include "host/canvas/scene/LayerLooks.h"

#include "database/OdDbDatabase.h"
#include "database/OdDbEntity.h"
#include "database/OdDbLayerTableRecord.h"
#include "host/canvas/scene/Scene.h"

void LayerLooks::extend(const OdDbDatabase& database, const Scene& scene)
{
    const auto first = static_cast<quint32>(m_looks.size());
    m_looks.resize(scene.layers().size());
    for (quint32 layer = first; layer < m_looks.size(); ++layer)
        refresh(database, scene, layer);
}

void LayerLooks::refresh(const OdDbDatabase& database, const Scene& scene, quint32 layer)
{
    const OdDbObjectId id = database.idOfSlot(scene.layers()[layer]);
    const auto record = id.openObject<OdDbLayerTableRecord>(OdDb::kForRead, true);
    if (!record)
        return;
    const LayerState& state = record->state();
    m_looks[layer] = {state.color.color(), state.frozen, state.off, state.locked,
                      !state.overrides.empty()};
}

LayerLooks LayerLooks::inViewport(const OdDbDatabase& database, const Scene& scene,
                                  OdDbObjectId viewport) const
{
    LayerLooks looks = *this;
    if (const auto record = viewport.openObject<OdDbViewport>()) {
        for (const OdDbObjectId id : record->frozenLayers()) {
            const quint32 layer = scene.findLayer(id.slot());
            if (layer != kNoIndex)
                looks.m_looks[layer].isFrozen = true;
        }
    }
    for (quint32 layer = 0; layer < looks.m_looks.size(); ++layer) {
        if (!looks.m_looks[layer].hasOverrides)
            continue;
        const OdDbObjectId id = database.idOfSlot(scene.layers()[layer]);
        if (const auto record = id.openObject<OdDbLayerTableRecord>(OdDb::kForRead, true))
            looks.m_looks[layer].colour = record->color(viewport).color();
    }
    return looks;
}
