#include <gtest/gtest.h>

#include <cerrno>
#include <filesystem>

#include "adapters/posix/posix_file_store.h"
#include "tests/adapters/posix/faulty_calls.h"
#include "tests/fakes/temporary_folder.h"
#include "tests/torture/saving_program.h"

namespace vireon::tests {
namespace {

using Names = std::vector<std::string>;

// Every kind of saved file, with each system call failing in turn.
class SaveFault : public testing::TestWithParam<const char*> {
 protected:
  std::string kind() const { return GetParam(); }
  std::string name() const { return "saved" + kind(); }
  std::string path() const { return folder_.file(name()); }

  // A spreadsheet never replaces a file.
  bool hasOld() const { return kind() != ".xls"; }

  void prepare() {
    std::filesystem::remove(path());
    if (hasOld()) {
      writeFile(path(), kOldContent);
    }
  }

  bool isOldWhole() const {
    return hasOld() ? contentOf(path()) == kOldContent && folder_.names() == Names{name()}
                    : folder_.names().empty();
  }
  bool isNewWhole() const { return contentOf(path()) == whole_ && folder_.names() == Names{name()}; }

  SaveOutcome saveWithFault(std::size_t at, int error) {
    faults_.forget();
    faults_.failAt = at;
    faults_.error = error;
    return program_.save(kind());
  }

  void SetUp() override {
    prepare();
    ASSERT_EQ(saveWithFault(0, 0), SaveOutcome::kSaved);
    whole_ = contentOf(path());
    ASSERT_GT(whole_.size(), 100U);
    calls_ = faults_.made.size();
  }

  TemporaryFolder folder_;
  FaultyCalls faults_;
  adapters::PosixFileStore store_{faults_.calls()};
  SavingProgram program_{store_, folder_.path().string()};
  std::string whole_;
  std::size_t calls_ = 0;
};

TEST_P(SaveFault, LeavesTheOldFileOrTheNewOneAndTheUserKnowsWhich) {
  std::size_t told = 0;
  for (const int error : {EIO, ENOSPC, EACCES, EROFS, EDQUOT, ENOENT, EINTR}) {
    for (std::size_t at = 1; at <= calls_; ++at) {
      prepare();
      const SaveOutcome outcome = saveWithFault(at, error);
      ASSERT_NE(outcome, SaveOutcome::kOther) << "call " << at << " error " << error;
      EXPECT_TRUE(outcome == SaveOutcome::kSaved ? isNewWhole() : isOldWhole())
          << "call " << at << " error " << error;
      EXPECT_EQ(faults_.openFiles, 0);
      told += outcome == SaveOutcome::kTold ? 1 : 0;
    }
  }
  EXPECT_GT(told, calls_);
}

TEST_P(SaveFault, WorksAgainAfterIt) {
  prepare();
  ASSERT_EQ(saveWithFault(calls_ / 2, EIO), SaveOutcome::kTold);
  EXPECT_EQ(saveWithFault(0, 0), SaveOutcome::kSaved);
  EXPECT_TRUE(isNewWhole());
}

TEST_P(SaveFault, AFolderThatVanishedIsTold) {
  std::filesystem::remove_all(folder_.path());
  EXPECT_EQ(program_.save(kind()), SaveOutcome::kTold);
  std::filesystem::create_directory(folder_.path());
}

INSTANTIATE_TEST_SUITE_P(Kinds, SaveFault, testing::ValuesIn(kSavedKinds));

}  // namespace
}  // namespace vireon::tests
