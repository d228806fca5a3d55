#include "database/states/LayerStateComparison.h"

#include "database/drawing/OdDbDatabase.h"
#include "database/states/LayerStateMask.h"
#include "database/states/stored/StoredLayerReader.h"
#include "database/store/NameIndex.h"
#include "database/tables/OdDbLayerTable.h"

LayerStateComparison::LayerStateComparison(const DrawingLayers& drawing)
    : m_drawing(drawing)
{
    const OdDbLayerTable& layers = drawing.drawing().layerTable();
    const std::vector<quint32>& slotsInOrder = layers.slotsInOrder();
    if (!slotsInOrder.empty())
        m_required.resize(slotsInOrder.back() + 1, false); // slots ascend
    for (quint32 position = 0; position < slotsInOrder.size(); ++position) {
        if (!layers.names().isActive(position) || layers.names().key(position).startsWith('*'))
            continue;
        m_required[slotsInOrder[position]] = true;
        ++m_requiredCount;
    }
}

bool LayerStateComparison::matches(const GroupList& groups, int mask)
{
    std::vector<bool> waiting = m_required;
    std::size_t left = m_requiredCount;
    StoredLayerReader reader(groups);
    for (StoredLayer stored; reader.next(stored);) {
        const OdDbObjectId id = m_drawing.layer(stored);
        if (id.isNull() && m_drawing.wasErased(stored))
            continue;
        const auto layer = id.openObject<OdDbLayerTableRecord>();
        if (!layer || !sameSettings(*layer, stored, mask))
            return false;
        if (waiting[id.slot()]) {
            waiting[id.slot()] = false;
            --left;
        }
    }
    return left == 0;
}

bool LayerStateComparison::sameSettings(const OdDbLayerTableRecord& layer,
                                        const StoredLayer& stored, int mask) const
{
    using enum LayerStateMask::Bit;
    const LayerState& now = layer.state();
    quint32 flags = static_cast<quint32>(mask)
        & (kOn | kFrozen | kLocked | kPlot | kNewViewportFrozen); // the same bits in both
    if ((mask & kViewportFrozen) != 0 && m_drawing.viewport())
        flags |= StoredLayer::kFrozenInViewport;
    if (stored.flags && ((*stored.flags ^ m_drawing.storedFlags(layer)) & flags) != 0)
        return false;
    if ((mask & kColor) != 0) {
        const auto color = SavedValue::color(stored);
        if (color && *color != now.color)
            return false;
    }
    if ((mask & kLinetype) != 0) {
        const OdDbObjectId linetype = m_drawing.linetype(stored);
        if (!linetype.isNull() && linetype != now.linetype)
            return false;
    }
    if ((mask & kLineWeight) != 0 && stored.lineWeight && *stored.lineWeight != now.lineWeight)
        return false;
    if ((mask & kTransparency) != 0 && stored.transparency
        && SavedValue::comparableTransparency(*stored.transparency)
            != SavedValue::comparableTransparency(now.transparency))
        return false;
    return (mask & kPlotStyle) == 0 || !m_drawing.hasNamedPlotStyles() || stored.plotStyle.isEmpty()
        || m_drawing.plotStyle(layer).compare(QString::fromUtf8(stored.plotStyle),
                                              Qt::CaseInsensitive)
        == 0;
}
