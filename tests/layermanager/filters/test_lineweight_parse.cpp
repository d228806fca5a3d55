#include "FilterFixture.h"
#include "host/text/LineweightText.h"

#include <QLocale>

#include <clocale>
#include <limits>

namespace {

class ParsedLineweight : public FilterFixture
{
protected:
    static qint32 of(const char* text) { return ParseLineweightText(QString::fromUtf8(text)); }
};

TEST_F(ParsedLineweight, KnowsTwoNamesInAnyCase)
{
    EXPECT_EQ(of("BYLAYER"), -1);
    EXPECT_EQ(of("ByLayer"), -1);
    EXPECT_EQ(of("BYBLOCK"), -2);
    EXPECT_EQ(of("byblock"), -2);
    EXPECT_EQ(of("ByLayer "), 0) << "the whole text is the name, or it is none";
    EXPECT_EQ(of("Default"), 0) << "this name is known to expressions only";
}

TEST_F(ParsedLineweight, IsCutOffBelowAHundredthOfAMillimetre)
{
    EXPECT_EQ(of("0.25"), 25);
    EXPECT_EQ(of("2.11"), 210);
    EXPECT_EQ(of("0.259"), 25);
    EXPECT_EQ(of("0.009"), 0);
    EXPECT_EQ(of("-0.019"), -1);
}

TEST_F(ParsedLineweight, IsInInchesWhereTheHostSaysSo)
{
    setLineweightUnits(0);
    EXPECT_EQ(of("0.012"), 30);
    EXPECT_EQ(of("0.010\""), 25);
    setLineweightUnits(2);
    EXPECT_EQ(of("0.012"), 1) << "anything but 0 is millimetres";
}

TEST_F(ParsedLineweight, IsNothingWhereTheUnitCannotBeRead)
{
    makeLineweightUnitsUnreadable();
    EXPECT_EQ(of("0.25"), 0);
    EXPECT_EQ(of("ByLayer"), -1) << "the names need no unit";
    ksSetHost({});
    EXPECT_EQ(of("0.25"), 0);
}

TEST_F(ParsedLineweight, TakesTheNumberThatTheTextBeginsWith)
{
    EXPECT_EQ(of("0.25 mm"), 25);
    EXPECT_EQ(of(" \t0.25"), 25);
    EXPECT_EQ(of("+.5x"), 50);
    EXPECT_EQ(of("1.e1"), 1000);
    EXPECT_EQ(of("1e"), 100);
    EXPECT_EQ(of("1e+"), 100);
    EXPECT_EQ(of("1E-1mm"), 10);
    EXPECT_EQ(of("1,5"), 100);
    EXPECT_EQ(of("0x10"), 0);
    EXPECT_EQ(of(""), 0);
    EXPECT_EQ(of("."), 0);
    EXPECT_EQ(of("e5"), 0);
    EXPECT_EQ(of("- 1"), 0);
    EXPECT_EQ(of("nan"), 0);
    EXPECT_EQ(of("inf"), 0);
    EXPECT_EQ(of("\xD9\xA1"), 0) << "digits are 0 to 9";
}

TEST_F(ParsedLineweight, HoldsAbsurdNumbersWithinItsRange)
{
    constexpr qint32 kMost = std::numeric_limits<qint32>::max();
    constexpr qint32 kLeast = std::numeric_limits<qint32>::min();
    for (const int units : {0, 1}) {
        setLineweightUnits(units);
        EXPECT_EQ(of("1e999"), kMost);
        EXPECT_EQ(of("-1e999"), kLeast);
        EXPECT_EQ(of("1e308"), kMost);
        EXPECT_EQ(of("99999999999999999999999"), kMost);
        EXPECT_EQ(of("1e-999"), 0);
        EXPECT_EQ(of("1e99999999999999999999999"), kMost);
        EXPECT_EQ(ParseLineweightText(QString(1'000'000, QLatin1Char('9'))), kMost);
    }
}

TEST_F(ParsedLineweight, DoesNotDependOnTheLocale)
{
    const QByteArray before = std::setlocale(LC_NUMERIC, nullptr);
    const bool hasComma = std::setlocale(LC_NUMERIC, "de_DE.UTF-8") != nullptr;
    QLocale::setDefault(QLocale(QLocale::German));
    EXPECT_EQ(of("0.25"), 25) << (hasComma ? "in a locale with commas" : "with Qt's locale set");
    QLocale::setDefault(QLocale::c());
    std::setlocale(LC_NUMERIC, before.constData());
}

TEST_F(ParsedLineweight, ReadsTheHostsTextOfEachValidWeightButTheWidestInMillimetres)
{
    for (const bool millimetres : {false, true}) {
        setLineweightUnits(millimetres ? 1 : 0);
        for (const int weight : validLineweights()) {
            const QString text = lineweightText(weight, millimetres);
            EXPECT_EQ(ParseLineweightText(text), weight == 211 && millimetres ? 210 : weight)
                << text.toStdString();
        }
    }
}

} // namespace
