#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/wait.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <filesystem>
#include <string>
#include <vector>

#include "adapters/posix/posix_file_store.h"
#include "tests/adapters/posix/faulty_calls.h"
#include "tests/fakes/temporary_folder.h"

namespace vireon::tests {
namespace {

using adapters::PosixFileStore;
using platform::FileReadError;
using platform::FileReplace;
using Names = std::vector<std::string>;

const std::string kOld = "the old content, which is longer than the new one";
const std::string kNew = "the new content";

class FileFaultTest : public testing::Test {
 protected:
  void SetUp() override {
    writeFile(folder_.file("target"), kOld);
    std::filesystem::permissions(folder_.file("target"), std::filesystem::perms(0640));
    std::filesystem::create_symlink("target", path_);
    faults_.shortWrite = 6;
  }

  bool isOldWhole() const {
    return contentOf(folder_.file("target")) == kOld && folder_.names() == Names{"target", "vireon.ini"};
  }
  bool isNewWhole() const {
    return contentOf(folder_.file("target")) == kNew && folder_.names() == Names{"target", "vireon.ini"};
  }

  FileReplace replaceWithFault(const std::string& name, std::size_t at, int error) {
    faults_.forget();
    faults_.failName = name;
    faults_.failAt = at;
    faults_.error = error;
    const FileReplace result = store_.replace(path_, kNew);
    EXPECT_EQ(faults_.openFiles, 0) << name << at;
    return result;
  }

  // How often a replacement makes each call.
  std::size_t callsMade(const std::string& name) {
    EXPECT_EQ(replaceWithFault(name, 0, 0), FileReplace::kDone);
    writeFile(folder_.file("target"), kOld);
    return static_cast<std::size_t>(std::count(faults_.made.begin(), faults_.made.end(), name));
  }

  TemporaryFolder folder_;
  const std::string path_ = folder_.file("vireon.ini");
  FaultyCalls faults_;
  PosixFileStore store_{faults_.calls()};
};

struct Fault {
  const char* name;
  int error;
  FileReplace result;
};

TEST_F(FileFaultTest, AReplacementThatFailsIsToldAndLeavesTheOldFileAlone) {
  for (const Fault& fault : std::vector<Fault>{
           {"lstat", EACCES, FileReplace::kNoPermission},
           {"lstat", EIO, FileReplace::kFailed},
           {"readlink", EIO, FileReplace::kFailed},
           {"write", ENOSPC, FileReplace::kNoSpace},
           {"write", EDQUOT, FileReplace::kNoSpace},
           {"write", EFBIG, FileReplace::kNoSpace},
           {"write", EIO, FileReplace::kFailed},
           {"fstat", EIO, FileReplace::kFailed},
           {"fchmod", EPERM, FileReplace::kNoPermission},
           {"rename", EACCES, FileReplace::kNoPermission},
           {"rename", EIO, FileReplace::kFailed},
           {"rename", ENOSPC, FileReplace::kNoSpace},
           {"rename", EROFS, FileReplace::kNoPermission},
           {"rename", EBUSY, FileReplace::kFailed},
           {"rename", EINTR, FileReplace::kFailed},
       }) {
    const std::size_t count = callsMade(fault.name);
    ASSERT_GT(count, 0U) << fault.name;
    for (std::size_t at = 1; at <= count; ++at) {
      EXPECT_EQ(replaceWithFault(fault.name, at, fault.error), fault.result) << fault.name << ' ' << at;
      EXPECT_TRUE(isOldWhole()) << fault.name << ' ' << at << ' ' << fault.error;
    }
  }
}

TEST_F(FileFaultTest, AnOpenThatFailsIsTold) {
  for (const std::size_t at : {1U, 2U}) {  // the old file, the new one
    for (const auto& [error, result] : {std::pair{EACCES, FileReplace::kNoPermission},
                                        {EROFS, FileReplace::kNoPermission},
                                        {EMFILE, FileReplace::kFailed},
                                        {ENOSPC, FileReplace::kNoSpace}}) {
      EXPECT_EQ(replaceWithFault("open", at, error), result) << at << ' ' << error;
      EXPECT_TRUE(isOldWhole()) << at << ' ' << error;
    }
  }
  EXPECT_EQ(replaceWithFault("open", 2, ENOENT), FileReplace::kNoFolder);
  EXPECT_EQ(replaceWithFault("open", 1, ENOENT), FileReplace::kDone) << "the old file has just gone";
  EXPECT_TRUE(isNewWhole());
}

TEST_F(FileFaultTest, WhatTheDiskDoesNotTakeIsNeverPutInPlace) {
  for (const int error : {EIO, ENOSPC, EDQUOT}) {
    const FileReplace expected = error == EIO ? FileReplace::kFailed : FileReplace::kNoSpace;
    EXPECT_EQ(replaceWithFault("fsync", 1, error), expected);
    EXPECT_TRUE(isOldWhole()) << error;
    // The first close is that of the old file, which was opened to see whether it may be written.
    EXPECT_EQ(replaceWithFault("close", 2, error), expected);
    EXPECT_TRUE(isOldWhole()) << error;
  }
}

TEST_F(FileFaultTest, AFolderThatCannotBeFlushedHasTheNewFile) {
  EXPECT_EQ(replaceWithFault("open", 3, EACCES), FileReplace::kDone);
  EXPECT_TRUE(isNewWhole());
  writeFile(folder_.file("target"), kOld);
  EXPECT_EQ(replaceWithFault("fsync", 2, EINVAL), FileReplace::kDone);
  EXPECT_TRUE(isNewWhole());
}

TEST_F(FileFaultTest, TheContentIsFlushedBeforeItTakesThePlaceAndTheFolderBehind) {
  EXPECT_EQ(replaceWithFault("", 0, 0), FileReplace::kDone);

  std::vector<std::string> order;
  for (const std::string& name : faults_.made) {
    if ((name == "write" || name == "fsync" || name == "rename") && (order.empty() || order.back() != name)) {
      order.push_back(name);
    }
  }
  EXPECT_EQ(order, (Names{"write", "fsync", "rename", "fsync"}));
}

TEST_F(FileFaultTest, ASignalEndsNoReplacement) {
  for (const char* name : {"open", "write", "fsync", "close"}) {
    const std::size_t count = callsMade(name);
    for (std::size_t at = 1; at <= count; ++at) {
      EXPECT_EQ(replaceWithFault(name, at, EINTR), FileReplace::kDone) << name << at;
      EXPECT_TRUE(isNewWhole()) << name << at;
      writeFile(folder_.file("target"), kOld);
    }
  }
}

// Whichever call it is: done with the new file, or told with the old one, and nothing else in the folder.
TEST_F(FileFaultTest, EveryCallMayFail) {
  ASSERT_EQ(replaceWithFault("", 0, 0), FileReplace::kDone);
  const std::size_t count = faults_.made.size();
  ASSERT_GT(count, 12U);
  for (const int error : {EIO, ENOSPC, EROFS, EACCES, EDQUOT, EINTR, ENOMEM}) {
    for (std::size_t at = 1; at <= count; ++at) {
      writeFile(folder_.file("target"), kOld);
      const bool done = replaceWithFault("", at, error) == FileReplace::kDone;
      EXPECT_TRUE(done ? isNewWhole() : isOldWhole()) << "call " << at << " error " << error;
    }
  }
}

TEST_F(FileFaultTest, ANewFileThatFailsIsNotThere) {
  const std::string path = folder_.file("other");
  faults_.failName = "write";
  faults_.failAt = 2;
  faults_.error = ENOSPC;

  EXPECT_EQ(store_.replace(path, kNew), FileReplace::kNoSpace);

  EXPECT_FALSE(store_.exists(path));
  EXPECT_TRUE(isOldWhole());
}

TEST_F(FileFaultTest, AWriteThatTakesNothingFails) {
  adapters::PosixCalls calls;
  calls.write = [](int, const void*, std::size_t) { return ssize_t{0}; };

  EXPECT_EQ(PosixFileStore(calls).replace(path_, kNew), FileReplace::kFailed);

  EXPECT_TRUE(isOldWhole());
}

TEST_F(FileFaultTest, AProcessThatStopsAnywhereLeavesTheOldFileOrTheNewOneWhole) {
  ASSERT_EQ(replaceWithFault("", 0, 0), FileReplace::kDone);
  const std::size_t count = faults_.made.size();
  std::size_t oldWhole = 0;
  for (std::size_t at = 1; at <= count; ++at) {
    writeFile(folder_.file("target"), kOld);
    const pid_t child = ::fork();
    if (child == 0) {
      faults_.insteadOfFailing = [] { ::_exit(0); };
      replaceWithFault("", at, 0);
      ::_exit(1);
    }
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << "call " << at << " was not reached";
    const std::string content = contentOf(folder_.file("target"));
    EXPECT_TRUE(content == kOld || content == kNew) << "call " << at << ": " << content;
    if (content == kOld) ++oldWhole;
    EXPECT_EQ(PosixFileStore().replace(path_, kNew), FileReplace::kDone) << "the next start writes";
  }
  EXPECT_GT(oldWhole, 0U);
  EXPECT_LT(oldWhole, count);
}

// The longest file the system lets this process write, in bytes.
class LongestFile {
 public:
  explicit LongestFile(rlim_t bytes) : signal_(std::signal(SIGXFSZ, SIG_IGN)) {
    ::getrlimit(RLIMIT_FSIZE, &before_);
    const rlimit limited{bytes, before_.rlim_max};
    ::setrlimit(RLIMIT_FSIZE, &limited);
  }
  LongestFile(const LongestFile&) = delete;
  LongestFile& operator=(const LongestFile&) = delete;
  ~LongestFile() {
    ::setrlimit(RLIMIT_FSIZE, &before_);
    std::signal(SIGXFSZ, signal_);
  }

 private:
  rlimit before_{};
  void (*signal_)(int);
};

TEST_F(FileFaultTest, AFileThatTheSystemCutsOffHasNoSpace) {
  const std::string large(10'000, 'x');
  FileReplace result = FileReplace::kDone;
  {
    const LongestFile limit(4096);
    result = PosixFileStore().replace(path_, large);
  }
  EXPECT_EQ(result, FileReplace::kNoSpace);
  EXPECT_TRUE(isOldWhole());
}

}  // namespace
}  // namespace vireon::tests
