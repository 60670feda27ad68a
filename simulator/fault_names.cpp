#include "simulator/fault_names.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>
#include <functional>
#include <optional>

#include "simulator/model.h"
#include "simulator/usage_error.h"

namespace vireon::simulator {
namespace {

constexpr std::size_t kMost = 1'000'000;
constexpr std::size_t kMostMilliseconds = 600'000;

// Text of a value, which is empty when none was given, into a fault. False when it does not fit.
using Setter = bool (*)(Faults&, std::string_view);

enum class Use { kBoth, kSerial, kUsb };

struct NamedFault {
  std::string_view name{};
  std::string_view value{};  // as the help shows it
  Use use = Use::kBoth;
  Setter set = nullptr;
  std::string_view meaning{};
};

std::optional<std::size_t> number(std::string_view text, std::size_t lowest, std::size_t highest) {
  std::size_t value = 0;
  const auto* const end = text.data() + text.size();
  const auto [stopped, error] = std::from_chars(text.data(), end, value);
  if (error != std::errc{} || stopped != end || value < lowest || value > highest) return std::nullopt;
  return value;
}

std::string_view orElse(std::string_view text, std::string_view fallback) {
  return text.empty() ? fallback : text;
}

template <auto member>
bool setFlag(Faults& faults, std::string_view text) {
  faults.*member = true;
  return text.empty();
}

template <auto member, std::size_t lowest>
bool setNumber(Faults& faults, std::string_view text) {
  faults.*member = number(text, lowest, kMost);
  return (faults.*member).has_value();
}

template <bool ends>
bool setGarbage(Faults& faults, std::string_view text) {
  const auto length = number(orElse(text, "64"), 1, kMost);
  if (length) faults.garbage = Garbage{.length = *length, .ends = ends};
  return length.has_value();
}

bool setLate(Faults& faults, std::string_view text) {
  const auto value = number(text, 1, kMostMilliseconds);
  if (value) faults.lateBy = std::chrono::milliseconds(*value);
  return value.has_value();
}

bool setSplit(Faults& faults, std::string_view text) {
  const auto value = number(orElse(text, "20"), 0, kMostMilliseconds);
  if (value) faults.split = std::chrono::milliseconds(*value);
  return value.has_value();
}

bool setOnlyOn(Faults& faults, std::string_view text) {
  faults.onlyOn = std::string(text);
  return !text.empty();
}

bool setSkip(Faults& faults, std::string_view text) {
  const auto value = number(text, 1, kMost);
  faults.skip = value.value_or(0);
  return value.has_value();
}

bool setCode(Faults& faults, std::string_view text) {
  const auto value = number(orElse(text, "7"), 0, 255);
  if (!value || *value == 2 || *value == 3) return false;
  faults.controlCode = static_cast<std::uint8_t>(*value);
  return true;
}

bool setEndless(Faults& faults, std::string_view text) {
  faults.endless = number(orElse(text, "602"), 1, kMost);
  return faults.endless.has_value();
}

bool setHangUpAtCommand(Faults& faults, std::string_view text) {
  faults.hangUpAtCommand = number(orElse(text, "1"), 1, kMost);
  return faults.hangUpAtCommand.has_value();
}

bool setIdentity(Faults& faults, std::string_view text) {
  const std::string_view name = orElse(text, "X1000");
  faults.identity = std::string(name);
  return name.size() <= kIdentityWidth &&
         std::all_of(name.begin(), name.end(), [](char c) { return c >= ' ' && c <= '~'; });
}

bool setShortReport(Faults& faults, std::string_view text) {
  const std::size_t colon = std::min(text.find(':'), text.size());
  const auto report = number(text.substr(0, colon), 1, kMost);
  const auto length = number(text.substr(std::min(colon + 1, text.size())), 0, 63);
  if (report && length) faults.shortReport = ShortReport{*report, *length};
  return report && length;
}

bool clear(Faults& faults, std::string_view text) {
  faults = {};
  return text.empty();
}

constexpr std::array<NamedFault, 27> kNamedFaults{{
    {"none", "", Use::kBoth, clear, "nothing goes wrong"},
    {"once", "", Use::kBoth, setFlag<&Faults::once>, "with others: off again after the next exchange"},
    {"on", "=TEXT", Use::kBoth, setOnlyOn, "with others: only for commands that begin with TEXT"},
    {"skip", "=N", Use::kBoth, setSkip, "with others: the first N exchanges, or those of \"on\", go well"},
    {"silence", "", Use::kBoth, setFlag<&Faults::silence>, "no answer; the command is carried out"},
    {"refuse", "", Use::kBoth, setFlag<&Faults::refuse>, "a refusal (5); the command is not carried out"},
    {"code", "[=N]", Use::kBoth, setCode, "the answer is code N alone: 0 to 255 but 2 and 3 (7)"},
    {"late", "=MS", Use::kBoth, setLate, "the answer comes MS milliseconds later"},
    {"cut", "=N", Use::kBoth, setNumber<&Faults::cutAfterBytes, 0>, "the answer ends after N bytes"},
    {"garbage", "[=N]", Use::kBoth, setGarbage<true>, "N random bytes, the last one an end mark (64)"},
    {"garbage-open", "[=N]", Use::kBoth, setGarbage<false>, "N random bytes without an end mark (64)"},
    {"endless", "[=N]", Use::kBoth, setEndless, "a start mark and text, N bytes, no end mark (602)"},
    {"identity", "[=NAME]", Use::kBoth, setIdentity, "another identity, 1 to 6 characters (X1000)"},
    {"false-start", "", Use::kBoth, setFlag<&Faults::falseStart>,
     "stray bytes and the beginning of another frame before the answer"},
    {"dump-empty", "", Use::kBoth, setFlag<&Faults::emptyDump>, "a memory dump lists no record"},
    {"dump-endless", "", Use::kBoth, setFlag<&Faults::endlessDump>,
     "a memory dump never comes to its end record"},
    {"split", "[=MS]", Use::kSerial, setSplit, "each byte by itself, MS milliseconds apart (20)"},
    {"twice", "", Use::kSerial, setFlag<&Faults::twice>, "the answer twice, in one piece"},
    {"hangup-byte", "=N", Use::kSerial, setNumber<&Faults::hangUpAtByte, 1>,
     "the adapter goes as byte N of an answer is due"},
    {"hangup-command", "[=N]", Use::kSerial, setHangUpAtCommand, "the adapter goes on the N-th command (1)"},
    {"cut-reports", "=N", Use::kUsb, setNumber<&Faults::cutAfterReports, 0>,
     "the answer ends after N reports"},
    {"drop", "=N", Use::kUsb, setNumber<&Faults::dropReport, 1>, "report N of an answer is left out"},
    {"double", "=N", Use::kUsb, setNumber<&Faults::doubleReport, 1>, "report N of an answer comes twice"},
    {"swap", "=N", Use::kUsb, setNumber<&Faults::swapReport, 1>, "report N changes places with the next"},
    {"short", "=N:LENGTH", Use::kUsb, setShortReport, "report N has LENGTH bytes, 0 to 63"},
    {"unplug", "=N", Use::kUsb, setNumber<&Faults::unplugAtReport, 1>,
     "the device goes at report N of an exchange, both directions counted"},
    {"stall", "", Use::kUsb, setFlag<&Faults::stall>, "no output report is taken from the host"},
}};

std::string quoted(std::string_view text) {
  return "\"" + std::string(text) + "\"";
}

void addFault(Faults& faults, std::string_view item, Link link) {
  const std::size_t equals = std::min(item.find('='), item.size());
  const std::string_view name = item.substr(0, equals);
  const auto* const entry = std::find_if(kNamedFaults.begin(), kNamedFaults.end(),
                                         [&](const NamedFault& known) { return known.name == name; });
  if (entry == kNamedFaults.end()) throw UsageError("there is no fault " + quoted(name));
  if (entry->use == Use::kSerial && link != Link::kSerial) {
    throw UsageError("the fault " + quoted(name) + " is for a serial port");
  }
  if (entry->use == Use::kUsb && link != Link::kUsb) {
    throw UsageError("the fault " + quoted(name) + " is for a USB gadget");
  }
  const bool empty = equals + 1 == item.size();
  if (empty || !entry->set(faults, item.substr(std::min(equals + 1, item.size())))) {
    throw UsageError("the fault " + quoted(item) + " is not written as " + std::string(name) +
                     std::string(entry->value));
  }
}

}  // namespace

void addFaults(Faults& faults, std::string_view list, Link link) {
  for (;;) {
    const std::size_t comma = std::min(list.find(','), list.size());
    addFault(faults, list.substr(0, comma), link);
    if (comma == list.size()) return;
    list.remove_prefix(comma + 1);
  }
}

std::string faultHelp() {
  constexpr std::size_t kColumn = 19;
  std::string text;
  for (const NamedFault& entry : kNamedFaults) {
    std::string line = "  " + std::string(entry.name) + std::string(entry.value);
    line.resize(std::max(line.size() + 1, kColumn + 2), ' ');
    line += entry.meaning;
    if (entry.use == Use::kSerial) line += "; serial";
    if (entry.use == Use::kUsb) line += "; USB";
    text += line + "\n";
  }
  return text;
}

}  // namespace vireon::simulator
