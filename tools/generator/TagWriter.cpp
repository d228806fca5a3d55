#include "generator/TagWriter.h"

#include <algorithm>
#include <charconv>
#include <cstring>

namespace {

/// Column width of whole numbers by group code; 0 for codes that hold none.
int integerWidth(int code)
{
    if ((code >= 90 && code <= 99) || (code >= 420 && code <= 429) || (code >= 440 && code <= 459)
        || code == 1071)
        return 9;
    return 6;
}

std::size_t padding(int width, std::size_t length)
{
    const auto columns = static_cast<std::size_t>(width);
    return length < columns ? columns - length : 0;
}

} // namespace

TagWriter::TagWriter(std::ostream& sink)
    : m_sink(sink)
    , m_buffer(std::make_unique<char[]>(kCapacity))
{ }

TagWriter::~TagWriter()
{
    flush();
}

bool TagWriter::flush()
{
    m_sink.write(m_buffer.get(), static_cast<std::streamsize>(m_used));
    m_flushed += m_used;
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

void TagWriter::putCode(int code)
{
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
    endLine();
}

void TagWriter::integer(int code, std::int64_t value)
{
    char digits[24];
    const auto end = std::to_chars(digits, digits + sizeof digits, value).ptr;
    const auto length = static_cast<std::size_t>(end - digits);
    putCode(code);
    put(std::string_view("         ", padding(integerWidth(code), length)));
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
