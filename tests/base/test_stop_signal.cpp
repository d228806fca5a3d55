#include "base/StopSignal.h"

#include <csignal>
#include <gtest/gtest.h>

TEST(StopSignal, OnlyNotesTheFirstOne)
{
    const StopSignal stop;
    EXPECT_EQ(0, StopSignal::number());
    std::raise(SIGINT);
    EXPECT_EQ(SIGINT, StopSignal::number());
}

TEST(StopSignal, ThatTheCallerIgnoresStaysIgnored)
{
    std::signal(SIGTERM, SIG_IGN);
    {
        const StopSignal stop;
        std::raise(SIGTERM);
        EXPECT_EQ(0, StopSignal::number());
    }
    std::raise(SIGTERM); // the test would end here
    EXPECT_EQ(SIG_IGN, std::signal(SIGTERM, SIG_DFL));
}

TEST(StopSignal, IsLeftAsTheSystemHasIt)
{
    {
        const StopSignal stop;
    }
    EXPECT_EQ(SIG_DFL, std::signal(SIGINT, SIG_DFL));
    EXPECT_EQ(0, StopSignal::number());
}
