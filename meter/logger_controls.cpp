#include "meter/logger_controls.h"

#include <string>

#include "protocol/reply_text.h"
#include "protocol/vocabulary.h"
#include "scope/scale_tables.h"

namespace vireon::meter {
namespace {

constexpr int kTrendFull = 119;  // value of barTrd when the plot holds its 120 points
constexpr int kLastMemory = 15;
constexpr int kEmptyGridRows = 13;

}  // namespace

void LoggerControls::connectEvents() {
  form_.cmdLog.onEach(&form::Button::onClick, [this](int index) { cmdLog_Click(index); });
  form_.cmdSub.onEach(&form::Button::onClick, [this](int index) { cmdSub_Click(index); });
  form_.madUD.onEach(&form::Button::onClick, [this](int index) { madUD_Click(index); });
  form_.chkLog1.onClick = [this] { chkLog1_Click(); };
  form_.chkSub.onClick = [this] { chkSub_Click(); };
  form_.chkMld.onClick = [this] { chkMld_Click(); };
}

void LoggerControls::chkLog1_Click() {
  if (state_.uiBusy) {
    return;
  }
  if (form_.panTrd.visible() && form_.barTrd.value() == kTrendFull) {
    form_.cmdLoad[1].setEnabled(true);
    form_.StatusBar1.setPanel(1, "The trend plot is full: press \"Clr\" first");
    return;
  }
  form_.cmdLoad[1].setEnabled(form_.chkLog1.caption() != "Start");
  form_.cmdStart.setCaption("Start");
  form_.txtSTime.setText("0.5");
  sampling_.cmdStart_Click();
  if (!link_.connected()) {
    return;
  }
  state_.logEnd = false;
  link_.transUsbOnly("DPC04;STS??");
}

void LoggerControls::cmdLog_Click(int index) {
  if (index == 0) {
    sendParameters();
    return;
  }
  prepareGrid();
  link_.transUsbOnly("DPC02;STS??");
}

void LoggerControls::sendParameters() {
  std::string command = form_.optLog[0].value() ? "DPS0," : "DPS1,";
  command += form_.txtLog[0].text() + "," + form_.txtLog[1].text();
  const int mode = form_.cmbDmod.listIndex();
  if (mode == 0) {
    command += "," + form_.txtLog[2].text();
  }
  if (mode == 0 || mode == 4) {
    link_.transUsbOnly(command + ";DPS??");
  }
}

void LoggerControls::prepareGrid() {
  form_.grdLog.setRows(kEmptyGridRows);
  form_.grdLog.clear();
  form_.grdLog.setTopRow(1);
  scope::writeGridHeader(form_.grdLog);
  form_.picTrd.cls();
  form_.barTrd.setValue(0);
  state_.logRow = 1;
  state_.logEnd = false;
}

void LoggerControls::cmdSub_Click(int index) {
  link_.transUsbOnly(index == 0 ? "DPC00;STS??" : "DPC02;STS??");
}

void LoggerControls::chkSub_Click() {
  if (!state_.uiBusy) {
    link_.transUsbOnly("DPC01");
  }
}

int LoggerControls::memoryNumber() const {
  return protocol::decimalValue(form_.txtMad.text());
}

void LoggerControls::chkMld_Click() {
  const bool recall = form_.chkMld.value() == 1;
  form_.chkMld.setForeColor(recall ? form::kRed : form::kButtonText);
  if (recall && !state_.uiBusy) {
    link_.transKcmd("MEM" + protocol::hexArgument(memoryNumber()));
  }
}

void LoggerControls::madUD_Click(int index) {
  const int former = memoryNumber();
  const int number = former + (index == 0 ? -1 : 1);
  if (number < 0 || number > kLastMemory) {
    return;
  }
  form_.txtMad.setText((number < 10 ? "0" : "") + std::to_string(number));
  if (form_.chkMld.value() == 1) {
    link_.transKcmd("MEM" + protocol::hexArgument(number));
  }
}

}  // namespace vireon::meter
