#include "database/store/NameIndex.h"

#include <QString>

#include <algorithm>
#include <cstring>

namespace {

constexpr quint32 kRemoved = 0xFFFFFFFFu;

bool isAscii(QByteArrayView bytes)
{
    return std::none_of(bytes.begin(), bytes.end(), [](char c) { return (c & 0x80) != 0; });
}

constexpr qsizetype kChunk = 8;
/// Names that agree for longer than any sensible name are compared as a whole.
constexpr qsizetype kLongestChunked = 1024;

/// Up to eight bytes from `offset` on, as a number that orders like the bytes.
quint64 chunk(QByteArrayView key, qsizetype offset)
{
    quint64 value = 0;
    for (qsizetype i = 0; i < kChunk; ++i) {
        const qsizetype at = offset + i;
        value = (value << 8) | (at < key.size() ? static_cast<quint8>(key[at]) : 0u);
    }
    return value;
}

qsizetype commonPrefix(QByteArrayView a, QByteArrayView b, qsizetype limit)
{
    limit = std::min({limit, a.size(), b.size()});
    qsizetype n = 0;
    while (n < limit && a[n] == b[n])
        ++n;
    return n;
}

} // namespace

QByteArray NameIndex::fold(QStringView name)
{
    return name.toString().toCaseFolded().toUtf8();
}

void NameIndex::foldUtf8(QByteArrayView name, QByteArray& folded)
{
    if (!isAscii(name)) {
        folded = fold(QString::fromUtf8(name));
        return;
    }
    folded.resize(name.size());
    std::transform(name.begin(), name.end(), folded.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; });
}

quint64 NameIndex::hash(QByteArrayView bytes)
{
    quint64 h = 0x9E3779B97F4A7C15ull ^ static_cast<quint64>(bytes.size());
    for (const char c : bytes)
        h = (h ^ static_cast<quint8>(c)) * 0x100000001B3ull;
    return h ^ (h >> 29);
}

void NameIndex::reserve(std::size_t names)
{
    m_entries.reserve(names);
    m_keys.reserve(names * 16);
}

quint32 NameIndex::store(QByteArrayView folded)
{
    const auto offset = static_cast<quint32>(m_keys.size());
    m_keys.append(folded.data(), static_cast<std::size_t>(folded.size()));
    return offset;
}

quint32 NameIndex::append(QByteArrayView folded)
{
    const auto position = size();
    m_entries.push_back(
        {hash(folded), store(folded), static_cast<quint32>(folded.size()) & 0x7FFFFFFFu, 1});
    insertCell(position);
    return position;
}

void NameIndex::rename(quint32 position, QByteArrayView folded)
{
    const std::size_t mask = m_cells.size() - 1;
    for (std::size_t cell = m_entries[position].hash & mask; m_cells[cell] != 0;
         cell = (cell + 1) & mask)
    {
        if (m_cells[cell] == position + 1) {
            m_cells[cell] = kRemoved;
            break;
        }
    }
    Entry& entry = m_entries[position];
    entry.hash = hash(folded);
    entry.offset = store(folded);
    entry.length = static_cast<quint32>(folded.size()) & 0x7FFFFFFFu;
    insertCell(position);
}

void NameIndex::insertCell(quint32 position)
{
    if ((m_usedCells + 1) * 2 > m_cells.size()) {
        grow();
        return;
    }
    const std::size_t mask = m_cells.size() - 1;
    std::size_t cell = m_entries[position].hash & mask;
    while (m_cells[cell] != 0)
        cell = (cell + 1) & mask;
    m_cells[cell] = position + 1;
    ++m_usedCells;
}

void NameIndex::grow()
{
    std::size_t cells = 16;
    while (cells < m_entries.size() * 4)
        cells *= 2;
    m_cells.assign(cells, 0);
    m_usedCells = m_entries.size();
    for (quint32 position = 0; position < size(); ++position) {
        std::size_t cell = m_entries[position].hash & (cells - 1);
        while (m_cells[cell] != 0)
            cell = (cell + 1) & (cells - 1);
        m_cells[cell] = position + 1;
    }
}

quint32 NameIndex::find(QByteArrayView folded) const
{
    if (m_cells.empty())
        return kNotFound;
    const quint64 wanted = hash(folded);
    const std::size_t mask = m_cells.size() - 1;
    quint32 found = kNotFound;
    for (std::size_t cell = wanted & mask; m_cells[cell] != 0; cell = (cell + 1) & mask) {
        if (m_cells[cell] == kRemoved)
            continue;
        const quint32 position = m_cells[cell] - 1;
        const Entry& entry = m_entries[position];
        if (entry.active && entry.hash == wanted && position < found && key(position) == folded)
            found = position;
    }
    return found;
}

QByteArrayView NameIndex::key(quint32 position) const
{
    const Entry& entry = m_entries[position];
    return QByteArrayView(m_keys.data() + entry.offset, static_cast<qsizetype>(entry.length));
}

std::vector<quint32> NameIndex::ranks() const
{
    const quint32 count = size();
    qsizetype prefix = count > 0 ? key(0).size() : 0;
    for (quint32 i = 1; i < count; ++i)
        prefix = commonPrefix(key(0), key(i), prefix);

    std::vector<Ranked> items(count);
    for (quint32 i = 0; i < count; ++i)
        items[i] = {0, i};
    sortFrom(items.begin(), items.end(), prefix);

    std::vector<quint32> ranks(count);
    for (quint32 i = 0; i < count; ++i)
        ranks[items[i].position] = i;
    return ranks;
}

void NameIndex::sortFrom(std::vector<Ranked>::iterator begin, std::vector<Ranked>::iterator end,
                         qsizetype offset) const
{
    if (offset > kLongestChunked) {
        std::sort(begin, end, [this](const Ranked& a, const Ranked& b) {
            const int order = key(a.position).compare(key(b.position));
            return order != 0 ? order < 0 : a.position < b.position;
        });
        return;
    }
    bool ended = true; // every key of the range is shorter than the chunk reaches
    for (auto it = begin; it != end; ++it) {
        const QByteArrayView name = key(it->position);
        it->head = chunk(name, offset);
        ended = ended && name.size() <= offset + kChunk;
    }
    std::sort(begin, end, [](const Ranked& a, const Ranked& b) {
        return a.head != b.head ? a.head < b.head : a.position < b.position;
    });
    if (ended)
        return;
    // Names that agree so far are sorted among themselves by what follows.
    for (auto run = begin; run != end;) {
        const auto next =
            std::find_if(run, end, [&](const Ranked& r) { return r.head != run->head; });
        if (next - run > 1)
            sortFrom(run, next, offset + kChunk);
        run = next;
    }
}
