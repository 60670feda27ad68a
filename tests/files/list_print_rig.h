#pragma once

#include "files/list_print.h"
#include "protocol/instrument_state.h"
#include "tests/fakes/fake_message_boxes.h"
#include "tests/fakes/fake_message_pump.h"

namespace vireon::tests {

// The logger's list in a window of its own, with its print button at work.
struct ListPrintRig {
  ListPrintRig(FakeMessageBoxes& messages, files::PrintOut& printOut)
      : print(form, work, messages, printOut) {
    form.panTrd.setVisible(false);
    print.connectEvents();
  }

  void setRow(int row, const files::ListRow& line) {
    for (int column = 0; column < 4; ++column) {
      form.grdLog.setText(row, column, line[static_cast<std::size_t>(column)]);
    }
  }

  form::MainForm form;
  protocol::InstrumentState state;
  link::LinkState linkState;
  link::Operations operations{linkState};
  FakeSerialPort port;
  FakeMessagePump pump{port};
  link::LongWork work{form, state, operations, pump};
  files::ListPrint print;
};

}  // namespace vireon::tests
