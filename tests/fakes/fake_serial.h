#pragma once

#include "tests/fakes/fake_message_pump.h"
#include "tests/fakes/fake_search_view.h"
#include "tests/fakes/fake_serial_port.h"

namespace vireon::tests {

// All that a serial link needs.
struct FakeSerial {
  FakeSerialPort port;
  FakeMessagePump pump{port};
  FakeSearchView view;
};

}  // namespace vireon::tests
