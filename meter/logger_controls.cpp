#include "meter/logger_controls.h"

#include <string>

#include "link/at_end.h"
#include "meter/parameter_check.h"
#include "protocol/logger_mode.h"
#include "protocol/reply_text.h"
#include "protocol/scoped_flag.h"
#include "protocol/trend_plot.h"
#include "protocol/vocabulary.h"

namespace vireon::meter {
namespace {

using protocol::kDataLogger;
using protocol::kTrendPlot;

constexpr int kLastMemory = 15;

}  // namespace

void LoggerControls::connectEvents() {
  form_.cmdLog.onEach(&form::Button::onClick, [this](int index) { cmdLog_Click(index); });
  form_.cmdSub.onEach(&form::Button::onClick, [this](int index) { cmdSub_Click(index); });
  form_.madUD.onEach(&form::Button::onClick, [this](int index) { madUD_Click(index); });
  form_.mnuSmm.onEach(&form::Button::onClick, [this](int index) { setSmm(index); });
  form_.mnuClrMem.onClick = [this] { mnuClrMem_Click(); };
  form_.chkLog0.onClick = [this] { chkLog0_Click(); };
  form_.chkLog1.onClick = [this] { chkLog1_Click(); };
  form_.chkSub.onClick = [this] { chkSub_Click(); };
  form_.chkMld.onClick = [this] { chkMld_Click(); };
}

void LoggerControls::chkLog0_Click() {
  if (state_.uiBusy) {
    return;
  }
  if (recall_.running()) {
    recall_.cancel();
    return;
  }
  const link::AtEnd release([this] {
    const protocol::ScopedFlag busy(state_.uiBusy);
    form_.chkLog0.setValue(0);
  });
  const int mode = form_.cmbDmod.listIndex();
  const bool recalls = mode == kDataLogger || mode == kTrendPlot;
  if (form_.chkLog0.value() == 1 && form_.chkMld.value() != 1 && recalls && link_.onUsbOrSaysSo()) {
    if (mode == kDataLogger) {
      recall_.download();
    } else {
      link_.transUsbOnly("TRD??");
    }
  }
}

void LoggerControls::chkLog1_Click() {
  if (state_.uiBusy) {
    return;
  }
  // The user's press counts only as far as the instrument has taken it up.
  const link::AtEnd follow([this] {
    const protocol::ScopedFlag busy(state_.uiBusy);
    form_.chkLog1.setValue(form_.chkLog1.caption() == "Start" ? 0 : 1);
  });
  if (link_.onUsbOrSaysSo()) {
    record();
  }
}

void LoggerControls::record() {
  if (form_.panTrd.visible() && form_.barTrd.value() == protocol::kLastTrendPoint) {
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
  if (link_.onUsbOrSaysSo() && recall_.clearList() == link::Outcome::kRefused) {
    form_.StatusBar1.setPanel(1, "Refused by the instrument: the list is kept");
  }
}

void LoggerControls::sendParameters() {
  const int mode = form_.cmbDmod.listIndex();
  if ((mode != kDataLogger && mode != kTrendPlot) || !link_.onUsbOrSaysSo()) {
    return;
  }
  std::string command = form_.optLog[0].value() ? "DPS0" : "DPS1";
  const int fields = mode == kDataLogger ? 3 : 2;
  for (int field = 0; field < fields; ++field) {
    if (!accepts(form_.txtLog[field], form_.lblSrdg[field + 1], messages_)) {
      return;
    }
    command += "," + form_.txtLog[field].text();
  }
  link_.transUsbOnly(command + ";DPS??");
}

void LoggerControls::cmdSub_Click(int index) {
  link_.transUsbOnly(index == 0 ? "DPC00;STS??" : "DPC02;STS??");
}

void LoggerControls::chkSub_Click() {
  if (!state_.uiBusy) {
    link_.transUsbOnly("DPC01");
  }
}

void LoggerControls::mnuClrMem_Click() {
  if (!link_.onUsbOrSaysSo()) {
    return;
  }
  const auto answer =
      messages_.show({"Clear Memory", "Clear the instrument's memory? The records in it will be lost.",
                      platform::MessageIcon::kExclamation, platform::MessageButtons::kYesNo});
  if (answer == platform::MessageAnswer::kYes) {
    clrMem();
  }
}

void LoggerControls::clrMem() {
  link_.transUsbOnly("DRC01;STS??");
}

void LoggerControls::setSmm(int method) {
  if (method < 0 || method >= form_.mnuSmm.size()) {
    throw form::Fault(form::FaultKind::kPropertyValue);
  }
  if (state_.uiBusy || form_.chkMld.value() == 1) {
    return;
  }
  if (link_.transUsbOnly("SMM??")) {
    link_.transUsbOnly("SMM0" + std::to_string(method));
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
