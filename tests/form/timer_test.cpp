#include "form/timer.h"

#include <gtest/gtest.h>

#include "tests/form/expect_fault.h"
#include "tests/form/recording_view.h"

namespace vireon::form {
namespace {

class TimerTest : public testing::Test {
 protected:
  TimerTest() {
    timer_.onTimer = [this] { ++ticks_; };
  }

  Form form_{"window"};
  Timer timer_{form_, "tmrInt"};
  int ticks_ = 0;
};

TEST_F(TimerTest, StartsDisabledWithoutAnInterval) {
  EXPECT_FALSE(timer_.enabled());
  EXPECT_EQ(timer_.interval(), 0);
}

TEST_F(TimerTest, TicksWhileItIsEnabledAndHasAnInterval) {
  timer_.setInterval(1);
  timer_.setEnabled(true);
  timer_.tick();
  timer_.tick();
  EXPECT_EQ(ticks_, 2);
}

TEST_F(TimerTest, DoesNotTickWhileDisabled) {
  timer_.setInterval(500);
  timer_.tick();
  EXPECT_EQ(ticks_, 0);
}

TEST_F(TimerTest, DoesNotTickWithAnIntervalOfZero) {
  timer_.setEnabled(true);
  timer_.tick();
  EXPECT_EQ(ticks_, 0);
}

TEST_F(TimerTest, ATickWithoutAHandlerDoesNothing) {
  Timer silent(form_, "tmrCom");
  silent.setInterval(1);
  silent.setEnabled(true);
  silent.tick();
  EXPECT_EQ(ticks_, 0);
}

TEST_F(TimerTest, ANewIntervalIsToldToTheViewAndTheSameOneIsNot) {
  tests::RecordingView view;
  form_.setView(&view);
  timer_.setInterval(500);
  timer_.setInterval(500);
  EXPECT_EQ(view.changes, std::vector<std::string>{"tmrInt"});
  EXPECT_EQ(timer_.interval(), 500);
}

TEST_F(TimerTest, ANegativeIntervalIsAFault) {
  timer_.setInterval(500);
  tests::expectFault(FaultKind::kPropertyValue, [this] { timer_.setInterval(-1); });
  EXPECT_EQ(timer_.interval(), 500);
  timer_.setInterval(0);
  EXPECT_EQ(timer_.interval(), 0);
}

}  // namespace
}  // namespace vireon::form
