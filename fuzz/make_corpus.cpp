#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>

#include "bench/bench_rig.h"
#include "fuzz/frame_script.h"
#include "protocol/vocabulary.h"

// Writes the answers of the simulated instrument as inputs of the dispatcher's fuzz target into a folder.
int main(int argc, char** argv) {
  if (argc != 2) {
    std::fputs("usage: vireon_fuzz_corpus FOLDER\n", stderr);
    return 2;
  }
  const std::filesystem::path folder(argv[1]);
  std::filesystem::create_directories(folder);
  vireon::bench::Bench bench;
  int number = 0;
  for (const std::string_view command :
       {vireon::protocol::kPollWaveform, vireon::protocol::kQueryScope, vireon::protocol::kQueryIdentity,
        vireon::protocol::kPollReadingAndResults, vireon::protocol::kPollRecord, std::string_view("MEM00"),
        std::string_view("DFN10;DFN??;DPS??"), std::string_view("DFN20;DFN??;DRP??"),
        std::string_view("DFN50;DFN??;DPS??"), std::string_view("DPC04;STS??"), std::string_view("DRG??"),
        std::string_view("DPC03"), std::string_view("GTL"), std::string_view("AFN??")}) {
    bench.clock.advance(std::chrono::milliseconds(700));
    const std::string answer = bench.instrument.answer(command);
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
