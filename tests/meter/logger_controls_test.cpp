#include "meter/logger_controls.h"

#include <gtest/gtest.h>

#include "protocol/reply_interpreter.h"
#include "tests/meter/sampling_fixture.h"

namespace vireon::meter {
namespace {

using Texts = std::vector<std::string>;

class LoggerPanelControls : public tests::SamplingFixture {
 protected:
  LoggerPanelControls() {
    controls.connectEvents();
    form.cmdLoad[0].setEnabled(false);
    form.cmdLoad[1].setEnabled(false);
    form.panTrd.setVisible(false);
  }

  void pressRecord() { form.chkLog1.setValue(1 - form.chkLog1.value()); }

  link::LongWork longWork{form, state, connection.operations(), pump};
  RecordListing listing{form, state, beeper};
  Recall recall{form, state, connection, longWork, listing};
  LoggerControls controls{form, state, connection, sampling, recall, messages};
};

TEST_F(LoggerPanelControls, RecordingStartsOnTheInstrumentWithAPollEveryHalfSecond) {
  form.txtSTime.setText("7");
  form.cmdLoad[1].setEnabled(true);
  state.logEnd = true;
  pressRecord();
  EXPECT_EQ(hid.commands, Texts{"DPC04;STS??"});
  EXPECT_EQ(beeper.beeps, 0);
  expectLive();
  EXPECT_EQ(form.txtSTime.text(), "0.5");
  EXPECT_EQ(form.tmrInt.interval(), 500);
  EXPECT_FALSE(form.cmdLoad[1].enabled());
  EXPECT_FALSE(state.logEnd);
}

TEST_F(LoggerPanelControls, ThePollOfARunningSamplingFallsBackToHalfSeconds) {
  form.txtSTime.setText("0.02");
  form.cmdStart.click();
  pressRecord();
  expectLive();
  EXPECT_EQ(form.txtSTime.text(), "0.5");
  EXPECT_EQ(form.tmrInt.interval(), 500);
}

TEST_F(LoggerPanelControls, EndingARecordingEnablesTheExport) {
  form.chkLog1.setCaption("Stop");
  pressRecord();
  EXPECT_EQ(hid.commands, Texts{"DPC04;STS??"});
  EXPECT_TRUE(form.cmdLoad[1].enabled());
  EXPECT_FALSE(form.cmdLoad[0].enabled());
}

TEST_F(LoggerPanelControls, AFullTrendPlotEnablesTheExportAndSendsNothing) {
  form.panTrd.setVisible(true);
  form.barTrd.setValue(119);
  state.logEnd = true;
  pressRecord();
  EXPECT_EQ(hid.commands, Texts{});
  EXPECT_TRUE(form.cmdLoad[1].enabled());
  EXPECT_TRUE(state.logEnd);
  EXPECT_EQ(form.StatusBar1.panel(1), "The trend plot is full: press \"Clr\" first");
  expectIdle();
}

TEST_F(LoggerPanelControls, ATrendPlotThatIsNotExactlyFullRecords) {
  struct Row {
    bool shown;
    int bar;
  };
  for (const Row row : {Row{true, 118}, Row{true, 120}, Row{true, 0}, Row{false, 119}}) {
    hid.forget();
    form.panTrd.setVisible(row.shown);
    form.barTrd.setValue(row.bar);
    pressRecord();
    EXPECT_EQ(hid.commands, Texts{"DPC04;STS??"}) << row.shown << row.bar;
  }
}

TEST_F(LoggerPanelControls, AFailedFunctionTextOfTheMeterModelStopsTheRecordingBeforeItStarts) {
  state.modelId = "K7900";
  state.logEnd = true;
  hid.readFaults[1] = platform::HidTransfer::kTimedOut;
  pressRecord();
  EXPECT_EQ(hid.commands, Texts{"AFN??"});
  expectOneFailureMessage();
  expectDisconnected();
  EXPECT_TRUE(state.logEnd);
}

TEST_F(LoggerPanelControls, AFailedRecordingIsOneMessage) {
  hid.readFaults[1] = platform::HidTransfer::kTimedOut;
  pressRecord();
  expectOneFailureMessage();
  expectDisconnected();
}

TEST_F(LoggerPanelControls, ClearingPreparesTheListAndThePlot) {
  form.grdLog.setRows(40);
  form.grdLog.setText(0, 1, "x");
  form.grdLog.setText(12, 3, "x");
  form.grdLog.setTopRow(30);
  form.picTrd.line(0, 0, 1, 1, form::kRed);
  form.barTrd.setValue(60);
  state.logRow = 37;
  state.logEnd = true;
  form.StatusBar1.setPanel(1, "told before");

  form.cmdLog[1].click();

  EXPECT_EQ(form.StatusBar1.panel(1), "told before");

  EXPECT_EQ(hid.commands, Texts{"DPC02;STS??"});
  EXPECT_EQ(form.grdLog.rows(), 13);
  EXPECT_EQ(form.grdLog.topRow(), 1);
  const Texts headings{"  R/No", "Time", "Reading", "    Remarks"};
  for (int column = 0; column < 4; ++column) {
    EXPECT_EQ(form.grdLog.text(0, column), headings[static_cast<std::size_t>(column)]);
    for (int row = 1; row < 13; ++row) {
      EXPECT_EQ(form.grdLog.text(row, column), "");
    }
  }
  EXPECT_TRUE(form.picTrd.lines().empty());
  EXPECT_EQ(form.barTrd.value(), 0);
  EXPECT_EQ(state.logRow, 1);
  EXPECT_FALSE(state.logEnd);
}

TEST_F(LoggerPanelControls, ParametersAreSentInTheFieldsOfTheirMode) {
  struct Row {
    int mode;
    int choice;
    Texts commands;
  };
  const Row rows[] = {
      {0, 0, {"DPS0,00001,00000,09999;DPS??"}},
      {0, 1, {"DPS1,00001,00000,09999;DPS??"}},
      {1, 0, {}},
      {2, 0, {}},
      {3, 1, {}},
      {4, 0, {"DPS0,00001,00000;DPS??"}},
      {4, 1, {"DPS1,00001,00000;DPS??"}},
  };
  form.txtLog[0].setText("00001");
  form.txtLog[1].setText("00000");
  form.txtLog[2].setText("09999");
  for (const Row& row : rows) {
    hid.forget();
    quietly([&] { form.cmbDmod.setListIndex(row.mode); });
    form.optLog[row.choice].setValue(true);
    form.cmdLog[0].click();
    EXPECT_EQ(hid.commands, row.commands) << row.mode << row.choice;
  }
  EXPECT_EQ(beeper.beeps, 0);
}

TEST_F(LoggerPanelControls, AParameterThatTheInstrumentCannotTakeIsRefusedAtItsBox) {
  quietly([this] { form.cmbDmod.setListIndex(0); });
  form.lblSrdg[1].setCaption("Sample Time(sec):");
  form.lblSrdg[3].setCaption("Stop Address:");
  for (const auto& [field, message] : {std::pair(0, "\"Sample Time(sec)\" must not be empty."),
                                       std::pair(2, "\"Stop Address\" must not be empty.")}) {
    for (form::TextBox& box : form.txtLog) {
      box.setText("1");
    }
    form.txtLog[field].setText("");
    messages.shown.clear();
    form.cmdLog[0].click();
    EXPECT_EQ(messages.count(), 1U);
    EXPECT_EQ(messages.lastText(), message);
  }
  EXPECT_EQ(hid.commands, Texts{});
}

TEST_F(LoggerPanelControls, InTrendPlotTheThirdParameterIsNotLookedAt) {
  quietly([this] { form.cmbDmod.setListIndex(4); });
  form.txtLog[0].setText("1");
  form.txtLog[1].setText("2");
  form.txtLog[2].setText(";");
  form.cmdLog[0].click();
  EXPECT_EQ(hid.commands, Texts{"DPS0,1,2;DPS??"});
}

TEST_F(LoggerPanelControls, TheMemoryIsClearedWhenTheUserHasAgreed) {
  form.mnuClrMem.click();
  EXPECT_EQ(hid.commands, Texts{});
  ASSERT_EQ(messages.count(), 1U);
  EXPECT_EQ(messages.shown.back().buttons, platform::MessageButtons::kYesNo);
  messages.answers = {platform::MessageAnswer::kYes};
  form.mnuClrMem.click();
  EXPECT_EQ(hid.commands, Texts{"DRC01;STS??"});
  EXPECT_EQ(beeper.beeps, 0);
}

TEST_F(LoggerPanelControls, ASampleMethodIsSetBehindAQueryOfTheMemorysState) {
  form.mnuSmm[0].click();
  form.mnuSmm[1].click();
  EXPECT_EQ(hid.commands, (Texts{"SMM??", "SMM00", "SMM??", "SMM01"}));
  EXPECT_EQ(beeper.beeps, 0);
  hid.forget();
  for (const int method : {-1, 2}) {
    EXPECT_THROW(controls.setSmm(method), form::Fault);
  }
  quietly([this] { controls.setSmm(1); });
  quietly([this] { form.chkMld.setValue(1); });
  controls.setSmm(1);
  EXPECT_EQ(hid.commands, Texts{});
}

TEST_F(LoggerPanelControls, AFailedQueryOfTheMemorysStateIsOneMessage) {
  hid.readFaults[1] = platform::HidTransfer::kTimedOut;
  form.mnuSmm[1].click();
  EXPECT_EQ(hid.commands, Texts{"SMM??"});
  expectOneFailureMessage();
}

TEST_F(LoggerPanelControls, TheRecordButtonIsPressedWhileTheInstrumentRecordsAlone) {
  pressRecord();  // acknowledged, but no status reply says that it records
  EXPECT_EQ(form.chkLog1.value(), 0);
  connection.onFrame([this] { quietly([this] { protocol::showRecording(form, true); }); });
  pressRecord();
  EXPECT_EQ(form.chkLog1.value(), 1);
  connection.onFrame([] {});
  pressRecord();
  EXPECT_EQ(form.chkLog1.value(), 1);
  connection.onFrame([this] { quietly([this] { protocol::showRecording(form, false); }); });
  pressRecord();
  EXPECT_EQ(form.chkLog1.value(), 0);
  EXPECT_EQ(hid.commands, Texts(4, "DPC04;STS??"));
}

TEST_F(LoggerPanelControls, AFailedStartLeavesTheRecordButtonUpAndTheExportEnabled) {
  hid.readFaults[1] = platform::HidTransfer::kTimedOut;
  pressRecord();
  EXPECT_EQ(form.chkLog1.value(), 0);
  EXPECT_TRUE(form.cmdLoad[1].enabled());
}

TEST_F(LoggerPanelControls, OnASerialLinkTheRecordButtonDoesNothing) {
  useSerial();
  form.txtSTime.setText("7");
  form.cmdLoad[1].setEnabled(true);
  pressRecord();
  expectIdle();
  EXPECT_EQ(form.txtSTime.text(), "7");
  EXPECT_TRUE(form.cmdLoad[1].enabled());
  EXPECT_EQ(form.chkLog1.value(), 0);
}

TEST_F(LoggerPanelControls, TheSubPanelSendsItsCommands) {
  form.cmdSub[0].click();
  form.cmdSub[1].click();
  form.chkSub.setValue(1);
  form.chkSub.setValue(0);
  EXPECT_EQ(hid.commands, (Texts{"DPC00;STS??", "DPC02;STS??", "DPC01", "DPC01"}));
  EXPECT_EQ(beeper.beeps, 0);
}

TEST_F(LoggerPanelControls, AMoveByTheProgramItselfSendsNothing) {
  quietly([this] {
    form.chkSub.setValue(1);
    form.chkLog1.setValue(1);
    form.chkMld.setValue(1);
  });
  EXPECT_EQ(hid.commands, Texts{});
  expectIdle();
}

TEST_F(LoggerPanelControls, OnASerialLinkTheDirectControlsSendNothingAndPanelOneTells) {
  useSerial();
  quietly([this] { form.cmbDmod.setListIndex(0); });
  const std::function<void()> moves[] = {
      [this] { form.cmdLog[0].click(); },  [this] { form.cmdLog[1].click(); },
      [this] { form.cmdSub[0].click(); },  [this] { form.cmdSub[1].click(); },
      [this] { form.chkSub.setValue(1); }, [this] { pressRecord(); },
      [this] { form.mnuClrMem.click(); },  [this] { form.mnuSmm[0].click(); }};
  for (const auto& move : moves) {
    form.StatusBar1.setPanel(1, "");
    move();
    EXPECT_EQ(form.StatusBar1.panel(1), "Works over USB only");
  }
  EXPECT_EQ(serial, Texts{});
}

TEST_F(LoggerPanelControls, TheMemoryRecallSendsItsNumberInTwoHexadecimalDigits) {
  const std::pair<const char*, const char*> rows[] = {
      {"00", "MEM00"}, {"09", "MEM09"}, {"10", "MEM0A"}, {"15", "MEM0F"}};
  for (const auto& [number, command] : rows) {
    hid.forget();
    form.txtMad.setText(number);
    form.chkMld.setValue(1);
    EXPECT_EQ(hid.commands, Texts{command});
    EXPECT_EQ(form.chkMld.foreColor(), form::Color{255});
    form.chkMld.setValue(0);
    EXPECT_EQ(hid.commands, Texts{command});
    EXPECT_EQ(form.chkMld.foreColor(), form::kButtonText);
  }
  EXPECT_EQ(beeper.beeps, 4);
}

TEST_F(LoggerPanelControls, TheMemoryNumberStepsBetween0And15) {
  form.madUD[0].click();
  EXPECT_EQ(form.txtMad.text(), "00");
  for (int number = 1; number <= 15; ++number) {
    form.madUD[1].click();
    EXPECT_EQ(form.txtMad.text(), (number < 10 ? "0" : "") + std::to_string(number));
  }
  form.madUD[1].click();
  EXPECT_EQ(form.txtMad.text(), "15");
  for (int number = 14; number >= 0; --number) {
    form.madUD[0].click();
    EXPECT_EQ(form.txtMad.text(), (number < 10 ? "0" : "") + std::to_string(number));
  }
  EXPECT_EQ(hid.commands, Texts{});
}

TEST_F(LoggerPanelControls, WhileTheRecallIsOnEachStepIsSent) {
  form.chkMld.setValue(1);
  form.txtMad.setText("09");
  hid.forget();
  beeper.beeps = 0;
  form.madUD[1].click();
  form.madUD[0].click();
  EXPECT_EQ(hid.commands, (Texts{"MEM0A", "MEM09"}));
  EXPECT_EQ(beeper.beeps, 2);
}

TEST_F(LoggerPanelControls, AtTheEndsOfTheRangeARecallIsNotRepeated) {
  form.chkMld.setValue(1);
  for (const int direction : {0, 1}) {
    form.txtMad.setText(direction == 0 ? "00" : "15");
    hid.forget();
    form.madUD[direction].click();
    EXPECT_EQ(hid.commands, Texts{});
  }
}

}  // namespace
}  // namespace vireon::meter
