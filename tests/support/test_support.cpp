#include "support/ExpectedWarning.h"
#include "support/RecordingPrompts.h"
#include "support/drawings/SharedDrawings.h"
#include "support/pictures/GoldenImage.h"

#include <QDir>
#include <QTemporaryDir>

#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

namespace {

QImage square(QRgb colour)
{
    QImage image(100, 100, QImage::Format_RGB32);
    image.fill(colour);
    return image;
}

/// Sets an environment variable for a scope.
class ScopedVariable
{
public:
    ScopedVariable(const char* name, const QByteArray& value)
        : m_name(name)
        , m_before(qgetenv(name))
    {
        qputenv(m_name, value);
    }
    ~ScopedVariable()
    {
        if (m_before.isNull())
            qunsetenv(m_name);
        else
            qputenv(m_name, m_before);
    }
    ScopedVariable(const ScopedVariable&) = delete;
    ScopedVariable& operator=(const ScopedVariable&) = delete;

private:
    const char* m_name;
    QByteArray m_before;
};

} // namespace

TEST(LogGuard, FailsTheTestOnAnUnexpectedWarning)
{
    EXPECT_NONFATAL_FAILURE(qWarning("the roof is leaking"), "the roof is leaking");
    EXPECT_NONFATAL_FAILURE(qCritical("the roof is gone"), "the roof is gone");
}

TEST(LogGuard, LetsAnAnnouncedWarningPassOnce)
{
    const ExpectedWarning expected(QStringLiteral("roof"));
    EXPECT_FALSE(expected.wasSeen());
    qWarning("the roof is leaking");
    EXPECT_TRUE(expected.wasSeen());
    EXPECT_NONFATAL_FAILURE(qWarning("the roof leaks again"), "the roof leaks again");
}

TEST(LogGuard, FailsTheTestWhenTheAnnouncedWarningDoesNotCome)
{
    EXPECT_NONFATAL_FAILURE(ExpectedWarning expected(QStringLiteral("roof")), "not logged: roof");
}

TEST(RecordingPrompts, AnswerFromTheQueueAndKeepTheTexts)
{
    RecordingPrompts prompts;
    prompts.willCloseMessage();
    prompts.willConfirm(true);
    prompts.willConfirm(false);
    prompts.willChoose(102);

    TaskQuestion question;
    question.mainInstruction = QStringLiteral("Off?");
    question.links = {{101, QStringLiteral("Off")}, {102, QStringLiteral("On")}};
    Prompts::current().message(nullptr, QStringLiteral("Stop."), Prompts::Icon::Error);
    EXPECT_TRUE(Prompts::current().confirm(nullptr, QStringLiteral("Sure?")));
    EXPECT_FALSE(Prompts::current().confirm(nullptr, QStringLiteral("Really?")));
    EXPECT_EQ(Prompts::current().ask(nullptr, question), 102);

    EXPECT_TRUE(prompts.allAsked());
    EXPECT_EQ(prompts.texts().join(QLatin1Char('|')), QStringLiteral("Stop.|Sure?|Really?|Off?"));
    EXPECT_EQ(prompts.asked().at(0).icon, Prompts::Icon::Error);
    EXPECT_EQ(prompts.asked().at(3).question.links.size(), 2);
}

TEST(RecordingPrompts, FailTheTestOnAnUnexpectedQuestionAndAnswerLikeAClosedDialog)
{
    RecordingPrompts prompts;
    int chosen = 0;
    EXPECT_NONFATAL_FAILURE(chosen = prompts.ask(nullptr, TaskQuestion()),
                            "Unexpected task dialog");
    EXPECT_EQ(chosen, Prompts::kCancelled);
    prompts.willCloseMessage();
    EXPECT_NONFATAL_FAILURE(prompts.confirm(nullptr, QStringLiteral("Sure?")), "question: Sure?");
    EXPECT_FALSE(prompts.allAsked());
    prompts.clear();
}

TEST(RecordingPrompts, FailTheTestWhenAnAnnouncedQuestionNeverComes)
{
    const auto leaveOneOver = [] {
        RecordingPrompts prompts;
        prompts.willConfirm(true);
    };
    EXPECT_NONFATAL_FAILURE(leaveOneOver(), "An announced yes/no question never came.");
}

TEST(RecordingPrompts, FailTheTestWhenTheChosenLinkIsNotOffered)
{
    RecordingPrompts prompts;
    prompts.willChoose(7);
    EXPECT_NONFATAL_FAILURE(prompts.ask(nullptr, TaskQuestion()), "offers no link 7");
}

TEST(RecordingPrompts, GiveWayToThePromptsBeforeThem)
{
    RecordingPrompts outer;
    {
        RecordingPrompts inner;
        EXPECT_EQ(&Prompts::current(), &inner);
    }
    EXPECT_EQ(&Prompts::current(), &outer);
}

TEST(GoldenImage, AgreesWithinASmallTolerance)
{
    EXPECT_TRUE(goldenImage(square(0xFF3366CC), QStringLiteral("support_square")));
    EXPECT_TRUE(goldenImage(square(0xFF3868CC), QStringLiteral("support_square")));
}

TEST(GoldenImage, FailsOnOtherPixelsAndLeavesThePictures)
{
    if (qEnvironmentVariableIsSet("KEST_UPDATE_GOLDEN"))
        GTEST_SKIP() << "skipped: this run writes golden images instead of comparing them";
    QImage image = square(0xFF3366CC);
    for (int x = 0; x < 6; ++x)
        image.setPixel(x, 0, 0xFFFFFFFF);
    const QString name = QStringLiteral("support_square");
    EXPECT_NONFATAL_FAILURE(goldenImage(image, name), "6 of 10000 pixels");
    const QDir left(QStringLiteral(KEST_GOLDEN_OUT));
    EXPECT_EQ(QImage(left.filePath(QStringLiteral("support_square.out.png"))).pixel(0, 0),
              0xFFFFFFFF);
    EXPECT_EQ(QImage(left.filePath(QStringLiteral("support_square.diff.png"))).pixel(5, 0),
              0xFFFF0000);
    EXPECT_NONFATAL_FAILURE(goldenImage(image.copy(0, 0, 50, 100), name), "50 x 100 pixels");
    EXPECT_NONFATAL_FAILURE(goldenImage(image, QStringLiteral("support_absent")),
                            "no golden image");
}

TEST(SharedDrawings, FollowTheEnvironmentVariable)
{
    const QTemporaryDir folder;
    const ScopedVariable variable("KEST_SHARED_DRAWINGS", folder.path().toLocal8Bit());
    EXPECT_TRUE(SharedDrawings::available());
    EXPECT_EQ(SharedDrawings::file(QStringLiteral("a.dxf")),
              folder.filePath(QStringLiteral("a.dxf")));
    EXPECT_TRUE(SharedDrawings::files().isEmpty());
}

TEST(SharedDrawings, SkipInWordsWhereTheFolderIsAbsent)
{
    const ScopedVariable variable("KEST_SHARED_DRAWINGS", "/no/such/folder");
    EXPECT_FALSE(SharedDrawings::available());
    EXPECT_TRUE(SharedDrawings::skipSentence().startsWith("skipped: "));
    EXPECT_TRUE(SharedDrawings::skipSentence().contains("/no/such/folder"));
}
