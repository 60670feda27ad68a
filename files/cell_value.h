#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace vireon::files {

enum class CellKind : std::uint8_t { kEmpty, kText, kNumber, kBoolean, kError };

// What a number is shown as by its cell's format.
enum class NumberKind : std::uint8_t { kPlain, kDate, kTime, kDateAndTime };

// Which day a date of 0 is.
enum class DateSystem : std::uint8_t { k1900, k1904 };

struct CellValue {
  CellKind kind = CellKind::kEmpty;
  NumberKind numberKind = NumberKind::kPlain;
  std::string_view text;  // UTF-8; an error's name, e.g. "#N/A"
  double number = 0;      // finite; of a date: days
  bool boolean = false;
};

// As the format "00000" gives it: a number is rounded half away from zero. All else as plainText() does.
std::string recordNumberText(const CellValue& value, DateSystem dates);

// As the format "hh:mm:ss" gives it: of a number the time of day, to the nearest second, of a text what
// timeText() makes of it. All else as plainText() does.
std::string timeOfDayText(const CellValue& value, DateSystem dates);

// A text as it is; a number with "." and at most 15 digits that count; "True" or "False"; a date as
// "YYYY-MM-DD", a time as "hh:mm:ss", both with a blank between; a date that no calendar has as its number.
std::string plainText(const CellValue& value, DateSystem dates);

}  // namespace vireon::files
