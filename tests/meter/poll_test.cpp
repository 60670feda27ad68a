#include <gtest/gtest.h>

#include "tests/meter/sampling_fixture.h"

namespace vireon::meter {
namespace {

using Texts = std::vector<std::string>;

class Poll : public tests::SamplingFixture {
 protected:
  Poll() {
    form.cmdStart.click();
    form.cmdLoad[1].setEnabled(false);
  }

  // One tick; returns what it sent.
  Texts tick() {
    hid.forget();
    form.tmrInt.tick();
    return hid.commands;
  }

  std::string time(int row) const { return form.grdLog.text(row, 1); }
};

TEST_F(Poll, EachTickAsksForWhatTheTabShows) {
  struct Row {
    int tab;
    bool statistics;  // picSwin(1)
    const char* record;
    Texts commands;
  };
  const Row rows[] = {
      {0, false, "Start", {"DRS??"}},
      {0, true, "Start", {"DRS??"}},
      {0, true, "Stop", {"DRS??"}},
      {1, false, "Start", {"DRM??"}},
      {1, true, "Start", {"DRM??;DRP??"}},
      {1, false, "Stop", {"DRM??;STS??"}},
      {1, true, "Stop", {"DRM??;DRP??;STS??"}},
      {2, true, "Stop", {}},
  };
  form.SSTab1.setTabs(3);
  for (const Row& row : rows) {
    form.SSTab1.setTab(row.tab);
    form.picSwin[1].setVisible(row.statistics);
    form.chkLog1.setCaption(row.record);
    EXPECT_EQ(tick(), row.commands) << row.tab << row.statistics << row.record;
  }
  EXPECT_EQ(beeper.beeps, 0);
}

TEST_F(Poll, TheStatisticsCountByTheirOwnVisibilityNotTheirPanels) {
  form.SSTab1.setTab(1);
  form.panDlog.setVisible(false);
  form.picSwin[1].setVisible(true);
  EXPECT_EQ(tick(), Texts{"DRM??;DRP??"});
}

TEST_F(Poll, WithTheMemoryRecallOnNothingIsSent) {
  form.chkMld.setValue(1);
  EXPECT_EQ(tick(), Texts{});
  form.chkMld.setValue(0);
  EXPECT_EQ(tick(), Texts{"DRS??"});
}

TEST_F(Poll, OnASerialLinkNothingIsSent) {
  useSerial();
  state.memFull = true;
  EXPECT_EQ(tick(), Texts{});
  EXPECT_EQ(serial, Texts{});
  EXPECT_TRUE(state.memFull);
  EXPECT_EQ(form.StatusBar1.panel(1), "");
}

TEST_F(Poll, AStoppedTimerSendsNothing) {
  form.cmdStart.click();
  EXPECT_EQ(tick(), Texts{});
}

TEST_F(Poll, AWaitingRecordIsFetchedOnce) {
  form.SSTab1.setTab(1);
  form.picSwin[1].setVisible(false);
  state.memFull = true;
  EXPECT_EQ(tick(), (Texts{"DRM??", "DRT??"}));
  EXPECT_FALSE(state.memFull);
  EXPECT_EQ(time(state.logRow), "");
  EXPECT_FALSE(form.cmdLoad[1].enabled());
  EXPECT_EQ(tick(), Texts{"DRM??"});
}

TEST_F(Poll, ARecordThatTheAnswerOfThePollAnnouncesIsFetchedAtOnce) {
  form.SSTab1.setTab(1);
  form.picSwin[1].setVisible(false);
  connection.onFrame([this] { state.memFull = hid.commands.back() == "DRM??"; });
  EXPECT_EQ(tick(), (Texts{"DRM??", "DRT??"}));
}

TEST_F(Poll, ARecordAnnouncedByTheFetchItselfWaitsForTheNextTick) {
  form.SSTab1.setTab(1);
  form.picSwin[1].setVisible(false);
  state.memFull = true;
  connection.onFrame([this] { state.memFull = state.memFull || hid.commands.back() == "DRT??"; });
  EXPECT_EQ(tick(), (Texts{"DRM??", "DRT??"}));
  EXPECT_TRUE(state.memFull);
}

TEST_F(Poll, AWaitingRecordIsFetchedOnTheScopeTabToo) {
  state.memFull = true;
  EXPECT_EQ(tick(), (Texts{"DRS??", "DRT??"}));
}

TEST_F(Poll, AnEndedLogIsMarkedInTheRowBehindTheLastRecord) {
  form.SSTab1.setTab(1);
  state.memFull = true;
  state.logEnd = true;
  state.logRow = 4;
  tick();
  EXPECT_EQ(time(4), "--EOD--");
  EXPECT_EQ(form.grdLog.text(4, 0), "");
  EXPECT_EQ(form.grdLog.text(4, 2), "");
  EXPECT_TRUE(form.cmdLoad[1].enabled());
  EXPECT_TRUE(state.logEnd);
  EXPECT_EQ(state.logRow, 4);
}

TEST_F(Poll, TheMarkIsNotWrittenOverARecordOfAnEarlierList) {
  form.SSTab1.setTab(1);
  state.memFull = true;
  state.logEnd = true;
  form.grdLog.setText(1, 0, "00001");
  form.grdLog.setText(1, 1, "12:34:56");
  tick();
  EXPECT_EQ(time(1), "12:34:56");
  EXPECT_TRUE(form.cmdLoad[1].enabled());
}

TEST_F(Poll, TheMarkReplacesTheOneOfTheStatusReply) {
  form.SSTab1.setTab(1);
  state.memFull = true;
  state.logEnd = true;
  form.grdLog.setText(1, 1, "--EOD---");
  tick();
  EXPECT_EQ(time(1), "--EOD--");
}

TEST_F(Poll, TheMarkGoesBehindTheRecordThatWasJustFetched) {
  form.SSTab1.setTab(1);
  state.memFull = true;
  state.logEnd = true;
  connection.onFrame([this] {
    if (hid.commands.back() == "DRT??") {
      state.logRow = 2;
    }
  });
  tick();
  EXPECT_EQ(time(1), "");
  EXPECT_EQ(time(2), "--EOD--");
}

TEST_F(Poll, AnEndedLogWithoutAWaitingRecordIsNotMarked) {
  form.SSTab1.setTab(1);
  state.logEnd = true;
  tick();
  EXPECT_EQ(time(1), "");
  EXPECT_FALSE(form.cmdLoad[1].enabled());
}

TEST_F(Poll, AFailedPollIsOneMessageAndFetchesNothing) {
  state.memFull = true;
  hid.forget();
  hid.readFaults[1] = platform::HidTransfer::kTimedOut;
  form.tmrInt.tick();
  EXPECT_EQ(hid.commands, Texts{"DRS??"});
  expectOneFailureMessage();
  expectDisconnected();
  EXPECT_TRUE(state.memFull);
}

TEST_F(Poll, AFailedFetchIsOneMessageAndMarksNothing) {
  form.SSTab1.setTab(1);
  state.memFull = true;
  state.logEnd = true;
  hid.forget();
  hid.readFaults[2] = platform::HidTransfer::kTimedOut;
  form.tmrInt.tick();
  expectOneFailureMessage();
  expectDisconnected();
  EXPECT_EQ(time(1), "");
}

TEST_F(Poll, TwoHundredTicksAreTwoHundredExchanges) {
  hid.forget();
  for (int turn = 0; turn < 200; ++turn) {
    form.tmrInt.tick();
  }
  EXPECT_EQ(hid.commands, Texts(200, "DRS??"));
  EXPECT_EQ(hid.openHandles(), 2U);
  expectLive();
}

TEST_F(Poll, AfterAnUnplugTheTimerIsSilent) {
  hid.unplug();
  for (int turn = 0; turn < 5; ++turn) {
    form.tmrInt.tick();
  }
  expectOneFailureMessage();
  expectDisconnected();
}

}  // namespace
}  // namespace vireon::meter
