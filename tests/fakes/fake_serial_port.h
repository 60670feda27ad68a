#pragma once

#include <algorithm>
#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "platform/serial_port.h"
#include "tests/fakes/fault_count.h"

namespace vireon::tests {

// A reply text as it stands on the serial line.
inline std::string onLine(std::string_view text) {
  return '\2' + std::string(text) + '\3';
}

// Serial ports with one instrument behind them. Every complete command is answered through `instrument`: the
// chunks arrive one by one, each when the message pump turns (deliver()).
class FakeSerialPort final : public platform::SerialPort {
 public:
  // Knobs.
  std::function<std::vector<std::string>(int com, int baudRate, const std::string& command)> instrument =
      [](int, int, const std::string&) { return std::vector<std::string>{onLine("\6")}; };
  std::map<int, platform::SerialOpenResult> refusals;  // by port number
  bool refusesWrites = false;

  // What happened.
  std::vector<std::pair<int, platform::SerialSettings>> opened;  // every successful open()
  std::vector<std::string> attempts;                             // every open(), as "COM1:9600"
  std::vector<std::string> commands;
  std::size_t closes = 0;

  platform::SerialOpenResult open(int com, const platform::SerialSettings& settings) override {
    close();
    attempts.push_back("COM" + std::to_string(com) + ":" + std::to_string(settings.baudRate));
    if (const auto refusal = refusals.find(com); refusal != refusals.end()) {
      countFault();
      return refusal->second;
    }
    opened.emplace_back(com, settings);
    com_ = com;
    baudRate_ = settings.baudRate;
    open_ = true;
    return {platform::SerialOpenError::kNone, "/dev/ttyUSB" + std::to_string(com), {}, false};
  }

  void close() override {
    closes += open_ ? 1 : 0;
    open_ = false;
    chunks_.clear();
    received_.clear();
  }

  bool isOpen() const override { return open_; }

  bool write(std::span<const std::uint8_t> bytes) override {
    if (refusesWrites) {
      countFault();
    }
    if (!open_ || refusesWrites) {
      return false;
    }
    const std::string command(bytes.begin() + 1, bytes.end() - 1);
    written.emplace_back(bytes.begin(), bytes.end());
    commands.push_back(command);
    for (std::string& chunk : instrument(com_, baudRate_, command)) {
      chunks_.push_back(std::move(chunk));
    }
    return true;
  }

  std::size_t available() const override { return received_.size(); }

  std::vector<std::uint8_t> read(std::size_t limit) override {
    const std::size_t count = std::min(limit, received_.size());
    std::vector<std::uint8_t> bytes(received_.begin(),
                                    received_.begin() + static_cast<std::ptrdiff_t>(count));
    received_.erase(0, count);
    return bytes;
  }

  // Lets the next chunk arrive; False when none is on its way.
  bool deliver() {
    if (chunks_.empty() || !open_) {
      return false;
    }
    const std::string chunk = std::move(chunks_.front());
    chunks_.pop_front();
    receive(chunk);
    return true;
  }

  // Lets bytes arrive that nobody asked for.
  void receive(const std::string& bytes) {
    received_ += bytes;
    if (onArrival) {
      onArrival();
    }
  }

  // Puts a chunk on its way.
  void send(const std::string& chunk) { chunks_.push_back(chunk); }

  // The adapter is pulled out.
  void pullOut() {
    close();
    if (onLost) {
      onLost();
    }
  }

  std::vector<std::string> written;  // whole frames

 private:
  int com_ = 0;
  int baudRate_ = 0;
  bool open_ = false;
  std::deque<std::string> chunks_;
  std::string received_;
};

}  // namespace vireon::tests
