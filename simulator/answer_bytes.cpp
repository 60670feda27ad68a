#include "simulator/answer_bytes.h"

#include <algorithm>
#include <cstddef>

#include "simulator/command_collector.h"
#include "simulator/model.h"
#include "simulator/random.h"

namespace vireon::simulator {
namespace {

constexpr std::uint8_t kStart = CommandCollector::kStart;
constexpr std::uint8_t kEnd = CommandCollector::kEnd;
constexpr std::string_view kIdentityKey = "sim:";
constexpr std::string_view kDumpKey = "lgd:";
constexpr std::string_view kMadeUpRecord = "00000 00:00:00   0.00V\x95 ";
constexpr std::string_view kStrayBytes = "\x7F\x01?\x02vda:4";

std::vector<std::uint8_t> garbageBytes(const Garbage& garbage) {
  Random random(garbage.seed);
  std::vector<std::uint8_t> bytes(garbage.length);
  for (auto& byte : bytes) {
    byte = static_cast<std::uint8_t>(random.next() >> 56U);
    if (byte == kEnd) byte = 0;
  }
  if (garbage.ends && !bytes.empty()) bytes.back() = kEnd;
  return bytes;
}

void replaceIdentity(std::string& text, std::string identity) {
  std::size_t place = text.find(kIdentityKey);
  while (place != std::string::npos && place > 0 && text[place - 1] != ',') {
    place = text.find(kIdentityKey, place + 1);
  }
  if (place == std::string::npos) return;
  identity.resize(kIdentityWidth, ' ');
  text.replace(place + kIdentityKey.size(), kIdentityWidth, identity);
}

void spoilDump(std::string& text, const Faults& faults) {
  if (!text.starts_with(kDumpKey)) return;
  if (faults.emptyDump) {
    text = kDumpKey;
  } else if (faults.endlessDump && text.find(Logger::kEndMark) != std::string::npos) {
    text = kDumpKey;
    for (std::size_t i = 0; i < Logger::kRecordsPerDump; ++i) text += kMadeUpRecord;
  }
}

std::vector<std::uint8_t> frameBytes(std::string text, const Faults& faults) {
  if (faults.garbage) return garbageBytes(*faults.garbage);
  if (faults.controlCode) text.assign(1, static_cast<char>(*faults.controlCode));
  spoilDump(text, faults);
  if (faults.identity) replaceIdentity(text, *faults.identity);
  std::vector<std::uint8_t> bytes;
  bytes.reserve(text.size() + 2);
  bytes.push_back(kStart);
  bytes.insert(bytes.end(), text.begin(), text.end());
  if (faults.endless) {
    bytes.resize(*faults.endless, 'a');
  } else {
    bytes.push_back(kEnd);
  }
  return bytes;
}

}  // namespace

std::string answerText(Instrument& instrument, std::string_view command, const Faults& faults) {
  return faults.refuse ? instrument.refuse(command) : instrument.answer(command);
}

std::vector<std::uint8_t> answerBytes(std::string text, const Faults& faults) {
  if (faults.silence) return {};
  auto bytes = frameBytes(std::move(text), faults);
  if (faults.falseStart) bytes.insert(bytes.begin(), kStrayBytes.begin(), kStrayBytes.end());
  if (faults.cutAfterBytes) bytes.resize(std::min(bytes.size(), *faults.cutAfterBytes));
  return bytes;
}

}  // namespace vireon::simulator
