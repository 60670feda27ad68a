#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "simulator/serial_endpoint.h"
#include "tests/simulator/bench.h"

namespace vireon::simulator::tests {

// A command or an answer as it stands on the wire.
inline std::string framed(std::string_view text) {
  return "\x02" + std::string(text) + "\x03";
}

// One piece of an answer, and when it came, counted from the writing of the command.
struct Piece {
  std::string bytes;
  std::chrono::nanoseconds at{0};
};

// An instrument at the end of a serial line, and a host that fetches every piece as soon as it is due.
struct Line : Bench {
  explicit Line(int baud = 9600, Model model = Model::kK7310)
      : Bench(model), endpoint(instrument, clock, baud), hostBaud(baud) {}

  void put(std::string_view bytes) {
    const std::vector<std::uint8_t> raw(bytes.begin(), bytes.end());
    endpoint.write(raw, hostBaud);
  }

  // Everything that comes until the line is quiet.
  std::vector<Piece> pieces() {
    const auto start = clock.now();
    std::vector<Piece> all;
    for (auto due = endpoint.nextDue(); due; due = endpoint.nextDue()) {
      clock.wait(*due - clock.now());
      const auto bytes = endpoint.read(hostBaud);
      if (!bytes.empty()) all.push_back({{bytes.begin(), bytes.end()}, clock.now() - start});
    }
    return all;
  }

  std::string listen() {
    std::string text;
    for (const Piece& piece : pieces()) text += piece.bytes;
    return text;
  }

  std::string exchange(std::string_view command) {
    put(framed(command));
    return listen();
  }

  SerialEndpoint endpoint;
  int hostBaud;
};

}  // namespace vireon::simulator::tests
