#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cerrno>
#include <filesystem>
#include <string>
#include <vector>

#include "adapters/posix/posix_file_store.h"
#include "tests/fakes/temporary_folder.h"
#include "tests/fakes/unprivileged.h"

namespace vireon::tests {
namespace {

using adapters::PosixFileStore;
using platform::FileReplace;
using Names = std::vector<std::string>;

struct stat statusOf(const std::string& path) {
  struct stat status {};
  EXPECT_EQ(::stat(path.c_str(), &status), 0) << path;
  return status;
}

mode_t modeOf(const std::string& path) {
  return statusOf(path).st_mode & 07777;
}

// The mask of new files for one test.
class FileMask {
 public:
  explicit FileMask(mode_t mask) : before_(::umask(mask)) {}
  FileMask(const FileMask&) = delete;
  FileMask& operator=(const FileMask&) = delete;
  ~FileMask() { ::umask(before_); }

 private:
  mode_t before_;
};

class FileReplacingTest : public testing::Test {
 protected:
  TemporaryFolder folder_;
  const std::string path_ = folder_.file("vireon.ini");
  PosixFileStore store_;
};

TEST_F(FileReplacingTest, ANewFileHasTheContentAndTheUsualPermissions) {
  const FileMask mask(022);

  EXPECT_EQ(store_.replace(path_, std::string("a\0b\r\n", 5)), FileReplace::kDone);

  EXPECT_EQ(contentOf(path_), std::string("a\0b\r\n", 5));
  EXPECT_EQ(modeOf(path_), 0644U);
  EXPECT_EQ(folder_.names(), Names{"vireon.ini"});
}

TEST_F(FileReplacingTest, TheMaskHoldsForANewFile) {
  const FileMask mask(077);

  EXPECT_EQ(store_.replace(path_, "new"), FileReplace::kDone);

  EXPECT_EQ(modeOf(path_), 0600U);
}

TEST_F(FileReplacingTest, AnOldFileKeepsItsPermissions) {
  const FileMask mask(077);
  for (const mode_t mode : {0600U, 0640U, 0666U, 0755U}) {
    writeFile(path_, "a longer old content");
    ASSERT_EQ(::chmod(path_.c_str(), mode), 0);

    EXPECT_EQ(store_.replace(path_, "new"), FileReplace::kDone);

    EXPECT_EQ(contentOf(path_), "new");
    EXPECT_EQ(modeOf(path_), mode);
  }
  EXPECT_EQ(folder_.names(), Names{"vireon.ini"});
}

TEST_F(FileReplacingTest, AnOldFileKeepsItsOwner) {
  writeFile(path_, "old");
  // Only root can give a file away; for others the owner stays anyhow.
  const uid_t owner = ::geteuid() == 0 ? 65534 : ::geteuid();
  ASSERT_EQ(::chown(path_.c_str(), owner, static_cast<gid_t>(-1)), 0);

  EXPECT_EQ(store_.replace(path_, "new"), FileReplace::kDone);

  EXPECT_EQ(statusOf(path_).st_uid, owner);
  EXPECT_EQ(contentOf(path_), "new");
}

constexpr uid_t kSame = static_cast<uid_t>(-1);  // of owner and group alike: as it was
constexpr uid_t kOtherOwner = 65533;
constexpr gid_t kOtherGroup = 65532;

// An account that shares a file with its owner, and that gives what it makes to nobody else.
class SharedFileTest : public FileReplacingTest {
 protected:
  struct Given {
    uid_t owner;
    gid_t group;
    bool operator==(const Given&) const = default;
  };

  // Replaces the file as it is under `mode`, where the group is taken or refused too.
  mode_t modeAfter(mode_t mode, bool groupIsTaken) {
    writeFile(path_, "old");
    EXPECT_EQ(::chmod(path_.c_str(), mode), 0);
    adapters::PosixCalls calls;
    calls.lstat = [](const char* path, struct stat* status) {
      const int result = ::lstat(path, status);
      status->st_uid = kOtherOwner;
      status->st_gid = kOtherGroup;
      return result;
    };
    calls.fchown = [this, groupIsTaken](int, uid_t owner, gid_t group) {
      given_.push_back({owner, group});
      if (owner == kSame && groupIsTaken) return 0;
      errno = EPERM;
      return -1;
    };
    given_.clear();
    EXPECT_EQ(PosixFileStore(calls).replace(path_, "new"), FileReplace::kDone);
    EXPECT_EQ(contentOf(path_), "new");
    return modeOf(path_);
  }

  std::vector<Given> given_;
};

TEST_F(SharedFileTest, KeepsItsGroupWhereItsOwnerCannotBeKept) {
  EXPECT_EQ(modeAfter(0660, true), 0660U);
  EXPECT_EQ(given_, (std::vector<Given>{{kOtherOwner, kOtherGroup}, {kSame, kOtherGroup}}));
}

TEST_F(SharedFileTest, IsClosedToTheNewGroupWhereItsOwnCannotBeKept) {
  EXPECT_EQ(modeAfter(0660, false), 0600U);
  EXPECT_EQ(modeAfter(0674, false), 0604U);
  EXPECT_EQ(modeAfter(0600, false), 0600U);
}

TEST_F(FileReplacingTest, AReaderOfTheOldFileKeepsIt) {
  writeFile(path_, "old");
  std::ifstream reader(path_);

  EXPECT_EQ(store_.replace(path_, "new"), FileReplace::kDone);

  std::string text;
  reader >> text;
  EXPECT_EQ(text, "old");
}

TEST_F(FileReplacingTest, ALinkStaysAndItsTargetIsReplacedInItsOwnFolder) {
  std::filesystem::create_directory(folder_.file("deep"));
  writeFile(folder_.file("deep/target"), "old");
  std::filesystem::create_symlink("deep/second", path_);
  std::filesystem::create_symlink(folder_.file("deep/third"), folder_.file("deep/second"));
  std::filesystem::create_symlink("target", folder_.file("deep/third"));

  EXPECT_EQ(store_.replace(path_, "new"), FileReplace::kDone);

  EXPECT_TRUE(std::filesystem::is_symlink(path_));
  EXPECT_TRUE(std::filesystem::is_symlink(folder_.file("deep/third")));
  EXPECT_FALSE(std::filesystem::is_symlink(folder_.file("deep/target")));
  EXPECT_EQ(contentOf(folder_.file("deep/target")), "new");
  EXPECT_EQ(folder_.names(), (Names{"deep", "vireon.ini"}));
}

TEST_F(FileReplacingTest, ALinkToNothingGetsItsTarget) {
  std::filesystem::create_symlink("target", path_);

  EXPECT_EQ(store_.replace(path_, "new"), FileReplace::kDone);

  EXPECT_TRUE(std::filesystem::is_symlink(path_));
  EXPECT_EQ(contentOf(folder_.file("target")), "new");
}

TEST_F(FileReplacingTest, LinksInACircleFail) {
  std::filesystem::create_symlink("other", path_);
  std::filesystem::create_symlink("vireon.ini", folder_.file("other"));

  EXPECT_EQ(store_.replace(path_, "new"), FileReplace::kFailed);

  EXPECT_EQ(folder_.names(), (Names{"other", "vireon.ini"}));
}

TEST_F(FileReplacingTest, APathWithoutFolderIsInTheCurrentOne) {
  const std::filesystem::path before = std::filesystem::current_path();
  std::filesystem::current_path(folder_.path());

  EXPECT_EQ(store_.replace("vireon.ini", "new"), FileReplace::kDone);

  std::filesystem::current_path(before);
  EXPECT_EQ(contentOf(path_), "new");
}

TEST_F(FileReplacingTest, TheLongestNamesHaveRoom) {
  const std::string path = folder_.file(std::string(255, 'n'));

  EXPECT_EQ(store_.replace(path, "new"), FileReplace::kDone);
  EXPECT_EQ(store_.replace(path + 'n', "new"), FileReplace::kFailed);

  EXPECT_EQ(folder_.names(), Names{std::string(255, 'n')});
}

TEST_F(FileReplacingTest, WhatAStoppedWriterLeftIsInNobodysWay) {
  const std::string left = ".vireon-" + std::to_string(::getpid()) + "-0";
  writeFile(folder_.file(left), "left");

  EXPECT_EQ(store_.replace(path_, "new"), FileReplace::kDone);

  EXPECT_EQ(contentOf(path_), "new");
  EXPECT_EQ(contentOf(folder_.file(left)), "left");
  EXPECT_EQ(folder_.names(), (Names{left, "vireon.ini"}));
}

TEST_F(FileReplacingTest, AFolderThatIsNotThereIsTold) {
  writeFile(path_, "old");

  EXPECT_EQ(store_.replace("", "new"), FileReplace::kNoFolder);
  EXPECT_EQ(store_.replace(folder_.file("missing/file"), "new"), FileReplace::kNoFolder);
  EXPECT_EQ(store_.replace(folder_.file("vireon.ini/file"), "new"), FileReplace::kNoFolder);
  EXPECT_EQ(contentOf(path_), "old");
}

TEST_F(FileReplacingTest, WhatIsNoOrdinaryFileIsNotReplaced) {
  std::filesystem::create_directory(folder_.file("folder"));
  ASSERT_EQ(::mkfifo(folder_.file("pipe").c_str(), 0600), 0);
  const std::string withZero = path_ + '\0' + "x";

  EXPECT_EQ(store_.replace(folder_.file("folder"), "new"), FileReplace::kFailed);
  EXPECT_EQ(store_.replace(folder_.file("folder/"), "new"), FileReplace::kFailed);
  EXPECT_EQ(store_.replace(folder_.file("pipe"), "new"), FileReplace::kFailed);
  EXPECT_EQ(store_.replace(withZero, "new"), FileReplace::kFailed);

  EXPECT_EQ(folder_.names(), (Names{"folder", "pipe"}));
}

TEST_F(FileReplacingTest, AFolderThatIsClosedToThisAccountHasNoPermission) {
  writeFile(path_, "old");
  std::filesystem::permissions(path_, std::filesystem::perms(0666));
  std::filesystem::permissions(folder_.path(), std::filesystem::perms(0555));
  {
    const Unprivileged account;
    EXPECT_EQ(store_.replace(path_, "new"), FileReplace::kNoPermission);
    EXPECT_EQ(store_.replace(folder_.file("other"), "new"), FileReplace::kNoPermission);
  }
  EXPECT_EQ(contentOf(path_), "old");
  EXPECT_EQ(folder_.names(), Names{"vireon.ini"});
}

TEST_F(FileReplacingTest, AWriteProtectedFileHasNoPermissionInAnOpenFolder) {
  writeFile(path_, "old");
  std::filesystem::permissions(path_, std::filesystem::perms(0444));
  std::filesystem::permissions(folder_.path(), std::filesystem::perms(0777));
  {
    const Unprivileged account;
    EXPECT_EQ(store_.replace(path_, "new"), FileReplace::kNoPermission);
    EXPECT_EQ(store_.replace(folder_.file("other"), "new"), FileReplace::kDone) << "the folder is open";
  }
  EXPECT_EQ(contentOf(path_), "old");
  EXPECT_EQ(folder_.names(), (Names{"other", "vireon.ini"}));
}

}  // namespace
}  // namespace vireon::tests
