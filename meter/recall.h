#pragma once

#include "form/main_form.h"
#include "link/connection_control.h"
#include "link/long_work.h"
#include "meter/record_listing.h"
#include "protocol/instrument_state.h"

namespace vireon::meter {

// Brings the records of the instrument's memory into the list, over USB.
class Recall {
 public:
  Recall(form::MainForm& form, protocol::InstrumentState& state, link::ConnectionControl& link,
         link::LongWork& longWork, RecordListing& listing)
      : form_(form), state_(state), link_(link), longWork_(longWork), listing_(listing) {}

  // Winds the read-out back, then empties list and trend plot; they are kept where that was not answered.
  link::Outcome clearList();

  // Lists the whole memory. Pumps messages between two dumps; ends with the end record, or early when it is
  // cancelled, refused, when the link fails or three answers in a row list nothing. Status-bar panel 1 tells
  // how far it is and how it ended.
  void download();

  // While a download runs, pressing its button again ends it.
  bool running() const { return longWork_.running(); }
  void cancel() { longWork_.cancel(); }

 private:
  enum class Ending { kComplete, kCancelled, kRefused, kLinkLost, kNothingMore };

  static Ending endingOf(link::Outcome outcome);
  Ending fetch(link::LongWork::Scope& scope);
  Ending fetchDumps(link::LongWork::Scope& scope);
  void tell(Ending ending);

  form::MainForm& form_;
  protocol::InstrumentState& state_;
  link::ConnectionControl& link_;
  link::LongWork& longWork_;
  RecordListing& listing_;
  bool listCleared_ = false;  // by the download in progress
};

}  // namespace vireon::meter
