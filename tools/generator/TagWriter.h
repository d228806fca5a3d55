#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <ostream>
#include <string_view>

/// Buffered writer of tagged groups. As text: a group code line, then a value line, each ended by
/// CR LF and padded to the widths that other CAD programs use. As binary: a code of two bytes, then
/// the value.
class TagWriter
{
public:
    TagWriter(std::ostream& sink, bool binary);
    ~TagWriter();
    TagWriter(const TagWriter&) = delete;
    TagWriter& operator=(const TagWriter&) = delete;

    /// Starts a record: group 0.
    void record(std::string_view type) { text(0, type); }
    void subclass(std::string_view name) { text(100, name); }
    void text(int code, std::string_view value);
    void integer(int code, std::int64_t value);
    void handle(int code, std::uint64_t value);
    /// At most six decimals, at least one.
    void real(int code, double value);
    /// Groups code and code + 10.
    void point(int code, double x, double y);
    /// Groups code, code + 10 and code + 20.
    void point(int code, double x, double y, double z);

    /// Hands everything to the sink; false once the sink has failed.
    bool flush();

private:
    void reserve(std::size_t bytes);
    void put(std::string_view chars);
    void putCode(int code);
    void endLine() { put("\r\n"); }
    void putLittleEndian(std::uint64_t bits, int bytes);

    static constexpr std::size_t kCapacity = std::size_t{1} << 20;

    std::ostream& m_sink;
    bool m_binary;
    std::unique_ptr<char[]> m_buffer;
    std::size_t m_used = 0;
};
