#include "files/time_text.h"

#include <optional>

#include "form/ascii.h"

namespace vireon::files {
namespace {

// Takes one or two digits off the front.
std::optional<int> takeNumber(std::string_view& rest, int most) {
  int value = 0;
  std::size_t digits = 0;
  while (digits < rest.size() && rest[digits] >= '0' && rest[digits] <= '9') {
    if (++digits > 2) return std::nullopt;
    value = value * 10 + (rest[digits - 1] - '0');
  }
  rest.remove_prefix(digits);
  if (digits == 0 || value > most) return std::nullopt;
  return value;
}

bool takeColon(std::string_view& rest) {
  if (!rest.starts_with(':')) return false;
  rest.remove_prefix(1);
  return true;
}

enum class Half { kNone, kMorning, kAfternoon };

std::optional<Half> halfOf(std::string_view text) {
  if (text.empty()) return Half::kNone;
  if (text.size() != 2 || (text[1] != 'M' && text[1] != 'm')) return std::nullopt;
  if (text[0] == 'A' || text[0] == 'a') return Half::kMorning;
  if (text[0] == 'P' || text[0] == 'p') return Half::kAfternoon;
  return std::nullopt;
}

std::optional<int> secondsOf(std::string_view text) {
  std::string_view rest = form::withoutBlanks(text);
  const auto hour = takeNumber(rest, 23);
  if (!hour || !takeColon(rest)) return std::nullopt;
  const auto minute = takeNumber(rest, 59);
  const auto second = takeColon(rest) ? takeNumber(rest, 59) : 0;
  const auto half = halfOf(form::withoutBlanks(rest));
  if (!minute || !second || !half) return std::nullopt;
  int hours = *hour;
  if (*half != Half::kNone) {
    if (hours < 1 || hours > 12) return std::nullopt;
    hours = hours % 12 + (*half == Half::kAfternoon ? 12 : 0);
  }
  return (hours * 60 + *minute) * 60 + *second;
}

}  // namespace

std::string timeText(std::string_view text) {
  const auto seconds = secondsOf(text);
  return seconds ? clockText(*seconds) : std::string(text);
}

std::string clockText(int seconds) {
  const auto digit = [](int value) { return static_cast<char>('0' + value); };
  const int hour = seconds / 3600;
  const int minute = seconds / 60 % 60;
  const int second = seconds % 60;
  return {digit(hour / 10),   digit(hour % 10),  ':', digit(minute / 10), digit(minute % 10), ':',
          digit(second / 10), digit(second % 10)};
}

}  // namespace vireon::files
