#pragma once

#include "io/dxf/text/GroupCode.h"

#include <QByteArrayView>
#include <QtEndian>

#include <algorithm>
#include <bit>

#if defined(__SSE2__)
#include <emmintrin.h>
#else
#include <cstring>
#endif

/// Steps through the groups of a binary DXF file: a group code, then a value without any separator.
/// Codes take two bytes, little-endian; in drawings up to R12 one byte, where 255 says that two
/// follow. The bytes must be readable for 64 bytes beyond the end, and be zero there.
class BinaryScanner
{
public:
    static constexpr bool kBinary = true;
    static constexpr int kBadCode = -1000; ///< no group code of binary drawings
    static constexpr int kNoValue = -1001; ///< the bytes end inside the group
    static constexpr int kLongValue = -1002; ///< a text exceeds kLongestValue
    static constexpr int kLowestCode = 0;
    static constexpr qsizetype kLongestValue = qsizetype(4) << 20;
    /// A step reads no more than this beyond nextBegin(), unless it ends in kLongValue.
    static constexpr qsizetype kReach = kLongestValue + 256;
    /// Records are about half as long as in a text.
    static constexpr quint64 kBytesPerRecord = 60;
    /// Bytes before the first group: the mark of the format with its closing zero.
    static constexpr qsizetype kHeadSize = 22;

    BinaryScanner() = default;
    /// Over groups whose codes take `codeBytes`, 1 or 2.
    BinaryScanner(const char* begin, const char* end, int codeBytes)
        : m_next(begin)
        , m_end(end)
        , m_shortCodes(codeBytes == 1)
    { }
    /// Over a whole file, its head included.
    static BinaryScanner ofFile(const char* begin, const char* end)
    {
        return {begin + kHeadSize, end, codeBytesOf(begin)};
    }
    /// Told by the first group, which is "0 SECTION" or a comment.
    static int codeBytesOf(const char* fileBegin)
    {
        const char* first = fileBegin + kHeadSize;
        return first[0] == '\xFF' || (first[0] == 0 && first[1] != 0) ? 1 : 2;
    }

    /// Goes to the next group; false at the end of the bytes. Check code() for the faults above.
    bool next()
    {
        if (m_next >= m_end)
            return false;
        m_begin = m_next;
        m_code = readCode();
        const Shape shape = static_cast<unsigned>(m_code) <= unsigned(GroupCodes::kHighest)
            ? kShapes[static_cast<std::size_t>(m_code)]
            : kNoShape;
        if (shape <= 8) [[likely]] {
            m_text = m_value;
            m_valueEnd = m_value + shape;
            m_next = m_valueEnd;
        } else if (shape == kTextShape) {
            m_text = m_value;
            m_valueEnd = zeroFrom(m_value);
            m_next = m_valueEnd + 1;
            m_tooLong = m_valueEnd - m_value > kLongestValue;
        } else if (shape == kChunkShape) {
            m_text = m_value + 1;
            m_valueEnd = m_text + static_cast<unsigned char>(*m_value);
            m_next = m_valueEnd;
        }
        if (m_next > m_end || m_tooLong || shape == kNoShape) [[unlikely]]
            stopAtFault();
        return true;
    }

    int codeBytes() const { return m_shortCodes ? 1 : 2; }
    int code() const { return m_code; }
    const char* begin() const { return m_begin; } ///< start of the code
    const char* valueBegin() const { return m_value; } ///< a chunk's starts with its length
    const char* valueEnd() const { return m_valueEnd; } ///< a text's ends before its zero
    const char* nextBegin() const { return m_next < m_end ? m_next : m_end; }
    /// The bytes of the value: a text, a number, or the contents of a chunk.
    QByteArrayView value() const { return {m_text, m_valueEnd - m_text}; }
    /// Whether a 16-bit number is 1.
    bool isOne() const { return m_valueEnd - m_value == 2 && m_value[0] == 1 && m_value[1] == 0; }
    /// The code that was refused with kBadCode.
    int foundCode() const { return m_foundCode; }

private:
    /// Bytes of a number, or one of those below.
    using Shape = std::uint8_t;
    static constexpr Shape kTextShape = 9;
    static constexpr Shape kChunkShape = 10;
    static constexpr Shape kNoShape = 11;

    static constexpr auto kShapes = [] {
        constexpr Shape kByKind[] = {kTextShape, kTextShape, 8, 2, 4, 8, 1, kChunkShape};
        std::array<Shape, GroupCodes::kHighest + 1> shapes{};
        for (int code = 0; code <= GroupCodes::kHighest; ++code)
            shapes[static_cast<std::size_t>(code)] =
                hasBinaryForm(code) ? kByKind[static_cast<std::size_t>(groupKind(code))] : kNoShape;
        return shapes;
    }();

    int readCode()
    {
        if (!m_shortCodes) {
            m_value = m_begin + 2;
            return qFromLittleEndian<quint16>(m_begin);
        }
        const auto byte = static_cast<unsigned char>(*m_begin);
        if (byte != 255) {
            m_value = m_begin + 1;
            return byte;
        }
        m_value = m_begin + 3;
        return qFromLittleEndian<quint16>(m_begin + 1);
    }

    /// The next zero byte; one of the padding ends a text that has none of its own.
    const char* zeroFrom(const char* from) const
    {
        const char* at = from;
        const char* const stop = std::min(m_end, from + kLongestValue + 1);
#if defined(__SSE2__)
        for (; at < stop; at += 16) {
            const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(at));
            const int zeros = _mm_movemask_epi8(_mm_cmpeq_epi8(bytes, _mm_setzero_si128()));
            if (zeros != 0)
                return std::min(at + std::countr_zero(static_cast<unsigned>(zeros)), m_end);
        }
        return stop;
#else
        const void* zero =
            at < stop ? std::memchr(at, 0, static_cast<std::size_t>(stop - at)) : nullptr;
        return zero ? static_cast<const char*>(zero) : stop;
#endif
    }

    void stopAtFault()
    {
        m_foundCode = m_code;
        if (m_tooLong)
            m_code = kLongValue;
        else
            m_code = m_value <= m_end && !hasBinaryForm(m_code) ? kBadCode : kNoValue;
        m_value = m_text = m_valueEnd = m_next = m_end;
    }

    const char* m_next = nullptr;
    const char* m_end = nullptr;
    const char* m_begin = nullptr;
    const char* m_value = nullptr;
    const char* m_text = nullptr;
    const char* m_valueEnd = nullptr;
    int m_code = kBadCode;
    int m_foundCode = kBadCode;
    bool m_shortCodes = false;
    bool m_tooLong = false;
};
