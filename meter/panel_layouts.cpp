#include "meter/panel_layouts.h"

#include <string>

#include "link/window_state.h"
#include "protocol/logger_mode.h"
#include "protocol/vocabulary.h"

namespace vireon::meter {
namespace {

struct SettingsLayout {
  const char* captions[4];  // lblSrdg
  const char* choices[2];   // optLog
  bool trend;
};

constexpr SettingsLayout kDataLoggerLayout{
    {"Sample Method:", "Sample Time(sec):", "Start Address:", "Stop Address:"}, {"Time", "Peak"}, false};
constexpr SettingsLayout kTrendPlotLayout{
    {"Plot Mode:", "Offset:", "V/Division:", "H/Division:"}, {"Line", "Dot"}, true};

// Captions of lblXrdg by the mode from kRecordMode on.
constexpr const char* kStatistics[3][5] = {
    {"MAX:", "AVG:", "MIN:", "Total Samples:", "Elapsed Time:"},
    {"REF:", "DIF:", "ERR:", "Mean ERR:", "Elapsed Time:"},
    {"HI Limit:", "LO Limit:", "Reading:", "Pass Muster:", "Elapsed Time:"},
};

void showSettings(form::MainForm& form, const SettingsLayout& layout) {
  for (int label = 0; label < form.lblSrdg.size(); ++label) {
    form.lblSrdg[label].setCaption(layout.captions[label]);
  }
  for (int choice = 0; choice < form.optLog.size(); ++choice) {
    form.optLog[choice].setCaption(layout.choices[choice]);
  }
  form.txtLog[2].setVisible(!layout.trend);
  form.chkLog0.setVisible(!layout.trend);
  form.picStm.setVisible(layout.trend);
  form.cmdSetup.setEnabled(false);
  form.picSwin[0].setVisible(true);
}

void showStatistics(form::MainForm& form, int mode) {
  for (int label = 0; label < form.lblXrdg.size(); ++label) {
    form.lblXrdg[label].setCaption(kStatistics[mode - protocol::kRecordMode][label]);
  }
  if (mode != protocol::kRecordMode) {
    const bool limits = mode == protocol::kCompareMode;
    form.lblSet[0].setCaption(limits ? "HI Limit:" : "Reference:");
    form.lblSet[1].setVisible(limits);
    form.txtSet[1].setVisible(limits);
  }
  form.cmdSetup.setEnabled(mode != protocol::kRecordMode);
  form.picSwin[1].setVisible(true);
}

}  // namespace

void setTabPan(form::MainForm& form) {
  const int tab = form.SSTab1.tab();
  if (tab != 0 && tab != 1) {
    return;
  }
  form.picMscope.setVisible(true);
  form.picScope.setVisible(tab == 0);
  form.panScon.setVisible(tab == 0);
  form.picDmm.setVisible(tab == 1);
  form.panDlog.setVisible(tab == 1);
}

void setSubPan(form::MainForm& form, int mode) {
  form.picSwin[0].setVisible(false);
  form.picSwin[1].setVisible(false);
  form.picSet.setVisible(false);
  if (mode == protocol::kDataLogger || mode == protocol::kTrendPlot) {
    showSettings(form, mode == protocol::kDataLogger ? kDataLoggerLayout : kTrendPlotLayout);
  } else if (mode >= protocol::kRecordMode && mode <= protocol::kCompareMode) {
    showStatistics(form, mode);
  }
}

void SSTab1_Switch(form::MainForm& form, const protocol::InstrumentState& state,
                   link::ConnectionControl& connection) {
  if (state.uiBusy || state.logTransfer) {
    return;
  }
  link::switchSampling(form, false);
  if (form.SSTab1.tab() == 0) {
    link::switchSampling(form, state.ackSeen);
    connection.transUsbOnly(protocol::selectScopeFunction(form.cmbFun.listIndex()));
  } else if (form.SSTab1.tab() == 1) {
    connection.transUsbOnly("DFN1" + std::to_string(form.optFun.selected()) + ";DFN??;DPS??");
  }
  setTabPan(form);
}

}  // namespace vireon::meter
