#pragma once

#include <initializer_list>
#include <vector>

#include "form/main_form.h"
#include "link/operations.h"
#include "platform/message_pump.h"
#include "protocol/instrument_state.h"

namespace vireon::link {

// Work that takes a while: a download, a long export, import or print-out. One at a time. While it runs, the
// window takes no input but "Cancel" and exit, the poll rests, and a request to close waits for its end.
class LongWork {
 public:
  LongWork(form::MainForm& form, protocol::InstrumentState& state, Operations& operations,
           platform::MessagePump& pump);

  bool running() const { return state_.logTransfer; }

  // Asks the work in progress to end; it does at its next step.
  void cancel() { cancelled_ = true; }
  bool cancelled() const { return cancelled_; }

  // The work, for a scope.
  class Scope {
   public:
    // `total` steps are to be done, 0 where their number is not known. The controls in `open` keep taking
    // input.
    Scope(LongWork& work, int total, std::initializer_list<const form::Control*> open = {});
    Scope(const Scope&) = delete;
    Scope& operator=(const Scope&) = delete;
    ~Scope();

    // Shows that `done` steps are done, lets the window live, and tells whether to go on: False once the user
    // has cancelled.
    bool goOn(int done);

   private:
    void begin(int total, const std::vector<const form::Control*>& open);
    void end();

    LongWork& work_;
    Operations::Scope operation_;
  };

 private:
  form::MainForm& form_;
  protocol::InstrumentState& state_;
  Operations& operations_;
  platform::MessagePump& pump_;
  bool cancelled_ = false;
};

}  // namespace vireon::link
