#pragma once

#include <functional>
#include <ostream>
#include <string>
#include <vector>

#include "tests/faults/fault_bench.h"

namespace vireon::tests {

// What a user does, as a script that can be played again with something failing. The script goes on after a
// failure as a user would who only sees which controls still take input.
struct Story {
  std::string name;
  std::function<void(FaultBench&)> prepare;  // nothing fails yet
  std::function<void(FaultBench&)> play;
  bool isStart = false;    // what failed may be right again with the next run alone
  bool listLives = false;  // records come into the list as the instrument takes them
};

const std::vector<Story>& stories();

// Puts records into the logger's list, and the logger's tab in front.
void fillList(FaultBench& bench, int records);

inline void PrintTo(const Story& story, std::ostream* out) {
  *out << story.name;
}

// Names each test after its story.
inline std::string nameOf(const testing::TestParamInfo<Story>& story) {
  return story.param.name;
}

}  // namespace vireon::tests
