#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

namespace vireon::simulator {

// Pseudo-random bytes in place of an answer: `length` bytes, the same for the same seed. With `ends` the
// last one, and only that, is the end mark (3); without it there is none.
struct Garbage {
  std::uint64_t seed = 1;
  std::size_t length = 64;
  bool ends = true;
};

struct ShortReport {
  std::size_t report = 1;  // number in the answer, from 1
  std::size_t length = 8;  // payload bytes delivered, 0 to 63
};

// What goes wrong on the cable. All off at the start; several may be on together. An exchange is a
// command, its answer, and the requests between the answer's reports. Everything counts from 1. A number
// that the exchange does not reach does nothing.
struct Faults {
  // On either link.
  bool once = false;  // off again after the next exchange; else from now on
  // The others act only on command strings that begin so, and `skip` of those go well first.
  // `unplugAtReport` then acts at the earliest at the command's last report, `stall` at once.
  std::optional<std::string> onlyOn{};
  std::size_t skip = 0;
  bool silence = false;                        // no answer at all
  bool refuse = false;                         // answered by a refusal, and not carried out
  std::chrono::nanoseconds lateBy{0};          // the answer, and every report of it, comes so much later
  std::optional<std::size_t> cutAfterBytes{};  // the answer ends after so many bytes, 0 to all, no end mark
  std::optional<std::size_t> cutAfterReports{};
  std::optional<Garbage> garbage{};
  std::optional<std::uint8_t> controlCode{};  // the answer is this code alone between the marks
  std::optional<std::string> identity{};      // takes the place of the model's, 1 to 6 characters
  std::optional<std::size_t> endless{};       // so many bytes, the start mark first, no end mark
  bool falseStart = false;                    // stray bytes and the beginning of another frame come first
  bool emptyDump = false;                     // a memory dump lists no record
  bool endlessDump = false;                   // made-up records come in place of a memory dump's end record

  // On the USB link.
  std::optional<std::size_t> dropReport{};    // left out: the following one comes in its place
  std::optional<std::size_t> doubleReport{};  // comes twice in a row
  std::optional<std::size_t> swapReport{};    // changes places with the following one
  std::optional<ShortReport> shortReport{};
  // The device goes as this report of the exchange is due, which is lost: both directions count, the
  // command's first report is 1.
  std::optional<std::size_t> unplugAtReport{};
  bool stall = false;  // the device takes no output reports; for those who hand reports to an endpoint

  // On the serial link.
  std::optional<std::chrono::nanoseconds> split{};  // every byte is a piece of its own, at least so far apart
  bool twice = false;                               // the answer comes twice, all in one piece
  std::optional<std::size_t> hangUpAtByte{};        // the adapter goes as this byte of an answer is due
  std::optional<std::size_t> hangUpAtCommand{};  // the adapter goes on this command since it was plugged in
};

}  // namespace vireon::simulator
