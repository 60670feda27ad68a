#include <algorithm>

#include "simulator/command.h"
#include "simulator/command_table.h"
#include "simulator/logger_parameters.h"
#include "simulator/wall_clock.h"

namespace vireon::simulator {
namespace {

constexpr std::size_t kMnemonicLength = 3;

std::optional<int> digitOf(char c, int base) {
  if (c >= '0' && c <= '9') return c - '0';
  if (base == 16 && c >= 'A' && c <= 'F') return c - 'A' + 10;
  return std::nullopt;
}

// Exactly two digits, upper case.
std::optional<int> pairOf(std::string_view text, int base) {
  if (text.size() != 2) return std::nullopt;
  const auto high = digitOf(text[0], base);
  const auto low = digitOf(text[1], base);
  if (!high || !low) return std::nullopt;
  return *high * base + *low;
}

bool takeNumber(Command& command, const Entry& entry, int base) {
  const auto number = pairOf(command.text, base);
  if (!number || *number < entry.lowest || *number > entry.highest) return false;
  command.number = *number;
  return true;
}

class Parser {
 public:
  Parser(Model model, LoggerMode mode) : model_(model), mode_(mode) {}

  std::optional<Command> parse(std::string_view text) {
    const Entry* entry = findEntry(text.substr(0, kMnemonicLength));
    if (entry == nullptr) return std::nullopt;
    if (entry->verb == Verb::kAfn && !hasDwell(model_)) return std::nullopt;
    Command command{.verb = entry->verb, .text = text.substr(kMnemonicLength)};
    command.query = command.text == "??";
    if (command.query) {
      replies_ += entry->replyLength + 1;
      return entry->query ? std::optional(command) : std::nullopt;
    }
    return takeArgument(command, *entry) ? std::optional(command) : std::nullopt;
  }

  // Length of all reply items, one comma each.
  std::size_t replies() const { return replies_; }

 private:
  bool takeArgument(Command& command, const Entry& entry) {
    switch (entry.argument) {
      case Argument::kNotSettable:
        return false;
      case Argument::kNone:
        return command.text.empty();
      case Argument::kWord:
        command.word = wordOf(entry, command.text);
        return command.word != Word::kNone;
      case Argument::kHexByte:
        return takeNumber(command, entry, 16);
      case Argument::kDigitPair:
        return takeNumber(command, entry, 10);
      case Argument::kFunction:
        return takeNumber(command, entry, 16) && takeFunction(command.number);
      case Argument::kFields:
        return withFields({}, mode_, command.text).has_value();
      case Argument::kDateTime:
        break;
    }
    return isDateTime(command.text);
  }

  bool takeFunction(int value) {
    const int mode = value / 16;
    const int function = value % 16;
    const int lastFunction = static_cast<int>(hasDwell(model_) ? Function::kDwell : Function::kDuty);
    const int lastMode = static_cast<int>(hasLogger(model_) ? LoggerMode::kTrend : LoggerMode::kOff);
    mode_ = static_cast<LoggerMode>(std::min(mode, lastMode));
    return mode <= lastMode && function <= lastFunction;
  }

  Model model_;
  LoggerMode mode_;
  std::size_t replies_ = 0;
};

bool answersAlone(const std::vector<Command>& commands) {
  const auto frames = std::count_if(commands.begin(), commands.end(), answersWithFrame);
  if (frames == 0) return true;
  const auto queries =
      std::count_if(commands.begin(), commands.end(), [](const Command& command) { return command.query; });
  const Command& last = commands.back();
  if (last.verb == Verb::kMem) return commands.size() == 1;
  return frames == 1 && answersWithFrame(last) && queries == (last.query ? 1 : 0);
}

}  // namespace

bool answersWithFrame(const Command& command) {
  constexpr int kDump = 3;
  return command.verb == Verb::kDrs || command.verb == Verb::kMem ||
         (command.verb == Verb::kDpc && command.number == kDump);
}

std::optional<std::vector<Command>> parseCommands(std::string_view text, Model model, LoggerMode mode) {
  if (text.size() > kLongestCommandString) return std::nullopt;
  Parser parser(model, mode);
  std::vector<Command> commands;
  for (;;) {
    const auto end = text.find(';');
    const auto command = parser.parse(text.substr(0, end));
    if (!command) return std::nullopt;
    commands.push_back(*command);
    if (end == std::string_view::npos) break;
    text.remove_prefix(end + 1);
  }
  if (parser.replies() > kLongestReply || !answersAlone(commands)) return std::nullopt;
  return commands;
}

}  // namespace vireon::simulator
