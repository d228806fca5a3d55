#include "io/dwg/container/Lz77.h"

#include <cstring>

namespace {

constexpr int kEnd = 0x11;
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
        std::memcpy(m_out, m_in, static_cast<std::size_t>(length));
        m_in += length;
        m_out += length;
        return true;
    }

    bool copyBack(qsizetype distance, qsizetype length)
    {
        if (length < 0 || distance > m_out - m_begin || length > m_outEnd - m_out)
            return false;
        const char* from = m_out - distance;
        if (distance >= length) {
            std::memcpy(m_out, from, static_cast<std::size_t>(length));
            m_out += length;
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

} // namespace

qsizetype Lz77::unpack(QByteArrayView packed, char* out, qsizetype size)
{
    return Unpacker(packed, out, size).run();
}
