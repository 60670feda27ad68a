#include "files/number_formats.h"

#include <cstddef>

#include "form/ascii.h"

namespace vireon::files {
namespace {

bool startsWith(std::string_view text, std::string_view word) {
  if (text.size() < word.size()) return false;
  for (std::size_t index = 0; index < word.size(); ++index) {
    if (form::smallLetter(text[index]) != word[index]) return false;
  }
  return true;
}

struct Parts {
  bool days = false;     // a year or a day
  bool months = false;   // or minutes
  bool hours = false;    // or seconds, or halves of the day
  bool elapsed = false;  // in brackets
};

// "[h]", "[mm]" and the like count on; other brackets are colours, conditions and languages.
bool isElapsed(std::string_view bracket) {
  if (bracket.empty()) return false;
  const char unit = form::smallLetter(bracket.front());
  if (unit != 'h' && unit != 'm' && unit != 's') return false;
  for (const char letter : bracket) {
    if (form::smallLetter(letter) != unit) return false;
  }
  return true;
}

// Looks at what stands first in the code and returns its length, 0 at the code's end.
std::size_t takePart(std::string_view code, Parts& parts) {
  if (code.empty() || code.front() == ';') return 0;
  if (startsWith(code, "general")) return 7;
  if (startsWith(code, "am/pm") || startsWith(code, "a/p")) {
    parts.hours = true;
    return startsWith(code, "am/pm") ? 5 : 3;
  }
  switch (form::smallLetter(code.front())) {
    case '"':
      return code.find('"', 1) == std::string_view::npos ? 0 : code.find('"', 1) + 1;
    case '\\':
    case '_':
    case '*':
      return 2;
    case '[': {
      const std::size_t end = code.find(']');
      if (end == std::string_view::npos) return 0;
      parts.elapsed = parts.elapsed || isElapsed(code.substr(1, end - 1));
      return end + 1;
    }
    case 'y':
    case 'd':
      parts.days = true;
      return 1;
    case 'm':
      parts.months = true;
      return 1;
    case 'h':
    case 's':
      parts.hours = true;
      return 1;
    default:
      return 1;
  }
}

bool isIn(std::uint16_t format, std::uint16_t first, std::uint16_t last) {
  return format >= first && format <= last;
}

}  // namespace

NumberKind numberKindOf(std::string_view code) {
  Parts parts;
  while (const std::size_t length = takePart(code, parts)) {
    code.remove_prefix(length < code.size() ? length : code.size());
  }
  if (parts.days) return parts.hours ? NumberKind::kDateAndTime : NumberKind::kDate;
  if (parts.elapsed) return NumberKind::kElapsed;
  if (parts.hours) return NumberKind::kTime;
  return parts.months ? NumberKind::kDate : NumberKind::kPlain;
}

NumberKind builtInNumberKind(std::uint16_t format) {
  if (format == 22) return NumberKind::kDateAndTime;
  if (format == 46) return NumberKind::kElapsed;
  // 27 to 36 and 50 to 58 are East Asian ones; 32 and 33 are times in all of their languages.
  if (isIn(format, 18, 21) || isIn(format, 32, 33) || isIn(format, 45, 47)) return NumberKind::kTime;
  if (isIn(format, 14, 17) || isIn(format, 27, 36) || isIn(format, 50, 58)) return NumberKind::kDate;
  return NumberKind::kPlain;
}

}  // namespace vireon::files
