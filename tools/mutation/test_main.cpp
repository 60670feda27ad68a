#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <string>

#include "mutation_switch.h"

namespace mutation {

unsigned char seen[kMutants + 2];
int present = 0;

// Comes before other files' constants are made.
__attribute__((constructor(101))) static void choose() {
  if (const char* mutant = std::getenv("VIREON_MUTANT")) present = std::atoi(mutant);
}

namespace {

// Writes a line for each test: its name, its milliseconds and the places it came by. The first is for what ran before.
class Recorder : public testing::EmptyTestEventListener {
 public:
  explicit Recorder(const char* path) : out_(path) { write("-", 0); }

 private:
  void OnTestStart(const testing::TestInfo&) override { forget(); }
  void OnTestEnd(const testing::TestInfo& test) override {
    write(std::string(test.test_suite_name()) + "." + test.name(), test.result()->elapsed_time());
  }
  void write(const std::string& name, long long milliseconds) {
    out_ << name << ' ' << milliseconds;
    for (int mutant = 1; mutant <= kMutants; ++mutant) {
      if (seen[mutant] != 0) out_ << ' ' << mutant;
    }
    out_ << '\n';
    forget();
  }
  static void forget() {
    for (unsigned char& mark : seen) mark = 0;
  }

  std::ofstream out_;
};

}  // namespace
}  // namespace mutation

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  if (const char* path = std::getenv("VIREON_MUTANTS_SEEN")) {
    testing::UnitTest::GetInstance()->listeners().Append(new mutation::Recorder(path));
  }
  return RUN_ALL_TESTS();
}
