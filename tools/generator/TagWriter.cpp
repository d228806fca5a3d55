#include "generator/TagWriter.h"

#include "io/dxf/text/GroupCode.h"

#include <algorithm>
#include <bit>
#include <charconv>
#include <cstring>

namespace {

/// First bytes of a binary drawing; the closing zero counts in.
constexpr char kBinaryHead[] =
    "\x41\x75\x74\x6F\x43\x41\x44\x20\x42\x69\x6E\x61\x72\x79\x20\x44\x58\x46\r\n\x1A";

/// Columns of whole numbers, and their bytes in a binary drawing.
int columns(int code)
{
    return groupKind(code) == GroupKind::Int32 ? 9 : 6;
}

int byteCount(int code)
{
    switch (groupKind(code)) {
    case GroupKind::Int32:
        return 4;
    case GroupKind::Int64:
        return 8;
    case GroupKind::Bool:
        return 1;
    default:
        return 2;
    }
}

std::size_t padding(int width, std::size_t length)
{
    const auto columns = static_cast<std::size_t>(width);
    return length < columns ? columns - length : 0;
}

} // namespace

TagWriter::TagWriter(std::ostream& sink, bool binary)
    : m_sink(sink)
    , m_binary(binary)
    , m_buffer(std::make_unique<char[]>(kCapacity))
{
    if (m_binary)
        put({kBinaryHead, sizeof kBinaryHead});
}

TagWriter::~TagWriter()
{
    flush();
}

bool TagWriter::flush()
{
    m_sink.write(m_buffer.get(), static_cast<std::streamsize>(m_used));
    m_used = 0;
    return static_cast<bool>(m_sink);
}

void TagWriter::reserve(std::size_t bytes)
{
    if (m_used + bytes > kCapacity)
        flush();
}

void TagWriter::put(std::string_view chars)
{
    while (!chars.empty()) {
        reserve(1);
        const std::size_t part = std::min(chars.size(), kCapacity - m_used);
        std::memcpy(m_buffer.get() + m_used, chars.data(), part);
        m_used += part;
        chars.remove_prefix(part);
    }
}

void TagWriter::putLittleEndian(std::uint64_t bits, int bytes)
{
    char little[8];
    for (int i = 0; i < bytes; ++i)
        little[i] = static_cast<char>(bits >> 8 * i & 0xFF);
    put({little, static_cast<std::size_t>(bytes)});
}

void TagWriter::putCode(int code)
{
    if (m_binary)
        return putLittleEndian(static_cast<std::uint64_t>(code), 2);
    char digits[8];
    const auto end = std::to_chars(digits, digits + sizeof digits, code).ptr;
    const auto length = static_cast<std::size_t>(end - digits);
    put(std::string_view("   ", padding(3, length)));
    put({digits, length});
    endLine();
}

void TagWriter::text(int code, std::string_view value)
{
    putCode(code);
    put(value);
    if (m_binary)
        put({"", 1});
    else
        endLine();
}

void TagWriter::integer(int code, std::int64_t value)
{
    if (m_binary) {
        putCode(code);
        return putLittleEndian(static_cast<std::uint64_t>(value), byteCount(code));
    }
    char digits[24];
    const auto end = std::to_chars(digits, digits + sizeof digits, value).ptr;
    const auto length = static_cast<std::size_t>(end - digits);
    putCode(code);
    put(std::string_view("         ", padding(columns(code), length)));
    put({digits, length});
    endLine();
}

void TagWriter::handle(int code, std::uint64_t value)
{
    char digits[24];
    const auto end = std::to_chars(digits, digits + sizeof digits, value, 16).ptr;
    std::transform(digits, end, digits,
                   [](char c) { return c >= 'a' ? static_cast<char>(c - 32) : c; });
    text(code, {digits, static_cast<std::size_t>(end - digits)});
}

void TagWriter::real(int code, double value)
{
    char digits[64];
    auto end =
        std::to_chars(digits, digits + sizeof digits, value, std::chars_format::fixed, 6).ptr;
    while (end[-1] == '0' && end[-2] != '.')
        --end;
    if (m_binary) {
        // The number that the text drawing has, to the last bit.
        double rounded = 0;
        std::from_chars(digits, end, rounded);
        putCode(code);
        return putLittleEndian(std::bit_cast<std::uint64_t>(rounded), 8);
    }
    text(code, {digits, static_cast<std::size_t>(end - digits)});
}

void TagWriter::point(int code, double x, double y)
{
    real(code, x);
    real(code + 10, y);
}

void TagWriter::point(int code, double x, double y, double z)
{
    point(code, x, y);
    real(code + 20, z);
}
