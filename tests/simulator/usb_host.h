#pragma once

#include <array>
#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "simulator/usb_endpoint.h"

namespace vireon::simulator::tests {

// What a host does on the cable: command out in reports, answer in with requests between its reports.
class UsbHost {
 public:
  enum class End { kAnswered, kTimedOut, kGone, kOverflow };

  explicit UsbHost(UsbEndpoint& endpoint) : endpoint_(endpoint) {}

  // Bytes 0 to the end mark of the answer, or what came of it.
  End exchange(std::string_view command) {
    received.clear();
    reports = 0;
    if (!send(command)) return End::kGone;
    for (;;) {
      std::array<std::uint8_t, 64> payload{};
      const auto result = endpoint_.read(payload, std::chrono::milliseconds(6000));
      if (result.outcome == ReadResult::kTimedOut) return End::kTimedOut;
      if (result.outcome == ReadResult::kGone) return End::kGone;
      ++reports;
      for (std::size_t i = 0; i < result.length; ++i) {
        received.push_back(static_cast<char>(payload[i]));
        if (payload[i] == 3) return End::kAnswered;
        if (received.size() > 601) return End::kOverflow;
      }
      std::array<std::uint8_t, 64> request{};
      request.fill(3);
      request[0] = 4;
      if (!endpoint_.write(request)) return End::kGone;
    }
  }

  // Sends one command; `prefix` puts 254 and 253 behind the start mark.
  bool send(std::string_view command, bool prefix = false) {
    std::string bytes = prefix ? "\x02\xFE\xFD" : "\x02";
    bytes.append(command).push_back('\x03');
    sentReports = 0;
    for (std::size_t first = 0; first < bytes.size(); first += 64) {
      const std::string part = bytes.substr(first, 64);
      std::copy(part.begin(), part.end(), buffer_.begin());
      if (!endpoint_.write(buffer_)) return false;
      ++sentReports;
    }
    return true;
  }

  // Text of the last answer without its marks.
  std::string text() const { return received.size() < 2 ? "" : received.substr(1, received.size() - 2); }

  std::string received;
  int reports = 0;
  int sentReports = 0;

 private:
  UsbEndpoint& endpoint_;
  // Bytes behind the end mark are what the report before left there.
  std::array<std::uint8_t, 64> buffer_{};
};

}  // namespace vireon::simulator::tests
