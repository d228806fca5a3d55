#include "host/commands/CommandQueue.h"

#include <gtest/gtest.h>

TEST(CommandQueue, StringsComeOutInTheOrderInWhichTheyWentIn)
{
    CommandQueue queue;
    queue.append(QStringLiteral("LAYERS "));
    queue.append(QStringLiteral("0"));
    EXPECT_EQ("LAYERS", queue.take()->text.toStdString());
    EXPECT_EQ("0", queue.take()->text.toStdString());
    EXPECT_FALSE(queue.take());
}

TEST(CommandQueue, MarkersCancelAndAreNoText)
{
    CommandQueue queue;
    queue.append(QStringLiteral("^C^c^C^P"));
    queue.append(QStringLiteral("^C_LAYER^P"));
    const auto cancelling = queue.take();
    EXPECT_TRUE(cancelling->cancels);
    EXPECT_EQ("", cancelling->text.toStdString());
    const auto both = queue.take();
    EXPECT_TRUE(both->cancels);
    EXPECT_EQ("_LAYER", both->text.toStdString());
}

TEST(CommandQueue, AMarkerInTheMiddleIsText)
{
    CommandQueue queue;
    queue.append(QStringLiteral("CLAYER a^Cb"));
    const auto input = queue.take();
    EXPECT_FALSE(input->cancels);
    EXPECT_EQ("CLAYER a^Cb", input->text.toStdString());
}

TEST(CommandQueue, StringsThatSayNothingAreLeftOut)
{
    CommandQueue queue;
    queue.append(QStringLiteral("^P"));
    queue.append(QStringLiteral("  \n"));
    EXPECT_TRUE(queue.isEmpty());
}

TEST(CommandQueue, ListenersHearOfEachString)
{
    CommandQueue queue;
    int heard = 0;
    QObject::connect(&queue, &CommandQueue::queued, [&heard] { ++heard; });
    queue.append(QStringLiteral("U"));
    queue.append(QStringLiteral("U"));
    EXPECT_EQ(2, heard);
}

TEST(CommandQueue, WhatIsPutBackComesNext)
{
    CommandQueue queue;
    queue.append(QStringLiteral("U"));
    queue.putBack({QStringLiteral("REGEN"), false});
    EXPECT_EQ("REGEN", queue.take()->text.toStdString());
}
