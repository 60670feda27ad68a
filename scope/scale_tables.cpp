#include "scope/scale_tables.h"

#include <string>

#include "protocol/reply_interpreter.h"
#include "protocol/reply_text.h"
#include "protocol/vocabulary.h"

namespace vireon::scope {
namespace {

template <std::size_t N>
const std::string& entry(const std::array<std::string, N>& table, int code) {
  const auto index = static_cast<std::size_t>(code);
  if (index >= N) {
    throw form::Fault(form::FaultKind::kBounds);
  }
  return table[index];
}

void fillLabels(protocol::ScaleLabels& labels) {
  labels.vdLbl = {"50mV", "0.1V", "0.2V", "0.5V", "1V",   "2V",  "5V",
                  "10V",  "20V",  "50V",  "100V", "200V", "500V"};
  labels.ohmLbl = {"2k", "20k", "200k", "2M"};
  labels.hdvLbl = {"1uS", "2uS",  "5uS",  "10uS", "20uS", "50uS", "0.1mS", "0.2mS", "0.5mS", "1mS", "2mS",
                   "5mS", "10mS", "20mS", "50mS", "0.1S", "0.2S", "0.5S",  "1S",    "2S",    "5S"};
  labels.trdSpanLbl = {"20Sec", "40Sec", "1Min",  "2Min",  "5Min",  "10Min",
                       "20Min", "50Min", "1Hour", "2Hour", "5Hour", "10Hour"};
  labels.trdSpan = 0;
}

void fillLists(form::MainForm& form, const std::string& modelId) {
  form.cmbDmod.clear();
  for (const char* mode : {"DATA LOGGER", "RECORD MODE", "RELATIVE MODE", "COMPARE MODE", "TREND PLOT"}) {
    form.cmbDmod.addItem(mode);
  }
  form.cmbFun.clear();
  for (const char* function : {"DCV", "ACV", "OHM", "BZ", "Hz", "RPM", "Pulse Width", "Duty"}) {
    form.cmbFun.addItem(function);
  }
  if (protocol::trimmed(modelId) == protocol::kMeterModel) {
    form.cmbFun.addItem("Dwell");
  }
  form.cmbFun.setListIndex(0);
}

void prepareGrid(form::Grid& grid) {
  grid.setColumnWidth(0, 900);
  grid.setColumnWidth(2, 1200);
  grid.setColumnWidth(3, 1500);
  writeGridHeader(grid);
  for (int column = 0; column < 3; ++column) {
    grid.setColumnAlignment(column, form::Alignment::kCenter);
  }
}

}  // namespace

void initLbl(form::MainForm& form, protocol::InstrumentState& state) {
  fillLabels(state.labels);
  form.lblStm.setCaption(entry(state.labels.trdSpanLbl, state.labels.trdSpan));
  fillLists(form, state.modelId);
  prepareGrid(form.grdLog);
}

void writeGridHeader(form::Grid& grid) {
  const char* const headings[] = {"  R/No", "Time", "Reading", "    Remarks"};
  for (int column = 0; column < 4; ++column) {
    grid.setText(0, column, headings[column]);
  }
}

void dspVinf(form::MainForm& form, const protocol::InstrumentState& state, int index, int num) {
  if (index == 1 && state.ohmBz) {
    return;
  }
  const int code = num & 15;
  const std::string& scale = state.ohmBz ? entry(state.labels.ohmLbl, code) : entry(state.labels.vdLbl, code);
  form.lblSinf[index].setCaption((index == 0 ? "A:" : "B:") + scale);
  form.lblVd[index].setCaption(scale);

  const bool alternating = (num & 16) != 0;
  protocol::showToggle(form.chkVac[index], alternating);
  form.chkVac[index].setCaption(alternating ? "AC" : "DC");
  protocol::showToggle(form.chkVat[index], (num & 32) != 0);
  const bool on = (num & 64) != 0;
  protocol::showToggle(form.chkVof[index], on);
  form.chkVof[index].setCaption(on ? "ON" : "OFF");
  form.posDV[index].setVisible(on);
}

}  // namespace vireon::scope
