#include "simulator/command_table.h"

#include <algorithm>
#include <array>

namespace vireon::simulator {
namespace {

constexpr std::string_view kChannelWords = "up dn ac dc at mn on of";
constexpr std::string_view kScaleWords = "up dn at mn";
constexpr std::string_view kTriggerWords = "nr at so sf sa sb se l+ l-";

constexpr std::array<Entry, 27> kEntries{{
    {.mnemonic = "SID", .verb = Verb::kSid, .query = true, .replyLength = 34},
    {.mnemonic = "SIM", .verb = Verb::kSim, .query = true, .replyLength = 10},
    {"VDA", Verb::kVda, Argument::kWord, kChannelWords, 0, 0, true, 6},
    {"VDB", Verb::kVdb, Argument::kWord, kChannelWords, 0, 0, true, 6},
    {"VPA", Verb::kVpa, Argument::kHexByte, {}, 0, 255, true, 6},
    {"VPB", Verb::kVpb, Argument::kHexByte, {}, 0, 255, true, 6},
    {"HDV", Verb::kHdv, Argument::kWord, kScaleWords, 0, 0, true, 6},
    {"HPO", Verb::kHpo, Argument::kHexByte, {}, 0, 255, true, 6},
    {"TLV", Verb::kTlv, Argument::kHexByte, {}, 0, 255, true, 6},
    {"TRG", Verb::kTrg, Argument::kWord, kTriggerWords, 0, 0, true, 6},
    {"DHD", Verb::kDhd, Argument::kWord, "on of", 0, 0, false, 0},
    {.mnemonic = "STS", .verb = Verb::kSts, .query = true, .replyLength = 6},
    {"DFN", Verb::kDfn, Argument::kFunction, {}, 0, 255, true, 6},
    {"DRG", Verb::kDrg, Argument::kWord, kScaleWords, 0, 0, true, 6},
    {"DPS", Verb::kDps, Argument::kFields, {}, 0, 0, true, 25},
    {"DPC", Verb::kDpc, Argument::kDigitPair, {}, 0, 4, false, 0},
    {"DRC", Verb::kDrc, Argument::kDigitPair, {}, 1, 1, false, 0},
    {.mnemonic = "DRM", .verb = Verb::kDrm, .query = true, .replyLength = 14},
    {.mnemonic = "DRP", .verb = Verb::kDrp, .query = true, .replyLength = 69},
    {.mnemonic = "DRT", .verb = Verb::kDrt, .query = true, .replyLength = 25},
    {.mnemonic = "DRS", .verb = Verb::kDrs, .query = true},
    {.mnemonic = "TRD", .verb = Verb::kTrd, .query = true},
    {"MEM", Verb::kMem, Argument::kHexByte, {}, 0, 15, false, 0},
    {"SMM", Verb::kSmm, Argument::kDigitPair, {}, 0, 1, true, 0},
    {"SCK", Verb::kSck, Argument::kDateTime, {}, 0, 0, false, 0},
    {"GTL", Verb::kGtl, Argument::kNone, {}, 0, 0, false, 0},
    {.mnemonic = "AFN", .verb = Verb::kAfn, .query = true, .replyLength = 19},
}};

struct NamedWord {
  std::string_view text;
  Word word = Word::kNone;
};

constexpr std::array<NamedWord, 16> kWords{{{"up", Word::kUp},
                                            {"dn", Word::kDown},
                                            {"at", Word::kAuto},
                                            {"mn", Word::kManual},
                                            {"ac", Word::kAc},
                                            {"dc", Word::kDc},
                                            {"on", Word::kOn},
                                            {"of", Word::kOff},
                                            {"nr", Word::kNormal},
                                            {"so", Word::kSingle},
                                            {"sf", Word::kSingleOff},
                                            {"sa", Word::kSourceA},
                                            {"sb", Word::kSourceB},
                                            {"se", Word::kSourceExternal},
                                            {"l+", Word::kRising},
                                            {"l-", Word::kFalling}}};

}  // namespace

const Entry* findEntry(std::string_view mnemonic) {
  const auto found = std::find_if(kEntries.begin(), kEntries.end(),
                                  [=](const Entry& entry) { return entry.mnemonic == mnemonic; });
  return found == kEntries.end() ? nullptr : &*found;
}

Word wordOf(const Entry& entry, std::string_view text) {
  if (text.size() != 2 || text.find(' ') != std::string_view::npos) return Word::kNone;
  if (entry.words.find(text) == std::string_view::npos) return Word::kNone;
  const auto found =
      std::find_if(kWords.begin(), kWords.end(), [=](const NamedWord& named) { return named.text == text; });
  return found == kWords.end() ? Word::kNone : found->word;
}

}  // namespace vireon::simulator
