#include <gtest/gtest.h>

#include "tests/form/recording_view.h"
#include "tests/protocol/reply_rig.h"

namespace vireon::protocol {
namespace {

class FunctionReplies : public tests::ReplyRig {
 protected:
  // "dfn" of a mode and a function digit.
  void function(int mode, int digit) { item("dfn:" + std::to_string(mode) + std::to_string(digit)); }
};

TEST_F(FunctionReplies, TheLowDigitSelectsTheFunctionInListAndButtons) {
  for (int digit = 0; digit < 8; ++digit) {
    function(0, digit);
    EXPECT_EQ(form_.cmbFun.listIndex(), digit);
    EXPECT_EQ(form_.optFun.selected(), digit);
  }
}

TEST_F(FunctionReplies, OhmAndBuzzerHideChannelB) {
  for (int digit = 0; digit < 8; ++digit) {
    const bool ohmBz = digit == 2 || digit == 3;
    form_.posDV[1].setVisible(ohmBz);
    form_.lblSinf[1].setVisible(ohmBz);
    function(0, digit);
    EXPECT_EQ(state_.ohmBz, ohmBz) << digit;
    EXPECT_EQ(form_.posDV[1].visible(), !ohmBz) << digit;
    EXPECT_EQ(form_.lblSinf[1].visible(), !ohmBz) << digit;
  }
  EXPECT_FALSE(form_.posDV[0].visible());
  EXPECT_TRUE(form_.lblSinf[0].visible());
}

TEST_F(FunctionReplies, AFunctionPastTheListChangesNothing) {
  function(0, 2);
  tests::RecordingView view;
  form_.setView(&view);
  for (const char* text : {"dfn:08", "dfn:09", "dfn:0A", "dfn:0F", "dfn:18", "dfn:5f"}) {
    item(text);
    EXPECT_TRUE(view.changes.empty()) << text;
  }
  EXPECT_TRUE(state_.ohmBz);
  EXPECT_EQ(form_.cmbFun.listIndex(), 2);
}

TEST_F(FunctionReplies, DwellHasNoButtonSoTheItemEndsBeforeItsMode) {
  form_.cmbFun.addItem("Dwell");
  function(0, 3);
  function(1, 8);
  EXPECT_EQ(form_.cmbFun.listIndex(), 8);
  EXPECT_FALSE(state_.ohmBz);
  EXPECT_TRUE(form_.posDV[1].visible());
  EXPECT_TRUE(form_.lblSinf[1].visible());
  EXPECT_EQ(form_.optFun.selected(), 3);
  EXPECT_EQ(form_.SSTab1.tab(), 0);
  EXPECT_TRUE(subPans_.empty());
}

TEST_F(FunctionReplies, OnlyCharacters5And6Count) {
  item("dfn:2456");
  EXPECT_EQ(form_.cmbFun.listIndex(), 4);
  EXPECT_EQ(form_.optFun.selected(), 4);
  EXPECT_EQ(form_.cmbDmod.listIndex(), 1);
}

TEST_F(FunctionReplies, ASingleDigitIsTheFunctionInTheListButHasNoButton) {
  item("dfn:3");
  EXPECT_EQ(form_.cmbFun.listIndex(), 3);
  EXPECT_TRUE(state_.ohmBz);
  EXPECT_EQ(form_.optFun.selected(), 8);
  EXPECT_EQ(form_.SSTab1.tab(), 0);
}

TEST_F(FunctionReplies, ModeZeroShowsTheScopeTab) {
  form_.SSTab1.setTab(1);
  function(0, 1);
  EXPECT_EQ(form_.SSTab1.tab(), 0);
  EXPECT_EQ(tabPans_, std::vector<int>{0});
  EXPECT_TRUE(subPans_.empty());
}

TEST_F(FunctionReplies, ModeZeroOnTheScopeTabLaysNothingOut) {
  form_.grdLog.setText(1, 0, "kept");
  state_.logRow = 5;
  state_.logEnd = true;
  function(0, 1);
  EXPECT_TRUE(tabPans_.empty());
  EXPECT_TRUE(subPans_.empty());
  EXPECT_EQ(form_.cmbDmod.listIndex(), -1);
  EXPECT_EQ(state_.logRow, 5);
  EXPECT_TRUE(state_.logEnd);
}

TEST_F(FunctionReplies, ModeZeroEndsTheShownRecordingWithoutAnEndMark) {
  for (const int tab : {0, 1}) {
    form_.SSTab1.setTab(tab);
    showRecording(form_, true);
    function(0, 1);
    EXPECT_EQ(form_.chkLog1.caption(), "Start") << tab;
    EXPECT_EQ(form_.chkLog1.backColor(), form::kButtonFace) << tab;
    EXPECT_EQ(form_.chkLog1.value(), 0) << tab;
    EXPECT_EQ(form_.grdLog.text(1, 1), "") << tab;
    EXPECT_FALSE(state_.logEnd) << tab;
  }
}

TEST_F(FunctionReplies, LoggerModesShowTheMeterTabOnce) {
  function(1, 0);
  EXPECT_EQ(form_.SSTab1.tab(), 1);
  EXPECT_EQ(tabPans_, std::vector<int>{1});
  function(2, 0);
  EXPECT_EQ(tabPans_, std::vector<int>{1});
}

TEST_F(FunctionReplies, AThirdTabGivesWayToTheOneOfTheMode) {
  form_.SSTab1.setTabs(3);
  form_.SSTab1.setTab(2);
  function(1, 0);
  EXPECT_EQ(form_.SSTab1.tab(), 1);
  form_.SSTab1.setTab(2);
  function(0, 0);
  EXPECT_EQ(form_.SSTab1.tab(), 0);
  EXPECT_EQ(tabPans_, (std::vector<int>{1, 0}));
}

TEST_F(FunctionReplies, LoggerModesSelectTheirListPositionAndLayOutThePanel) {
  for (int mode = 1; mode <= 5; ++mode) {
    function(mode, 0);
    EXPECT_EQ(form_.cmbDmod.listIndex(), mode - 1);
    EXPECT_EQ(subPans_.back(), mode - 1);
  }
  EXPECT_EQ(subPans_, (std::vector<int>{0, 1, 2, 3, 4}));
}

TEST_F(FunctionReplies, AModeDigitAboveFiveEndsTheItemOnTheMeterTab) {
  function(2, 0);
  form_.SSTab1.setTab(0);
  subPans_.clear();
  for (const char* text : {"dfn:61", "dfn:71", "dfn:81", "dfn:91"}) {
    item(text);
    EXPECT_EQ(form_.SSTab1.tab(), 1) << text;
    EXPECT_EQ(form_.cmbDmod.listIndex(), 1) << text;
    EXPECT_EQ(form_.cmbFun.listIndex(), 1) << text;
  }
  EXPECT_TRUE(subPans_.empty());
}

TEST_F(FunctionReplies, AModeThatIsNoDecimalDigitEndsTheItemBeforeTheTab) {
  form_.SSTab1.setTab(1);
  for (const char* text : {"dfn:A1", "dfn:f1"}) {
    item(text);
    EXPECT_EQ(form_.optFun.selected(), 1) << text;
    EXPECT_EQ(form_.SSTab1.tab(), 1) << text;
  }
  EXPECT_TRUE(tabPans_.empty());
  EXPECT_TRUE(subPans_.empty());
}

TEST_F(FunctionReplies, AMissingMeterTabEndsTheItemWithTheFunctionChanged) {
  form_.SSTab1.setTabs(1);
  function(1, 3);
  EXPECT_EQ(form_.SSTab1.tab(), 0);
  EXPECT_EQ(form_.optFun.selected(), 3);
  EXPECT_TRUE(state_.ohmBz);
  EXPECT_EQ(form_.cmbDmod.listIndex(), -1);
  EXPECT_TRUE(tabPans_.empty());
  EXPECT_TRUE(subPans_.empty());
}

TEST_F(FunctionReplies, TheTrendModeShowsAnEmptyPlot) {
  form_.panTrd.setVisible(false);
  form_.picTrd.line(1, 2, 3, 4, form::kRed);
  form_.barTrd.setValue(50);
  form_.chkLog1.setCaption("Stop");
  form_.chkLog1.setBackColor(form::kYellow);
  state_.logRow = 7;
  state_.logEnd = true;
  function(5, 0);
  EXPECT_TRUE(form_.panTrd.visible());
  EXPECT_FALSE(form_.grdLog.visible());
  EXPECT_EQ(form_.lblDttl.caption(), " TREND PLOT ");
  EXPECT_FALSE(form_.optFmt[0].visible());
  EXPECT_FALSE(form_.optFmt[1].visible());
  EXPECT_EQ(form_.cmdLprt.caption(), "Clr");
  EXPECT_TRUE(form_.picTrd.lines().empty());
  EXPECT_EQ(form_.barTrd.value(), 0);
  EXPECT_EQ(form_.chkLog1.caption(), "Start");
  EXPECT_EQ(form_.chkLog1.backColor(), form::kButtonFace);
  EXPECT_EQ(state_.logRow, 7);
  EXPECT_TRUE(state_.logEnd);
}

TEST_F(FunctionReplies, TheListModesShowTheGridFromItsFirstRow) {
  for (int mode = 1; mode <= 4; ++mode) {
    function(5, 0);
    form_.picTrd.line(1, 2, 3, 4, form::kRed);
    form_.chkLog1.setCaption("Stop");
    form_.chkLog1.setBackColor(form::kYellow);
    state_.logRow = 7;
    state_.logEnd = true;
    function(mode, 0);
    EXPECT_FALSE(form_.panTrd.visible()) << mode;
    EXPECT_TRUE(form_.grdLog.visible()) << mode;
    EXPECT_EQ(form_.lblDttl.caption(), " DATA LOGGER ") << mode;
    EXPECT_TRUE(form_.optFmt[0].visible()) << mode;
    EXPECT_TRUE(form_.optFmt[1].visible()) << mode;
    EXPECT_EQ(form_.cmdLprt.caption(), "Print") << mode;
    EXPECT_EQ(state_.logRow, 1) << mode;
    EXPECT_FALSE(state_.logEnd) << mode;
    EXPECT_EQ(form_.chkLog1.caption(), "Start") << mode;
    EXPECT_EQ(form_.chkLog1.backColor(), form::kButtonFace) << mode;
    EXPECT_EQ(form_.picTrd.lines().size(), 1U) << mode;
  }
}

TEST_F(FunctionReplies, EveryModeWithEveryFunctionSelectsBoth) {
  for (int mode = 0; mode <= 5; ++mode) {
    for (int digit = 0; digit < 8; ++digit) {
      function(mode, digit);
      EXPECT_EQ(form_.optFun.selected(), digit);
      EXPECT_EQ(form_.SSTab1.tab(), mode == 0 ? 0 : 1);
      EXPECT_EQ(form_.cmbDmod.listIndex(), mode - 1);
    }
  }
}

}  // namespace
}  // namespace vireon::protocol
