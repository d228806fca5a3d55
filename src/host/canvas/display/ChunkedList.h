#pragma once

#include "host/canvas/geometry/Box2.h"

#include <QtGlobal>

#include <vector>

/// Where an item stands on the line that it is part of, for linetypes that run on from item to
/// item.
struct PathRun
{
    double along = 0; ///< length of the line before the item
    double total = 0; ///< length of the whole line; 0: the item is all of it
};

/// Items in chunks, each chunk with its bounding box and the range of entities it came from: what a
/// painter needs to pass over many items at a glance.
template <class Item>
class ChunkedList
{
public:
    static constexpr std::size_t kChunkSize = 64;

    struct Chunk
    {
        Box2 box;
        quint32 firstOwner;
        quint32 lastOwner;
    };

    /// Owner of items that an edit of their entity has replaced.
    static constexpr quint32 kRetired = 0xFFFFFFFEu;

    /// As append(), for lists that are arranged later: chunks are there once sortByPlace() was
    /// called. Reading a drawing visits its many lists by turns, so every byte less counts.
    void collect(const Item& item, quint32 owner, const PathRun& run)
    {
        if (run.total > 0 || !m_runs.empty()) {
            m_runs.resize(m_items.size());
            m_runs.push_back(run);
        }
        m_items.push_back(item);
        m_owners.push_back(owner);
    }
    /// `owner`: slot of the entity of the space or block that the item belongs to.
    void append(const Item& item, const Box2& box, quint32 owner, const PathRun& run = {})
    {
        // Most lists have items that stand for themselves only.
        if (run.total > 0 || !m_runs.empty()) {
            m_runs.resize(m_items.size());
            m_runs.push_back(run);
        }
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
    PathRun run(std::size_t i) const { return m_runs.empty() ? PathRun() : m_runs[i]; }

    const std::vector<Chunk>& chunks() const { return m_chunks; }
    std::size_t chunkBegin(std::size_t chunk) const { return chunk * kChunkSize; }
    std::size_t chunkEnd(std::size_t chunk) const
    {
        return std::min((chunk + 1) * kChunkSize, m_items.size());
    }
    /// Brings items that are near each other into one chunk; their order is lost. For lists whose
    /// order does not show.
    void sortByPlace();
    /// Items of the owners, which are in ascending order, become those of kRetired.
    void retire(const std::vector<quint32>& owners);
    void setChunkBox(std::size_t chunk, const Box2& box) { m_chunks[chunk].box = box; }

private:
    std::vector<Item> m_items;
    std::vector<quint32> m_owners;
    std::vector<PathRun> m_runs; ///< empty, or one for each item
    std::vector<Chunk> m_chunks;
};

template <class Item>
void ChunkedList<Item>::retire(const std::vector<quint32>& owners)
{
    for (std::size_t chunk = 0; chunk < m_chunks.size(); ++chunk) {
        Chunk& head = m_chunks[chunk];
        const auto first = std::lower_bound(owners.begin(), owners.end(), head.firstOwner);
        if (first == owners.end() || *first > head.lastOwner)
            continue;
        for (std::size_t i = chunkBegin(chunk); i < chunkEnd(chunk); ++i) {
            if (std::binary_search(first, owners.end(), m_owners[i])) {
                m_owners[i] = kRetired;
                head.lastOwner = kRetired;
            }
        }
    }
}

template <class Item>
void ChunkedList<Item>::sortByPlace()
{
    if (isEmpty())
        return;
    Box2 all;
    for (const Item& item : m_items)
        all.add(item.place());
    // About a chunk's worth of items in each cell of a grid, cells in winding rows.
    const double cellsPerSide = std::ceil(std::sqrt(double(size()) / double(kChunkSize)));
    const auto cellOf = [&](double at, double low, double extent) {
        return extent > 0
            ? std::min(std::floor((at - low) / extent * cellsPerSide), cellsPerSide - 1)
            : 0.0;
    };
    const auto side = static_cast<std::size_t>(cellsPerSide);
    std::vector<quint32> starts(side * side + 1, 0);
    std::vector<quint32> cells(size());
    for (std::size_t i = 0; i < size(); ++i) {
        const Vec2 centre = m_items[i].place();
        const auto row = static_cast<std::size_t>(cellOf(centre.y, all.minY, all.height()));
        const auto column = static_cast<std::size_t>(cellOf(centre.x, all.minX, all.width()));
        cells[i] = static_cast<quint32>(row * side + (row % 2 == 0 ? column : side - 1 - column));
        ++starts[cells[i] + 1];
    }
    for (std::size_t cell = 1; cell < starts.size(); ++cell)
        starts[cell] += starts[cell - 1];
    std::vector<quint32> order(size());
    for (quint32 i = 0; i < size(); ++i)
        order[starts[cells[i]]++] = i;

    ChunkedList sorted;
    sorted.m_items.reserve(size());
    sorted.m_owners.reserve(size());
    sorted.m_chunks.reserve(size() / kChunkSize + 1);
    for (const quint32 i : order)
        sorted.append(m_items[i], m_items[i].box(), m_owners[i], run(i));
    *this = std::move(sorted);
}
