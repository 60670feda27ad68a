#include "capture/screen_print.h"

#include <gtest/gtest.h>

#include <optional>

#include "tests/fakes/fake_message_pump.h"
#include "tests/fakes/fake_screen_grab.h"
#include "tests/fakes/fake_steady_clock.h"
#include "tests/form/recording_view.h"

namespace vireon::tests {
namespace {

using std::chrono::milliseconds;

class ScreenPrint : public testing::Test {
 protected:
  ScreenPrint() {
    screen.windows = {{1, {0, 0, 8, 6}}};
    screen.foreground = 1;
    print.connectEvents();
    print.onPicture = [this](capture::Picture taken) { picture = std::move(taken); };
    pump.atLimitedWait = [this](milliseconds limit) {
      waited += limit;
      clock.time += limit;
    };
  }

  form::MainForm form;
  FakeSerialPort port;
  FakeMessagePump pump{port};
  FakeSteadyClock clock;
  FakeScreenGrab screen;
  capture::ScreenPrint print{form, pump, clock, screen};
  std::optional<capture::Picture> picture;
  milliseconds waited{0};
};

TEST_F(ScreenPrint, ThePictureComesAfterASecond) {
  form.cmdSprint.click();
  EXPECT_EQ(waited, milliseconds(1000));
  ASSERT_TRUE(picture);
  EXPECT_EQ(picture->bitmap.width, 8);
  EXPECT_EQ(screen.grabs, 1U);
}

TEST_F(ScreenPrint, WhatHappensInTheSecondDoesNotMakeItLonger) {
  pump.atLimitedWait = [this](milliseconds limit) {
    EXPECT_LE(limit, milliseconds(1000));
    EXPECT_EQ(screen.grabs, 0U);
    clock.time += milliseconds(90);
  };
  form.cmdSprint.click();
  EXPECT_EQ(pump.limitedWaits, 12U);
  EXPECT_EQ(screen.grabs, 1U);
}

TEST_F(ScreenPrint, ALongHandlerInTheSecondEndsIt) {
  pump.atLimitedWait = [this](milliseconds) { clock.time += milliseconds(5000); };
  form.cmdSprint.click();
  EXPECT_EQ(pump.limitedWaits, 1U);
  EXPECT_TRUE(picture);
}

TEST_F(ScreenPrint, TheButtonIsDisabledDuringItsSecond) {
  pump.atLimitedWait = [this](milliseconds limit) {
    EXPECT_FALSE(form.cmdSprint.enabled());
    form.cmdSprint.click();
    clock.time += limit;
  };
  form.cmdSprint.click();
  EXPECT_EQ(pump.limitedWaits, 1U);
  EXPECT_TRUE(form.cmdSprint.enabled());
}

// So it stands in the picture as it mostly does.
TEST_F(ScreenPrint, TheButtonIsShownEnabledAgainBeforeThePictureIsTaken) {
  RecordingView view;
  form.setView(&view);
  print.onPicture = [&](const capture::Picture&) {
    EXPECT_TRUE(form.cmdSprint.enabled());
    EXPECT_EQ(view.refreshed, (std::vector<std::string>{"cmdSprint"}));
  };
  form.cmdSprint.click();
  EXPECT_EQ(view.refreshed.size(), 1U);
  form.setView(nullptr);
}

TEST_F(ScreenPrint, TheForegroundIsLookedAtWhenTheSecondHasPassed) {
  screen.windows[2] = {0, 0, 5, 5};
  pump.atLimitedWait = [this](milliseconds limit) {
    screen.foreground = 2;
    clock.time += limit;
  };
  form.cmdSprint.click();
  ASSERT_TRUE(picture);
  EXPECT_EQ(picture->bitmap.width, 5);
}

TEST_F(ScreenPrint, CancelledInItsSecondItTakesNothing) {
  pump.atLimitedWait = [this](milliseconds) {
    clock.time += milliseconds(10);
    print.cancel();
  };
  form.cmdSprint.click();
  EXPECT_EQ(pump.limitedWaits, 1U);
  EXPECT_EQ(screen.grabs, 0U);
  EXPECT_FALSE(picture);
  EXPECT_TRUE(form.cmdSprint.enabled());
}

TEST_F(ScreenPrint, ACancelFromBeforeIsForgotten) {
  print.cancel();
  form.cmdSprint.click();
  EXPECT_TRUE(picture);
}

TEST_F(ScreenPrint, AFailedCaptureIsHandedOnEmpty) {
  screen.foreground = platform::kNoWindow;
  form.cmdSprint.click();
  ASSERT_TRUE(picture);
  EXPECT_TRUE(picture->empty());
}

}  // namespace
}  // namespace vireon::tests
