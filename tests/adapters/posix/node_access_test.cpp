#include "adapters/posix/node_access.h"

#include <grp.h>
#include <gtest/gtest.h>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <limits>

#include "tests/fakes/temporary_folder.h"
#include "tests/fakes/unprivileged.h"

namespace vireon::tests {
namespace {

using adapters::nodeAccess;
using adapters::NodeAccess;
using adapters::nodeAge;

class NodeAccessTest : public testing::Test {
 protected:
  NodeAccessTest() { writeFile(node_, ""); }

  void setMode(mode_t mode) const { ASSERT_EQ(::chmod(node_.c_str(), mode), 0); }

  NodeAccess asAnyAccount() const {
    const Unprivileged account;
    return nodeAccess(node_);
  }

  TemporaryFolder folder_;
  const std::string node_ = folder_.file("node");
};

TEST_F(NodeAccessTest, AnOpenNodeIsAllowed) {
  setMode(0666);

  const NodeAccess access = asAnyAccount();

  EXPECT_TRUE(access.allowed);
  EXPECT_FALSE(access.memberAfterNextLogin);
}

TEST_F(NodeAccessTest, ReadingAloneOrWritingAloneIsNotEnough) {
  for (const mode_t mode : {0444U, 0222U, 0U}) {
    setMode(mode);
    EXPECT_FALSE(asAnyAccount().allowed) << mode;
  }
}

TEST_F(NodeAccessTest, ARefusedNodeNamesItsGroup) {
  setMode(0);
  struct stat node {};
  ASSERT_EQ(::stat(node_.c_str(), &node), 0);
  const group* const owner = ::getgrgid(node.st_gid);
  ASSERT_NE(owner, nullptr);

  EXPECT_EQ(asAnyAccount().group, owner->gr_name);
}

TEST_F(NodeAccessTest, AGroupWithoutANameIsNamedByItsNumber) {
  constexpr gid_t kNameless = 54321;
  if (::getgrgid(kNameless) != nullptr || ::chown(node_.c_str(), static_cast<uid_t>(-1), kNameless) != 0) {
    GTEST_SKIP() << "this account cannot give a file to a group without a name";
  }
  setMode(0);

  const NodeAccess access = asAnyAccount();

  EXPECT_EQ(access.group, "54321");
  EXPECT_FALSE(access.memberAfterNextLogin);
}

TEST_F(NodeAccessTest, AnAccountOutsideTheGroupIsNoMemberAfterALogin) {
  setMode(0);

  EXPECT_FALSE(asAnyAccount().memberAfterNextLogin);
}

// An account that the system lists in a group of which this process is not.
struct Listed {
  gid_t group = 0;
  uid_t account = 0;
};

Listed listedMember() {
  Listed found;
  ::setgrent();
  for (const group* entry = ::getgrent(); entry != nullptr && found.account == 0; entry = ::getgrent()) {
    const passwd* const member = entry->gr_mem[0] != nullptr ? ::getpwnam(entry->gr_mem[0]) : nullptr;
    if (member != nullptr && member->pw_uid != 0 && ::group_member(entry->gr_gid) == 0) {
      found = {entry->gr_gid, member->pw_uid};
    }
  }
  ::endgrent();
  return found;
}

TEST_F(NodeAccessTest, AMemberWhoseSessionIsOlderNeedsANewLogin) {
  const Listed member = listedMember();
  if (member.account == 0 || ::chown(node_.c_str(), 0, member.group) != 0) {
    GTEST_SKIP() << "needs root, and a group with a member in the system's list";
  }
  setMode(0660);
  const Unprivileged account(member.account);

  const NodeAccess access = nodeAccess(node_);

  EXPECT_FALSE(access.allowed);
  EXPECT_TRUE(access.memberAfterNextLogin);
}

TEST_F(NodeAccessTest, NothingIsAllowedOnANodeThatIsNotThere) {
  const NodeAccess access = nodeAccess(folder_.file("nothing"));

  EXPECT_FALSE(access.allowed);
  EXPECT_EQ(access.group, "");
  EXPECT_FALSE(access.memberAfterNextLogin);
}

TEST_F(NodeAccessTest, ANodeIsAsOldAsItsLastChangeOfRights) {
  constexpr double kLong = 60;  // seconds; far more than a test takes
  EXPECT_LT(nodeAge(node_), kLong);
  std::filesystem::last_write_time(node_,
                                   std::filesystem::file_time_type::clock::now() - std::chrono::hours(1));
  setMode(0600);
  EXPECT_LT(nodeAge(node_), kLong);
}

TEST_F(NodeAccessTest, ANodeThatIsNotThereIsOld) {
  EXPECT_EQ(nodeAge(folder_.file("nothing")), std::numeric_limits<double>::infinity());
}

}  // namespace
}  // namespace vireon::tests
