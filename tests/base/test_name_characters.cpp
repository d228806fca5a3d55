#include "base/NameCharacters.h"

#include <QString>

#include <algorithm>
#include <gtest/gtest.h>

using namespace name_characters;

TEST(NameCharacters, LayersAndFiltersRefuseTheSameCharactersInOrdersOfTheirOwn)
{
    QString ofLayers(kNotInLayers);
    QString ofFilters(kNotInFilters);
    EXPECT_EQ(ofLayers.toStdString(), "<>/\":;?*|,=`\\");
    EXPECT_EQ(ofFilters.toStdString(), "<>/\\\":;?*|,=`");
    std::sort(ofLayers.begin(), ofLayers.end());
    std::sort(ofFilters.begin(), ofFilters.end());
    EXPECT_EQ(ofLayers, ofFilters);
}

TEST(NameCharacters, OneOfThemAnywhereIsFound)
{
    EXPECT_TRUE(containsAnyOf(u"a|b", kNotInLayers));
    EXPECT_TRUE(containsAnyOf(u"a\\", kNotInFilters));
    EXPECT_FALSE(containsAnyOf(u"Tom's [1]", kNotInFilters));
    EXPECT_FALSE(containsAnyOf(u"", kNotInFilters));
}

TEST(NameCharacters, ARecordsNameIsOfSomeLengthAndPlain)
{
    EXPECT_TRUE(canNameRecord(u"A"));
    EXPECT_TRUE(canNameRecord(u"Größe 'x' [1]"));
    EXPECT_TRUE(canNameRecord(QString(255, QLatin1Char('x'))));
    EXPECT_FALSE(canNameRecord(QString(256, QLatin1Char('x'))));
    EXPECT_FALSE(canNameRecord(u""));
    EXPECT_FALSE(canNameRecord(u"a\tb"));
    EXPECT_FALSE(canNameRecord(QString(QChar(0x1F))));
    EXPECT_TRUE(canNameRecord(u" "));
    for (const char c : kNotInLayers)
        EXPECT_FALSE(canNameRecord(QString(QLatin1Char(c)))) << c;
}
