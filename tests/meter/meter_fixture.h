#pragma once

#include <string>
#include <vector>

#include "protocol/scoped_flag.h"
#include "scope/scale_tables.h"
#include "tests/link/connection_fixture.h"

namespace vireon::tests {

// A connected main window with its lists filled; the instrument acknowledges everything.
class MeterFixture : public ConnectionFixture {
 protected:
  using Texts = std::vector<std::string>;

  MeterFixture() {
    quietly([this] { scope::initLbl(form, state); });
    connect();
  }

  // Moves controls as the program itself does.
  template <class Action>
  void quietly(Action&& action) {
    const protocol::ScopedFlag busy(state.uiBusy);
    action();
  }

  void useSerial() {
    link.comPort = "1";
    link.baudRate = "9600";
    connection.serial().com_open();
  }

  Texts& serial = serialPort.commands;
};

}  // namespace vireon::tests
