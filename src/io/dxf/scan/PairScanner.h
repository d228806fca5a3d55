#pragma once

#include <QByteArrayView>

#include <bit>
#include <cstring>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

/// Steps through the groups of an ASCII DXF text: a line with the group code, a line with the
/// value. Line ends are LF or CR LF. The text must be readable for 64 bytes beyond its end.
class PairScanner
{
public:
    static constexpr bool kBinary = false;
    static constexpr int kBadCode = -1000; ///< the code line holds no group code
    static constexpr int kNoValue = -1001; ///< the text ends after the code line
    static constexpr int kLongValue = -1002; ///< a line exceeds kLongestValue
    static constexpr int kLowestCode = -5;
    static constexpr int kHighestCode = 1071;
    static constexpr qsizetype kLongestValue = qsizetype(4) << 20;
    /// A step reads no more than this beyond nextBegin(), unless it ends in kLongValue.
    static constexpr qsizetype kReach = 2 * kLongestValue + 256;
    /// A record takes some 150 to 250 bytes; reserved memory that is never written costs nothing.
    static constexpr quint64 kBytesPerRecord = 120;

    PairScanner(const char* begin, const char* end)
        : m_block(begin)
        , m_line(begin)
        , m_end(end)
        , m_mask(begin < end ? newlines(begin) : 0)
    { }
    static PairScanner ofFile(const char* begin, const char* end) { return {begin, end}; }

    /// Goes to the next group; false at the end of the text. Check code() for the faults above.
    bool next()
    {
        if (m_line >= m_end)
            return false;
        m_begin = m_line;
        const char* codeEnd = nextNewline(m_begin);
        m_code = parseCode(m_begin, codeEnd);
        m_value = codeEnd + 1;
        if (m_value > m_end) {
            if (m_code != kBadCode)
                m_code = kNoValue;
            m_value = m_valueEnd = m_end;
            m_line = m_end;
            return true;
        }
        m_valueEnd = nextNewline(m_value);
        if (m_valueEnd - m_value > kLongestValue || codeEnd - m_begin > kLongestValue)
            m_code = kLongValue;
        m_line = m_valueEnd + 1;
        return true;
    }

    static int codeBytes() { return 0; } ///< codes are text
    int code() const { return m_code; }
    const char* begin() const { return m_begin; } ///< start of the code line
    const char* valueBegin() const { return m_value; }
    const char* valueEnd() const { return m_valueEnd; } ///< of the value line, CR included
    const char* nextBegin() const { return m_line < m_end ? m_line : m_end; }
    /// The value without its line end; blanks are kept.
    QByteArrayView value() const
    {
        const char* end = m_valueEnd;
        if (end > m_value && end[-1] == '\r')
            --end;
        return {m_value, end - m_value};
    }
    /// Whether the value is the number 1.
    bool isOne() const { return value().trimmed() == "1"; }

private:
    static quint64 newlines(const char* block)
    {
#if defined(__SSE2__)
        const __m128i feed = _mm_set1_epi8('\n');
        const auto part = [&](int i) {
            const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(block + 16 * i));
            return static_cast<quint64>(
                static_cast<unsigned>(_mm_movemask_epi8(_mm_cmpeq_epi8(bytes, feed))));
        };
        return part(0) | part(1) << 16 | part(2) << 32 | part(3) << 48;
#else
        quint64 mask = 0;
        for (int i = 0; i < 64; ++i)
            mask |= static_cast<quint64>(block[i] == '\n') << i;
        return mask;
#endif
    }

    /// End of the line that starts at `from`; stops short in a line that is too long.
    const char* nextNewline(const char* from)
    {
        while (m_mask == 0) {
            m_block += 64;
            if (m_block >= m_end)
                return m_end;
            if (m_block - from > kLongestValue + 128) [[unlikely]]
                return m_block;
            m_mask = newlines(m_block);
        }
        const char* at = m_block + std::countr_zero(m_mask);
        m_mask &= m_mask - 1;
        return at < m_end ? at : m_end;
    }

    static int parseCode(const char* at, const char* end)
    {
        while (at < end && (*at == ' ' || *at == '\t'))
            ++at;
        while (end > at && (end[-1] == '\r' || end[-1] == ' '))
            --end;
        const bool negative = at < end && *at == '-';
        at += negative;
        if (at == end || end - at > 5)
            return kBadCode;
        int code = 0;
        for (; at < end; ++at) {
            const unsigned digit = static_cast<unsigned char>(*at) - unsigned('0');
            if (digit > 9)
                return kBadCode;
            code = code * 10 + static_cast<int>(digit);
        }
        code = negative ? -code : code;
        return code < kLowestCode || code > kHighestCode ? kBadCode : code;
    }

    const char* m_block;
    const char* m_line;
    const char* m_end;
    quint64 m_mask;
    const char* m_begin = nullptr;
    const char* m_value = nullptr;
    const char* m_valueEnd = nullptr;
    int m_code = kBadCode;
};
