#pragma once

#include <algorithm>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "bench/bench_rig.h"
#include "fuzz/absent_hid.h"
#include "fuzz/frame_model.h"
#include "fuzz/require.h"
#include "link/connection_control.h"
#include "link/window_state.h"

namespace vireon::fuzz {

// A serial port that shows the model what is read from it and what is written to it.
class ModelledPort final : public platform::SerialPort {
 public:
  explicit ModelledPort(FrameModel& model) : model_(model) {}

  bool refusesOpening = false;
  bool refusesWrites = false;
  std::vector<std::string> commands;

  platform::SerialOpenResult open(int /*com*/, const platform::SerialSettings& /*settings*/) override {
    close();
    open_ = !refusesOpening;
    return {
        open_ ? platform::SerialOpenError::kNone : platform::SerialOpenError::kInUse, "/dev/tty", {}, false};
  }
  void close() override {
    open_ = false;
    received_.clear();
  }
  bool isOpen() const override { return open_; }

  bool write(std::span<const std::uint8_t> bytes) override {
    require(bytes.size() >= 2 && bytes.front() == protocol::kStx && bytes.back() == protocol::kEtx);
    commands.emplace_back(bytes.begin() + 1, bytes.end() - 1);
    model_.sent();
    return open_ && !refusesWrites;
  }

  std::size_t available() const override { return received_.size(); }
  std::vector<std::uint8_t> read(std::size_t limit) override {
    const std::size_t count = std::min(limit, received_.size());
    std::vector<std::uint8_t> bytes(received_.begin(),
                                    received_.begin() + static_cast<std::ptrdiff_t>(count));
    received_.erase(0, count);
    model_.read(bytes);
    return bytes;
  }

  void receive(std::string_view bytes) {
    if (open_ && !bytes.empty()) {
      received_ += bytes;
      onArrival();
    }
  }
  void pullOut() {
    if (open_) {
      close();
      onLost();
    }
  }

 private:
  FrameModel& model_;
  bool open_ = false;
  std::string received_;
};

// A pump whose every turn is up to `happen`, which is False when nothing will ever happen again; a wait then
// ends by the answer's time-out.
class ScriptedPump final : public platform::MessagePump {
 public:
  explicit ScriptedPump(const form::Timer& timeOut) : timeOut_(timeOut) {}

  std::function<bool()> happen;

  void pump() override { happen(); }
  void wait() override {
    if (!happen()) {
      require(timeOut_.enabled() && timeOut_.interval() > 0);  // else the wait has no end
      timeOut_.tick();
    }
  }
  void waitAtMost(std::chrono::milliseconds /*limit*/) override { happen(); }

 private:
  const form::Timer& timeOut_;
};

// Counts the messages of a failed link; a question is answered as `answer` says.
class CountedMessages final : public platform::MessageBoxes {
 public:
  int failures = 0;
  std::function<platform::MessageAnswer()> answer;

  platform::MessageAnswer show(const platform::Message& message) override {
    if (message.buttons == platform::MessageButtons::kYesNo) {
      return answer();
    }
    ++failures;
    return platform::MessageAnswer::kOk;
  }
};

// A disconnected window on the serial link, port 1 at 9600 baud, opened.
struct SerialRig {
  FrameModel model;
  AbsentHid hid;
  CountedMessages messages;
  bench::SilentBeeper beeper;
  bench::NoSearchView searchView;
  form::MainForm form;
  protocol::InstrumentState state;
  link::LinkState link;
  ModelledPort port{model};
  ScriptedPump pump{form.tmrCom};
  link::ConnectionControl connection{form, state, link, {hid, messages, beeper, port, pump, searchView}};
  std::vector<std::string> texts;  // handed to dspRcv

  SerialRig() {
    link.comPort = "1";
    link.baudRate = "9600";
    link.comWait = 800;
    link::showConnected(form, false);
    connection.onFrame([this] {
      const auto text = state.rxBuf.begin() + 1;
      texts.emplace_back(text, text + state.rxLen);
      if (texts.back().starts_with("sim:")) {
        state.modelId = texts.back().substr(4);
      }
    });
    connection.serial().com_open();
  }
};

}  // namespace vireon::fuzz
