#pragma once

#include <map>
#include <string>
#include <vector>

#include "tests/faults/fault_bench.h"

namespace vireon::tests {

// What a story leaves to its user.
struct Outcome {
  std::map<std::string, std::string> files;
  std::vector<std::string> list;  // the list's cells, row by row, without the empty rows at its end
  bool loaded = false;
  bool connected = false;
  bool mayClose = false;
  std::vector<std::string> told;  // the messages' texts
  std::string panels;             // what stands in the status bar

  // But for what was said, and for the settings, about which nothing is.
  bool isLike(const Outcome& other) const;
};

Outcome outcomeOf(FaultBench& bench);

// Each file that is there is whole: as before the story, as its faultless end has it, or a waveform file of
// its own. None of before is gone, and no key of the settings is.
void expectFilesWhole(const Outcome& before, const Outcome& faultless, const Outcome& now);

// The list is as before, or as at the faultless end or on the way there.
void expectListWhole(const Outcome& before, const Outcome& faultless, const Outcome& now);

// No work is under way.
void expectAtRest(FaultBench& bench);

// With nothing failing any more the user goes on: connects, sees a clean live frame where the link has one,
// saves the list, and leaves. Where the program did not start well that may take another run.
void expectGoesOn(FaultBench& bench, bool withAnotherRun);

}  // namespace vireon::tests
