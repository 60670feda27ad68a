#include "simulator/wall_clock.h"

#include <gtest/gtest.h>

namespace vireon::simulator::tests {
namespace {

TEST(WallClock, StartsAtNoonAndGoesOnFromWhatWasSet) {
  WallClock clock;
  EXPECT_EQ(clock.timeOfDay(0.0), "12:00:00");
  EXPECT_EQ(clock.timeOfDay(3661.5), "13:01:01");
  clock.set("07-12-21 23:59:58", 100.0);
  EXPECT_EQ(clock.timeOfDay(101.0), "23:59:59");
  EXPECT_EQ(clock.timeOfDay(102.0), "00:00:00");
  EXPECT_EQ(clock.timeOfDay(100.0 + 86400.0 * 400.0), "23:59:58");
}

TEST(WallClock, KnowsTheCalendar) {
  EXPECT_TRUE(isDateTime("08-02-29 00:00:00"));
  EXPECT_FALSE(isDateTime("07-02-29 00:00:00"));
  EXPECT_FALSE(isDateTime("07-04-31 00:00:00"));
  EXPECT_FALSE(isDateTime("07-00-01 00:00:00"));
  EXPECT_FALSE(isDateTime("07-01-00 00:00:00"));
  EXPECT_FALSE(isDateTime("07-01-01 00:60:00"));
  EXPECT_FALSE(isDateTime("07-01-01 00:00:60"));
}

TEST(DurationText, StopsBeforeAHundredHours) {
  EXPECT_EQ(durationText(-1.0), "00:00:00");
  EXPECT_EQ(durationText(3725.0), "01:02:05");
  EXPECT_EQ(durationText(1e9), "99:59:59");
}

}  // namespace
}  // namespace vireon::simulator::tests
