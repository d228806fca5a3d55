#include "host/documents/SaveSentences.h"
#include "io/DrawingFile.h"

#include <QLocale>

#include <gtest/gtest.h>

namespace {

std::string sentence(quint64 layers, quint64 others, quint64 identical)
{
    SaveReport report;
    report.recordsChanged = layers + others;
    report.layerRecordsChanged = layers;
    report.otherRecordsChanged = others;
    report.recordsIdentical = identical;
    return recordsSentence(report).toStdString();
}

class SaveSentences : public testing::Test
{
protected:
    void SetUp() override { QLocale::setDefault(QLocale(QLocale::English)); }
    void TearDown() override { QLocale::setDefault(QLocale::c()); }
};

TEST_F(SaveSentences, CountLayersFirst)
{
    EXPECT_EQ(sentence(14, 0, 48211),
              "14 layer records changed, all other 48,211 records identical.");
    EXPECT_EQ(sentence(1, 0, 48224), "1 layer record changed, all other 48,224 records identical.");
    EXPECT_EQ(sentence(20000, 0, 2),
              "20,000 layer records changed, all other 2 records identical.");
}

TEST_F(SaveSentences, NameOtherKindsApart)
{
    EXPECT_EQ(sentence(14, 3, 48208),
              "14 layer records and 3 of other kinds changed, all other 48,208 records identical.");
    EXPECT_EQ(sentence(1, 1, 10),
              "1 layer record and 1 of another kind changed, all other 10 records identical.");
    EXPECT_EQ(sentence(0, 1, 10), "1 record changed, all other 10 records identical.");
    EXPECT_EQ(sentence(0, 1234, 10), "1,234 records changed, all other 10 records identical.");
}

TEST_F(SaveSentences, SayWhenNothingOrEverythingChanged)
{
    EXPECT_EQ(sentence(0, 0, 48225), "No records changed, all 48,225 identical.");
    EXPECT_EQ(sentence(5, 0, 1), "5 layer records changed, the other record identical.");
    EXPECT_EQ(sentence(5, 0, 0), "5 layer records changed, there are no others.");
}

TEST_F(SaveSentences, CountSettingsOfTheDrawingAtTheEnd)
{
    SaveReport report;
    report.recordsIdentical = 20;
    report.settingsChanged = 1;
    EXPECT_EQ(recordsSentence(report).toStdString(),
              "No records changed, all 20 identical; 1 setting of the drawing changed.");
    report.settingsChanged = 2;
    report.layerRecordsChanged = 3;
    EXPECT_EQ(recordsSentence(report).toStdString(),
              "3 layer records changed, all other 20 records identical; 2 settings of the drawing "
              "changed.");
}

TEST_F(SaveSentences, SayOfALaterSaveThatTheOpenedFileIsComparedWith)
{
    SaveReport report;
    report.recordsIdentical = 20;
    EXPECT_EQ(recordsSentence(report, true).toStdString(), "No records changed, all 20 identical.");
    report.layerRecordsChanged = 3;
    EXPECT_EQ(recordsSentence(report, true).toStdString(),
              "3 layer records changed since the drawing was opened, all other 20 records "
              "identical.");
}

TEST_F(SaveSentences, GroupNumbersAsTheLocaleDoes)
{
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    EXPECT_EQ(sentence(14, 0, 48211),
              "14 layer records changed, all other 48.211 records identical.");
}

} // namespace
