#include <gtest/gtest.h>

#include "tests/link/connection_fixture.h"

namespace vireon::link {
namespace {

using Texts = std::vector<std::string>;

constexpr const char* kNineQueries = "VDA??;VDB??;VPA??;VPB??;HDV??;HPO??;TRG??;DFN??;STS??";

class SettingsQuery : public tests::ConnectionFixture {
 protected:
  SettingsQuery() {
    form.setCaption("Vireon K7310");
    state.ackSeen = true;
    for (const char* function : {"DCV", "ACV", "OHM"}) {
      form.cmbFun.addItem(function);
    }
    form.cmbFun.setListIndex(2);
  }

  void expectTold(const std::string& text) {
    ASSERT_EQ(messages.count(), 1U);
    EXPECT_EQ(messages.lastText(), text);
    EXPECT_EQ(messages.shown.back().icon, platform::MessageIcon::kNone);
    EXPECT_EQ(messages.shown.back().buttons, platform::MessageButtons::kOk);
    EXPECT_TRUE(hid.commands.empty());
    EXPECT_EQ(beeper.beeps, 0);
    EXPECT_EQ(form.cmdBttn[0].backColor(), form::kButtonFace);
  }
};

TEST_F(SettingsQuery, WithoutAnAcknowledgeTheFailureIsShown) {
  state.ackSeen = false;
  connection.initCmd({8005, "Port already open"});
  expectTold(
      "Error #: 8005\r\nDescription : Port already open\r\n"
      "Please check the USB Cable and/or Power ON again.");
  EXPECT_EQ(messages.lastTitle(), "Vireon K7310");
}

TEST_F(SettingsQuery, AfterATimeOutTheFailureIsShown) {
  link.rxTimeout = true;
  connection.initCmd();
  expectTold("Error #: 0\r\nDescription : \r\nPlease check the USB Cable and/or Power ON again.");
}

TEST_F(SettingsQuery, AllSettingsAreAskedForInOneCommandUnderALightRedButton) {
  hid.instrument = [this](const std::string&) {
    EXPECT_EQ(form.cmdBttn[0].backColor(), form::Color{8421631});
    EXPECT_TRUE(state.initBusy);
    EXPECT_EQ(beeper.beeps, 1);
    return tests::framed("\6");
  };
  connection.initCmd();
  EXPECT_EQ(hid.commands, Texts{kNineQueries});
  EXPECT_FALSE(state.initBusy);
  EXPECT_EQ(beeper.beeps, 1);
  EXPECT_EQ(form.cmdBttn[0].backColor(), form::kLightRed);
  EXPECT_EQ(messages.count(), 0U);
}

TEST_F(SettingsQuery, TheScopeIsMadeReady) {
  form.SSTab1.setTab(1);
  for (form::Control* control :
       std::initializer_list<form::Control*>{&form.cmdStart, &form.SSTab1, &form.picMscope, &form.picScope}) {
    control->setEnabled(false);
  }
  form.picDmm.setEnabled(true);
  sample();
  connection.initCmd();
  EXPECT_EQ(form.SSTab1.tab(), 0);
  for (const form::Control* control : std::initializer_list<const form::Control*>{
           &form.cmdStart, &form.SSTab1, &form.picMscope, &form.picScope}) {
    EXPECT_TRUE(control->enabled()) << control->name();
  }
  EXPECT_FALSE(form.picDmm.enabled());
  expectIdle();
}

TEST_F(SettingsQuery, TheFunctionIsSelectedOnlyWhereTheButtonTurnedLightGreen) {
  hid.instrument = [this](const std::string&) {
    EXPECT_TRUE(state.initBusy);
    form.cmdBttn[0].setBackColor(form::kLightGreen);
    return tests::framed("\6");
  };
  connection.initCmd();
  EXPECT_EQ(hid.commands, (Texts{kNineQueries, std::string("DFN02;") + kNineQueries}));
  EXPECT_FALSE(state.initBusy);
}

TEST_F(SettingsQuery, OnAThirdTabNothingIsAskedNorChanged) {
  form.SSTab1.setTabs(3);
  form.SSTab1.setTab(2);
  sample();
  connection.initCmd();
  EXPECT_TRUE(hid.commands.empty());
  EXPECT_EQ(form.SSTab1.tab(), 2);
  EXPECT_EQ(form.cmdStart.caption(), "Stop");
  EXPECT_EQ(form.cmdBttn[0].backColor(), form::kLightRed);
  EXPECT_EQ(beeper.beeps, 1);
  EXPECT_FALSE(state.initBusy);
}

TEST_F(SettingsQuery, ADeviceThatIsGoneIsOneMessageAndNothingMoreIsSent) {
  hid.unplug();
  connection.initCmd();
  expectOneFailureMessage();
  EXPECT_EQ(form.cmdBttn[0].backColor(), form::kButtonFace);
  EXPECT_FALSE(state.initBusy);
}

TEST(AnswerTimeOut, EachRateHasItsOwnAndNoOtherRateHasOne) {
  EXPECT_EQ(answerTimeOut("1200"), 3200);
  EXPECT_EQ(answerTimeOut("2400"), 2400);
  EXPECT_EQ(answerTimeOut("4800"), 1600);
  EXPECT_EQ(answerTimeOut("9600"), 800);
  for (const char* rate : {"", "19200", "9600 ", "0", "fast"}) {
    EXPECT_EQ(answerTimeOut(rate), 0) << rate;
  }
}

}  // namespace
}  // namespace vireon::link
