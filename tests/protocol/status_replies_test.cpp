#include <gtest/gtest.h>

#include "tests/form/recording_view.h"
#include "tests/protocol/reply_rig.h"

namespace vireon::protocol {
namespace {

class StatusReplies : public tests::ReplyRig {
 protected:
  void showMode(int mode) {
    form_.SSTab1.setTab(1);
    form_.cmbDmod.setListIndex(mode);
  }

  void showRunning() {
    form_.chkLog1.setCaption("Stop");
    form_.chkLog1.setBackColor(form::kYellow);
    form_.chkLog1.setValue(1);
  }
};

TEST_F(StatusReplies, OnTheScopeTabBit0IsTheHold) {
  item("sts:01");
  EXPECT_EQ(form_.chkMhld.value(), 1);
  EXPECT_EQ(form_.chkMhld.foreColor(), form::kRed);
  EXPECT_EQ(form_.chkSgl.value(), 0);
  item("sts:FE");
  EXPECT_EQ(form_.chkMhld.value(), 0);
  EXPECT_EQ(form_.chkMhld.foreColor(), form::kButtonText);
}

TEST_F(StatusReplies, OnTheScopeTabBit1IsTheSingleShotWithoutAColour) {
  item("sts:02");
  EXPECT_EQ(form_.chkSgl.value(), 1);
  EXPECT_EQ(form_.chkSgl.foreColor(), form::kButtonText);
  EXPECT_EQ(form_.chkMhld.value(), 0);
  form_.chkSgl.setForeColor(form::kRed);
  item("sts:FD");
  EXPECT_EQ(form_.chkSgl.value(), 0);
  EXPECT_EQ(form_.chkSgl.foreColor(), form::kRed);
}

TEST_F(StatusReplies, OnTheScopeTabTheOtherBitsChangeNothing) {
  for (int mode = 0; mode < 5; ++mode) {
    form_.cmbDmod.setListIndex(mode);
    showRunning();
    tests::RecordingView view;
    form_.setView(&view);
    item("sts:FC");
    item("sts:00");
    EXPECT_TRUE(view.changes.empty()) << mode;
    form_.setView(nullptr);
  }
  EXPECT_FALSE(state_.memFull);
  EXPECT_FALSE(state_.logEnd);
  EXPECT_EQ(beeper_.beeps, 0);
}

TEST_F(StatusReplies, InRecordAndRelativeModeBit0IsTheHold) {
  for (const int mode : {1, 2}) {
    showMode(mode);
    item("sts:01");
    EXPECT_EQ(form_.chkHold.value(), 1) << mode;
    EXPECT_EQ(form_.chkHold.foreColor(), form::kRed) << mode;
    EXPECT_EQ(form_.chkSub.value(), 0) << mode;
    item("sts:F6");
    EXPECT_EQ(form_.chkHold.value(), 0) << mode;
    EXPECT_EQ(form_.chkHold.foreColor(), form::kButtonText) << mode;
  }
}

TEST_F(StatusReplies, InRecordAndRelativeModeBit3IsThePause) {
  for (const int mode : {1, 2}) {
    showMode(mode);
    item("sts:08");
    EXPECT_EQ(form_.chkSub.value(), 1) << mode;
    EXPECT_EQ(form_.chkSub.foreColor(), form::kButtonText) << mode;
    EXPECT_EQ(form_.chkHold.value(), 0) << mode;
    item("sts:F7");
    EXPECT_EQ(form_.chkSub.value(), 0) << mode;
  }
}

TEST_F(StatusReplies, InRecordAndRelativeModeTheLoggerBitsChangeNothing) {
  for (const int mode : {1, 2}) {
    showMode(mode);
    showRunning();
    item("sts:40");
    EXPECT_EQ(form_.chkLog1.caption(), "Stop") << mode;
    EXPECT_FALSE(state_.memFull) << mode;
    EXPECT_FALSE(state_.logEnd) << mode;
  }
  EXPECT_EQ(beeper_.beeps, 0);
}

TEST_F(StatusReplies, InCompareModeAndWithoutAModeNothingChanges) {
  for (const int mode : {3, -1}) {
    showMode(mode);
    showRunning();
    tests::RecordingView view;
    form_.setView(&view);
    item("sts:FF");
    item("sts:00");
    EXPECT_TRUE(view.changes.empty()) << mode;
    form_.setView(nullptr);
  }
  EXPECT_FALSE(state_.memFull);
}

TEST_F(StatusReplies, BeyondTheMeterTabTheModeCountsToo) {
  form_.SSTab1.setTabs(3);
  form_.SSTab1.setTab(2);
  form_.cmbDmod.setListIndex(1);
  item("sts:09");
  EXPECT_EQ(form_.chkHold.value(), 1);
  EXPECT_EQ(form_.chkSub.value(), 1);
  EXPECT_EQ(form_.chkMhld.value(), 0);
}

TEST_F(StatusReplies, ALoggingInstrumentTurnsTheRecordButtonToAYellowStop) {
  for (const int mode : {0, 4}) {
    showMode(mode);
    form_.chkLog1.setCaption("Start");
    form_.chkLog1.setBackColor(form::kButtonFace);
    item("sts:10");
    EXPECT_EQ(form_.chkLog1.caption(), "Stop") << mode;
    EXPECT_EQ(form_.chkLog1.backColor(), form::kYellow) << mode;
    EXPECT_EQ(form_.chkLog1.value(), 1) << mode;
    form_.chkLog1.setValue(0);
  }
  EXPECT_EQ(beeper_.beeps, 0);
  EXPECT_FALSE(state_.logEnd);
}

TEST_F(StatusReplies, NoOtherBitKeepsARunGoing) {
  showMode(0);
  showRunning();
  item("sts:EF");
  EXPECT_EQ(form_.chkLog1.caption(), "Start");
  EXPECT_EQ(form_.grdLog.text(1, 1), "--EOD---");
}

TEST_F(StatusReplies, ARecordButtonThatReadsStopIsLeftWhileLoggingGoesOn) {
  showMode(0);
  form_.chkLog1.setCaption("Stop");
  form_.chkLog1.setBackColor(form::kWhite);
  item("sts:10");
  EXPECT_EQ(form_.chkLog1.caption(), "Stop");
  EXPECT_EQ(form_.chkLog1.backColor(), form::kWhite);
}

TEST_F(StatusReplies, TheEndOfARunIsWrittenOnce) {
  for (const int mode : {0, 4}) {
    showMode(mode);
    showRunning();
    state_.logRow = 3 + mode;
    state_.logEnd = false;
    beeper_.beeps = 0;
    form_.cmdLoad[1].setEnabled(false);
    item("sts:00");
    EXPECT_EQ(form_.grdLog.text(3 + mode, 1), "--EOD---");
    EXPECT_EQ(form_.chkLog1.value(), 0);
    EXPECT_EQ(state_.logRow, 3 + mode);
    EXPECT_TRUE(state_.logEnd);
    EXPECT_EQ(beeper_.beeps, 1);
    EXPECT_EQ(form_.chkLog1.caption(), "Start");
    EXPECT_EQ(form_.chkLog1.backColor(), form::kButtonFace);
    EXPECT_FALSE(form_.cmdLoad[1].enabled());

    form_.grdLog.setText(3 + mode, 1, "kept");
    item("sts:00");
    EXPECT_EQ(form_.grdLog.text(3 + mode, 1), "kept");
    EXPECT_EQ(beeper_.beeps, 1);
    EXPECT_FALSE(form_.cmdLoad[1].enabled());
  }
}

TEST_F(StatusReplies, TheSecondEndOfARunEnablesTheLoadButton) {
  showMode(0);
  form_.cmdLoad[0].setEnabled(false);
  form_.cmdLoad[1].setEnabled(false);
  showRunning();
  item("sts:00");
  ASSERT_FALSE(form_.cmdLoad[1].enabled());
  item("sts:10");
  item("sts:00");
  EXPECT_TRUE(form_.cmdLoad[1].enabled());
  EXPECT_FALSE(form_.cmdLoad[0].enabled());
  EXPECT_EQ(beeper_.beeps, 2);
}

TEST_F(StatusReplies, WithoutARunTheButtonGoesBackToItsFaceAlone) {
  showMode(0);
  form_.chkLog1.setCaption("Record");
  form_.chkLog1.setBackColor(form::kYellow);
  item("sts:00");
  EXPECT_EQ(form_.chkLog1.caption(), "Start");
  EXPECT_EQ(form_.chkLog1.backColor(), form::kButtonFace);
  EXPECT_EQ(form_.grdLog.text(1, 1), "");
  EXPECT_FALSE(state_.logEnd);
  EXPECT_EQ(beeper_.beeps, 0);
}

TEST_F(StatusReplies, AnEndBeyondTheGridMakesRoomForItself) {
  showMode(0);
  showRunning();
  state_.logRow = 13;
  item("sts:40");
  EXPECT_EQ(form_.grdLog.text(13, 1), "--EOD---");
  EXPECT_EQ(form_.chkLog1.caption(), "Start");
  EXPECT_TRUE(state_.logEnd);
  EXPECT_TRUE(state_.memFull);
}

TEST_F(StatusReplies, AnEndIsNotWrittenOverARecordOfAnEarlierList) {
  showMode(0);
  showRunning();
  form_.grdLog.setText(1, 0, "00001");
  form_.grdLog.setText(1, 1, "12:34:56");
  item("sts:00");
  EXPECT_EQ(form_.grdLog.text(1, 1), "12:34:56");
  EXPECT_TRUE(state_.logEnd);
  EXPECT_EQ(form_.chkLog1.caption(), "Start");
  EXPECT_EQ(beeper_.beeps, 1);
}

TEST_F(StatusReplies, Bit6MarksTheMemoryFullAndNothingClearsIt) {
  for (const int mode : {0, 4}) {
    showMode(mode);
    state_.memFull = false;
    item("sts:BF");
    EXPECT_FALSE(state_.memFull) << mode;
    item("sts:40");
    EXPECT_TRUE(state_.memFull) << mode;
    item("sts:00");
    item("sts:10");
    EXPECT_TRUE(state_.memFull) << mode;
  }
}

}  // namespace
}  // namespace vireon::protocol
