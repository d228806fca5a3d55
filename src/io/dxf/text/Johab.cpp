#include "io/dxf/text/Johab.h"

#include "io/dxf/text/CodePage.h"

namespace {

constexpr int kInitials = 19;
constexpr int kVowels = 21;
constexpr int kFinals = 28; ///< the first is "none"

/// Field values of a part that is absent.
constexpr int kNoInitial = 1;
constexpr int kNoVowel = 2;
constexpr int kNoFinal = 1;

constexpr char16_t kFirstSyllable = 0xAC00;
constexpr char16_t kFirstVowel = 0x314F; ///< of the letters that stand alone
constexpr char16_t kInitialLetters[kInitials] = {
    0x3131, 0x3132, 0x3134, 0x3137, 0x3138, 0x3139, 0x3141, 0x3142, 0x3143, 0x3145,
    0x3146, 0x3147, 0x3148, 0x3149, 0x314A, 0x314B, 0x314C, 0x314D, 0x314E};
/// Finals that are no initials, by their number.
struct FinalLetter
{
    int final;
    char16_t letter;
};
constexpr FinalLetter kFinalLetters[] = {{3, 0x3133},  {5, 0x3135},  {6, 0x3136},  {9, 0x313A},
                                         {10, 0x313B}, {11, 0x313C}, {12, 0x313D}, {13, 0x313E},
                                         {14, 0x313F}, {15, 0x3140}, {18, 0x3144}};

constexpr int initialField(int initial)
{
    return initial + 2;
}

constexpr int vowelField(int vowel)
{
    // Each eight values leave the first two or three free.
    return vowel < 5 ? vowel + 3 : vowel < 11 ? vowel + 5 : vowel < 17 ? vowel + 7 : vowel + 9;
}

constexpr int finalField(int final)
{
    return final < 17 ? final + 1 : final + 2; // 18 is free
}

constexpr quint16 bytes(int initial, int vowel, int final)
{
    return static_cast<quint16>(0x8000 | initial << 10 | vowel << 5 | final);
}

void fillSyllables(CodePage& page)
{
    for (int i = 0; i < kInitials; ++i) {
        for (int v = 0; v < kVowels; ++v) {
            for (int f = 0; f < kFinals; ++f)
                page.add(bytes(initialField(i), vowelField(v), finalField(f)),
                         static_cast<char16_t>(kFirstSyllable + (i * kVowels + v) * kFinals + f));
        }
    }
}

void fillLetters(CodePage& page)
{
    for (int i = 0; i < kInitials; ++i)
        page.add(bytes(initialField(i), kNoVowel, kNoFinal), kInitialLetters[i]);
    for (int v = 0; v < kVowels; ++v)
        page.add(bytes(kNoInitial, vowelField(v), kNoFinal),
                 static_cast<char16_t>(kFirstVowel + v));
    for (const FinalLetter& letter : kFinalLetters)
        page.add(bytes(kNoInitial, kNoVowel, finalField(letter.final)), letter.letter);
}

/// Rows of 94 characters, two to a lead byte, over two ranges of trail bytes.
void fillRows(CodePage& page, const CodePage& korean, int firstLead, int lastLead, int firstRow)
{
    constexpr int kRow = 94;
    constexpr int kLowTrails = 0x7E - 0x31 + 1;
    for (int lead = firstLead; lead <= lastLead; ++lead) {
        for (int n = 0; n < 2 * kRow; ++n) {
            const int row = firstRow + 2 * (lead - firstLead) + n / kRow;
            const int trail = n < kLowTrails ? 0x31 + n : 0x91 + n - kLowTrails;
            const char16_t character =
                korean.character(static_cast<char>(row), static_cast<char>(0xA1 + n % kRow));
            if (character != CodePage::kNoCharacter)
                page.add(static_cast<quint16>(lead << 8 | trail), character);
        }
    }
}

} // namespace

void Johab::fill(CodePage& page, const CodePage& korean)
{
    fillSyllables(page);
    fillLetters(page);
    fillRows(page, korean, 0xD9, 0xDE, 0xA1);
    fillRows(page, korean, 0xE0, 0xF9, 0xCA);
}
