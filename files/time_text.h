#pragma once

#include <string>
#include <string_view>

namespace vireon::files {

// A text that is a time of day, as "hh:mm:ss" of 24 hours; any other text unchanged. A time is hours and
// minutes, or hours, minutes and seconds, of one or two digits each with ':' between, blanks around it
// allowed: "1:02:03", "1:02", "13:5:9"; behind it "AM" or "PM" in either case may stand, with hours 1 to 12.
// Hours reach 23, minutes and seconds 59.
std::string timeText(std::string_view text);

// The time of day of so many seconds since midnight, 0 to 86399, as "hh:mm:ss".
std::string clockText(int seconds);

}  // namespace vireon::files
