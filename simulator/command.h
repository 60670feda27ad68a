#pragma once

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

#include "simulator/model.h"
#include "simulator/settings.h"

namespace vireon::simulator {

enum class Verb {
  kSid,
  kSim,
  kVda,
  kVdb,
  kVpa,
  kVpb,
  kHdv,
  kHpo,
  kTlv,
  kTrg,
  kDhd,
  kSts,
  kDfn,
  kDrg,
  kDps,
  kDpc,
  kDrc,
  kDrm,
  kDrp,
  kDrt,
  kDrs,
  kTrd,
  kMem,
  kSmm,
  kSck,
  kGtl,
  kAfn
};

enum class Word {
  kNone,
  kUp,
  kDown,
  kAuto,
  kManual,
  kAc,
  kDc,
  kOn,
  kOff,
  kNormal,
  kSingle,
  kSingleOff,
  kSourceA,
  kSourceB,
  kSourceExternal,
  kRising,
  kFalling
};

// One command of a string. `text` points into the string that was parsed.
struct Command {
  Verb verb = Verb::kGtl;
  bool query = false;
  Word word = Word::kNone;
  int number = 0;           // value of a numeric argument
  std::string_view text{};  // argument as it was written
};

inline constexpr std::size_t kLongestCommandString = 250;
// What a host's buffer of 601 bytes holds beside both marks.
inline constexpr std::size_t kLongestReply = 599;

// Commands joined by ";". Nothing when any of them is unknown or malformed, when `model` does not offer
// it, when the string is empty or longer than kLongestCommandString, when its replies would not fit in
// kLongestReply, when "DRS??" or "DPC03" is not the only and last answer, or "MEM" not the only command.
// `mode` is the logger mode in force, which decides the fields of "DPS".
std::optional<std::vector<Command>> parseCommands(std::string_view text, Model model, LoggerMode mode);

// True for a command that answers with a frame of its own instead of a reply item.
bool answersWithFrame(const Command& command);

}  // namespace vireon::simulator
