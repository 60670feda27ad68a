#pragma once

#include <cstdint>
#include <string_view>

namespace vireon::files {

enum class CellKind : std::uint8_t { kEmpty, kText, kNumber, kBoolean, kError };

// What a number is shown as by its cell's format; kElapsed counts hours past 24.
enum class NumberKind : std::uint8_t { kPlain, kDate, kTime, kDateAndTime, kElapsed };

// Which day a date of 0 is.
enum class DateSystem : std::uint8_t { k1900, k1904 };

struct CellValue {
  CellKind kind = CellKind::kEmpty;
  NumberKind numberKind = NumberKind::kPlain;
  std::string_view text;  // UTF-8; an error's name, e.g. "#N/A"
  double number = 0;      // finite; of a date and a time: days
  bool boolean = false;
};

}  // namespace vireon::files
