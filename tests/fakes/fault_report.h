#pragma once

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>

#include "tests/fakes/fault_count.h"

namespace vireon::tests {

// Says at the end how many faults the tests injected. Where the environment names a file in
// VIREON_FAULT_COUNT the number becomes a line at its end; each of many processes adds its own.
class FaultReport final : public testing::EmptyTestEventListener {
 public:
  void OnTestProgramEnd(const testing::UnitTest& /*program*/) override {
    const std::size_t count = faultsInjected();
    if (count == 0) return;
    std::printf("faults injected: %zu\n", count);
    const char* const path = std::getenv("VIREON_FAULT_COUNT");
    if (path == nullptr) return;
    const std::string line = std::to_string(count) + "\n";
    const int file = ::open(path, O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC, 0666);
    // A count that is lost would pass for a test that injects nothing.
    if (file < 0 || ::write(file, line.data(), line.size()) != static_cast<ssize_t>(line.size())) {
      std::perror(path);
      std::abort();
    }
    ::close(file);
  }

  // Makes the tests of this process report.
  static void install() {
    testing::UnitTest::GetInstance()->listeners().Append(std::make_unique<FaultReport>().release());
  }
};

}  // namespace vireon::tests
