#include "meter/sampling.h"

#include <gtest/gtest.h>

#include "tests/meter/sampling_fixture.h"

namespace vireon::meter {
namespace {

using Texts = std::vector<std::string>;

constexpr int kEnter = 13;

class StartButton : public tests::SamplingFixture {};

TEST_F(StartButton, StartingSamplesEveryHalfSecondAtFirst) {
  form.cmdStart.click();
  expectLive();
  EXPECT_EQ(form.tmrInt.interval(), 500);
  EXPECT_EQ(form.txtSTime.text(), "0.5");
  EXPECT_EQ(hid.commands, Texts{});
}

TEST_F(StartButton, TheSamplingTimeDecidesTheInterval) {
  struct Row {
    const char* text;
    const char* shown;
    int milliseconds;
  };
  constexpr Row kRows[] = {
      {"0", "0.001", 1},
      {"abc", "0.001", 1},
      {"", "0.001", 1},
      {" ", "0.001", 1},
      {"-1", "0.001", 1},
      {"-86400", "0.001", 1},
      {"+0.25", "+0.25", 250},
      {"0.0009999", "0.001", 1},
      {"0.001", "0.001", 1},
      {"0.0010", "0.0010", 1},
      {"0.0014", "0.0014", 1},
      {"0.0015", "0.0015", 2},
      {"0.0016", "0.0016", 2},
      {"0.0025", "0.0025", 2},
      {"0.0035", "0.0035", 4},
      {"0.1234", "0.1234", 123},
      {"1", "1", 1000},
      {" 2.5 ", " 2.5 ", 2500},
      {"0,25", "0,25", 250},
      {"1e1", "1e1", 10000},
      {"1.5s", "0.001", 1},
      {"1.2.3", "0.001", 1},
      {"1,000.5", "0.001", 1},
      {"nan", "0.001", 1},
      {"1e999", "86400", 86400000},
      {"1e-999", "0.001", 1},
      {"inf", "0.001", 1},
      {"-inf", "0.001", 1},
      {"86400", "86400", 86400000},
      {"86400.0", "86400.0", 86400000},
      {"86400.001", "86400", 86400000},
      {"1e300", "86400", 86400000},
      {"86399.9996", "86399.9996", 86400000},
  };
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.text);
    form.txtSTime.setText(row.text);
    form.cmdStart.click();
    expectLive();
    EXPECT_EQ(form.txtSTime.text(), row.shown);
    EXPECT_EQ(form.tmrInt.interval(), row.milliseconds);
    form.cmdStart.click();
    expectIdle();
  }
}

TEST_F(StartButton, StoppingKeepsTheSamplingTime) {
  form.txtSTime.setText("0.02");
  form.cmdStart.click();
  form.cmdStart.click();
  expectIdle();
  EXPECT_EQ(form.txtSTime.text(), "0.02");
  EXPECT_EQ(form.tmrInt.interval(), 20);
}

TEST_F(StartButton, WhileTheInstrumentRecordsThePollGoesOn) {
  form.cmdStart.click();
  form.chkLog1.setCaption("Stop");
  form.cmdStart.click();
  expectLive();
  form.chkLog1.setCaption("Start");
  form.cmdStart.click();
  expectIdle();
}

TEST_F(StartButton, WhileTheInstrumentRecordsSamplingStartsAllTheSame) {
  form.chkLog1.setCaption("Stop");
  form.cmdStart.click();
  expectLive();
}

TEST_F(StartButton, StartingUnchecksTheHoldAndTheMemoryRecall) {
  form.chkMhld.setValue(1);
  form.chkMld.setValue(1);
  form.cmdStart.click();
  EXPECT_EQ(form.chkMhld.value(), 0);
  EXPECT_EQ(form.chkMld.value(), 0);
}

TEST_F(StartButton, UncheckingRaisesTheEventsOfTheBoxes) {
  form.chkMhld.setValue(1);
  form.chkMld.setValue(1);
  Texts events;
  form.chkMhld.onClick = [&] { events.emplace_back("hold"); };
  form.chkMld.onClick = [&] { events.emplace_back("memory"); };
  form.cmdStart.click();
  EXPECT_EQ(events, (Texts{"hold", "memory"}));
}

TEST_F(StartButton, StoppingLeavesTheHoldAndTheMemoryRecallAlone) {
  form.cmdStart.click();
  form.chkMhld.setValue(1);
  form.chkMld.setValue(1);
  form.cmdStart.click();
  EXPECT_EQ(form.chkMhld.value(), 1);
  EXPECT_EQ(form.chkMld.value(), 1);
}

TEST_F(StartButton, TheMeterModelIsAskedForItsFunctionText) {
  for (const char* model : {"K7900", "K7900 ", " K7900"}) {
    hid.forget();
    state.modelId = model;
    form.cmdStart.click();
    EXPECT_EQ(hid.commands, Texts{"AFN??"}) << model;
    form.cmdStart.click();
    EXPECT_EQ(hid.commands, Texts{"AFN??"}) << model;
  }
  EXPECT_EQ(beeper.beeps, 0);
}

TEST_F(StartButton, OtherModelsAreAskedNothing) {
  for (const char* model : {"K7310 ", "K7210", "K7201", "", "k7900", "K79001"}) {
    state.modelId = model;
    form.cmdStart.click();
    form.cmdStart.click();
  }
  EXPECT_EQ(hid.commands, Texts{});
}

TEST_F(StartButton, TheFunctionTextIsAskedWhileSamplingShows) {
  state.modelId = "K7900";
  form.chkMhld.setValue(1);
  hid.instrument = [this](const std::string&) {
    expectLive();
    EXPECT_EQ(form.tmrInt.interval(), 500);
    EXPECT_EQ(form.chkMhld.value(), 1);
    return tests::framed("afn:");
  };
  form.cmdStart.click();
  EXPECT_EQ(form.chkMhld.value(), 0);
}

TEST_F(StartButton, AFailedFunctionTextIsOneMessageAndNothingMoreHappens) {
  state.modelId = "K7900";
  form.chkMhld.setValue(1);
  int events = 0;
  form.chkMhld.onClick = [&] { ++events; };
  hid.readFaults[1] = platform::HidTransfer::kTimedOut;
  form.cmdStart.click();
  EXPECT_EQ(hid.commands, Texts{"AFN??"});
  expectOneFailureMessage();
  expectDisconnected();
  EXPECT_EQ(events, 0);
}

TEST_F(StartButton, OnASerialLinkNoModelIsAskedAnythingAndPanelOneTells) {
  useSerial();
  for (const char* model : {"K7310", "K7900"}) {
    state.modelId = model;
    form.StatusBar1.setPanel(1, "");
    form.chkMhld.setValue(1);
    form.cmdStart.click();
    expectLive();
    EXPECT_EQ(serial, Texts{});
    EXPECT_EQ(form.chkMhld.value(), 0);
    EXPECT_EQ(form.StatusBar1.panel(1), "Works over USB only") << model;
    form.cmdStart.click();
  }
}

class SamplingTime : public tests::SamplingFixture {};

TEST_F(SamplingTime, EnterStartsLikeTheButton) {
  form.txtSTime.setText("0.0005");
  form.txtSTime.keyPress(kEnter);
  expectLive();
  EXPECT_EQ(form.txtSTime.text(), "0.001");
  EXPECT_EQ(form.tmrInt.interval(), 1);
}

TEST_F(SamplingTime, EnterStopsLikeTheButton) {
  form.cmdStart.click();
  form.txtSTime.keyPress(kEnter);
  expectIdle();
}

TEST_F(SamplingTime, EnterDoesNotStopThePollOfARecording) {
  form.cmdStart.click();
  form.chkLog1.setCaption("Stop");
  form.txtSTime.keyPress(kEnter);
  expectLive();
}

TEST_F(SamplingTime, AnyOtherKeyDoesNothing) {
  for (const int key : {48, 46, 10, 12, 14, 27}) {
    form.txtSTime.keyPress(key);
    expectIdle();
  }
}

TEST_F(SamplingTime, WhileSamplingATextIsOverwrittenByTheTimeInForce) {
  form.txtSTime.setText("0.02");
  form.cmdStart.click();
  for (const char* typed : {"0.0", "5", "", "0.001", "86400"}) {
    form.txtSTime.setText(typed);
    EXPECT_EQ(form.txtSTime.text(), "0.02");
  }
  EXPECT_EQ(form.tmrInt.interval(), 20);
}

TEST_F(SamplingTime, TheTimeInForceIsTheCorrectedOne) {
  form.txtSTime.setText("0");
  form.cmdStart.click();
  form.txtSTime.setText("7");
  EXPECT_EQ(form.txtSTime.text(), "0.001");
}

TEST_F(SamplingTime, WhileIdleATextStays) {
  form.txtSTime.setText("0.02");
  form.cmdStart.click();
  form.cmdStart.click();
  form.txtSTime.setText("3");
  EXPECT_EQ(form.txtSTime.text(), "3");
}

TEST_F(SamplingTime, SamplingThatTheTabSwitchStartedKeepsTheStartValue) {
  form.txtSTime.setText("3");
  sample();
  form.txtSTime.setText("30");
  EXPECT_EQ(form.txtSTime.text(), "0.5");
  EXPECT_EQ(form.tmrInt.interval(), 500);
}

}  // namespace
}  // namespace vireon::meter
