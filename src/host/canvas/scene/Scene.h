#pragma once

#include "host/canvas/display/DisplayList.h"
#include "host/canvas/display/TextPool.h"
#include "host/canvas/scene/lines/Linetypes.h"
#include "host/canvas/scene/lines/PenTable.h"

#include <memory>

/// Everything that can be painted of a drawing, as far as it was asked for: blocks by index, the
/// layers that entities use, their pens, texts. Grows when another space is shown; what is there
/// stays.
class Scene
{
public:
    explicit Scene(quint32 layerZeroSlot) { layerIndex(layerZeroSlot); }

    /// Index of a block, or kNoIndex.
    quint32 find(quint32 blockSlot) const { return m_index.value(blockSlot, kNoIndex); }
    quint32 add(quint32 blockSlot, Vec2 basePoint)
    {
        const auto index = static_cast<quint32>(m_blocks.size());
        m_blocks.push_back(std::make_unique<DisplayList>(blockSlot, basePoint));
        m_index.insert(blockSlot, index);
        return index;
    }
    DisplayList& block(quint32 index) { return *m_blocks[index]; }
    const DisplayList& block(quint32 index) const { return *m_blocks[index]; }
    quint32 blockCount() const { return static_cast<quint32>(m_blocks.size()); }

    /// Index of a layer's slot, made known when it is new.
    quint32 layerIndex(quint32 layerSlot)
    {
        if (layerSlot >= m_layerIndex.size())
            m_layerIndex.resize(layerSlot + 1, kNoIndex);
        quint32& index = m_layerIndex[layerSlot];
        if (index == kNoIndex) {
            index = static_cast<quint32>(m_layers.size());
            m_layers.push_back(layerSlot);
        }
        return index;
    }
    /// As layerIndex(), but kNoIndex for a layer that no entity uses.
    quint32 findLayer(quint32 layerSlot) const
    {
        return layerSlot < m_layerIndex.size() ? m_layerIndex[layerSlot] : kNoIndex;
    }
    /// Slots of the layers by index.
    const std::vector<quint32>& layers() const { return m_layers; }

    PenTable& pens() { return m_pens; }
    const PenTable& pens() const { return m_pens; }
    Linetypes& linetypes() { return m_linetypes; }
    const Linetypes& linetypes() const { return m_linetypes; }
    TextPool& texts() { return m_texts; }
    const TextPool& texts() const { return m_texts; }

private:
    std::vector<std::unique_ptr<DisplayList>> m_blocks;
    QHash<quint32, quint32> m_index;
    std::vector<quint32> m_layers;
    std::vector<quint32> m_layerIndex; ///< by slot; tables stand at the start of a drawing
    PenTable m_pens;
    Linetypes m_linetypes;
    TextPool m_texts;
};
