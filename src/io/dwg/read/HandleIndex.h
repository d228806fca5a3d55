#pragma once

#include <QtGlobal>

#include <unordered_map>
#include <vector>

/// Numbers by handle; handles that lie close together cost four bytes.
class HandleIndex
{
public:
    static constexpr quint32 kNone = 0xFFFFFFFFu;

    /// Handles below `dense` are looked up in an array.
    explicit HandleIndex(quint64 dense)
        : m_dense(dense, kNone)
    { }

    quint32 find(quint64 handle) const
    {
        if (handle < m_dense.size())
            return m_dense[handle];
        const auto found = m_sparse.find(handle);
        return found == m_sparse.end() ? kNone : found->second;
    }
    /// False where the handle has a number already.
    bool add(quint64 handle, quint32 number)
    {
        if (handle >= m_dense.size())
            return m_sparse.emplace(handle, number).second;
        if (m_dense[handle] != kNone)
            return false;
        m_dense[handle] = number;
        return true;
    }

private:
    std::vector<quint32> m_dense;
    std::unordered_map<quint64, quint32> m_sparse;
};
