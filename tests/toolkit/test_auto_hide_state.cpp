#include "toolkit/docking/AutoHideState.h"

#include <gtest/gtest.h>

namespace {

AutoHideState sample()
{
    return {{1000, {Qt::LeftDockWidgetArea, 550, false}},
            {7, {Qt::BottomDockWidgetArea, 200, true}}};
}

} // namespace

TEST(AutoHideState, ComesBackFromItsBytesInOrder)
{
    const auto back = autoHideStateFromBytes(autoHideStateToBytes(sample()));
    ASSERT_TRUE(back.has_value());
    ASSERT_EQ(back->size(), 2u);
    EXPECT_EQ(back->at(0).first, 1000);
    EXPECT_EQ(back->at(0).second.side, Qt::LeftDockWidgetArea);
    EXPECT_EQ(back->at(0).second.extent, 550);
    EXPECT_FALSE(back->at(0).second.closed);
    EXPECT_EQ(back->at(1).first, 7);
    EXPECT_EQ(back->at(1).second.side, Qt::BottomDockWidgetArea);
    EXPECT_TRUE(back->at(1).second.closed);
}

TEST(AutoHideState, OfNoPanesIsAState)
{
    const auto back = autoHideStateFromBytes(autoHideStateToBytes({}));
    ASSERT_TRUE(back.has_value());
    EXPECT_TRUE(back->empty());
}

TEST(AutoHideState, IsNotReadFromAnyPartOfItsBytes)
{
    const QByteArray whole = autoHideStateToBytes(sample());
    for (qsizetype length = 0; length < whole.size(); ++length)
        EXPECT_FALSE(autoHideStateFromBytes(whole.first(length)).has_value()) << length;
    EXPECT_FALSE(autoHideStateFromBytes(whole + 'x').has_value());
}

TEST(AutoHideState, IsNotReadFromOtherBytes)
{
    EXPECT_FALSE(autoHideStateFromBytes("something else altogether").has_value());
    EXPECT_FALSE(autoHideStateFromBytes(QByteArray(64, '\xFF')).has_value());
    EXPECT_FALSE(
        autoHideStateFromBytes(autoHideStateToBytes({{1, {Qt::NoDockWidgetArea, 10, false}}}))
            .has_value());
    EXPECT_FALSE(
        autoHideStateFromBytes(autoHideStateToBytes({{1, {Qt::LeftDockWidgetArea, -1, false}}}))
            .has_value());
}
