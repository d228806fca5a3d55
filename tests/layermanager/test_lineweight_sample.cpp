#include "layermanager/layers/LineweightSample.h"

#include <gtest/gtest.h>

namespace {

struct Sample
{
    int weight;
    int dpi;
    int lwUnits;
    double thickness;
};

// Worked out by hand: at 96 dpi the reference is 39 in inches (96 * 2.11 * 0.25 * 20 / 25.4
// = 39.87) and 1012 in millimetres (1012.8).
constexpr Sample kSamples[] = {
    {211, 96, 0, 17.9433070866 * 14.0 / 39.0}, // 96 * (211 / 25.4 / 100) * 0.25 * 9
    {211, 96, 1, 455.76 * 14.0 / 1012.0}, // 96 * 2.11 * 0.25 * 9
    {100, 96, 0, 8.50393700787 * 14.0 / 39.0},
    {25, 96, 1, 54.0 * 14.0 / 1012.0},
    {25, 96, 0, 2.12598425197 * 14.0 / 39.0},
    {5, 96, 0, 1.0 * 14.0 / 39.0}, // 0.425 is raised to 1
    {0, 96, 0, 1.0 * 14.0 / 39.0},
    {0, 96, 1, 1.0 * 14.0 / 1012.0},
    {-3, 96, 0, 0.0}, // named weights are negative and have no thickness
    {-1, 96, 1, 0.0},
    {211, 192, 0, 35.8866141732 * 14.0 / 79.0}, // twice the dpi: reference 79.74
};

TEST(LineweightSample, FollowsItsArithmetic)
{
    for (const Sample& sample : kSamples) {
        SCOPED_TRACE(testing::Message()
                     << sample.weight << " at " << sample.dpi << " dpi, unit " << sample.lwUnits);
        EXPECT_NEAR(lineweightSampleThickness(sample.weight, sample.dpi, sample.lwUnits),
                    sample.thickness, 1e-9);
    }
}

TEST(LineweightSample, GrowsWithTheWeight)
{
    for (const int unit : {0, 1}) {
        double previous = 0.0;
        for (const int weight : {5, 30, 50, 70, 100, 140, 211}) {
            const double thickness = lineweightSampleThickness(weight, 96, unit);
            EXPECT_GT(thickness, previous);
            previous = thickness;
        }
    }
}

TEST(LineweightSample, IsABandAroundTheMiddle)
{
    EXPECT_DOUBLE_EQ(lineweightBandHalfHeight(0.0), 0.5);
    EXPECT_DOUBLE_EQ(lineweightBandHalfHeight(6.0), 3.5);
}

TEST(LineweightSample, StandsADeviceWithoutDots)
{
    EXPECT_EQ(lineweightSampleThickness(211, 0, 0), 0.0);
}

} // namespace
