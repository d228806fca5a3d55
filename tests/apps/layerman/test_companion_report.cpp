#include "layerman/Output.h"
#include "layerman/Report.h"

#include <gtest/gtest.h>

namespace {

using enum ExitStatus;

Report report(std::initializer_list<ExitStatus> drawings, int changed = 0, int refused = 0)
{
    Report report;
    for (const ExitStatus status : drawings) {
        if (status == Done)
            report.drawingDone();
        else
            report.drawingFailed(status);
    }
    report.edited(changed, refused);
    return report;
}

} // namespace

TEST(Report, TheExitCodeTellsWhyAllFailedOrThatSomeDid)
{
    EXPECT_EQ(Done, report({}).status());
    EXPECT_EQ(Done, report({Done, Done}).status());
    EXPECT_EQ(BadInput, report({BadInput}).status());
    EXPECT_EQ(BadInput, report({BadInput, BadInput}).status());
    EXPECT_EQ(CannotWrite, report({CannotWrite, CannotWrite}).status());
    EXPECT_EQ(SomeFailed, report({BadInput, CannotWrite}).status());
    EXPECT_EQ(SomeFailed, report({Done, CannotWrite}).status());
}

TEST(Report, AFailureCountsMoreThanARefusal)
{
    EXPECT_EQ(Refused, report({Done}, 3, 1).status());
    EXPECT_EQ(BadInput, report({BadInput}, 0, 1).status());
    EXPECT_EQ(SomeFailed, report({Done, BadInput}, 3, 1).status());
}

TEST(Report, CountsAreTold)
{
    Report list = report({Done, Done, Done});
    list.listed(10, 300);
    list.listed(2, 40);
    EXPECT_EQ("3 drawings, 12 of 340 layers listed.", list.listSummary().toStdString());
    Report one = report({Done});
    one.listed(1, 1);
    one.filtersListed(1);
    EXPECT_EQ("1 drawing, 1 of 1 layer listed.", one.listSummary().toStdString());
    EXPECT_EQ("1 drawing, 1 filter listed.", one.filtersSummary().toStdString());
    EXPECT_EQ("2 drawings: 14 layers changed, 1 refused, 1 drawing failed.",
              report({Done, BadInput}, 14, 1).setSummary(false).toStdString());
    EXPECT_EQ("2 drawings: 1 layer would change, 2 drawings failed.",
              report({BadInput, CannotWrite}, 1).setSummary(true).toStdString());
}

TEST(Output, NoTextOfADrawingReachesATerminalAsACommand)
{
    EXPECT_EQ(
        "a\\x1b[31mb\\n\\r\\t\\x7f\\x9b\\u2028Wände",
        Output::escaped(QStringLiteral("a\x1b[31mb\n\r\t\x7f\u009b\u2028Wände")).toStdString());
}

TEST(Output, NoTextOfADrawingTurnsALineAround)
{
    EXPECT_EQ(
        "\\u202eA\\u202c\\u2066B\\u2069\\u200f\\u061c",
        Output::escaped(QStringLiteral("\u202eA\u202c\u2066B\u2069\u200f\u061c")).toStdString());
    // Letters that are written from the right, and what joins them, are just text.
    const QString text = QStringLiteral("\u05d0\u05d1 \u0645\u06cc\u200c\u062e");
    EXPECT_EQ(text.toStdString(), Output::escaped(text).toStdString());
}

TEST(Output, AStreamThatTakesNothingIsNoticed)
{
    std::FILE* full = std::fopen("/dev/full", "w");
    if (!full)
        GTEST_SKIP() << "This system has no /dev/full.";
    Output output(full, stderr);
    output.print(QStringLiteral("text"));
    EXPECT_FALSE(output.isWhole());
    std::fclose(full);
}
