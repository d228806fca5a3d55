#pragma once

#include <QByteArray>

#include <algorithm>

/// Copies bytes with some of them replaced. What stays is copied in long runs, with what stands
/// between its parts.
class Splice
{
public:
    Splice(QByteArrayView from, quint64 begin, QByteArray& out)
        : m_from(from)
        , m_copied(begin)
        , m_kept(begin)
        , m_out(out)
    { }

    /// Where the bytes [begin, end) will stand. Each part begins at or behind the one before.
    quint64 keep(quint64 begin, quint64 end)
    {
        if (begin < m_copied) // a part of what was replaced
            return append(
                begin,
                m_from.sliced(static_cast<qsizetype>(begin), static_cast<qsizetype>(end - begin)));
        m_kept = std::max(m_kept, end);
        return size() + begin - m_copied;
    }
    /// Puts other bytes in their place, and tells where.
    quint64 replace(quint64 begin, quint64 end, QByteArrayView instead)
    {
        const quint64 at = append(begin, instead);
        m_copied = std::max(m_copied, end);
        return at;
    }
    /// Copies all that is left before `end`.
    void finish(quint64 end) { copyUpTo(std::max(end, m_kept)); }

private:
    quint64 size() const { return static_cast<quint64>(m_out.size()); }
    void copyUpTo(quint64 place)
    {
        if (place <= m_copied)
            return;
        m_out += m_from.sliced(static_cast<qsizetype>(m_copied),
                               static_cast<qsizetype>(place - m_copied));
        m_copied = place;
    }

    quint64 append(quint64 place, QByteArrayView bytes)
    {
        copyUpTo(std::max(place, m_kept));
        const quint64 at = size();
        m_out += bytes;
        return at;
    }

    QByteArrayView m_from;
    quint64 m_copied; ///< up to there
    quint64 m_kept; ///< end of what must be copied
    QByteArray& m_out;
};
