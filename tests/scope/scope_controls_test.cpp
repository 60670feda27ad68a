#include "scope/scope_controls.h"

#include "tests/scope/scope_controls_rig.h"

namespace vireon::scope {
namespace {

using tests::Commands;

class ScopeControlsTest : public tests::ScopeControlsRig {};

TEST_F(ScopeControlsTest, EachControlSendsOneSettingWithItsQuery) {
  form_.trgLvl.setValue(0x7F);
  sent();
  for (const tests::PanelAction& action : tests::panelActions()) {
    beeper_.beeps = 0;
    action.act(form_);
    EXPECT_EQ(sent(), Commands{action.command}) << action.control;
    EXPECT_EQ(beeper_.beeps, action.beeps) << action.control;
  }
  EXPECT_EQ(messages_.count(), 0U);
}

TEST_F(ScopeControlsTest, UncheckingSendsTheOppositeSetting) {
  struct Unchecking {
    form::CheckBox* box;
    const char* command;
    int beeps;
  };
  const Unchecking cases[] = {{&form_.chkVac[0], "VDAdc;VDA??", 1}, {&form_.chkVac[1], "VDBdc;VDB??", 1},
                              {&form_.chkVat[0], "VDAmn;VDA??", 1}, {&form_.chkVat[1], "VDBmn;VDB??", 1},
                              {&form_.chkVof[0], "VDAof;VDA??", 1}, {&form_.chkVof[1], "VDBof;VDB??", 1},
                              {&form_.chkHat, "HDVmn;HDV??", 0},    {&form_.chkAt, "TRGnr;TRG??", 1},
                              {&form_.chkSgl, "TRGsf;STS??", 1}};
  for (const Unchecking& expected : cases) {
    expected.box->setValue(1);
    sent();
    beeper_.beeps = 0;
    expected.box->setValue(0);
    EXPECT_EQ(sent(), Commands{expected.command});
    EXPECT_EQ(beeper_.beeps, expected.beeps) << expected.command;
  }
}

TEST_F(ScopeControlsTest, AutoScaleChannelAndSingleShotColourTheirCaption) {
  for (form::CheckBox* box :
       {&form_.chkVat[0], &form_.chkVat[1], &form_.chkVof[0], &form_.chkVof[1], &form_.chkSgl}) {
    box->setValue(1);
    EXPECT_EQ(box->foreColor(), form::kRed) << box->name();
    box->setValue(0);
    EXPECT_EQ(box->foreColor(), form::kButtonText) << box->name();
  }
}

TEST_F(ScopeControlsTest, CouplingAndTheOtherModesAreColouredByTheReplyAlone) {
  for (form::CheckBox* box : {&form_.chkVac[0], &form_.chkVac[1], &form_.chkHat, &form_.chkAt}) {
    box->setValue(1);
    EXPECT_EQ(box->foreColor(), form::kButtonText) << box->name();
  }
}

TEST_F(ScopeControlsTest, CaptionsOfCheckBoxesFollowTheReplyAlone) {
  form_.chkVac[0].setValue(1);
  form_.chkVof[0].setValue(1);
  EXPECT_EQ(form_.chkVac[0].caption(), "DC");
  EXPECT_EQ(form_.chkVof[0].caption(), "OFF");
}

TEST_F(ScopeControlsTest, CouplingChannelAndTriggerModeLetTheHoldGoBeforeTheySend) {
  std::vector<bool> holdWhileSending;
  hid_.instrument = [&](const std::string&) {
    holdWhileSending.push_back(state_.rxHold);
    return tests::framed("\6");
  };
  for (const tests::PanelAction& action : tests::panelActions()) {
    const std::string control = action.control;
    const bool lets = control.starts_with("chkVac") || control.starts_with("chkVof") || control == "chkAt";
    state_.rxHold = true;
    holdWhileSending.clear();
    action.act(form_);
    EXPECT_EQ(holdWhileSending, std::vector<bool>{!lets}) << control;
  }
}

TEST_F(ScopeControlsTest, SlidersSendTwoUpperCaseHexDigits) {
  struct SliderCase {
    form::Slider* slider;
    int value;
    const char* command;
  };
  const SliderCase cases[] = {{&form_.sldPosH, 10, "HPO0A;HPO??"},
                              {&form_.sldPosH, 0, "HPO00;HPO??"},
                              {&form_.sldPosH, 255, "HPOFF;HPO??"},
                              {&form_.sldPosV[0], 5, "VPA05;VPA??;TLV??"},
                              {&form_.sldPosV[0], 171, "VPAAB;VPA??;TLV??"},
                              {&form_.sldPosV[1], 16, "VPB10;VPB??;TLV??"},
                              {&form_.trgLvl, 0, "TLVFF;TLV??"},
                              {&form_.trgLvl, 255, "TLV00;TLV??"},
                              {&form_.trgLvl, 250, "TLV05;TLV??"}};
  for (const SliderCase& expected : cases) {
    expected.slider->setValue(expected.value);
    EXPECT_EQ(sent(), Commands{expected.command});
  }
}

TEST_F(ScopeControlsTest, TheSlopeButtonShowsTheSlopeJustRequested) {
  struct SlopeCase {
    const char* before;
    const char* after;
    const char* command;
  };
  const SlopeCase cases[] = {{"", "+", "TRGl+;TRG??"},
                             {"x", "+", "TRGl+;TRG??"},
                             {"-", "+", "TRGl+;TRG??"},
                             {"+", "-", "TRGl-;TRG??"}};
  for (const SlopeCase& expected : cases) {
    form_.cmdSlp.setCaption(expected.before);
    form_.cmdSlp.click();
    EXPECT_EQ(form_.cmdSlp.caption(), expected.after);
    EXPECT_EQ(sent(), Commands{expected.command});
  }
  EXPECT_EQ(form_.lblSinf[3].caption(), "");
}

TEST_F(ScopeControlsTest, ASourceAppendsTheLevelUpsideDown) {
  form_.trgLvl.setValue(64);
  sent();
  form_.optTS[0].setValue(true);
  EXPECT_EQ(sent(), Commands{"TRGsa;TRG??;TLVBF;TLV??"});
  form_.trgLvl.setValue(250);
  sent();
  form_.optTS[1].setValue(true);
  EXPECT_EQ(sent(), Commands{"TRGsb;TRG??;TLV05;TLV??"});
}

TEST_F(ScopeControlsTest, AChannelAsSourceShowsTheLevelMarker) {
  for (const int source : {0, 1}) {
    form_.posT.setVisible(false);
    form_.optTS[source].setValue(true);
    EXPECT_TRUE(form_.posT.visible()) << source;
  }
}

TEST_F(ScopeControlsTest, AnExternalSourceHidesTheLevelMarkerAndStillAppendsTheLevel) {
  form_.posT.setVisible(true);
  form_.trgLvl.setValue(64);
  sent();
  form_.optTS[2].setValue(true);
  EXPECT_FALSE(form_.posT.visible());
  EXPECT_EQ(sent(), Commands{"TRGse;TRG??;TLVBF;TLV??"});
}

TEST_F(ScopeControlsTest, DuringTheSettingsQueryASourceAppendsNoLevel) {
  state_.initBusy = true;
  form_.optTS[0].setValue(true);
  form_.optTS[1].setValue(true);
  form_.optTS[2].setValue(true);
  EXPECT_EQ(sent(), (Commands{"TRGsa;TRG??;TLV??", "TRGsb;TRG??;TLV??", "TRGse;TRG??;TLV??"}));
  EXPECT_FALSE(form_.posT.visible());
}

TEST_F(ScopeControlsTest, DuringTheSettingsQueryTheLevelSliderSendsNothing) {
  state_.initBusy = true;
  form_.trgLvl.setValue(64);
  EXPECT_EQ(sent(), Commands{});
  EXPECT_EQ(beeper_.beeps, 0);
  form_.sldPosH.setValue(10);
  EXPECT_EQ(sent(), Commands{"HPO0A;HPO??"});
}

TEST_F(ScopeControlsTest, SelectingTheSelectedSourceSendsNothing) {
  form_.optTS[0].setValue(true);
  sent();
  form_.optTS[0].setValue(true);
  EXPECT_EQ(sent(), Commands{});
}

TEST_F(ScopeControlsTest, OnASerialLinkEverythingButTheTimeBaseAutoGoesOut) {
  Commands& serial = serial_.port.commands;
  link_.comPort = "1";
  link_.baudRate = "9600";
  connection_.serial().com_open();
  form_.trgLvl.setValue(0x7F);
  form_.StatusBar1.setPanel(1, "");
  for (const tests::PanelAction& action : tests::panelActions()) {
    serial.clear();
    action.act(form_);
    const bool usbOnly = action.control == std::string("chkHat");
    EXPECT_EQ(serial, usbOnly ? Commands{} : Commands{action.command}) << action.control;
    EXPECT_EQ(!form_.StatusBar1.panel(1).empty(), usbOnly) << action.control;
    form_.StatusBar1.setPanel(1, "");
  }
  EXPECT_TRUE(hid_.written.empty());
  EXPECT_EQ(messages_.count(), 0U);
}

}  // namespace
}  // namespace vireon::scope
