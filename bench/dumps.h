#pragma once

#include <cstdio>
#include <string>

namespace vireon::bench {

inline constexpr int kDumpRecords = 24;

// A dump of records numbered from `first` on.
inline std::string dumpOf(int first) {
  std::string dump = "lgd:";
  for (int number = first; number < first + kDumpRecords; ++number) {
    char record[32];
    std::snprintf(record, sizeof record, "%05d %02d:%02d:%02d   4.80V\x95 ", number % 100000,
                  number / 3600 % 24, number / 60 % 60, number % 60);
    dump += record;
  }
  return dump;
}

}  // namespace vireon::bench
