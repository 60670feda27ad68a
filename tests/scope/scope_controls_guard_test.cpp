#include <gtest/gtest.h>

#include "tests/form/recording_view.h"
#include "tests/scope/scope_controls_rig.h"

namespace vireon::scope {
namespace {

using tests::Commands;
using Names = std::vector<std::string>;

class ScopeControlsGuard : public tests::ScopeControlsRig {
 protected:
  // Does everything on the panel and expects that nothing is sent and nothing shows but the user's own move.
  void expectSilence() {
    form_.posT.setVisible(false);
    state_.rxHold = true;
    for (const tests::PanelAction& action : tests::panelActions()) {
      tests::RecordingView view;
      form_.setView(&view);
      action.act(form_);
      const std::string control = action.control;
      for (const std::string& name : view.changes) {
        EXPECT_TRUE(name == control || name.starts_with("optTS_")) << control << " changed " << name;
      }
      // A colour or a caption would be a second change of the control.
      EXPECT_EQ(std::count(view.changes.begin(), view.changes.end(), control),
                control.starts_with("cmd") ? 0 : 1)
          << control;
      form_.setView(nullptr);
    }
    EXPECT_EQ(sent(), Commands{});
    EXPECT_EQ(hid_.opens, 0U);
    EXPECT_EQ(beeper_.beeps, 0);
    EXPECT_EQ(messages_.count(), 0U);
    EXPECT_TRUE(state_.rxHold);
  }
};

TEST_F(ScopeControlsGuard, WhileTheProgramMovesControlsNothingIsSentAndNoCaptionChanges) {
  state_.uiBusy = true;
  expectSilence();
}

TEST_F(ScopeControlsGuard, WhileTheMemoryIsRecalledNothingIsSentAndNoCaptionChanges) {
  form_.chkMld.setValue(1);
  expectSilence();
}

TEST_F(ScopeControlsGuard, BothTogetherAreSilentToo) {
  state_.uiBusy = true;
  form_.chkMld.setValue(1);
  expectSilence();
}

TEST_F(ScopeControlsGuard, SendingGoesOnOnceTheGuardIsGone) {
  state_.uiBusy = true;
  form_.cmdVu[0].click();
  state_.uiBusy = false;
  form_.chkMld.setValue(1);
  form_.cmdVu[0].click();
  form_.chkMld.setValue(0);
  form_.cmdVu[0].click();
  EXPECT_EQ(sent(), Commands{"VDAup;VDA??"});
}

class TrendSpan : public tests::ScopeControlsRig {
 protected:
  void longer() { form_.cmdSud[1].click(); }
  void shorter() { form_.cmdSud[0].click(); }
};

TEST_F(TrendSpan, StepsThroughItsTwelveLabelsAndBack) {
  const char* const labels[] = {"20Sec", "40Sec", "1Min",  "2Min",  "5Min",  "10Min",
                                "20Min", "50Min", "1Hour", "2Hour", "5Hour", "10Hour"};
  for (int span = 1; span < 12; ++span) {
    longer();
    EXPECT_EQ(state_.labels.trdSpan, span);
    EXPECT_EQ(form_.lblStm.caption(), labels[span]);
  }
  for (int span = 10; span >= 0; --span) {
    shorter();
    EXPECT_EQ(state_.labels.trdSpan, span);
    EXPECT_EQ(form_.lblStm.caption(), labels[span]);
  }
}

TEST_F(TrendSpan, StaysAtItsEnds) {
  shorter();
  EXPECT_EQ(state_.labels.trdSpan, 0);
  EXPECT_EQ(form_.lblStm.caption(), "20Sec");
  state_.labels.trdSpan = 11;
  longer();
  EXPECT_EQ(state_.labels.trdSpan, 11);
  EXPECT_EQ(form_.lblStm.caption(), "10Hour");
}

TEST_F(TrendSpan, SendsNothingAndHasNoGuard) {
  state_.uiBusy = true;
  form_.chkMld.setValue(1);
  longer();
  EXPECT_EQ(form_.lblStm.caption(), "40Sec");
  EXPECT_EQ(sent(), Commands{});
  EXPECT_EQ(beeper_.beeps, 0);
}

}  // namespace
}  // namespace vireon::scope
