#include "io/DrawingFile.h"
#include "io/dxf/text/DxfText.h"
#include "support/drawings/DrawingText.h"

#include <QStringDecoder>

#include <gtest/gtest.h>

namespace {

/// Text up to version 2004 in that code page.
DxfText inPage(const char* name)
{
    return DxfText("AC1018", name);
}

TEST(DxfText, DecodesTheCodePageUpTo2004)
{
    EXPECT_EQ(inPage("ANSI_1252").decode("W\xE4nde"), QStringLiteral("Wände"));
    EXPECT_EQ(DxfText("AC1015", "ansi_1251").decode("\xD1\xF2\xE5\xED\xFB"),
              QStringLiteral("Стены"));
    EXPECT_EQ(DxfText("AC1015", "ANSI_932").decode("\x95\xC7"), QStringLiteral("壁"));
}

TEST(DxfText, DecodesUtf8From2007On)
{
    EXPECT_EQ(DxfText("AC1021", "ANSI_1252").decode("W\xC3\xA4nde"), QStringLiteral("Wände"));
    EXPECT_EQ(DxfText("AC1032", {}).decode("\xF0\x9F\x8F\xA0^J"), QStringLiteral("🏠\n"));
    EXPECT_TRUE(DxfText("AC1032", {}).decode("a\xFFz").contains(QChar(0xFFFD)));
}

TEST(DxfText, WithoutACodePageIsWestern)
{
    EXPECT_EQ(DxfText({}, {}).decode("\xC4"), QStringLiteral("Ä"));
    EXPECT_EQ(DxfText("AC1009", {}).decode("\x80"), QStringLiteral("€"));
    EXPECT_EQ(inPage("klingon").decode("\xC4"), QStringLiteral("Ä"));
}

TEST(DxfText, TheOldestVersionsAreNoUtf8)
{
    EXPECT_FALSE(DxfText("AC2.10", "ANSI_1252").isUtf8());
    EXPECT_FALSE(DxfText("AC1.50", "ANSI_1252").isUtf8());
    EXPECT_FALSE(DxfText("AC1018", "ANSI_1252").isUtf8());
    EXPECT_TRUE(DxfText("AC1021", "ANSI_1252").isUtf8());
    EXPECT_TRUE(DxfText("AC1032", "ANSI_1252").isUtf8());
}

struct PageFact
{
    const char* names; ///< spellings of one page, apart by blanks
    const char* bytes;
    char16_t character;
};
constexpr PageFact kPageFacts[] = {
    {"ANSI_874 ansi_874 windows-874", "\xA1", u'ก'},
    {"ANSI_932 ansi_932 dos932 DOS932", "\x83\x5E", u'タ'},
    {"ANSI_936 ansi_936 gb2312 GB2312", "\xC7\xBD", u'墙'},
    {"ANSI_949 ansi_949 ksc5601 KSC5601", "\xBA\xAE", u'벽'},
    {"ANSI_950 ansi_950 big5 BIG5", "\xC0\xF0", u'牆'},
    {"ANSI_1361 ansi_1361 johab Johab", "\xA5\x62", u'벽'},
    {"ANSI_1250", "\xB3", u'ł'},
    {"ANSI_1251 Ansi_1251 cp1251", "\xD1", u'С'},
    {"ANSI_1252 ansi_1252 ascii", "\xDF", u'ß'},
    {"ANSI_1253", "\xF9", u'ω'},
    {"ANSI_1254", "\xFD", u'ı'},
    {"ANSI_1255", "\xE0", u'א'},
    {"ANSI_1256", "\xC8", u'ب'},
    {"ANSI_1257", "\xE0", u'ą'},
    {"ANSI_1258", "\xFE", u'₫'},
    {"dos437 DOS437", "\xE1", u'ß'},
    {"dos850", "\x9B", u'ø'},
    {"dos852", "\x88", u'ł'},
    {"dos855", "\xA0", u'а'},
    {"dos857", "\x8D", u'ı'},
    {"dos860", "\x84", u'ã'},
    {"dos861", "\x95", u'þ'},
    {"dos863", "\x82", u'é'},
    {"dos864", "\xBF", u'؟'},
    {"dos865", "\x9B", u'ø'},
    {"dos866", "\x80", u'А'},
    {"dos869", "\xFA", u'ω'},
    {"mac-roman Mac macintosh", "\xA7", u'ß'},
    {"ISO8859-1 iso8859-1", "\xDF", u'ß'},
    {"ISO8859-2", "\xB3", u'ł'},
    {"iso8859-5", "\xC1", u'С'},
    {"ISO8859-7", "\xF9", u'ω'},
    {"ISO8859-9", "\xFD", u'ı'},
};

TEST(DxfText, KnowsTheCodePagesByEveryNameInAnyCase)
{
    for (const PageFact& fact : kPageFacts) {
        for (const QByteArray& name : QByteArray(fact.names).split(' ')) {
            const DxfText text = inPage(name);
            EXPECT_EQ(text.decode(fact.bytes).toStdU16String(), std::u16string(1, fact.character))
                << name.constData();
            EXPECT_EQ(text.encode(QStringView(&fact.character, 1)), QByteArray(fact.bytes))
                << name.constData();
        }
    }
}

TEST(DxfText, EveryCharacterOfEveryCodePageGoesToTheFileAndBack)
{
    for (const PageFact& fact : kPageFacts) {
        const QByteArray name = QByteArray(fact.names).split(' ').first();
        SCOPED_TRACE(name.constData());
        const DxfText text = inPage(name);
        QString all;
        for (int c = 1; c < 0x10000; ++c) {
            if (text.holds(QString(QChar(c))))
                all += QChar(c);
        }
        EXPECT_GT(all.size(), 200);
        const QByteArray bytes = text.encode(all);
        EXPECT_FALSE(bytes.contains("\\U+"));
        EXPECT_TRUE(text.decode(bytes) == all);
    }
}

TEST(DxfText, PairsOfBytesAreThoseOfTheConverter)
{
    for (const auto& [page, converter, least] :
         {std::tuple("ANSI_932", "Shift_JIS", 7000), std::tuple("ANSI_936", "GBK", 21000),
          std::tuple("ANSI_949", "windows-949", 17000), std::tuple("ANSI_950", "Big5", 13000)})
    {
        SCOPED_TRACE(page);
        const DxfText text = inPage(page);
        int pairs = 0;
        for (int c = 0x80; c < 0x10000; ++c) {
            const QString character = QString(QChar(c));
            if (!text.holds(character))
                continue;
            const QByteArray bytes = text.encode(character);
            QStringDecoder decoder(converter);
            ASSERT_EQ(QString(decoder(bytes)), character) << c;
            pairs += bytes.size() == 2;
        }
        EXPECT_GT(pairs, least);
    }
}

TEST(DxfText, JohabSpellsSyllablesByTheirLetters)
{
    const DxfText text = inPage("ANSI_1361");
    EXPECT_EQ(text.encode(u"한글 ㄱㅏㄳ 漢").toHex(' '),
              "d0 65 8b 69 20 88 41 84 61 84 44 20 f7 d3");
}

TEST(DxfText, ASecondByteThatLooksLikeACaretOrABackslashIsNone)
{
    // 0x5E and 0x5C are second bytes of pairs in these pages.
    EXPECT_EQ(inPage("ANSI_932")
                  .decode("\x83\x5E"
                          "ABC"),
              QStringLiteral("タABC"));
    EXPECT_EQ(inPage("ANSI_932").decode("\x95\x5CU+0041"), QStringLiteral("表U+0041"));
    EXPECT_EQ(inPage("ANSI_950").decode("\xA5\x5CU+0041"), QStringLiteral("功U+0041"));
    EXPECT_EQ(inPage("ANSI_932").decode("\x83\x5E^J\\U+0041"), QStringLiteral("タ\nA"));
}

TEST(DxfText, BytesThatAreNoCharacterBecomeReplacements)
{
    EXPECT_EQ(inPage("ANSI_936").decode("a\x81"), QStringLiteral("a\uFFFD")) << "cut off";
    EXPECT_EQ(inPage("ANSI_932").decode("\x81 z"), QStringLiteral("\uFFFD z"));
    EXPECT_EQ(inPage("ANSI_1255").decode("a\xFFz"), QStringLiteral("a\uFFFDz"));
}

TEST(DxfText, AnEscapeOfUnicodeHasExactlyFourHexDigits)
{
    const DxfText text = inPage("ANSI_1252");
    EXPECT_EQ(text.decode("\\U+00C4x"), QStringLiteral("Äx"));
    EXPECT_EQ(text.decode("\\u+00c4"), QStringLiteral("Ä"));
    EXPECT_EQ(text.decode("\\U+22052.3794"), QString(QChar(0x2205)) + QStringLiteral("2.3794"));
    for (const char* none : {"\\U+12", "\\U+12G4", "\\U+0x1F", "\\U+ 1F4", "\\U++123", "\\U1234",
                             "\\V+1234", "\\U+", "\\"})
        EXPECT_EQ(text.decode(none), QString::fromLatin1(none));
}

TEST(DxfText, EscapesWorkInUtf8Too)
{
    EXPECT_EQ(DxfText("AC1032", {}).decode("\xC3\xA4\\U+00C4^Jx"), QStringLiteral("äÄ\nx"));
}

TEST(DxfText, ACharacterBeyondTheBasicPlaneIsTwoEscapes)
{
    const DxfText western = inPage("ANSI_1252");
    EXPECT_EQ(western.decode("\\U+D83C\\U+DFE0"), QStringLiteral("🏠"));
    EXPECT_EQ(western.encode(u"🏠"), "\\U+D83C\\U+DFE0");
    EXPECT_EQ(DxfText("AC1032", {}).encode(u"🏠"), "\xF0\x9F\x8F\xA0");
    EXPECT_EQ(DxfText("AC1032", {}).decode("\\U+D83C\\U+DFE0"), QStringLiteral("🏠"));
}

TEST(DxfText, AMultibyteEscapeNamesItsCodePage)
{
    const DxfText text = inPage("ANSI_1252");
    EXPECT_EQ(text.decode("\\M+195C7"), QStringLiteral("壁"));
    EXPECT_EQ(text.decode("\\M+2C0F0"), QStringLiteral("牆"));
    EXPECT_EQ(text.decode("\\M+3BAAE"), QStringLiteral("벽"));
    EXPECT_EQ(text.decode("\\M+4A562"), QStringLiteral("벽"));
    EXPECT_EQ(text.decode("\\M+5C7BD\\M+5c7bd"), QStringLiteral("墙墙"));
    EXPECT_EQ(text.decode("\\M+10041"), QStringLiteral("A"));
    for (const char* none : {"\\M+095C7", "\\M+695C7", "\\M+195C", "\\M+1 5C7", "\\M195C7"})
        EXPECT_EQ(text.decode(none), QString::fromLatin1(none));
}

TEST(DxfText, ACaretStandsBeforeControlCharacters)
{
    const DxfText text = inPage("ANSI_1252");
    EXPECT_EQ(text.decode("a^Jb^Mc^Id"), QStringLiteral("a\nb\rc\td"));
    EXPECT_EQ(text.decode("^ J"), QStringLiteral("^J")) << "a real caret";
    EXPECT_EQ(text.decode("x^"), QStringLiteral("x^"));
    EXPECT_EQ(text.decode("x^1"), QStringLiteral("x^1"));
    EXPECT_EQ(text.encode(u"a\nb\tc^J"), "a^Jb^Ic^ J");
}

TEST(DxfText, WhatTheEncodingLacksBecomesAnEscape)
{
    EXPECT_EQ(inPage("ANSI_1252").encode(u"Ä\u0421"), "\xC4\\U+0421");
    EXPECT_EQ(inPage("ANSI_1251").encode(u"Ä\u0421"), "\\U+00C4\xD1");
    const char16_t half[] = {u'a', 0xD83C, u'b'};
    EXPECT_EQ(DxfText("AC1032", {}).encode(QStringView(half, 3)), "a\\U+D83Cb")
        << "half a character has no UTF-8";
}

TEST(DxfText, TextThatReadsLikeAnEscapeStaysText)
{
    for (const DxfText& text : {inPage("ANSI_1252"), inPage("ANSI_932"), DxfText("AC1032", {})}) {
        for (const QString& name :
             {QStringLiteral("\\U+0041"), QStringLiteral("\\M+195C7"), QStringLiteral("^J^ ^"),
              QStringLiteral("C:\\Users\\U+\\"), QStringLiteral("\\\\U+0041\\U+22052"),
              QStringLiteral("a\tb^c"), QStringLiteral("Wände Стены 壁 🏠")})
            EXPECT_EQ(text.decode(text.encode(name)), name) << name.toStdString();
    }
    EXPECT_EQ(inPage("ANSI_1252").encode(u"C:\\Users"), "C:\\Users");
}

TEST(DxfText, HoldsWhatNeedsNoEscapeOfUnicode)
{
    EXPECT_TRUE(inPage("ANSI_1252").holds(u"Wände_01^\n"));
    EXPECT_FALSE(inPage("ANSI_1252").holds(u"Стены"));
    EXPECT_TRUE(inPage("ANSI_1251").holds(u"Стены"));
    EXPECT_FALSE(inPage("ANSI_1251").holds(u"Wände"));
    EXPECT_TRUE(inPage("ANSI_936").holds(u"墙 and walls"));
    EXPECT_FALSE(inPage("ANSI_936").holds(u"🏠"));
    EXPECT_TRUE(DxfText("AC1032", {}).holds(u"Wände Стены 壁 🏠"));
    const char16_t half[] = {0xD83C, u'b'};
    EXPECT_FALSE(DxfText("AC1032", {}).holds(QStringView(half, 2)));
}

TEST(DxfText, LineEndsMayBeMixed)
{
    QByteArray bytes = DrawingText::withLayers({{"Walls", 1}, {"Doors"}});
    int line = 0;
    for (qsizetype at = bytes.indexOf('\n'); at >= 0; at = bytes.indexOf('\n', at + 2)) {
        if (++line % 3 == 0)
            bytes.insert(at, '\r');
    }
    const auto database = readDrawing(bytes, QStringLiteral("mixed.dxf"));
    EXPECT_EQ(database->audit(), QStringList());
    EXPECT_EQ(database->loadNotes(), QStringList());
    EXPECT_EQ(drawingBytes(*database), bytes);
}

} // namespace
