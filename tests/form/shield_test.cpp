#include <gtest/gtest.h>

#include "form/main_form.h"
#include "tests/form/recording_view.h"

namespace vireon::form {
namespace {

TEST(Shield, KeepsInputFromEveryControlThatTakesAnyButTheOpenOnes) {
  MainForm form;
  form.raiseShield({&form.cmdCancel, &form.chkLog0});
  EXPECT_TRUE(form.cmdCancel.takesInput());
  EXPECT_TRUE(form.chkLog0.takesInput());
  const Control* const closed[] = {&form.cmdStart, &form.chkMld, &form.optFun[3], &form.txtSTime,
                                   &form.cmbDmod,  &form.trgLvl, &form.SSTab1};
  for (const Control* control : closed) {
    EXPECT_FALSE(control->takesInput()) << control->name();
    EXPECT_TRUE(control->enabled()) << control->name();
  }
}

TEST(Shield, LeavesPanelsDisplaysAndTimersAlone) {
  MainForm form;
  form.raiseShield({});
  const Control* const untouched[] = {&form.panDlog, &form.grdLog, &form.lblDmm,   &form.barTrd,
                                      &form.tmrInt,  &form.picTrd, &form.Txled[0], &form.StatusBar1};
  for (const Control* control : untouched) {
    EXPECT_FALSE(control->shielded()) << control->name();
  }
}

TEST(Shield, LowersToWhatTheProgramMadeOfTheControlsMeanwhile) {
  MainForm form;
  form.cmdSetup.setEnabled(true);
  form.raiseShield({});
  form.cmdSetup.setEnabled(false);
  form.cmdLoad[1].setEnabled(true);
  form.lowerShield();
  EXPECT_FALSE(form.cmdSetup.takesInput());
  EXPECT_TRUE(form.cmdLoad[1].takesInput());
}

TEST(Shield, TellsTheViewWhichWayItMovesAndWhatChanged) {
  Form form("window");
  Button button(form, "cmdStart");
  Label label(form, "lblDmm");
  tests::RecordingView view;
  form.setView(&view);
  form.raiseShield({});
  form.lowerShield();
  EXPECT_EQ(view.shields, (std::vector<bool>{true, false}));
  EXPECT_EQ(view.changes, (std::vector<std::string>{"cmdStart", "cmdStart"}));
}

TEST(Shield, ClicksOnAShieldedButtonDoNothing) {
  Form form("window");
  Button button(form, "cmdStart");
  int clicks = 0;
  button.onClick = [&] { ++clicks; };
  form.raiseShield({});
  button.click();
  EXPECT_EQ(clicks, 0);
  form.lowerShield();
  button.click();
  EXPECT_EQ(clicks, 1);
}

}  // namespace
}  // namespace vireon::form
