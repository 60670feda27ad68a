#include "meter/sampling.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "link/window_state.h"
#include "protocol/record_list.h"
#include "protocol/reply_text.h"
#include "protocol/vocabulary.h"

namespace vireon::meter {
namespace {

// Seconds; a text that reads as no finite number is 0. A decimal comma counts as a point.
double secondsOf(std::string text) {
  std::replace(text.begin(), text.end(), ',', '.');
  const std::string_view digits = protocol::numberText(text);
  double value = 0;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
  if (error == std::errc::result_out_of_range) {
    return text.find('-') == std::string::npos ? Sampling::kLongest + 1 : 0;
  }
  const bool wholeText = end == digits.data() + digits.size();
  return wholeText && std::isfinite(value) ? value : 0;
}

}  // namespace

void Sampling::connectEvents() {
  form_.cmdStart.onClick = [this] { cmdStart_Click(); };
  form_.txtSTime.onKeyPress = [this](int character) { txtSTime_KeyPress(character); };
  form_.txtSTime.onChange = [this] { txtSTime_Change(); };
  form_.tmrInt.onTimer = [this] { tmrInt_Timer(); };
}

void Sampling::cmdStart_Click() {
  if (form_.cmdStart.caption() == "Start") {
    start();
  } else if (form_.chkLog1.caption() != "Stop") {
    link::switchSampling(form_, false);
  }
}

double Sampling::samplingTime() {
  double seconds = secondsOf(form_.txtSTime.text());
  if (seconds < kShortest) {
    form_.txtSTime.setText("0.001");
    seconds = kShortest;
  } else if (seconds > kLongest) {
    form_.txtSTime.setText("86400");
    seconds = kLongest;
  }
  return seconds;
}

void Sampling::start() {
  const double seconds = samplingTime();
  timeInForce_ = form_.txtSTime.text();
  form_.tmrInt.setInterval(static_cast<int>(std::nearbyint(seconds * 1000)));
  link::switchSampling(form_, true);
  if (link_.onUsbOrSaysSo() && protocol::trimmed(state_.modelId) == protocol::kMeterModel &&
      !link_.trans_usb(protocol::kQueryFunctionText)) {
    return;
  }
  form_.chkMhld.setValue(0);
  form_.chkMld.setValue(0);
}

void Sampling::txtSTime_KeyPress(int character) {
  if (character == 13) {
    cmdStart_Click();
  }
}

void Sampling::txtSTime_Change() {
  if (form_.cmdStart.caption() == "Stop") {
    form_.txtSTime.setText(timeInForce_);
  }
}

void Sampling::tmrInt_Timer() {
  if (form_.chkMld.value() == 1 || state_.logTransfer || !linkState_.onUsb()) {
    return;
  }
  std::string command;
  if (form_.SSTab1.tab() == 0) {
    command = protocol::kPollWaveform;
  } else if (form_.SSTab1.tab() == 1) {
    command = form_.picSwin[1].visible() ? protocol::kPollReadingAndResults : protocol::kPollReading;
    if (form_.chkLog1.caption() == "Stop") {
      command += protocol::kAlsoStatus;
    }
  } else {
    return;
  }
  if (link_.trans_usb(command) && state_.memFull) {
    fetchWaitingRecord();
  }
}

void Sampling::fetchWaitingRecord() {
  state_.memFull = false;
  if (link_.trans_usb(protocol::kPollRecord) && state_.logEnd) {
    protocol::markEnd(form_.grdLog, state_.logRow, protocol::kEndOfPoll);
    form_.cmdLoad[1].setEnabled(true);
  }
}

}  // namespace vireon::meter
