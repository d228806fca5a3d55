#include "io/files/ContentHash.h"

#include <QtEndian>

#include <algorithm>
#include <bit>
#include <cstring>

namespace {
// Odd numbers without pattern: the lane's bits spread over the whole word when multiplied.
constexpr quint64 kFactor = 0xD1342543DE82EF95u;
constexpr quint64 kLast = 0xAF251AF3B0F025B5u;

quint64 stirred(quint64 lane, quint64 word)
{
    lane ^= word;
    // Multiplying carries upwards only: without this the highest bit would stay alone.
    lane ^= lane >> 32;
    return std::rotl(lane * kFactor, 29);
}
} // namespace

void ContentHash::mix(const char* block)
{
    for (std::size_t lane = 0; lane < m_lanes.size(); ++lane)
        m_lanes[lane] = stirred(m_lanes[lane], qFromLittleEndian<quint64>(block + 8 * lane));
}

void ContentHash::add(QByteArrayView bytes)
{
    const char* at = bytes.data();
    auto left = static_cast<std::size_t>(bytes.size());
    m_total += left;
    if (m_restSize > 0) {
        const std::size_t taken = std::min(left, kBlock - m_restSize);
        std::memcpy(m_rest.data() + m_restSize, at, taken);
        m_restSize += taken;
        at += taken;
        left -= taken;
        if (m_restSize < kBlock)
            return;
        mix(m_rest.data());
        m_restSize = 0;
    }
    for (; left >= kBlock; at += kBlock, left -= kBlock)
        mix(at);
    if (left > 0)
        std::memcpy(m_rest.data(), at, left);
    m_restSize = left;
}

quint64 ContentHash::result() const
{
    ContentHash end = *this;
    std::fill(end.m_rest.begin() + static_cast<std::ptrdiff_t>(m_restSize), end.m_rest.end(), '\0');
    end.mix(end.m_rest.data());
    quint64 sum = m_total * kLast;
    for (const quint64 lane : end.m_lanes) {
        sum = stirred(sum, lane);
        sum ^= sum >> 32;
    }
    sum *= kLast;
    return sum ^ (sum >> 29);
}

quint64 ContentHash::of(QByteArrayView bytes)
{
    ContentHash hash;
    hash.add(bytes);
    return hash.result();
}
