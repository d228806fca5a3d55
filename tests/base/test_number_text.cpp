#include "base/NumberText.h"

#include <gtest/gtest.h>

TEST(NumberText, ReadsIntegersWithBlanksAndSigns)
{
    EXPECT_EQ(NumberText::integer("     7"), 7);
    EXPECT_EQ(NumberText::integer("-30"), -30);
    EXPECT_EQ(NumberText::integer("+4\t"), 4);
    EXPECT_FALSE(NumberText::integer(""));
    EXPECT_FALSE(NumberText::integer("7x"));
    EXPECT_FALSE(NumberText::integer("+-7"));
    EXPECT_FALSE(NumberText::integer("99999999999999999999"));
}

TEST(NumberText, ReadsRealsInEverySpelling)
{
    EXPECT_EQ(NumberText::real(" 0.25"), 0.25);
    EXPECT_EQ(NumberText::real("-1.5E+03"), -1500.0);
    EXPECT_EQ(NumberText::real("10."), 10.0);
    EXPECT_FALSE(NumberText::real("one"));
    EXPECT_FALSE(NumberText::real("1,5"));
}

TEST(NumberText, ReadsHandlesOfUpTo64Bits)
{
    EXPECT_EQ(NumberText::handle("2b1"), 0x2B1u);
    EXPECT_EQ(NumberText::handle("D9B071D01A0ACD1C"), 0xD9B071D01A0ACD1Cu);
    EXPECT_FALSE(NumberText::handle("1D9B071D01A0ACD1C"));
    EXPECT_FALSE(NumberText::handle("2G"));
}
