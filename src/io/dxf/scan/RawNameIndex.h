#pragma once

#include <QByteArrayView>

#include <cstring>
#include <string>
#include <vector>

/// Finds the number of a name by its exact bytes; made for one look-up per entity.
class RawNameIndex
{
public:
    static constexpr quint32 kNotFound = 0xFFFFFFFFu;

    static quint64 hash(QByteArrayView name)
    {
        constexpr quint64 kMultiplier = 0x9DDFEA08EB382D69ull;
        const char* at = name.data();
        qsizetype left = name.size();
        quint64 h = static_cast<quint64>(left) * kMultiplier;
        for (; left >= 8; left -= 8, at += 8) {
            quint64 block;
            std::memcpy(&block, at, 8);
            h = (h ^ block) * kMultiplier;
            h ^= h >> 32;
        }
        quint64 tail = 0;
        std::memcpy(&tail, at, static_cast<std::size_t>(left));
        h = (h ^ tail) * kMultiplier;
        return h ^ (h >> 29);
    }

    quint32 find(QByteArrayView name) const { return find(name, hash(name)); }
    quint32 find(QByteArrayView name, quint64 h) const
    {
        if (m_cells.empty())
            return kNotFound;
        const std::size_t mask = m_cells.size() - 1;
        for (std::size_t at = h & mask; m_cells[at].number != kNotFound; at = (at + 1) & mask) {
            const Cell& cell = m_cells[at];
            if (cell.hash == static_cast<quint32>(h >> 32)
                && cell.length == static_cast<quint32>(name.size())
                && std::memcmp(m_names.data() + cell.offset, name.data(),
                               static_cast<std::size_t>(name.size()))
                    == 0)
                return cell.number;
        }
        return kNotFound;
    }

    // A table of 100,000 names does not fit the inner caches: whoever looks up many names asks for
    // the cell of each first, then for its name, then finds it.
    void fetchCell(quint64 h) const
    {
        if (!m_cells.empty())
            prefetch(&m_cells[h & (m_cells.size() - 1)]);
    }
    void fetchName(quint64 h) const
    {
        if (!m_cells.empty())
            prefetch(m_names.data() + m_cells[h & (m_cells.size() - 1)].offset);
    }

    /// The name must not be there yet.
    void insert(QByteArrayView name, quint32 number);

private:
    struct Cell
    {
        quint32 hash = 0;
        quint32 offset = 0;
        quint32 length = 0;
        quint32 number = kNotFound;
    };

    static void prefetch([[maybe_unused]] const void* at)
    {
#if defined(__GNUC__)
        __builtin_prefetch(at);
#endif
    }
    void place(const Cell& cell);

    std::vector<Cell> m_cells;
    std::size_t m_count = 0;
    std::string m_names;
};
