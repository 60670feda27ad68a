#pragma once

#include <string>
#include <string_view>

#include "form/main_form.h"
#include "platform/beeper.h"
#include "protocol/instrument_state.h"

namespace vireon::meter {

// Lists the records of the instrument's memory in grdLog.
class RecordListing {
 public:
  RecordListing(form::MainForm& form, protocol::InstrumentState& state, platform::Beeper& beeper)
      : form_(form), state_(state), beeper_(beeper) {}

  // Empties the list for the records to come.
  void prepare();

  // Lists the records of the "lgd" reply in rxBuf from row logRow on; the end record sets logEnd. Faults
  // (kBounds) when rxLen is beyond 600, then nothing is listed.
  void dspLog();

  // Records listed since prepare(), end records not counted.
  int records() const { return records_; }

 private:
  void writeRecord(std::string_view record);
  void endOfData();
  void writeRemark(const std::string& remark);

  form::MainForm& form_;
  protocol::InstrumentState& state_;
  platform::Beeper& beeper_;
  int records_ = 0;
};

}  // namespace vireon::meter
