#include "meter/meter_controls.h"

#include <gtest/gtest.h>

#include <functional>

#include "tests/fakes/fake_wall_clock.h"
#include "tests/meter/meter_fixture.h"

namespace vireon::meter {
namespace {

using Texts = std::vector<std::string>;

// What a control does when the user moves it.
struct Row {
  const char* name;
  std::function<void(form::MainForm&)> before;  // quietly
  std::function<void(form::MainForm&)> move;
  Texts commands;
  int beeps;
  bool valued = true;  // its value can be assigned, so the program itself can raise its event
};

void nothing(form::MainForm& /*form*/) {}

template <class Control>
std::function<void(form::MainForm&)> set(Control form::MainForm::*control, int value) {
  return [control, value](form::MainForm& form) { (form.*control).setValue(value); };
}

std::function<void(form::MainForm&)> press(form::Button form::MainForm::*button) {
  return [button](form::MainForm& form) { (form.*button).click(); };
}

const Row kRows[] = {
    {"range down", nothing, [](form::MainForm& f) { f.mrgUD[0].click(); }, {"DRGdn;DRG??"}, 0, false},
    {"range up", nothing, [](form::MainForm& f) { f.mrgUD[1].click(); }, {"DRGup;DRG??"}, 0, false},
    {"range auto", nothing, [](form::MainForm& f) { f.mrgUD[2].click(); }, {"DRGat;DRG??"}, 0, false},
    {"auto range on", nothing, set(&form::MainForm::chkDmAt, 1), {"DRGat;DRG??"}, 0},
    {"auto range off",
     set(&form::MainForm::chkDmAt, 1),
     set(&form::MainForm::chkDmAt, 0),
     {"DRGmn;DRG??"},
     0},
    {"hold on", nothing, set(&form::MainForm::chkHold, 1), {"DHDon;STS??"}, 0},
    {"hold off", set(&form::MainForm::chkHold, 1), set(&form::MainForm::chkHold, 0), {"DHDof;STS??"}, 0},
    {"scope hold on", nothing, set(&form::MainForm::chkMhld, 1), {"DHDon;STS??"}, 1},
    {"scope hold off",
     set(&form::MainForm::chkMhld, 1),
     set(&form::MainForm::chkMhld, 0),
     {"DHDof;STS??"},
     1},
    {"set-up", nothing, press(&form::MainForm::cmdSetup), {"DPS??"}, 0, false},
    {"set", nothing, [](form::MainForm& f) { f.cmdSet[0].click(); }, {"DPS-1.234mV,-010.0mV"}, 0, false},
    {"exit", nothing, [](form::MainForm& f) { f.cmdSet[1].click(); }, {}, 0, false},
    {"clock", nothing, press(&form::MainForm::cmdClock), {"SCK07-12-21 14:05:09"}, 1, false},
    {"scope function",
     nothing,
     [](form::MainForm& f) { f.cmbFun.setListIndex(5); },
     {"DFN05;DFN??;VDA??;VDB??"},
     1},
    {"meter function",
     [](form::MainForm& f) { f.cmbDmod.setListIndex(0); },
     [](form::MainForm& f) { f.optFun[2].setValue(true); },
     {"DFN12;DFN??;DPS??"},
     0},
    {"logger mode",
     [](form::MainForm& f) { f.optFun[4].setValue(true); },
     [](form::MainForm& f) { f.cmbDmod.setListIndex(1); },
     {"DFN24;DFN??", "DPS??"},
     0},
};

class MeterPanel : public tests::MeterFixture {
 protected:
  MeterPanel() { controls.connectEvents(); }

  // Something that clearing the trend plot removes.
  void plot() {
    form.picTrd.line(0, 0, 10, 10, form::kRed);
    form.barTrd.setValue(50);
  }
  bool plotted() const { return !form.picTrd.lines().empty() || form.barTrd.value() != 0; }

  tests::FakeWallClock clock{platform::CalendarTime{2007, 12, 21, 14, 5, 9}};
  MeterControls controls{form, state, connection, clock, messages};
};

TEST_F(MeterPanel, EveryControlSendsItsCommandByItsWay) {
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.name);
    quietly([&] { row.before(form); });
    hid.forget();
    beeper.beeps = 0;
    row.move(form);
    EXPECT_EQ(hid.commands, row.commands);
    EXPECT_EQ(beeper.beeps, row.beeps);
  }
}

TEST_F(MeterPanel, AMoveByTheProgramItselfSendsNothing) {
  for (const Row& row : kRows) {
    if (row.valued) {
      SCOPED_TRACE(row.name);
      quietly([&] {
        row.before(form);
        row.move(form);
      });
      EXPECT_EQ(hid.commands, Texts{});
      EXPECT_EQ(beeper.beeps, 0);
    }
  }
}

TEST_F(MeterPanel, OnASerialLinkTheDirectControlsSendNothingAndPanelOneTells) {
  useSerial();
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.name);
    quietly([&] { row.before(form); });
    serial.clear();
    form.StatusBar1.setPanel(1, "");
    row.move(form);
    EXPECT_EQ(serial, row.beeps == 1 ? row.commands : Texts{});
    EXPECT_EQ(form.StatusBar1.panel(1), row.beeps == 0 && !row.commands.empty() ? "Works over USB only" : "");
  }
  EXPECT_EQ(hid.commands, Texts{});
  EXPECT_EQ(messages.count(), 0U);
}

TEST_F(MeterPanel, AFailedControlIsOneMessageAndNothingMoreIsSent) {
  for (const Row& row : kRows) {
    if (row.commands.empty()) {
      continue;
    }
    SCOPED_TRACE(row.name);
    connect();
    quietly([&] { row.before(form); });
    hid.readFaults[1] = platform::HidTransfer::kTimedOut;
    messages.shown.clear();
    row.move(form);
    EXPECT_EQ(hid.commands.size(), 1U);
    EXPECT_EQ(messages.count(), 1U);
    EXPECT_FALSE(connection.connected());
  }
}

TEST_F(MeterPanel, TheMeterFunctionIsAskedForInEveryMode) {
  for (int mode = 0; mode < 5; ++mode) {
    for (int function = 0; function < 8; ++function) {
      quietly([&] {
        form.cmbDmod.setListIndex(mode);
        form.optFun[(function + 1) % 8].setValue(true);
      });
      hid.forget();
      form.optFun[function].setValue(true);
      EXPECT_EQ(hid.commands,
                Texts{"DFN" + std::to_string(mode + 1) + std::to_string(function) + ";DFN??;DPS??"});
    }
  }
}

TEST_F(MeterPanel, WithTheMemoryRecallOnTheMeterFunctionSendsNothingAndStillClearsTheTrendPlot) {
  form.chkMld.setValue(1);
  quietly([this] { form.cmbDmod.setListIndex(4); });
  plot();
  form.optFun[1].setValue(true);
  EXPECT_EQ(hid.commands, Texts{});
  EXPECT_FALSE(plotted());
}

TEST_F(MeterPanel, TheMeterFunctionClearsTheTrendPlotEvenWhenTheProgramMovesIt) {
  quietly([this] {
    form.cmbDmod.setListIndex(4);
    plot();
    form.optFun[1].setValue(true);
  });
  EXPECT_EQ(hid.commands, Texts{});
  EXPECT_FALSE(plotted());
}

TEST_F(MeterPanel, OnlyTrendPlotIsClearedByTheMeterFunctionAndTheAutoRange) {
  for (int mode = 0; mode < 5; ++mode) {
    quietly([&] { form.cmbDmod.setListIndex(mode); });
    plot();
    form.optFun[mode].setValue(true);
    EXPECT_EQ(plotted(), mode != 4) << mode;
    plot();
    form.chkDmAt.setValue(1 - form.chkDmAt.value());
    EXPECT_EQ(plotted(), mode != 4) << mode;
  }
}

TEST_F(MeterPanel, TheAutoRangeClearsTheTrendPlotEvenWhenTheProgramMovesIt) {
  quietly([this] {
    form.cmbDmod.setListIndex(4);
    plot();
    form.chkDmAt.setValue(1);
  });
  EXPECT_FALSE(plotted());
}

TEST_F(MeterPanel, TheMeterFunctionEnablesTheExportOnceTheLogHasEnded) {
  for (const bool ended : {false, true}) {
    for (form::Button& load : form.cmdLoad) {
      load.setEnabled(false);
    }
    state.logEnd = ended;
    form.optFun[ended ? 1 : 2].setValue(true);
    EXPECT_EQ(form.cmdLoad[1].enabled(), ended);
    EXPECT_FALSE(form.cmdLoad[0].enabled());
  }
}

TEST_F(MeterPanel, EveryLoggerModeIsSentWithTheFunctionThenItsParametersAreAsked) {
  quietly([this] { form.optFun[7].setValue(true); });
  for (int mode = 0; mode < 5; ++mode) {
    hid.forget();
    form.cmbDmod.setListIndex(mode);
    EXPECT_EQ(hid.commands, (Texts{"DFN" + std::to_string(mode + 1) + "7;DFN??", "DPS??"}));
  }
}

TEST_F(MeterPanel, WithoutAFunctionTheLoggerModeIsSentWithEight) {
  form.cmbDmod.setListIndex(3);
  EXPECT_EQ(hid.commands, (Texts{"DFN48;DFN??", "DPS??"}));
}

TEST_F(MeterPanel, ALoggerModeLaysItsPanelOut) {
  form.picSwin[1].setVisible(false);
  form.cmbDmod.setListIndex(2);
  EXPECT_TRUE(form.picSwin[1].visible());
  EXPECT_EQ(form.lblXrdg[0].caption(), "REF:");
}

TEST_F(MeterPanel, AModeSetByTheProgramDoesNotLayThePanelOut) {
  form.picSwin[1].setVisible(false);
  quietly([this] { form.cmbDmod.setListIndex(2); });
  EXPECT_FALSE(form.picSwin[1].visible());
  EXPECT_EQ(form.lblXrdg[0].caption(), "");
}

TEST_F(MeterPanel, AFailedSecondExchangeOfAModeIsOneMessageAndNoNewPanel) {
  form.picSwin[1].setVisible(false);
  hid.readFaults[2] = platform::HidTransfer::kTimedOut;
  form.cmbDmod.setListIndex(2);
  EXPECT_EQ(hid.commands.size(), 2U);
  expectOneFailureMessage();
  expectDisconnected();
  EXPECT_FALSE(form.picSwin[1].visible());
}

TEST_F(MeterPanel, TheScopeFunctionIsOneHexadecimalDigit) {
  quietly([this] {
    while (form.cmbFun.items().size() < 17) {
      form.cmbFun.addItem("more");
    }
  });
  const std::pair<int, const char*> rows[] = {{1, "1"}, {9, "9"}, {10, "A"}, {15, "F"}, {0, "0"}, {16, "10"}};
  for (const auto& [index, digit] : rows) {
    hid.forget();
    form.cmbFun.setListIndex(index);
    EXPECT_EQ(hid.commands, Texts{"DFN0" + std::string(digit) + ";DFN??;VDA??;VDB??"});
  }
}

TEST_F(MeterPanel, WithTheMemoryRecallOnTheScopeFunctionSendsNothing) {
  form.chkMld.setValue(1);
  form.cmbFun.setListIndex(3);
  EXPECT_EQ(hid.commands, Texts{});
}

TEST_F(MeterPanel, TheSetUpBoxTakesThePlaceOfTheStatisticsAndGivesItBack) {
  form.picSet.setVisible(false);
  form.cmdSetup.click();
  EXPECT_TRUE(form.picSet.visible());
  EXPECT_FALSE(form.picSwin[1].visible());
  form.cmdSet[0].click();
  EXPECT_TRUE(form.picSet.visible());
  form.cmdSet[1].click();
  EXPECT_FALSE(form.picSet.visible());
  EXPECT_TRUE(form.picSwin[1].visible());
}

TEST_F(MeterPanel, TheSetUpBoxIsOpenWhenItsParametersAreAsked) {
  form.picSet.setVisible(false);
  hid.instrument = [this](const std::string&) {
    EXPECT_TRUE(form.picSet.visible());
    return tests::framed("dps:");
  };
  form.cmdSetup.click();
  EXPECT_EQ(frames, Texts{"dps:"});
}

TEST_F(MeterPanel, WithTheSecondFieldHiddenOneValueIsSetWithoutAComma) {
  form.txtSet[1].setVisible(false);
  form.cmdSet[0].click();
  EXPECT_EQ(hid.commands, Texts{"DPS-1.234mV"});
}

TEST_F(MeterPanel, ValuesAreSetWithoutTheirTrailingBlanks) {
  struct Values {
    const char* first;
    const char* second;
    const char* command;
  };
  for (const Values& row : {Values{"1.5V  ", "2V ", "DPS1.5V,2V"}, Values{" 1 V", "  2", "DPS 1 V,  2"},
                            Values{"-1.5V", " x ", "DPS-1.5V, x"}}) {
    hid.forget();
    form.txtSet[0].setText(row.first);
    form.txtSet[1].setText(row.second);
    form.cmdSet[0].click();
    EXPECT_EQ(hid.commands, Texts{row.command});
  }
}

TEST_F(MeterPanel, AValueThatTheInstrumentCannotTakeIsRefusedAtItsBox) {
  struct Values {
    const char* first;
    const char* second;
    const char* message;
  };
  for (const Values& row : {Values{" ", "2V", "\"Reference\" must not be empty."},
                            Values{"1;GTL", "2V", "\"Reference\" must not contain \";\" or \",\"."},
                            Values{"1V", "2,5V", "\"LO Limit\" must not contain \";\" or \",\"."},
                            Values{"", "", "\"Reference\" must not be empty."}}) {
    messages.shown.clear();
    form.txtSet[0].setText(row.first);
    form.txtSet[1].setText(row.second);
    form.cmdSet[0].click();
    EXPECT_EQ(messages.count(), 1U);
    EXPECT_EQ(messages.lastText(), row.message);
  }
  EXPECT_EQ(hid.commands, Texts{});
}

TEST_F(MeterPanel, AHiddenSecondValueIsNotLookedAt) {
  form.txtSet[1].setVisible(false);
  form.txtSet[1].setText(";");
  form.cmdSet[0].click();
  EXPECT_EQ(hid.commands, Texts{"DPS-1.234mV"});
  EXPECT_EQ(messages.count(), 0U);
}

TEST_F(MeterPanel, TheClockIsSetInTwoDigitsEach) {
  const std::pair<platform::CalendarTime, const char*> rows[] = {
      {{2000, 1, 2, 3, 4, 5}, "SCK00-01-02 03:04:05"},
      {{1999, 12, 31, 23, 59, 59}, "SCK99-12-31 23:59:59"},
      {{2026, 10, 11, 0, 0, 60}, "SCK26-10-11 00:00:60"},
  };
  for (const auto& [time, command] : rows) {
    hid.forget();
    clock.time = time;
    form.cmdClock.click();
    EXPECT_EQ(hid.commands, Texts{command});
  }
}

}  // namespace
}  // namespace vireon::meter
