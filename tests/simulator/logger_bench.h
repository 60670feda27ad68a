#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/simulator/bench.h"

namespace vireon::simulator::tests {

const std::string kEndRecord = "lgd:      --EOD---          ";

// The records of a whole dump, the end record left out.
inline std::vector<std::string> download(Bench& bench) {
  std::vector<std::string> records;
  EXPECT_EQ(bench.ask("DPC02"), kAck);
  for (int i = 0; i < 1000; ++i) {
    const std::string text = bench.ask("DPC03");
    EXPECT_LE(text.size(), 599U);
    if (text == kEndRecord) return records;
    for (std::size_t first = 4; first < text.size(); first += 24) records.push_back(text.substr(first, 24));
  }
  ADD_FAILURE() << "a dump without end";
  return records;
}

// Lets seconds pass and asks for the status each time.
inline void run(Bench& bench, std::chrono::seconds duration) {
  for (auto passed = 0s; passed < duration; passed += 1s) {
    bench.clock.advance(1s);
    bench.ask("STS??");
  }
}

// The "DFN" argument's second character of the eight functions that every model has.
const std::string kFunctionDigits = "01234567";

}  // namespace vireon::simulator::tests
