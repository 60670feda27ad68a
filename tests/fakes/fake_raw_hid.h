#pragma once

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/raw_hid.h"
#include "tests/fakes/fault_count.h"

namespace vireon::tests {

// A reply text as it stands on the wire.
inline std::string framed(std::string_view text) {
  return '\2' + std::string(text) + '\3';
}

// HID nodes with one instrument behind them. A complete command is answered through `instrument`; the first
// report of the answer is ready at once, each further one after a request that starts with 4. Outlives its
// handles. Transfers are counted from 1 over both directions, from the construction or the last forget().
class FakeRawHid : public platform::RawHid {
 public:
  using Report = std::vector<std::uint8_t>;

  // What the system lists; an unplugged system lists nothing.
  std::vector<platform::HidNode> nodes{{"/dev/hidraw0", 0x10C4, 0xE001}};
  platform::HidCapabilities lengths;

  // Wire bytes of the answer to a command text; empty is silence. Starts with an acknowledge for everything.
  std::function<std::string(const std::string& command)> instrument = [](const std::string&) {
    return framed("\6");
  };
  std::uint8_t filler = 0;  // payload bytes of a report behind the end of an answer

  // What goes wrong, each at the n-th of its kind from 1.
  std::map<std::size_t, platform::HidOpenError> openErrors;
  std::map<std::size_t, platform::HidTransfer> writeFaults;
  std::map<std::size_t, platform::HidTransfer> readFaults;
  std::optional<std::size_t> unplugAtTransfer;  // this report is lost and the device is gone

  // What happened.
  std::vector<std::string> openedPaths;  // every successful open()
  std::size_t opens = 0;                 // every open()
  std::size_t closes = 0;
  std::vector<Report> written;  // whole output reports, identifier first
  std::vector<std::string> commands;
  std::vector<std::chrono::milliseconds> timeouts;  // asked of every read()
  std::size_t reads = 0;
  std::size_t transfers = 0;
  std::size_t discards = 0;  // every discardInput()

  std::size_t openHandles() const { return openedPaths.size() - closes; }

  // Forgets what was written and counted, but not the open handles, and switches every fault off.
  void forget() {
    openErrors.clear();
    writeFaults.clear();
    readFaults.clear();
    unplugAtTransfer.reset();
    written.clear();
    commands.clear();
    timeouts.clear();
    opens = reads = transfers = discards = 0;
  }

  void answerAll(const std::string& wire) {
    instrument = [wire](const std::string&) { return wire; };
  }

  // A handle that was open when the device went never works again.
  void unplug() {
    countFault();
    plugged_ = false;
    ++generation_;
    collecting_ = false;
    rest_.clear();
  }
  void plug() { plugged_ = true; }

  // An input report that nobody asked for. Each open handle keeps the oldest 63 unread ones.
  void deliver(std::string_view payload) {
    Report report(lengths.inputReportLength - 1, filler);
    std::copy_n(payload.begin(), std::min(payload.size(), report.size()), report.begin());
    for (Handle* handle : handles_) {
      if (handle->queue.size() < 63) {
        handle->queue.push_back(report);
      }
    }
  }

  std::vector<platform::HidNode> list() override {
    return plugged_ ? nodes : std::vector<platform::HidNode>{};
  }

  platform::HidOpenResult open(const platform::HidNode& node) override {
    if (const auto fault = openErrors.find(++opens); fault != openErrors.end()) {
      countFault();
      return {nullptr, fault->second};
    }
    if (!plugged_ || std::none_of(nodes.begin(), nodes.end(),
                                  [&](const platform::HidNode& other) { return other.path == node.path; })) {
      return {nullptr, platform::HidOpenError::kNotFound};
    }
    openedPaths.push_back(node.path);
    return {std::make_unique<Handle>(*this), platform::HidOpenError::kNone};
  }

 private:
  class Handle : public platform::HidHandle {
   public:
    explicit Handle(FakeRawHid& hid) : hid_(hid), generation_(hid.generation_) {
      hid_.handles_.push_back(this);
    }
    ~Handle() override {
      ++hid_.closes;
      std::erase(hid_.handles_, this);
    }

    platform::HidCapabilities capabilities() const override { return hid_.lengths; }

    platform::HidTransfer write(std::span<const std::uint8_t> report) override {
      if (report.size() != hid_.lengths.outputReportLength) {
        return platform::HidTransfer::kWrongLength;
      }
      if (!usable() || report[0] != 0) {
        return platform::HidTransfer::kFailed;
      }
      hid_.written.emplace_back(report.begin(), report.end());
      if (const auto fault = hid_.writeFaults.find(hid_.written.size()); fault != hid_.writeFaults.end()) {
        countFault();
        return fault->second;
      }
      hid_.take(report.subspan(1));
      return platform::HidTransfer::kDone;
    }

    platform::HidTransfer read(std::span<std::uint8_t> report, std::chrono::milliseconds timeout) override {
      hid_.timeouts.push_back(timeout);
      ++hid_.reads;
      if (report.size() != hid_.lengths.inputReportLength) {
        return platform::HidTransfer::kWrongLength;
      }
      if (!usable()) {
        return platform::HidTransfer::kFailed;
      }
      if (const auto fault = hid_.readFaults.find(hid_.reads); fault != hid_.readFaults.end()) {
        countFault();
        return fault->second;
      }
      if (queue.empty()) {
        return platform::HidTransfer::kTimedOut;
      }
      report[0] = 0;
      std::copy(queue.front().begin(), queue.front().end(), report.begin() + 1);
      queue.pop_front();
      return platform::HidTransfer::kDone;
    }

    void discardInput() override {
      ++hid_.discards;
      queue.clear();
    }

    std::deque<Report> queue;

   private:
    bool usable() {
      if (++hid_.transfers == hid_.unplugAtTransfer) {
        hid_.unplug();
      }
      return generation_ == hid_.generation_;
    }

    FakeRawHid& hid_;
    std::size_t generation_;
  };

  void take(std::span<const std::uint8_t> payload) {
    if (!collecting_ && !payload.empty() && payload.front() == 4) {
      deliverNext();
      return;
    }
    for (const std::uint8_t byte : payload) {
      if (byte == 2) {
        collecting_ = true;
        command_.clear();
      } else if (collecting_ && byte == 3) {
        collecting_ = false;
        commands.push_back(command_);
        rest_ = instrument(command_);
        deliverNext();
        return;
      } else if (collecting_) {
        command_ += static_cast<char>(byte);
      }
    }
  }

  void deliverNext() {
    if (!rest_.empty()) {
      const std::string part = rest_.substr(0, lengths.inputReportLength - 1);
      rest_.erase(0, part.size());
      deliver(part);
    }
  }

  std::vector<Handle*> handles_;
  bool plugged_ = true;
  std::size_t generation_ = 0;
  bool collecting_ = false;
  std::string command_;
  std::string rest_;
};

}  // namespace vireon::tests
