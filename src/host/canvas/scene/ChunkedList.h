#pragma once

#include "host/canvas/geometry/Box2.h"

#include <QtGlobal>

#include <vector>

/// Items in chunks, each chunk with its bounding box and the range of entities it came from: what a
/// painter needs to pass over 256 items at a glance.
template <class Item>
class ChunkedList
{
public:
    static constexpr std::size_t kChunkSize = 256;

    struct Chunk
    {
        Box2 box;
        quint32 firstOwner;
        quint32 lastOwner;
    };

    /// `owner`: slot of the entity of the space or block that the item belongs to.
    void append(const Item& item, const Box2& box, quint32 owner)
    {
        if (m_items.size() % kChunkSize == 0)
            m_chunks.push_back({{}, owner, owner});
        Chunk& chunk = m_chunks.back();
        chunk.box.add(box);
        chunk.firstOwner = std::min(chunk.firstOwner, owner);
        chunk.lastOwner = std::max(chunk.lastOwner, owner);
        m_items.push_back(item);
        m_owners.push_back(owner);
    }

    std::size_t size() const { return m_items.size(); }
    bool isEmpty() const { return m_items.empty(); }
    const Item& operator[](std::size_t i) const { return m_items[i]; }
    Item& operator[](std::size_t i) { return m_items[i]; }
    quint32 owner(std::size_t i) const { return m_owners[i]; }

    const std::vector<Chunk>& chunks() const { return m_chunks; }
    std::size_t chunkBegin(std::size_t chunk) const { return chunk * kChunkSize; }
    std::size_t chunkEnd(std::size_t chunk) const
    {
        return std::min((chunk + 1) * kChunkSize, m_items.size());
    }
    void setChunkBox(std::size_t chunk, const Box2& box) { m_chunks[chunk].box = box; }

private:
    std::vector<Item> m_items;
    std::vector<quint32> m_owners;
    std::vector<Chunk> m_chunks;
};
