#include <gtest/gtest.h>

#include "scope/scale_tables.h"
#include "tests/form/expect_fault.h"
#include "tests/form/recording_view.h"
#include "tests/scope/scope_rig.h"

namespace vireon::scope {
namespace {

using tests::expectFault;

class ChannelSetting : public tests::ScopeRig {
 protected:
  void show(int channel, int setting) { dspVinf(form, state, channel, setting); }
};

TEST_F(ChannelSetting, OneVoltAcAutoOn) {
  show(0, 0x74);
  EXPECT_EQ(form.lblSinf[0].caption(), "A:1V");
  EXPECT_EQ(form.lblVd[0].caption(), "1V");
  EXPECT_EQ(form.chkVac[0].caption(), "AC");
  EXPECT_EQ(form.chkVat[0].value(), 1);
  EXPECT_EQ(form.chkVof[0].caption(), "ON");
  EXPECT_TRUE(form.posDV[0].visible());
}

TEST_F(ChannelSetting, EveryVoltsCodeShowsItsLabelOnBothPlaces) {
  const char* const labels[] = {"50mV", "0.1V", "0.2V", "0.5V", "1V",   "2V",  "5V",
                                "10V",  "20V",  "50V",  "100V", "200V", "500V"};
  for (int channel = 0; channel < 2; ++channel) {
    for (int code = 0; code < 13; ++code) {
      show(channel, code);
      EXPECT_EQ(form.lblSinf[channel].caption(), std::string(channel == 0 ? "A:" : "B:") + labels[code]);
      EXPECT_EQ(form.lblVd[channel].caption(), labels[code]);
    }
  }
}

TEST_F(ChannelSetting, VoltsCodesAbove12AreFaultsThatChangeNothing) {
  for (int channel = 0; channel < 2; ++channel) {
    show(channel, 0x74);
    for (const int setting : {13, 14, 15, 0x0D, 0x8F}) {
      tests::RecordingView view;
      form.setView(&view);
      expectFault(form::FaultKind::kBounds, [&] { show(channel, setting); });
      EXPECT_TRUE(view.changes.empty()) << channel << " " << setting;
      form.setView(nullptr);
    }
  }
}

TEST_F(ChannelSetting, Bit4IsTheCoupling) {
  for (int channel = 0; channel < 2; ++channel) {
    show(channel, 0x10);
    EXPECT_EQ(form.chkVac[channel].value(), 1);
    EXPECT_EQ(form.chkVac[channel].foreColor(), form::kRed);
    EXPECT_EQ(form.chkVac[channel].caption(), "AC");
    show(channel, 0xE7);
    EXPECT_EQ(form.chkVac[channel].value(), 0);
    EXPECT_EQ(form.chkVac[channel].foreColor(), form::kButtonText);
    EXPECT_EQ(form.chkVac[channel].caption(), "DC");
  }
}

TEST_F(ChannelSetting, Bit5IsTheAutoScale) {
  for (int channel = 0; channel < 2; ++channel) {
    show(channel, 0x20);
    EXPECT_EQ(form.chkVat[channel].value(), 1);
    EXPECT_EQ(form.chkVat[channel].foreColor(), form::kRed);
    EXPECT_EQ(form.chkVat[channel].caption(), "Auto");
    show(channel, 0xD7);
    EXPECT_EQ(form.chkVat[channel].value(), 0);
    EXPECT_EQ(form.chkVat[channel].foreColor(), form::kButtonText);
  }
}

TEST_F(ChannelSetting, Bit6IsTheChannelWithItsMarker) {
  for (int channel = 0; channel < 2; ++channel) {
    show(channel, 0x40);
    EXPECT_EQ(form.chkVof[channel].value(), 1);
    EXPECT_EQ(form.chkVof[channel].foreColor(), form::kRed);
    EXPECT_EQ(form.chkVof[channel].caption(), "ON");
    EXPECT_TRUE(form.posDV[channel].visible());
    show(channel, 0xB7);
    EXPECT_EQ(form.chkVof[channel].value(), 0);
    EXPECT_EQ(form.chkVof[channel].foreColor(), form::kButtonText);
    EXPECT_EQ(form.chkVof[channel].caption(), "OFF");
    EXPECT_FALSE(form.posDV[channel].visible());
  }
}

TEST_F(ChannelSetting, Bit7IsNotUsed) {
  show(0, 0x74);
  tests::RecordingView view;
  form.setView(&view);
  show(0, 0xF4);
  EXPECT_TRUE(view.changes.empty());
}

TEST_F(ChannelSetting, OneChannelLeavesTheOtherAlone) {
  for (int channel = 0; channel < 2; ++channel) {
    tests::RecordingView view;
    form.setView(&view);
    show(channel, 0x74);
    EXPECT_FALSE(view.changes.empty());
    const std::string other = channel == 0 ? "_1" : "_0";
    for (const std::string& name : view.changes) {
      EXPECT_FALSE(name.ends_with(other)) << name;
    }
    form.setView(nullptr);
  }
}

TEST_F(ChannelSetting, OnOhmChannelAShowsTheRange) {
  const char* const ranges[] = {"2k", "20k", "200k", "2M", ""};
  state.ohmBz = true;
  for (int code = 0; code < 5; ++code) {
    show(0, code);
    EXPECT_EQ(form.lblSinf[0].caption(), std::string("A:") + ranges[code]);
    EXPECT_EQ(form.lblVd[0].caption(), ranges[code]);
  }
}

TEST_F(ChannelSetting, OnOhmCodesAboveFourAreFaultsThatChangeNothing) {
  state.ohmBz = true;
  show(0, 0x73);
  for (int code = 5; code < 16; ++code) {
    tests::RecordingView view;
    form.setView(&view);
    expectFault(form::FaultKind::kBounds, [&] { show(0, code); });
    EXPECT_TRUE(view.changes.empty()) << code;
    form.setView(nullptr);
  }
  EXPECT_EQ(form.lblVd[0].caption(), "2M");
}

TEST_F(ChannelSetting, OnOhmChannelBIsLeftAlone) {
  state.ohmBz = true;
  tests::RecordingView view;
  form.setView(&view);
  for (const int setting : {0x0C, 0x74, 0x00, 0xFF}) {
    show(1, setting);
  }
  EXPECT_TRUE(view.changes.empty());
}

TEST_F(ChannelSetting, OnOhmTheFlagsOfChannelAStillCount) {
  state.ohmBz = true;
  show(0, 0x71);
  EXPECT_EQ(form.chkVac[0].value(), 1);
  EXPECT_EQ(form.chkVat[0].value(), 1);
  EXPECT_EQ(form.chkVof[0].value(), 1);
}

TEST_F(ChannelSetting, AFaultEndsTheReplysItemSilently) {
  interpreter.dspSinf("vda:74");
  interpreter.dspSinf("vda:0F");
  EXPECT_EQ(form.lblVd[0].caption(), "1V");
  EXPECT_EQ(form.chkVof[0].value(), 1);
  interpreter.dspSinf("dfn:02");
  interpreter.dspSinf("vdb:0C");
  EXPECT_EQ(form.lblVd[1].caption(), "");
  interpreter.dspSinf("vda:03");
  EXPECT_EQ(form.lblSinf[0].caption(), "A:2M");
}

}  // namespace
}  // namespace vireon::scope
