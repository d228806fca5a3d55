#include "io/dwg/container/Lz77Of2007.h"

#include <array>
#include <cstring>

namespace {

constexpr qsizetype kBlock = 32;
constexpr const char* kWholeBlock = "8888";

/// How a plain run shorter than a block is cut: the sizes of its parts, the last part first.
constexpr std::array<const char*, kBlock> kParts = {
    "",    "1",    "11",    "111",    "4",    "14",    "141",    "1141",
    "8",   "18",   "181",   "1181",   "48",   "148",   "1481",   "11481",
    "88",  "818",  "1881",  "11188",  "488",  "1488",  "11488",  "111488",
    "888", "8188", "18188", "118188", "4888", "14888", "114888", "1488811",
};

class Unpacker2007
{
public:
    Unpacker2007(QByteArrayView packed, char* out, qsizetype size)
        : m_in(reinterpret_cast<const uchar*>(packed.data()))
        , m_inEnd(m_in + packed.size())
        , m_begin(out)
        , m_out(out)
        , m_outEnd(out + size)
    { }

    qsizetype run()
    {
        int code = start();
        while (!m_broken && !atEnd()) {
            // A code below 0x10 behind a copy tells the length of a plain run.
            if (m_plain == 0)
                m_plain = plainLength(code);
            plainRun();
            if (m_broken || atEnd())
                break;
            code = copies();
        }
        return m_broken ? -1 : m_out - m_begin;
    }

private:
    bool atEnd() const { return m_in == m_inEnd; }

    qsizetype next()
    {
        if (!atEnd())
            return *m_in++;
        m_broken = true;
        return 0;
    }

    qsizetype nextWord()
    {
        const qsizetype low = next();
        return low | next() << 8;
    }

    /// The first code. One of 0x20 to 0x2F has the length of the plain run in its last byte.
    int start()
    {
        const auto code = static_cast<int>(next());
        if (code >> 4 == 2) {
            nextWord();
            m_plain = next() & 7;
        }
        return code;
    }

    qsizetype plainLength(int code)
    {
        constexpr qsizetype kShortest = 8;
        constexpr int kLonger = 0x0F;
        if (code > kLonger) {
            m_broken = true;
            return 0;
        }
        qsizetype length = code + kShortest;
        if (code < kLonger)
            return length;
        qsizetype more = next();
        length += more;
        if (more < 0xFF)
            return length;
        do {
            more = nextWord();
            length += more;
        } while (more == 0xFFFF);
        return length;
    }

    void part(qsizetype& end, const char* sizes)
    {
        for (; *sizes != '\0'; ++sizes) {
            const qsizetype size = *sizes - '0';
            end -= size;
            std::memcpy(m_out, m_in + end, static_cast<std::size_t>(size));
            m_out += size;
        }
    }

    void plainRun()
    {
        if (m_plain > m_inEnd - m_in || m_plain > m_outEnd - m_out)
            m_broken = true;
        while (!m_broken && m_plain > 0) {
            const qsizetype size = qMin(m_plain, kBlock);
            qsizetype end = size;
            part(end, size == kBlock ? kWholeBlock : kParts[static_cast<std::size_t>(size)]);
            m_in += size;
            m_plain -= size;
        }
    }

    void copyBack(qsizetype distance, qsizetype length)
    {
        if (m_broken || distance < 1 || distance > m_out - m_begin || length > m_outEnd - m_out) {
            // An operation that copies nothing may name any place.
            m_broken = m_broken || length != 0;
            return;
        }
        // Byte by byte: what was just written may be copied on.
        const char* from = m_out - distance;
        for (const char* const end = m_out + length; m_out < end;)
            *m_out++ = *from++;
    }

    /// Carries out one copy. Its last byte tells of the plain run behind it.
    void copy(qsizetype code)
    {
        qsizetype length = code & 0x0F;
        qsizetype distance = 0;
        qsizetype last = 0;
        switch (code >> 4) {
        case 0:
            distance = next();
            last = next();
            length += 0x13 + (last >> 3 & 0x10);
            distance += ((last & 0x78) << 5) + 1;
            break;
        case 1:
            distance = next();
            last = next();
            length += 3;
            distance += ((last & 0xF8) << 5) + 1;
            break;
        case 2:
            distance = nextWord();
            length = code & 7;
            if ((code & 8) == 0) {
                last = next();
                length += last & 0xF8;
            } else {
                ++distance;
                length += 0x100 + (next() << 3);
                last = next();
                length += (last & 0xF8) << 8;
            }
            break;
        default:
            distance = length + 1;
            length = code >> 4;
            last = next();
            distance += (last & 0xF8) << 1;
            break;
        }
        copyBack(distance, length);
        m_plain = last & 7;
    }

    /// Carries out copies up to a plain run or the end; returns the code of the run.
    int copies()
    {
        // Right behind a plain run none can follow, and all codes are copies.
        qsizetype code = next();
        for (;;) {
            copy(code);
            if (m_broken || m_plain != 0 || atEnd())
                return 0;
            code = next();
            if (code < 0x10)
                return static_cast<int>(code);
            // 0xF0 and more stand for the copies whose codes would tell of a plain run.
            if (code >= 0xF0)
                code &= 0x0F;
        }
    }

    const uchar* m_in;
    const uchar* const m_inEnd;
    char* const m_begin;
    char* m_out;
    char* const m_outEnd;
    qsizetype m_plain = 0; ///< length of the next plain run where a copy told it
    bool m_broken = false;
};

} // namespace

qsizetype Lz77Of2007::unpack(QByteArrayView packed, char* out, qsizetype size)
{
    return Unpacker2007(packed, out, size).run();
}
