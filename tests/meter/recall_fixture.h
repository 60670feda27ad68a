#pragma once

#include "meter/logger_controls.h"
#include "protocol/reply_dispatcher.h"
#include "tests/meter/record_text.h"
#include "tests/meter/sampling_fixture.h"

namespace vireon::tests {

// A connected window whose logger controls work, in DATA LOGGER, on an instrument with a memory.
class RecallFixture : public SamplingFixture {
 protected:
  RecallFixture() {
    controls.connectEvents();
    dispatcher.sinks.dspLog = [this] { listing.dspLog(); };
    connection.onFrame([this] { dispatcher.dspRcv(); });
    quietly([this] { form.cmbDmod.setListIndex(0); });
    form.panTrd.setVisible(false);
    hid.instrument = [this](const std::string& command) { return answer(command); };
  }

  // `records` in dumps of two, then the end record.
  void fillMemory(int records) {
    dumps.clear();
    for (int number = 1; number <= records; number += 2) {
      dumps.push_back("lgd:" + record(number) + (number < records ? record(number + 1) : ""));
    }
    dumps.push_back("lgd:" + endRecord());
  }

  // What the user does at the n-th turn that a download gives the window, from 0: the first before the list
  // is cleared, then one before each dump.
  void atTurn(std::size_t turn, std::function<void()> action) {
    while (pump.atPump.size() < turn) {
      pump.atPump.emplace_back([] {});
    }
    pump.atPump.push_back(std::move(action));
  }

  // Something in the list that is not to be lost.
  void listSomething() {
    form.grdLog.setText(1, 0, "old");
    state.logRow = 2;
  }
  bool listKept() const { return form.grdLog.text(1, 0) == "old" && state.logRow == 2; }

  std::vector<std::string> dumps;  // texts of the answers to "DPC03"; the last is repeated
  std::function<std::string(const std::string&)> special;  // wire bytes, where not empty

  link::LongWork longWork{form, state, connection.operations(), pump};
  protocol::ReplyInterpreter interpreter{form, state, beeper};
  protocol::ReplyDispatcher dispatcher{form, state, interpreter};
  meter::RecordListing listing{form, state, beeper};
  meter::Recall recall{form, state, connection, longWork, listing};
  meter::LoggerControls controls{form, state, connection, sampling, recall, messages};

 private:
  std::string answer(const std::string& command) {
    if (special) {
      if (const std::string wire = special(command); !wire.empty()) {
        return wire;
      }
    }
    if (command == "DPC02") {
      next_ = 0;
    }
    if (command == "DPC03" && !dumps.empty()) {
      return framed(dumps[std::min(next_++, dumps.size() - 1)]);
    }
    return framed("\6");
  }

  std::size_t next_ = 0;
};

}  // namespace vireon::tests
