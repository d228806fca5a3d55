#include "host/text/ColorText.h"

#include <gtest/gtest.h>

namespace {
std::optional<OdCmColor> read(const char* text)
{
    return colorFromText(QString::fromUtf8(text));
}
} // namespace

TEST(ColorText, ReadsIndicesNamesAndRgb)
{
    EXPECT_EQ(OdCmColor::fromIndex(1), read("1"));
    EXPECT_EQ(OdCmColor::fromIndex(255), read(" 255 "));
    EXPECT_EQ(OdCmColor::fromIndex(5), read("BLUE"));
    EXPECT_EQ(OdCmColor::fromRgb(0, 128, 255), read("0, 128 ,255"));
}

TEST(ColorText, ReadsBackWhatColorsAreCalled)
{
    for (int index = 1; index <= 255; ++index) {
        const OdCmColor color = OdCmColor::fromIndex(index);
        EXPECT_EQ(color, colorFromText(color.colorNameForDisplay())) << index;
    }
    const OdCmColor mixed = OdCmColor::fromRgb(12, 34, 56);
    EXPECT_EQ(mixed, colorFromText(mixed.colorNameForDisplay()));
}

TEST(ColorText, RefusesTheRest)
{
    for (const char* text : {"", "0", "256", "-1", "1.5", "purple", "ByLayer", "1,2", "1,2,3,4",
                             "1,2,256", "1,,2", "0x10", "99999999999"})
        EXPECT_FALSE(read(text)) << text;
}
