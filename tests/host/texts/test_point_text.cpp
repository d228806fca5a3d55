#include "host/commands/drawing/PointText.h"

#include <gtest/gtest.h>

namespace {
constexpr Vec3 kBase{10, 20, 5};

std::string read(const char* text)
{
    const auto point = point_text::parse(QString::fromUtf8(text), kBase);
    return point ? point_text::of(*point).toStdString() : "none";
}
} // namespace

TEST(PointText, TwoOrThreeNumbersAreAPoint)
{
    EXPECT_EQ("3,4", read("3,4"));
    EXPECT_EQ("-0.5,1e+12", read(" -.5 , 1e12 "));
    EXPECT_EQ("1,2,3", read("1,2,3"));
    EXPECT_EQ("1,2", read("1,2,0"));
}

TEST(PointText, AnAtCountsFromTheBase)
{
    EXPECT_EQ("13,16,5", read("@3,-4"));
    EXPECT_EQ("13,16,7", read("@3,-4,2"));
    EXPECT_EQ("10,20,5", read("@"));
}

TEST(PointText, ADistanceAndAnAngleAreAPoint)
{
    const auto point = point_text::parse(QStringLiteral("@10<90"), kBase);
    ASSERT_TRUE(point);
    EXPECT_NEAR(10, point->x, 1e-12);
    EXPECT_NEAR(30, point->y, 1e-12);
    EXPECT_EQ("5,0", read("5<0"));
    EXPECT_EQ("5,0", read("5<720"));
}

TEST(PointText, ACommaPartsCoordinatesAndNeverThousands)
{
    EXPECT_EQ("10,200", read("10,200"));
    EXPECT_EQ("1,200,300", read("1,200,300"));
    for (const char* text : {"10,200", "1,200,300", "1,5", "1.000,5"})
        EXPECT_FALSE(point_text::parseNumber(QString::fromUtf8(text))) << text;
    EXPECT_EQ(1500, point_text::parseNumber(QStringLiteral("1500")));
}

TEST(PointText, AnythingElseIsNone)
{
    for (const char* text : {"", "1", "1,", ",1", "a,b", "1,2,3,4", "1<2<3", "<5", "5<", "@5",
                             "@@1,2", "nan,0", "inf,0", "1e300,0", "1;2", "1 2"})
        EXPECT_EQ("none", read(text)) << text;
}

TEST(PointText, PointingGivesTheDigitsThatItCanTell)
{
    const Vec2 point{7210.723140495869, -17757.179752066113};
    EXPECT_EQ("7210.72,-17757.18", point_text::pointedAt(point, 70).toStdString());
    EXPECT_EQ("7211,-17757", point_text::pointedAt(point, 50000).toStdString());
    EXPECT_EQ("0.3333333,0", point_text::pointedAt({1.0 / 3, -1e-9}, 0.0004).toStdString());
    EXPECT_EQ(point_text::of(Vec2{0.1, 0.7}), point_text::pointedAt({0.1, 0.7}, 1e-300));
}

TEST(PointText, SpellsAllDigitsAndReadsThemBack)
{
    const Vec2 point{1.0 / 3, -123456789.0123456};
    const auto again = point_text::parse(point_text::of(point), {});
    ASSERT_TRUE(again);
    EXPECT_EQ(point, again->plan());
    EXPECT_EQ("0,0", point_text::of(Vec2{-0.0, 0}).toStdString());
}
