#pragma once

#include "bench/bench_rig.h"
#include "fuzz/require.h"

namespace vireon::fuzz {

// No device; counts how often the program wanted to send.
class AbsentHid : public platform::RawHid {
 public:
  std::vector<platform::HidNode> list() override {
    ++searches;
    return {};
  }
  platform::HidOpenResult open(const platform::HidNode& /*node*/) override {
    return {nullptr, platform::HidOpenError::kNotFound};
  }
  int searches = 0;
};

// The whole program, started and without an instrument.
struct ProgramRig {
  AbsentHid hid;
  bench::SilentPorts ports;
  app::Program program{ports.with(hid), ""};

  ProgramRig() {
    ports.files.replace("/vireon.ini", "[Tabs]\nTabs=2\n[ComPort]\nComPort=0\n");
    require(program.Form_Load());
  }
};

}  // namespace vireon::fuzz
