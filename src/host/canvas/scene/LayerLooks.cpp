#include "host/canvas/scene/LayerLooks.h"

#include "database/drawing/OdDbDatabase.h"
#include "database/objects/OdDbEntity.h"
#include "database/tables/OdDbLayerTableRecord.h"
#include "host/canvas/scene/Scene.h"

namespace {

/// Colour and lines of a layer, in a viewport where one is given.
void readProperties(LayerLooks::Look& look, const OdDbLayerTableRecord& record,
                    const OdDbDatabase& database, Scene& scene, OdDbObjectId viewport)
{
    look.colour = record.color(viewport).color();
    look.linetype = scene.linetypes().indexOf(database, record.linetypeObjectId(viewport));
    look.weight = record.lineWeight(viewport);
    look.alpha = alphaOf(record.transparency(viewport));
}

} // namespace

quint8 alphaOf(quint32 transparency)
{
    constexpr quint32 kStated = 0x02000000;
    // What would not be seen at all is a mistake of the file.
    constexpr quint32 kFaintest = 25;
    return (transparency & kStated) != 0
        ? static_cast<quint8>(std::max(transparency & 0xFFu, kFaintest))
        : quint8{255};
}

void LayerLooks::extend(const OdDbDatabase& database, Scene& scene)
{
    const auto first = static_cast<quint32>(m_looks.size());
    m_looks.resize(scene.layers().size());
    for (quint32 layer = first; layer < m_looks.size(); ++layer)
        refresh(database, scene, layer);
}

void LayerLooks::refresh(const OdDbDatabase& database, Scene& scene, quint32 layer)
{
    const OdDbObjectId id = database.idOfSlot(scene.layers()[layer]);
    const auto record = id.openObject<OdDbLayerTableRecord>(OdDb::kForRead, true);
    if (!record)
        return;
    const LayerState& state = record->state();
    Look& look = m_looks[layer];
    look.isFrozen = state.frozen;
    look.isOff = state.off;
    look.isLocked = state.locked;
    look.hasOverrides = !state.overrides.empty();
    readProperties(look, *record, database, scene, {});
}

LayerLooks LayerLooks::inViewport(const OdDbDatabase& database, Scene& scene,
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
            readProperties(looks.m_looks[layer], *record, database, scene, viewport);
    }
    return looks;
}
