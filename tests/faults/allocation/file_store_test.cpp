#include <filesystem>
#include <new>

#include "adapters/posix/posix_file_store.h"
#include "tests/fakes/temporary_folder.h"
#include "tests/faults/allocation/failing_allocations.h"
#include "tests/faults/allocation_pause.h"

namespace vireon::tests {
namespace {

using Names = std::vector<std::string>;

// The store of the program on the disk, with each of its allocations failing.
class FileStoreAllocations : public testing::Test {
 protected:
  // Calls with allocation after allocation failing until the call makes no more; counts them.
  template <class Call, class Check>
  std::size_t sweep(const Call& call, const Check& checkFailed) {
    AllocationPlan& plan = allocationPlan();
    std::size_t at = 1;
    for (bool reached = true; reached; ++at) {
      for (const bool fromThenOn : {false, true}) {
        plan.begin(at, fromThenOn);
        bool threw = false;
        try {
          const AllocationResume resume;
          call();
        } catch (const std::bad_alloc&) {
          threw = true;
        }
        reached = plan.failed > 0;
        plan.begin(0, false);
        EXPECT_EQ(threw, reached) << at;
        EXPECT_EQ(openFiles(), openBefore_) << at;
        if (reached) checkFailed(at);
      }
    }
    return at - 2;
  }

  static std::ptrdiff_t openFiles() {
    return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {});
  }

  std::ptrdiff_t openBefore_ = openFiles();
  TemporaryFolder folder_;
  adapters::PosixFileStore store_;
  const std::string path_ = folder_.file("a name of a file that is longer than most");
};

TEST_F(FileStoreAllocations, AReplacementWithoutMemoryLeavesTheOldFileOrTheNewOneAndNothingBeside) {
  const std::string old(5000, 'o');
  const std::string next(100000, 'n');
  writeFile(path_, old);
  const std::size_t count = sweep([&] { store_.replace(path_, next); },
                                  [&](std::size_t at) {
                                    const std::string now = contentOf(path_);
                                    EXPECT_TRUE(now == old || now == next) << at;
                                    EXPECT_EQ(folder_.names().size(), 1U) << at;
                                    writeFile(path_, old);
                                  });
  EXPECT_GT(count, 2U);
  EXPECT_EQ(contentOf(path_), next);
}

TEST_F(FileStoreAllocations, AReadWithoutMemoryClosesTheFile) {
  writeFile(path_, std::string(200000, 'o'));
  EXPECT_GT(sweep([&] { store_.read(path_, 1U << 20U); }, [](std::size_t) {}), 1U);
}

TEST_F(FileStoreAllocations, AListingWithoutMemoryIsNone) {
  writeFile(path_, "o");
  EXPECT_GT(sweep([&] { store_.list(folder_.path().string()); }, [](std::size_t) {}), 1U);
}

}  // namespace
}  // namespace vireon::tests
