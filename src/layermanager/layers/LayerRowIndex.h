#pragma once

#include "database/values/OdDbObjectId.h"

#include <vector>

/// Row of a layer in constant time. The rows themselves belong to somebody else and are handed in.
/// Single insertions and removals are noted; the index is made anew once they add up.
class LayerRowIndex
{
public:
    using Rows = std::vector<OdDbObjectId>;

    /// The row of `layer` in `rows`, or -1.
    int find(const Rows& rows, OdDbObjectId layer) const;

    /// All rows changed.
    void reset() { m_valid = false; }
    /// A row was put in before row `row` of `rowCount` (counted afterwards).
    void inserted(OdDbObjectId layer, int row, int rowCount);
    void removed();

private:
    static constexpr int kMaxShift = 64;

    void build(const Rows& rows) const;

    mutable bool m_valid = false;
    mutable quint32 m_firstSlot = 0;
    mutable std::vector<qint32>
        m_rowBySlot; ///< row when built, -1: none; by slot from the first one on
    mutable int m_insertions = 0; ///< since built; rows may lie this much further down
    mutable int m_removals = 0; ///< since built; rows may lie this much further up
};
