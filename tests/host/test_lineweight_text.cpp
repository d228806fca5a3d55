#include "host/text/LineweightText.h"

#include <gtest/gtest.h>

namespace {
std::string millimetres(int weight)
{
    return lineweightText(weight, true).toStdString();
}

std::string inches(int weight)
{
    return lineweightText(weight, false).toStdString();
}

struct Printed
{
    int weight;
    const char* millimetres;
    const char* inches;
};

// What other programs print for each weight that a drawing may hold.
const Printed kPrinted[] = {
    {0, "0.00 mm", "0.000\""},   {5, "0.05 mm", "0.002\""},   {9, "0.09 mm", "0.004\""},
    {13, "0.13 mm", "0.005\""},  {15, "0.15 mm", "0.006\""},  {18, "0.18 mm", "0.007\""},
    {20, "0.20 mm", "0.008\""},  {25, "0.25 mm", "0.010\""},  {30, "0.30 mm", "0.012\""},
    {35, "0.35 mm", "0.014\""},  {40, "0.40 mm", "0.016\""},  {50, "0.50 mm", "0.020\""},
    {53, "0.53 mm", "0.021\""},  {60, "0.60 mm", "0.024\""},  {70, "0.70 mm", "0.028\""},
    {80, "0.80 mm", "0.031\""},  {90, "0.90 mm", "0.035\""},  {100, "1.00 mm", "0.039\""},
    {106, "1.06 mm", "0.042\""}, {120, "1.20 mm", "0.047\""}, {140, "1.40 mm", "0.055\""},
    {158, "1.58 mm", "0.062\""}, {200, "2.00 mm", "0.079\""}, {211, "2.11 mm", "0.083\""},
};
} // namespace

TEST(LineweightText, EveryValidWeightPrintsInBothUnits)
{
    ASSERT_EQ(std::size(kPrinted), validLineweights().size());
    for (std::size_t i = 0; i < std::size(kPrinted); ++i) {
        EXPECT_EQ(kPrinted[i].weight, validLineweights()[i]);
        EXPECT_EQ(kPrinted[i].millimetres, millimetres(kPrinted[i].weight));
        EXPECT_EQ(kPrinted[i].inches, inches(kPrinted[i].weight));
    }
}

TEST(LineweightText, NamedWeightsPrintTheirNamesInBothUnits)
{
    EXPECT_EQ("Default", millimetres(-3));
    EXPECT_EQ("ByBlock", inches(-2));
    EXPECT_EQ("ByLayer", millimetres(-1));
}

TEST(LineweightText, AForeignWeightShowsAsTheNearestValidOne)
{
    EXPECT_EQ("0.25 mm", millimetres(26));
    EXPECT_EQ("2.11 mm", millimetres(32767));
    EXPECT_EQ("0.00 mm", millimetres(-32768));
}

TEST(LineweightText, HalfwayBetweenTwoWeightsTheThinnerOneShows)
{
    EXPECT_EQ("0.05 mm", millimetres(7));
}
