#pragma once

#include <QByteArray>
#include <QStringView>

#include <string>
#include <vector>

/// Names of a table by position, found under Unicode case folding. Keys are folded UTF-8. Of equal
/// names the earliest active position is found.
class NameIndex
{
public:
    static constexpr quint32 kNotFound = 0xFFFFFFFFu;

    /// The folded form of a name.
    static QByteArray fold(QStringView name);
    /// As above for bytes that are known to be ASCII or UTF-8.
    static void foldUtf8(QByteArrayView name, QByteArray& folded);

    void reserve(std::size_t names);
    /// Position of the new name.
    quint32 append(QByteArrayView folded);
    void rename(quint32 position, QByteArrayView folded);
    void setActive(quint32 position, bool active) { m_entries[position].active = active; }
    bool isActive(quint32 position) const { return m_entries[position].active; }

    quint32 find(QByteArrayView folded) const;
    QByteArrayView key(quint32 position) const;
    quint32 size() const { return static_cast<quint32>(m_entries.size()); }

    /// Rank of each position in the order of keys; equal keys rank by position.
    std::vector<quint32> ranks() const;

private:
    struct Entry
    {
        quint64 hash;
        quint32 offset;
        quint32 length : 31;
        quint32 active : 1;
    };
    struct Ranked
    {
        quint64 head; ///< the bytes that the running comparison looks at
        quint32 position;
    };
    void sortFrom(std::vector<Ranked>::iterator begin, std::vector<Ranked>::iterator end,
                  qsizetype offset) const;
    static quint64 hash(QByteArrayView bytes);
    quint32 store(QByteArrayView folded);
    void insertCell(quint32 position);
    void grow();

    std::vector<Entry> m_entries;
    std::vector<quint32> m_cells; ///< position + 1; 0 free, kRemoved freed
    std::size_t m_usedCells = 0;
    std::string m_keys;
};
