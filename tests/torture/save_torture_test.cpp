#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdlib>
#include <filesystem>

#include "tests/fakes/fault_count.h"
#include "tests/fakes/temporary_folder.h"
#include "tests/torture/saving_program.h"

namespace vireon::tests {
namespace {

// The system calls that a save may make, and those that its process makes on the way.
constexpr const char* kCalls[] = {"openat", "newfstatat", "fstat",    "readlink", "readlinkat",
                                  "read",   "write",      "close",    "fsync",    "fchmod",
                                  "fchown", "rename",     "renameat", "unlink"};

// A process that saves a file under strace, which makes its calls fail, or kills it at them.
class SaveTorture : public testing::TestWithParam<const char*> {
 protected:
  std::string kind() const { return GetParam(); }
  std::string name() const { return "saved" + kind(); }
  std::string path() const { return folder_.file(name()); }
  bool hasOld() const { return kind() != ".xls"; }

  void SetUp() override {
    if (std::system("strace -o /dev/null true 2>/dev/null") != 0) {
      GTEST_SKIP() << "strace is missing or may not trace here";
    }
    prepare();
    ASSERT_EQ(run(""), 0);
    whole_ = contentOf(path());
    ASSERT_GT(whole_.size(), 100U);
  }

  void prepare() {
    std::filesystem::remove(path());
    if (hasOld()) {
      writeFile(path(), kOldContent);
    }
  }

  // The exit code, or -1 for a process that was killed.
  int run(const std::string& inject) {
    const std::string command = "ASAN_OPTIONS=detect_leaks=0 strace -q -e trace=none " + inject + " -o " +
                                log_.file("log") + " -- " VIREON_SAVE_WRITER " " + kind() + " " +
                                folder_.path().string() + " >/dev/null 2>&1";
    const int status = std::system(command.c_str());
    return WIFEXITED(status) && WEXITSTATUS(status) < 128 ? WEXITSTATUS(status) : -1;
  }

  // Whether the last run came to the call that was to fail.
  bool wasReached() const { return contentOf(log_.file("log")).find("INJECTED") != std::string::npos; }
  bool wasKilled() const {
    return contentOf(log_.file("log")).find("killed by SIGKILL") != std::string::npos;
  }

  bool isOldWhole() const {
    return hasOld() ? contentOf(path()) == kOldContent : !std::filesystem::exists(path());
  }
  bool isNewWhole() const { return contentOf(path()) == whole_; }

  TemporaryFolder folder_;
  TemporaryFolder log_;
  std::string whole_;
};

TEST_P(SaveTorture, EachCallMayFail) {
  int runs = 0;
  for (const char* call : kCalls) {
    for (int number = 1;; ++number, ++runs) {
      prepare();
      const std::string fault = std::string(call) + ":error=EIO:when=" + std::to_string(number);
      const int code = run("-e trace=" + std::string(call) + " -e inject=" + fault);
      if (!wasReached()) {
        break;
      }
      countFault();
      // A process that could not even start, or not end as it wanted, tells nothing.
      EXPECT_TRUE(code == 0 ? isNewWhole() : isOldWhole() || (code != 3 && isNewWhole()))
          << fault << ", exit code " << code;
      EXPECT_NE(code, 4) << fault;
      const std::vector<std::string> names = folder_.names();
      EXPECT_TRUE(names.empty() || names == std::vector<std::string>{name()}) << fault;
    }
  }
  EXPECT_GT(runs, 15);
}

TEST_P(SaveTorture, TheProcessMayBeKilledAtEachCall) {
  int runs = 0;
  for (const char* call : kCalls) {
    for (int number = 1;; ++number, ++runs) {
      prepare();
      const std::string stop = std::string(call) + ":signal=KILL:when=" + std::to_string(number);
      run("-e trace=" + std::string(call) + " -e inject=" + stop);
      if (!wasKilled()) {
        break;
      }
      countFault();
      EXPECT_TRUE(isOldWhole() || isNewWhole()) << stop;
      for (const std::string& left : folder_.names()) {
        EXPECT_TRUE(left == name() || left.starts_with(".vireon-")) << stop << ": " << left;
        if (left != name()) {
          std::filesystem::remove(folder_.file(left));
        }
      }
    }
  }
  EXPECT_GT(runs, 15);
}

INSTANTIATE_TEST_SUITE_P(Kinds, SaveTorture, testing::ValuesIn(kSavedKinds));

}  // namespace
}  // namespace vireon::tests
