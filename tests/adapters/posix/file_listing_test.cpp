#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "adapters/posix/posix_file_store.h"
#include "tests/fakes/temporary_folder.h"
#include "tests/fakes/unprivileged.h"

namespace vireon::tests {
namespace {

using Names = std::vector<std::string>;

class FileListing : public testing::Test {
 protected:
  Names list() { return store_.list(folder_.path().string()); }

  TemporaryFolder folder_;
  adapters::PosixFileStore store_;
};

TEST_F(FileListing, HasTheNamesOfTheOrdinaryFilesInOrder) {
  for (const char* name : {"b.wfm", "A.wfm", ".hidden", "한.txt"}) {
    writeFile(folder_.file(name), "x");
  }
  std::filesystem::create_directory(folder_.file("folder.wfm"));
  EXPECT_EQ(list(), (Names{".hidden", "A.wfm", "b.wfm", "한.txt"}));
}

TEST_F(FileListing, FollowsLinksAndLeavesOutThoseToNowhere) {
  writeFile(folder_.file("target"), "x");
  std::filesystem::create_symlink("target", folder_.file("link"));
  std::filesystem::create_symlink("nowhere", folder_.file("dangling"));
  EXPECT_EQ(list(), (Names{"link", "target"}));
}

TEST_F(FileListing, IsEmptyWhereThereIsNoSuchFolder) {
  writeFile(folder_.file("file"), "x");
  EXPECT_EQ(store_.list(folder_.file("none")), Names{});
  EXPECT_EQ(store_.list(folder_.file("file")), Names{});
  EXPECT_EQ(store_.list(""), Names{});
  EXPECT_EQ(store_.list(folder_.path().string() + std::string("\0x", 2)), Names{});
}

TEST_F(FileListing, IsEmptyWhereTheFolderIsClosedToThisAccount) {
  writeFile(folder_.file("file"), "x");
  std::filesystem::permissions(folder_.path(), std::filesystem::perms::owner_all);
  const Unprivileged nobody;
  EXPECT_EQ(list(), Names{});
}

}  // namespace
}  // namespace vireon::tests
