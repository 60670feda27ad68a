#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "bench/bench_rig.h"
#include "fuzz/frame_script.h"
#include "protocol/vocabulary.h"

namespace {

// A recorded run of every meter function: its dump and its first live record.
std::vector<std::string> recordedRuns() {
  std::vector<std::string> answers;
  for (char function = '0'; function < '8'; ++function) {
    vireon::bench::Bench bench;
    bench.instrument.answer(std::string("DFN1") + function + ";DPS0,1,0,49;DPC04");
    for (int second = 0; second < 30; ++second) {
      bench.clock.advance(std::chrono::seconds(1));
      bench.instrument.answer("STS??");
    }
    answers.push_back(bench.instrument.answer("DRT??"));
    bench.instrument.answer("DPC02");
    for (int dump = 0; dump < 3; ++dump) {
      answers.push_back(bench.instrument.answer("DPC03"));
    }
    answers.push_back(answers.back().substr(0, 4) + "00001" + answers.back().substr(4));  // shifted
  }
  answers.push_back("lgd:");
  answers.push_back("lgd:00001 12:3");
  return answers;
}

}  // namespace

// Writes the answers of the simulated instrument as inputs of the dispatcher's fuzz target into a folder.
int main(int argc, char** argv) {
  if (argc != 2) {
    std::fputs("usage: vireon_fuzz_corpus FOLDER\n", stderr);
    return 2;
  }
  const std::filesystem::path folder(argv[1]);
  std::filesystem::create_directories(folder);
  vireon::bench::Bench bench;
  std::vector<std::string> answers = recordedRuns();
  for (const std::string_view command :
       {vireon::protocol::kPollWaveform, vireon::protocol::kQueryScope, vireon::protocol::kQueryIdentity,
        vireon::protocol::kPollReadingAndResults, vireon::protocol::kPollRecord, std::string_view("MEM00"),
        std::string_view("DFN10;DFN??;DPS??"), std::string_view("DFN20;DFN??;DRP??"),
        std::string_view("DFN50;DFN??;DPS??"), std::string_view("DPC04;STS??"), std::string_view("DRG??"),
        std::string_view("DPC03"), std::string_view("GTL"), std::string_view("AFN??")}) {
    bench.clock.advance(std::chrono::milliseconds(700));
    answers.push_back(bench.instrument.answer(command));
  }
  int number = 0;
  for (const std::string& answer : answers) {
    for (const int setup : {0x00, 0x01, 0x43, 0x0C}) {
      std::ofstream file(folder / ("frame_" + std::to_string(number++)), std::ios::binary);
      file << static_cast<char>(setup) << answer << static_cast<char>(vireon::fuzz::kFrameEnd);
      if (!file) {
        std::fputs("cannot write the corpus\n", stderr);
        return 1;
      }
    }
  }
  std::printf("%d inputs\n", number);
  return 0;
}
