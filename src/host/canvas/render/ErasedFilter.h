#pragma once

#include <QtGlobal>

#include <set>
#include <vector>

/// Entities that are erased at the moment. Their geometry stays, for they may come back. Retired
/// items are erased for good.
class ErasedFilter
{
public:
    void set(quint32 slot, bool erased)
    {
        if (erased)
            m_slots.insert(slot);
        else
            m_slots.erase(slot);
        if (m_isErased.size() <= slot)
            m_isErased.resize(slot + 1);
        m_isErased[slot] = erased;
    }
    bool isErased(quint32 slot) const
    {
        return slot < m_isErased.size() ? m_isErased[slot] : slot == kRetired;
    }
    /// Whether any slot of [first, last] is erased.
    bool touches(quint32 first, quint32 last) const
    {
        const auto next = m_slots.lower_bound(first);
        return next != m_slots.end() && *next <= last;
    }
    template <class Chunk>
    bool touches(const Chunk& chunk) const
    {
        return touches(chunk.firstOwner, chunk.lastOwner);
    }

private:
    /// What edits have replaced, see ChunkedList.
    static constexpr quint32 kRetired = 0xFFFFFFFEu;

    std::set<quint32> m_slots{kRetired}; ///< for ranges
    std::vector<bool> m_isErased; ///< for single ones
};
