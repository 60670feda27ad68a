#pragma once

#include <string>

#include "files/cell_value.h"

namespace vireon::files {

// As the format "00000" gives it: a number is rounded half away from zero. All else as plainText() does.
std::string recordNumberText(const CellValue& value, DateSystem dates);

// As the format "hh:mm:ss" gives it: of a number the time of day, to the nearest second, of a text what
// timeText() makes of it. All else, and a number beyond the year 9999, as plainText() does.
std::string timeOfDayText(const CellValue& value, DateSystem dates);

// A text as it is; a number with "." and at most 15 digits that count; "True" or "False"; a date as
// "YYYY-MM-DD", a time as "hh:mm:ss", both with a blank between, to the nearest second; a date that no
// calendar has as its number.
std::string plainText(const CellValue& value, DateSystem dates);

}  // namespace vireon::files
