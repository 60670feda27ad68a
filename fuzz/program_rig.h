#pragma once

#include "bench/bench_rig.h"
#include "fuzz/require.h"
#include "tests/fakes/fake_desktop.h"

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
  bench::SilentMessages messages;
  bench::SilentBeeper beeper;
  bench::FixedClock clock;
  bench::NoSerialPort serialPort;
  bench::IdlePump pump;
  bench::NoSearchView searchView;
  bench::NoFileDialogs fileDialogs;
  bench::NoDocumentOpener documents;
  bench::NoCompoundFiles compoundFiles;
  app::MemoryFileStore files;
  tests::FakeDesktop desktop;
  app::Program program{{hid, serialPort, pump, messages, searchView, beeper, clock, files, fileDialogs,
                        documents, compoundFiles, desktop.ports(files)},
                       ""};

  ProgramRig() {
    files.replace("/vireon.ini", "[Tabs]\nTabs=2\n[ComPort]\nComPort=0\n");
    require(program.Form_Load());
  }
};

}  // namespace vireon::fuzz
