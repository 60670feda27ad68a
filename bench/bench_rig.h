#pragma once

#include <algorithm>
#include <string_view>

#include "app/memory_file_store.h"
#include "app/program.h"
#include "app/simulated_hid.h"
#include "tests/fakes/fake_desktop.h"

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

class NoSerialPort : public platform::SerialPort {
 public:
  platform::SerialOpenResult open(int /*com*/, const platform::SerialSettings& /*settings*/) override {
    return {platform::SerialOpenError::kNotFound, {}, {}, false};
  }
  void close() override {}
  bool isOpen() const override { return false; }
  bool write(std::span<const std::uint8_t> /*bytes*/) override { return false; }
  std::size_t available() const override { return 0; }
  std::vector<std::uint8_t> read(std::size_t /*limit*/) override { return {}; }
};

class IdlePump : public platform::MessagePump {
 public:
  void pump() override {}
  void wait() override {}
  void waitAtMost(std::chrono::milliseconds /*limit*/) override {}
};

class NoSearchView : public platform::SearchView {
 public:
  void begin() override {}
  void trying(int /*com*/, std::string_view /*baudRate*/, int /*step*/) override {}
  void advise(const std::string& /*line*/, const std::string& /*text*/) override {}
  void end() override {}
};

class NoFileDialogs : public platform::FileDialogs {
 public:
  std::string openName(const platform::FileQuestion& /*question*/) override { return {}; }
  std::string saveName(const platform::FileQuestion& /*question*/) override { return {}; }
};

class NoDocumentOpener : public platform::DocumentOpener {
 public:
  bool open(const std::string& /*path*/) override { return false; }
};

class NoCompoundFiles : public platform::CompoundFiles {
 public:
  platform::PackResult pack(std::string_view /*workbook*/) override {
    return {{}, platform::PackError::kFailed};
  }
  platform::UnpackResult unpack(std::string_view /*file*/, std::size_t /*limit*/) override {
    return {{}, platform::UnpackError::kNotCompound};
  }
};

// A simulated instrument whose time moves by a millisecond with each frame.
struct Bench {
  simulator::ManualClock clock;
  simulator::Instrument instrument{simulator::Model::kK7310, clock};
  simulator::UsbEndpoint endpoint{instrument, clock};
  app::SimulatedHid hid{endpoint, simulator::Model::kK7310};
};

// All that the program needs but USB, at no cost.
struct SilentPorts {
  app::ProgramPorts with(platform::RawHid& hid) {
    return {hid,   serialPort, pump,        messages,  searchView,    beeper,
            clock, files,      fileDialogs, documents, compoundFiles, desktop.ports(files)};
  }

  SilentMessages messages;
  SilentBeeper beeper;
  FixedClock clock;
  NoSerialPort serialPort;
  IdlePump pump;
  NoSearchView searchView;
  app::MemoryFileStore files;
  NoFileDialogs fileDialogs;
  NoDocumentOpener documents;
  NoCompoundFiles compoundFiles;
  tests::FakeDesktop desktop;
};

// The program without a window, connected and sampling.
struct Rig : Bench {
  SilentPorts ports;
  app::Program program{ports.with(hid), ""};

  Rig() {
    program.Form_Load();
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
