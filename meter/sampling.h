#pragma once

#include <string>

#include "form/main_form.h"
#include "link/connection_control.h"
#include "protocol/instrument_state.h"

namespace vireon::meter {

// Sampling by the computer: the start button, the sampling time and the poll.
class Sampling {
 public:
  static constexpr double kShortest = 0.001;  // seconds
  static constexpr double kLongest = 86400;   // seconds

  Sampling(form::MainForm& form, protocol::InstrumentState& state, link::LinkState& linkState,
           link::ConnectionControl& link)
      : form_(form), state_(state), linkState_(linkState), link_(link), timeInForce_(form.txtSTime.text()) {}

  // Makes cmdStart, txtSTime and tmrInt call these handlers.
  void connectEvents();

  // Starts sampling at the time in txtSTime, or stops it unless the instrument records.
  void cmdStart_Click();

  // Enter (13) starts or stops like the button.
  void txtSTime_KeyPress(int character);

  // While sampling runs, the box keeps the time in force.
  void txtSTime_Change();

  // One poll of what the shown tab displays; nothing on a serial link or while a memory is recalled.
  void tmrInt_Timer();

 private:
  double samplingTime();
  void start();
  void fetchWaitingRecord();

  form::MainForm& form_;
  protocol::InstrumentState& state_;
  link::LinkState& linkState_;
  link::ConnectionControl& link_;
  std::string timeInForce_;
};

}  // namespace vireon::meter
