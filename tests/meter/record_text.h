#pragma once

#include <cstdio>
#include <string>

namespace vireon::tests {

// A record of a dump: 24 characters, its time 12:00:00 and `number` seconds; `unit` and `function` are bytes
// 22 and 23, `last` is byte 24. `reading` is 6 characters.
inline std::string record(int number, const std::string& reading = "  4.80", char unit = 'V',
                          char function = '\x95', char last = ' ') {
  char head[24];
  std::snprintf(head, sizeof head, "%05d 12:%02d:%02d ", number % 100000, number / 60 % 60, number % 60);
  return head + reading + unit + function + last;
}

inline std::string endRecord() {
  return "      --EOD---          ";
}

}  // namespace vireon::tests
