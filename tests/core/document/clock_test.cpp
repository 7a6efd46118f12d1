#include <gtest/gtest.h>

#include "core/document/clock.h"

namespace tesselo {
namespace {

TEST(Timedelay, SpinsUntilMoreThanTheGivenMillisecondsHavePassed)
{
    VirtualClock clock;
    clock.advance(500);
    TIMEDELAY(clock, 2000);
    EXPECT_EQ(clock.tick_count(), 2501u);
    // Even a delay of 0 lets the clock tick once.
    TIMEDELAY(clock, 0);
    EXPECT_EQ(clock.tick_count(), 2502u);
}

TEST(Timedelay, SurvivesTheTickCountWrappingAround)
{
    VirtualClock clock;
    clock.advance(0xFFFFFFF0u);
    TIMEDELAY(clock, 100);
    EXPECT_EQ(clock.tick_count(), 0xFFFFFFF0u + 101u);
}

TEST(SystemClock, LocalTimeIsADate)
{
    SystemClock clock;
    const auto now = clock.local_time();
    EXPECT_GE(now.year, 2024);
    EXPECT_GE(now.month, 1);
    EXPECT_LE(now.month, 12);
    EXPECT_GE(now.day, 1);
    EXPECT_LE(now.day, 31);
}

}  // namespace
}  // namespace tesselo
