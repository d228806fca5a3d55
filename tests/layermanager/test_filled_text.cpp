#include "layermanager/layers/FilledText.h"

#include <gtest/gtest.h>

namespace {

TEST(FilledText, PutsValuesInThePlaceOfMarksInTheirOrder)
{
    EXPECT_EQ(filledText(QStringLiteral(" %s : %d layers displayed of %d total layers"),
                         {QStringLiteral("All"), QStringLiteral("3"), QStringLiteral("12")}),
              QStringLiteral(" All : 3 layers displayed of 12 total layers"));
}

TEST(FilledText, LeavesMarksInsideOfValuesAlone)
{
    EXPECT_EQ(
        filledText(QStringLiteral("%s-%d"), {QStringLiteral("100%d %s"), QStringLiteral("7")}),
        QStringLiteral("100%d %s-7"));
}

TEST(FilledText, KeepsMarksWithoutAValueAndOtherPercentSigns)
{
    EXPECT_EQ(filledText(QStringLiteral("50% %s %x %d %"), {QStringLiteral("a")}),
              QStringLiteral("50% a %x %d %"));
    EXPECT_EQ(filledText(QString(), {QStringLiteral("a")}), QString());
}

} // namespace
