#include "database/drawing/OdDbDatabase.h"
#include "database/filters/FilterCriteria.h"
#include "host/support/TestDrawing.h"
#include "host/text/LineweightText.h"

#include <cstdlib>
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

// In millimetres as other programs print them; in inches with a fourth decimal where the third
// alone would be read back as another weight.
const Printed kPrinted[] = {
    {0, "0.00 mm", "0.000\""},    {5, "0.05 mm", "0.002\""},    {9, "0.09 mm", "0.0036\""},
    {13, "0.13 mm", "0.0052\""},  {15, "0.15 mm", "0.006\""},   {18, "0.18 mm", "0.0071\""},
    {20, "0.20 mm", "0.008\""},   {25, "0.25 mm", "0.010\""},   {30, "0.30 mm", "0.012\""},
    {35, "0.35 mm", "0.014\""},   {40, "0.40 mm", "0.016\""},   {50, "0.50 mm", "0.020\""},
    {53, "0.53 mm", "0.021\""},   {60, "0.60 mm", "0.024\""},   {70, "0.70 mm", "0.0276\""},
    {80, "0.80 mm", "0.0315\""},  {90, "0.90 mm", "0.0355\""},  {100, "1.00 mm", "0.0394\""},
    {106, "1.06 mm", "0.042\""},  {120, "1.20 mm", "0.0473\""}, {140, "1.40 mm", "0.0552\""},
    {158, "1.58 mm", "0.0623\""}, {200, "2.00 mm", "0.079\""},  {211, "2.11 mm", "0.0831\""},
};

/// Reads a text as filters do: a leading number, inches turned to millimetres, cut off to
/// hundredths.
int readBack(const QString& text, bool millimetres)
{
    if (text.compare(QLatin1String("Default"), Qt::CaseInsensitive) == 0)
        return -3;
    if (text.compare(QLatin1String("ByLayer"), Qt::CaseInsensitive) == 0)
        return -1;
    if (text.compare(QLatin1String("ByBlock"), Qt::CaseInsensitive) == 0)
        return -2;
    const double number = std::strtod(text.toLatin1().constData(), nullptr);
    return static_cast<int>((millimetres ? number : number * 25.4) / 0.01);
}
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

TEST(LineweightText, EveryValidWeightReadsBackInBothUnits)
{
    for (const int weight : validLineweights()) {
        EXPECT_EQ(readBack(lineweightText(weight, false), false), weight);
        // The one number that is not a whole count of hundredths once it is divided.
        EXPECT_EQ(readBack(lineweightText(weight, true), true), weight == 211 ? 210 : weight);
    }
    for (const int named : {-3, -2, -1}) {
        EXPECT_EQ(readBack(lineweightText(named, true), true), named);
        EXPECT_EQ(readBack(lineweightText(named, false), false), named);
    }
}

TEST(LineweightText, FiltersOfADrawingKnowEveryWeightInMillimetres)
{
    const auto drawing = TestDrawing().read();
    const auto spelled = [&](int weight) {
        const FilterRow row{{QStringLiteral("LINEWEIGHT"), lineweightText(weight, true)}};
        return FilterCriteria::spelled(*drawing, {row});
    };
    for (const int weight : validLineweights()) {
        if (weight == 211)
            continue;
        EXPECT_EQ(spelled(weight),
                  QStringLiteral("LINEWEIGHT==\"%1\" ").arg(lineweightText(weight, true)))
            << weight;
    }
    EXPECT_EQ(spelled(-3), QStringLiteral("LINEWEIGHT==\"Default\" "));
    EXPECT_EQ(spelled(211), std::nullopt);
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

TEST(LineweightText, ReadsBackEveryValidWeightInBothUnits)
{
    for (const bool millimetres : {true, false}) {
        for (const int weight : validLineweights())
            EXPECT_EQ(weight, lineweightFromText(lineweightText(weight, !millimetres), millimetres))
                << weight;
        EXPECT_EQ(-3, lineweightFromText(QStringLiteral(" default "), millimetres));
    }
}

TEST(LineweightText, TakesTheNearestWeightAndRefusesOthers)
{
    EXPECT_EQ(35, lineweightFromText(QStringLiteral("0.37"), true));
    EXPECT_EQ(25, lineweightFromText(QStringLiteral("0.25MM"), false));
    EXPECT_EQ(25, lineweightFromText(QStringLiteral("0.01"), false));
    EXPECT_EQ(211, lineweightFromText(QStringLiteral("2.11"), true));
    for (const char* text : {"", "thick", "-0.1", "2.2", "nan", "inf", "1e300", "ByLayer"})
        EXPECT_FALSE(lineweightFromText(QString::fromUtf8(text), true)) << text;
}
