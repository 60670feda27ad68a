#pragma once

#include "bench/bench_rig.h"
#include "fuzz/absent_hid.h"
#include "fuzz/require.h"

namespace vireon::fuzz {

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
