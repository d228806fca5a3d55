#pragma once

#include <QByteArrayView>

#include <array>
#include <memory>
#include <vector>

/// A code page as tables: which character a byte or a pair of bytes stands for, and back. Made once
/// for a drawing; afterwards read only, from any thread.
class CodePage
{
public:
    static constexpr char16_t kNoCharacter = 0xFFFD;

    /// By a name such as "ANSI_1251", "dos932", "ISO8859-2", "gb2312" or "Johab", in any case;
    /// windows-1252 for names that are unknown.
    static std::shared_ptr<const CodePage> named(QByteArrayView name);

    /// Whether the byte is the first of a pair.
    bool isLead(char byte) const { return m_pairs[index(byte)] != kNoPairs; }
    /// kNoCharacter where the page has none there.
    char16_t character(char byte) const { return m_singles[index(byte)]; }
    char16_t character(char lead, char trail) const
    {
        const quint16 row = m_pairs[index(lead)];
        return row == kNoPairs ? kNoCharacter : m_rows[row][index(trail)];
    }
    /// The byte, or the pair with the lead above, of a character; 0 where the page has none (and
    /// for character 0).
    quint16 bytesOf(char16_t character) const { return m_bytes[character]; }

    /// For pages that no converter knows: empty but for ASCII.
    CodePage();
    void add(quint16 bytes, char16_t character);

private:
    static constexpr quint16 kNoPairs = 0xFFFF;
    using Row = std::array<char16_t, 256>;

    static std::size_t index(char byte) { return static_cast<unsigned char>(byte); }
    static std::shared_ptr<const CodePage> converted(const char* converter);
    void addSingles(const char* converter);
    void addPairs(const char* converter);
    void prefer(const char* converter);

    Row m_singles{};
    std::array<quint16, 256> m_pairs{}; ///< row of a lead byte
    std::vector<Row> m_rows;
    std::vector<quint16> m_bytes; ///< by character
};
