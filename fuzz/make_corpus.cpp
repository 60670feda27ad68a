#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "bench/bench_rig.h"
#include "files/trend_file.h"
#include "files/waveform_file.h"
#include "fuzz/frame_script.h"
#include "fuzz/saved_file.h"
#include "protocol/vocabulary.h"

namespace {

// Inputs of one fuzz target, numbered.
class Corpus {
 public:
  explicit Corpus(std::filesystem::path folder) : folder_(std::move(folder)) {
    std::filesystem::create_directories(folder_);
  }

  void add(int firstByte, std::string_view rest) {
    std::ofstream file(folder_ / ("input_" + std::to_string(number_++)), std::ios::binary);
    file << static_cast<char>(firstByte) << rest;
    good_ = good_ && file.good();
  }

  bool good() const { return good_; }
  int inputs() const { return number_; }

 private:
  std::filesystem::path folder_;
  int number_ = 0;
  bool good_ = true;
};

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

// The answers of the simulated instrument.
void addFrames(Corpus& corpus) {
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
  for (const std::string& answer : answers) {
    for (const int setup : {0x00, 0x01, 0x43, 0x0C}) {
      corpus.add(setup, answer + static_cast<char>(vireon::fuzz::kFrameEnd));
    }
  }
}

// Saved files, whole, cut off and with what other programs write.
void addSavedFiles(Corpus& corpus) {
  vireon::bench::Rig rig;
  const std::string waveform =
      vireon::files::waveformFile(std::span(rig.program.state.rxBuf).first<vireon::files::kWaveformBytes>());
  rig.program.state.trdBuf.fill("&H3A");
  const std::string trend = vireon::files::trendFile(rig.program.form, rig.program.state);
  const std::string list =
      "  R/No\tTime\tReading\t    Remarks\r\n00001\t1:02:03\t5 \xB5\x41\t\r\n00002\t--EOD---\r\n";
  int kind = 0;
  for (const std::string& file : {waveform, trend, list}) {
    corpus.add(kind, file);
    corpus.add(kind, file + "\x1A");
    corpus.add(kind, file.substr(0, file.size() / 2));
    std::string unix = file;
    std::erase(unix, '\r');
    corpus.add(kind++, unix);
  }
  corpus.add(1, "\"1,5\", x\r\n-1.5E+2,2\r\n" + trend);
}

}  // namespace

// Writes inputs of the fuzz targets of the dispatcher and of saved files into folders of their names.
int main(int argc, char** argv) {
  if (argc != 2) {
    std::fputs("usage: vireon_fuzz_corpus FOLDER\n", stderr);
    return 2;
  }
  const std::filesystem::path folder(argv[1]);
  Corpus frames(folder / "dispatcher");
  addFrames(frames);
  Corpus files(folder / "files");
  addSavedFiles(files);
  if (!frames.good() || !files.good()) {
    std::fputs("cannot write the corpus\n", stderr);
    return 1;
  }
  std::printf("%d inputs\n", frames.inputs() + files.inputs());
  return 0;
}
