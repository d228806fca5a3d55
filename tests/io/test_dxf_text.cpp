#include "io/dxf/DxfText.h"

#include <gtest/gtest.h>

namespace {

TEST(DxfText, DecodesTheCodePageUpTo2004)
{
    EXPECT_EQ(DxfText("AC1018", "ANSI_1252").decode("W\xE4nde"), QStringLiteral("Wände"));
    EXPECT_EQ(DxfText("AC1015", "ansi_1251").decode("\xD1\xF2\xE5\xED\xFB"),
              QStringLiteral("Стены"));
    EXPECT_EQ(DxfText("AC1015", "ANSI_932").decode("\x95\xC7"), QStringLiteral("壁"));
    EXPECT_EQ(DxfText({}, {}).decode("\xC4"), QStringLiteral("Ä"));
}

TEST(DxfText, DecodesUtf8From2007On)
{
    EXPECT_EQ(DxfText("AC1021", "ANSI_1252").decode("W\xC3\xA4nde"), QStringLiteral("Wände"));
    EXPECT_TRUE(DxfText("AC1032", {}).decode("a\xFFz").contains(QChar(0xFFFD)));
}

TEST(DxfText, ResolvesEscapes)
{
    const DxfText text("AC1018", "ANSI_1252");
    EXPECT_EQ(text.decode("\\U+00C4x"), QStringLiteral("Äx"));
    EXPECT_EQ(text.decode("\\U+22052.3794"), QString(QChar(0x2205)) + QStringLiteral("2.3794"));
    EXPECT_EQ(text.decode("\\M+195C7"), QStringLiteral("壁"));
    EXPECT_EQ(text.decode("a^Jb^Ic^ d"), QStringLiteral("a\nb\tc^d"));
    EXPECT_EQ(text.decode("\\U+12"), QStringLiteral("\\U+12"));
    EXPECT_EQ(text.decode("C:\\path^"), QStringLiteral("C:\\path^"));
}

TEST(DxfText, EncodesWhatItDecodes)
{
    for (const DxfText& text :
         {DxfText("AC1018", "ANSI_1252"), DxfText("AC1032", {}), DxfText("AC1015", "ANSI_936")})
    {
        for (const QString& name : {QStringLiteral("Wände"), QStringLiteral("Стены"),
                                    QStringLiteral("a\tb^c"), QStringLiteral("壁")})
            EXPECT_EQ(text.decode(text.encode(name)), name) << name.toStdString();
    }
    EXPECT_EQ(DxfText("AC1018", "ANSI_1252").encode(u"\u0421"), "\\U+0421");
}

} // namespace
