#include <gtest/gtest.h>

#include "meter/panel_layouts.h"
#include "tests/meter/meter_fixture.h"

namespace vireon::meter {
namespace {

using Texts = std::vector<std::string>;

constexpr const char* kScopeQueries = ";VDA??;VDB??;VPA??;VPB??;HDV??;HPO??;TRG??;DFN??;STS??";

class TabSwitch : public tests::MeterFixture {
 protected:
  TabSwitch() {
    form.SSTab1.onSwitch = [this] { SSTab1_Switch(form, state, connection); };
  }

  // The tab from which the user switches.
  void start(int tab) {
    quietly([&] { form.SSTab1.setTab(tab); });
    hid.forget();
  }

  void expectLive() {
    EXPECT_EQ(form.cmdStart.caption(), "Stop");
    EXPECT_EQ(form.cmdStart.backColor(), form::kLightGreen);
    EXPECT_TRUE(form.tmrInt.enabled());
  }
};

TEST_F(TabSwitch, TheScopeTabAsksForTheWholeScope) {
  start(1);
  quietly([this] { form.cmbFun.setListIndex(6); });
  form.SSTab1.setTab(0);
  EXPECT_EQ(hid.commands, Texts{std::string("DFN06") + kScopeQueries});
  EXPECT_EQ(beeper.beeps, 0);
  EXPECT_TRUE(form.picScope.visible());
  EXPECT_FALSE(form.picDmm.visible());
}

TEST_F(TabSwitch, WhileADownloadRunsNothingIsSent) {
  start(1);
  state.logTransfer = true;
  form.SSTab1.setTab(0);
  EXPECT_EQ(hid.commands, Texts{});
}

TEST_F(TabSwitch, TheScopeTabWritesTheFunctionInDecimal) {
  quietly([this] {
    while (form.cmbFun.items().size() < 16) {
      form.cmbFun.addItem("more");
    }
  });
  for (const int function : {0, 8, 9, 10, 15}) {
    start(1);
    quietly([&] { form.cmbFun.setListIndex(function); });
    form.SSTab1.setTab(0);
    EXPECT_EQ(hid.commands, Texts{"DFN0" + std::to_string(function) + kScopeQueries});
  }
}

TEST_F(TabSwitch, BeforeAnAcknowledgeTheScopeTabStopsSampling) {
  start(1);
  sample();
  form.SSTab1.setTab(0);
  expectIdle();
}

TEST_F(TabSwitch, AfterAnAcknowledgeTheScopeTabSamplesAtOnce) {
  start(1);
  state.ackSeen = true;
  hid.instrument = [this](const std::string&) {
    expectLive();
    return tests::framed("\6");
  };
  form.SSTab1.setTab(0);
  expectLive();
  EXPECT_TRUE(state.ackSeen);
}

TEST_F(TabSwitch, SamplingThatTheTabSwitchStartsFirstTicksEveryHalfSecond) {
  start(1);
  state.ackSeen = true;
  form.SSTab1.setTab(0);
  EXPECT_EQ(form.tmrInt.interval(), 500);
}

TEST_F(TabSwitch, TheMeterTabStopsSamplingWhateverWasAcknowledged) {
  for (const bool acknowledged : {false, true}) {
    start(0);
    sample();
    state.ackSeen = acknowledged;
    form.SSTab1.setTab(1);
    expectIdle();
  }
}

TEST_F(TabSwitch, TheMeterTabAsksForTheSelectedFunction) {
  for (int function = 0; function < 8; ++function) {
    start(0);
    form.optFun[function].setValue(true);
    form.SSTab1.setTab(1);
    EXPECT_EQ(hid.commands, Texts{"DFN1" + std::to_string(function) + ";DFN??;DPS??"});
    EXPECT_FALSE(form.picScope.visible());
    EXPECT_TRUE(form.picDmm.visible());
  }
}

TEST_F(TabSwitch, WithoutASelectedFunctionTheMeterTabAsksForEight) {
  start(0);
  form.SSTab1.setTab(1);
  EXPECT_EQ(hid.commands, Texts{"DFN18;DFN??;DPS??"});
}

TEST_F(TabSwitch, TheMeterTabAsksForModeOneWhateverTheListShows) {
  start(0);
  quietly([this] { form.cmbDmod.setListIndex(3); });
  form.optFun[3].setValue(true);
  form.SSTab1.setTab(1);
  EXPECT_EQ(hid.commands, Texts{"DFN13;DFN??;DPS??"});
}

TEST_F(TabSwitch, ATabChangedByTheProgramDoesNothing) {
  form.picDmm.setVisible(false);
  for (const int tab : {1, 0}) {
    sample();
    state.ackSeen = true;
    quietly([&] { form.SSTab1.setTab(tab); });
    EXPECT_EQ(hid.commands, Texts{});
    expectLive();
    EXPECT_FALSE(form.picDmm.visible());
  }
}

TEST_F(TabSwitch, AnyOtherTabStopsSamplingAndSendsNothing) {
  form.SSTab1.setTabs(3);
  state.ackSeen = true;
  sample();
  form.SSTab1.setTab(2);
  EXPECT_EQ(hid.commands, Texts{});
  expectIdle();
}

TEST_F(TabSwitch, AFailedSwitchIsOneMessageAndStopsSampling) {
  for (const int tab : {0, 1}) {
    connect();
    start(1 - tab);
    state.ackSeen = true;
    messages.shown.clear();
    hid.readFaults[1] = platform::HidTransfer::kTimedOut;
    form.SSTab1.setTab(tab);
    expectOneFailureMessage();
    expectDisconnected();
    EXPECT_EQ(form.picScope.visible(), tab == 0);
  }
}

TEST_F(TabSwitch, OnASerialLinkNothingIsSentAndPanelOneTells) {
  useSerial();
  for (const int tab : {1, 0}) {
    form.StatusBar1.setPanel(1, "");
    form.SSTab1.setTab(tab);
    EXPECT_EQ(form.StatusBar1.panel(1), "Works over USB only");
    EXPECT_EQ(form.picDmm.visible(), tab == 1);
  }
  EXPECT_EQ(serial, Texts{});
  EXPECT_EQ(hid.commands, Texts{});
}

}  // namespace
}  // namespace vireon::meter
