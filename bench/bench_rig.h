#pragma once

#include <algorithm>
#include <string_view>

#include "app/program.h"
#include "app/simulated_hid.h"

namespace vireon::bench {

class SilentMessages : public platform::MessageBoxes {
 public:
  platform::MessageAnswer show(const platform::Message& /*message*/) override {
    return platform::MessageAnswer::kOk;
  }
};

class SilentBeeper : public platform::Beeper {
 public:
  void beep() override {}
};

class FixedClock : public platform::WallClock {
 public:
  platform::CalendarTime now() const override { return {}; }
};

// A simulated instrument whose time moves by a millisecond with each frame.
struct Bench {
  simulator::ManualClock clock;
  simulator::Instrument instrument{simulator::Model::kK7310, clock};
  simulator::UsbEndpoint endpoint{instrument, clock};
  app::SimulatedHid hid{endpoint, simulator::Model::kK7310};
};

// The program without a window, connected and sampling.
struct Rig : Bench {
  SilentMessages messages;
  SilentBeeper beeper;
  FixedClock wallClock;
  app::Program program{{hid, messages, beeper, wallClock}};

  Rig() {
    program.load();
    program.form.cmdBttn[0].click();
    program.form.cmdStart.click();
    program.form.tmrInt.tick();
  }

  // Puts an answer's text into rxBuf as the link leaves it.
  void receive(std::string_view text) {
    program.state.rxBuf[0] = 2;
    std::copy(text.begin(), text.end(), program.state.rxBuf.begin() + 1);
    program.state.rxLen = static_cast<int>(text.size());
  }
};

}  // namespace vireon::bench
