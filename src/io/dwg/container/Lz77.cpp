#include "io/dwg/container/Lz77.h"

#include <QtEndian>

#include <algorithm>
#include <array>
#include <cstring>

namespace {

constexpr int kEnd = 0x11;
constexpr qsizetype kShortRun = 16; ///< copied in one step
constexpr qsizetype kBroken = -0x1000; ///< stays negative whatever is added to a length

class Unpacker
{
public:
    Unpacker(QByteArrayView packed, char* out, qsizetype size)
        : m_in(reinterpret_cast<const uchar*>(packed.data()))
        , m_inEnd(m_in + packed.size())
        , m_begin(out)
        , m_out(out)
        , m_outEnd(out + size)
    { }

    qsizetype run()
    {
        int code = next();
        if (code >= 0 && code < 0x10)
            code = plainRun(longRun(code & 0x0F, 0x0F) + 3) ? next() : -1;
        while (code >= 0 && code != kEnd)
            code = copy(code);
        // Behind the last short run there may be more than it has.
        std::fill_n(m_out, std::min<qsizetype>(m_outEnd - m_out, kShortRun), '\0');
        return code == kEnd ? m_out - m_begin : -1;
    }

private:
    int next() { return m_in < m_inEnd ? *m_in++ : -1; }

    /// A length that does not fit its code goes on in the bytes behind: 255 for each zero.
    qsizetype longRun(qsizetype length, qsizetype most)
    {
        if (length != 0)
            return length;
        length = most;
        int byte = next();
        for (; byte == 0; byte = next())
            length += 0xFF;
        return byte < 0 ? kBroken : length + byte;
    }

    bool plainRun(qsizetype length)
    {
        if (length < 0 || length > m_inEnd - m_in || length > m_outEnd - m_out)
            return false;
        copyRun(m_in, length, m_inEnd - m_in);
        m_in += length;
        return true;
    }

    /// Most runs are short, and copied as a whole step where both sides have room for it.
    void copyRun(const void* from, qsizetype length, qsizetype readable)
    {
        const bool isStep =
            length <= kShortRun && readable >= kShortRun && m_outEnd - m_out >= kShortRun;
        if (isStep)
            std::memcpy(m_out, from, kShortRun);
        else
            std::memcpy(m_out, from, static_cast<std::size_t>(length));
        m_out += length;
    }

    bool copyBack(qsizetype distance, qsizetype length)
    {
        if (length < 0 || distance > m_out - m_begin || length > m_outEnd - m_out)
            return false;
        const char* from = m_out - distance;
        if (distance >= length) {
            copyRun(from, length, distance);
        } else {
            // Overlapping: what was just written is copied on.
            for (const char* end = m_out + length; m_out < end;)
                *m_out++ = *from++;
        }
        return true;
    }

    /// Two bytes of a distance; the lowest two bits of the first are kept for the plain run.
    bool distanceBytes(qsizetype& distance, int& low)
    {
        if (m_inEnd - m_in < 2)
            return false;
        low = m_in[0];
        distance += m_in[0] >> 2 | m_in[1] << 6;
        m_in += 2;
        return true;
    }

    /// Carries out one copy and the plain run behind it; returns the next code, or -1.
    int copy(int code)
    {
        qsizetype length = 0;
        qsizetype distance = 0;
        int low = code;
        if (code >= 0x40) {
            length = (code >> 4) - 1;
            const int high = next();
            if (high < 0)
                return -1;
            distance = ((code >> 2 & 3) | high << 2) + 1;
        } else if (code >= 0x20) {
            length = longRun(code & 0x1F, 0x1F) + 2;
            distance = 1;
            if (!distanceBytes(distance, low))
                return -1;
        } else if (code >= 0x10) {
            length = longRun(code & 7, 7) + 2;
            distance = ((code & 8) << 11) + 0x4000;
            if (!distanceBytes(distance, low))
                return -1;
        } else {
            return -1;
        }
        if (!copyBack(distance, length))
            return -1;
        if (const int plain = low & 3; plain != 0)
            return plainRun(plain) ? next() : -1;
        const int following = next();
        if (following < 0 || following >= 0x10)
            return following;
        return plainRun(longRun(following, 0x0F) + 3) ? next() : -1;
    }

    const uchar* m_in;
    const uchar* m_inEnd;
    char* m_begin;
    char* m_out;
    char* m_outEnd;
};

/// Looks for the last place where the same four bytes stood, and copies from there.
class Packer
{
public:
    explicit Packer(QByteArrayView plain)
        : m_plain(plain)
        , m_in(reinterpret_cast<const uchar*>(plain.data()))
    {
        m_last.fill(kNowhere);
        m_out.reserve(plain.size() / 2 + 16);
    }

    QByteArray run()
    {
        const qsizetype end = m_plain.size();
        qsizetype at = 0;
        qsizetype plainFrom = 0;
        while (at + kShortest <= end) {
            const qsizetype from = remember(at);
            // A stream cannot begin with fewer than four plain bytes.
            const bool isNear = from >= 0 && at - from <= kFarthest;
            const qsizetype length = at < 4 || !isNear ? 0 : matchLength(from, at);
            if (length < kShortest) {
                ++at;
                continue;
            }
            plainRun(plainFrom, at);
            copy(at - from, length);
            for (const qsizetype behind = at + length; ++at < behind;) {
                if (at + kShortest <= end)
                    remember(at);
            }
            plainFrom = at;
        }
        plainRun(plainFrom, end);
        m_out.append(QByteArrayView("\x11\0\0", 3));
        return m_out;
    }

private:
    static constexpr qsizetype kShortest = 4;
    static constexpr qsizetype kFarthest = 0x7FFF; ///< as far as the codes of copies used here tell
    static constexpr qsizetype kNowhere = -1;
    static constexpr unsigned kHashBits = 13;

    /// Notes the place and tells where the same hash was noted before.
    qsizetype remember(qsizetype at)
    {
        const quint32 word = qFromUnaligned<quint32>(m_in + at);
        qsizetype& last = m_last[word * 2654435761u >> (32 - kHashBits)];
        return std::exchange(last, at);
    }

    qsizetype matchLength(qsizetype from, qsizetype at) const
    {
        qsizetype length = 0;
        while (at + length < m_plain.size() && m_in[from + length] == m_in[at + length])
            ++length;
        return length;
    }

    void append(qsizetype byte) { m_out.append(static_cast<char>(byte)); }

    void longRun(qsizetype rest)
    {
        for (; rest > 0xFF; rest -= 0xFF)
            append(0);
        append(rest);
    }

    void plainRun(qsizetype from, qsizetype to)
    {
        const qsizetype length = to - from;
        if (length == 0)
            return;
        if (length <= 3) {
            m_out[m_lowAt] = static_cast<char>(m_out[m_lowAt] | static_cast<char>(length));
        } else if (length <= 3 + 0x0F) {
            append(length - 3);
        } else {
            append(0);
            longRun(length - 3 - 0x0F);
        }
        m_out.append(m_plain.sliced(from, length));
    }

    void copy(qsizetype distance, qsizetype length)
    {
        if (distance <= 0x400 && length <= 14) {
            m_lowAt = m_out.size();
            append((length + 1) << 4 | ((distance - 1) & 3) << 2);
            append((distance - 1) >> 2);
            return;
        }
        const bool isFar = distance > 0x4000;
        const qsizetype most = isFar ? 7 : 0x1F;
        const qsizetype base = isFar ? 0x10 : 0x20;
        if (length - 2 <= most) {
            append(base | (length - 2));
        } else {
            append(base);
            longRun(length - 2 - most);
        }
        const qsizetype rest = distance - (isFar ? 0x4000 : 1);
        m_lowAt = m_out.size();
        append((rest & 0x3F) << 2);
        append(rest >> 6);
    }

    QByteArrayView m_plain;
    const uchar* m_in;
    QByteArray m_out;
    qsizetype m_lowAt = 0; ///< byte whose lowest two bits tell of plain bytes behind a copy
    std::array<qsizetype, 1u << kHashBits> m_last;
};

} // namespace

QByteArray Lz77::pack(QByteArrayView plain)
{
    return Packer(plain).run();
}

qsizetype Lz77::unpack(QByteArrayView packed, char* out, qsizetype size)
{
    return Unpacker(packed, out, size).run();
}
