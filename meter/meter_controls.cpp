#include "meter/meter_controls.h"

#include <array>
#include <cstdio>
#include <string>

#include "meter/panel_layouts.h"
#include "meter/parameter_check.h"
#include "protocol/trend_plot.h"
#include "protocol/vocabulary.h"

namespace vireon::meter {
namespace {

constexpr const char* kHoldOn = "DHDon;STS??";
constexpr const char* kHoldOff = "DHDof;STS??";

std::string withoutTrailingBlanks(const std::string& text) {
  return text.substr(0, text.find_last_not_of(' ') + 1);
}

// "YY-MM-DD HH:MM:SS"
std::string dateAndTime(const platform::CalendarTime& time) {
  std::array<char, 32> text{};
  const auto two = [](int value) { return static_cast<unsigned>(value) % 100U; };
  const int length =
      std::snprintf(text.data(), text.size(), "%02u-%02u-%02u %02u:%02u:%02u", two(time.year),
                    two(time.month), two(time.day), two(time.hour), two(time.minute), two(time.second));
  return {text.data(), static_cast<std::size_t>(length)};
}

}  // namespace

void MeterControls::connectEvents() {
  form_.optFun.onEach(&form::OptionButton::onClick, [this](int index) { optFun_Click(index); });
  form_.mrgUD.onEach(&form::Button::onClick, [this](int index) { mrgUD_Click(index); });
  form_.cmdSet.onEach(&form::Button::onClick, [this](int index) { cmdSet_Click(index); });
  form_.cmbDmod.onClick = [this] { cmbDmod_Click(); };
  form_.cmbFun.onClick = [this] { cmbFun_Click(); };
  form_.chkDmAt.onClick = [this] { chkDmAt_Click(); };
  form_.chkHold.onClick = [this] { chkHold_Click(); };
  form_.chkMhld.onClick = [this] { chkMhld_Click(); };
  form_.cmdSetup.onClick = [this] { cmdSetup_Click(); };
  form_.cmdClock.onClick = [this] { cmdClock_Click(); };
}

void MeterControls::optFun_Click(int index) {
  if (trendPlot()) {
    protocol::clearTrend(form_);
  }
  if (state_.logEnd) {
    form_.cmdLoad[1].setEnabled(true);
  }
  if (form_.chkMld.value() != 1 && !state_.uiBusy) {
    link_.transUsbOnly("DFN" + std::to_string(form_.cmbDmod.listIndex() + 1) + std::to_string(index) +
                       ";DFN??;DPS??");
  }
}

void MeterControls::cmbDmod_Click() {
  if (state_.uiBusy) {
    return;
  }
  const int mode = form_.cmbDmod.listIndex();
  const bool sent = link_.transUsbOnly("DFN" + std::to_string(mode + 1) +
                                       std::to_string(form_.optFun.selected()) + ";DFN??");
  if (sent && link_.transUsbOnly(protocol::kQueryParameters)) {
    setSubPan(form_, mode);
  }
}

void MeterControls::cmbFun_Click() {
  if (state_.uiBusy || form_.chkMld.value() == 1) {
    return;
  }
  std::string function = protocol::hexArgument(form_.cmbFun.listIndex());
  link_.transKcmd("DFN0" + function.substr(function.front() == '0' ? 1 : 0) + ";DFN??;VDA??;VDB??");
}

void MeterControls::mrgUD_Click(int index) {
  const char* const actions[] = {"dn", "up", "at"};
  link_.transUsbOnly("DRG" + std::string(actions[index]) + ";DRG??");
}

void MeterControls::chkDmAt_Click() {
  if (trendPlot()) {
    protocol::clearTrend(form_);
  }
  if (!state_.uiBusy) {
    link_.transUsbOnly(form_.chkDmAt.value() == 1 ? "DRGat;DRG??" : "DRGmn;DRG??");
  }
}

void MeterControls::chkHold_Click() {
  if (!state_.uiBusy) {
    link_.transUsbOnly(form_.chkHold.value() == 1 ? kHoldOn : kHoldOff);
  }
}

void MeterControls::chkMhld_Click() {
  if (!state_.uiBusy) {
    link_.transKcmd(form_.chkMhld.value() == 1 ? kHoldOn : kHoldOff);
  }
}

void MeterControls::cmdSetup_Click() {
  form_.picSwin[1].setVisible(false);
  form_.picSet.setVisible(true);
  link_.transUsbOnly(protocol::kQueryParameters);
}

void MeterControls::cmdSet_Click(int index) {
  if (index == 1) {
    form_.picSet.setVisible(false);
    form_.picSwin[1].setVisible(true);
    return;
  }
  if (link_.onUsbOrSaysSo()) {
    sendReferenceOrLimits();
  }
}

void MeterControls::sendReferenceOrLimits() {
  std::string command = "DPS";
  const int values = form_.txtSet[1].visible() ? 2 : 1;
  for (int value = 0; value < values; ++value) {
    if (!accepts(form_.txtSet[value], form_.lblSet[value], messages_)) {
      return;
    }
    command += (value == 0 ? "" : ",") + withoutTrailingBlanks(form_.txtSet[value].text());
  }
  link_.transUsbOnly(command);
}

void MeterControls::cmdClock_Click() {
  link_.transKcmd("SCK" + dateAndTime(clock_.now()));
}

}  // namespace vireon::meter
