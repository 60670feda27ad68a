#pragma once

#include "form/main_form.h"
#include "link/connection_control.h"
#include "meter/recall.h"
#include "meter/sampling.h"
#include "platform/message_box.h"
#include "protocol/instrument_state.h"

namespace vireon::meter {

// The handlers of the logger's recording and statistics and of the waveform memory. While state.uiBusy holds,
// no control whose value a reply can move sends anything; the plain buttons always do.
class LoggerControls {
 public:
  LoggerControls(form::MainForm& form, protocol::InstrumentState& state, link::ConnectionControl& link,
                 Sampling& sampling, Recall& recall, platform::MessageBoxes& messages)
      : form_(form), state_(state), link_(link), sampling_(sampling), recall_(recall), messages_(messages) {}

  // Makes the controls call these handlers.
  void connectEvents();

  void chkLog0_Click();          // recalls the instrument's memory; pressed again, ends that
  void chkLog1_Click();          // starts or stops recording on the instrument
  void cmdLog_Click(int index);  // 0 sends the parameters, 1 empties the list
  void cmdSub_Click(int index);  // 0 resets the statistics, 1 the read-out too
  void chkSub_Click();           // pauses the statistics
  void chkMld_Click();           // recalls a stored waveform
  void madUD_Click(int index);   // memory number, 0 down, 1 up, within 0 to 15
  void mnuClrMem_Click();        // asks, then empties the instrument's memory

  void clrMem();            // empties the instrument's memory
  void setSmm(int method);  // sample method, 0 time, 1 peak; faults (kPropertyValue) on another

 private:
  void record();
  void sendParameters();
  int memoryNumber() const;

  form::MainForm& form_;
  protocol::InstrumentState& state_;
  link::ConnectionControl& link_;
  Sampling& sampling_;
  Recall& recall_;
  platform::MessageBoxes& messages_;
};

}  // namespace vireon::meter
