#include "simulator/clock.h"

#include <gtest/gtest.h>

#include <chrono>

namespace vireon::simulator::tests {
namespace {

using namespace std::chrono_literals;

TEST(ManualClock, MovesOnlyWhenToldAndNeverBack) {
  ManualClock clock;
  EXPECT_EQ(clock.now(), 0ns);
  clock.advance(5ms);
  clock.wait(3ms);
  clock.advance(-1s);
  clock.wait(-1s);
  EXPECT_EQ(clock.now(), 8ms);
}

TEST(SteadyClock, WaitLetsAtLeastThatTimePass) {
  SteadyClock clock;
  const auto before = clock.now();
  clock.wait(1us);
  clock.wait(-1us);
  EXPECT_GE(clock.now() - before, 1us);
}

}  // namespace
}  // namespace vireon::simulator::tests
