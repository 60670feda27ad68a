#include "adapters/posix/node_patience.h"

#include <gtest/gtest.h>

namespace vireon::tests {
namespace {

using adapters::NodePatience;

class NodePatienceTest : public testing::Test {
 protected:
  NodePatienceTest() {
    patience_.pause = [this] { ++pauses_; };
    patience_.age = [this](const std::string& node) {
      EXPECT_EQ(node, "node");
      return age_;
    };
  }

  // Opens what refuses so often; returns the outcome of the last attempt, 0 for success.
  int open(int refusals) {
    return patience_.open(
        "node", [&] { return ++attempts_ > refusals ? 0 : attempts_; },
        [](int outcome) { return outcome != 0; });
  }

  NodePatience patience_;
  double age_ = 0.1;
  int pauses_ = 0;
  int attempts_ = 0;
};

TEST_F(NodePatienceTest, AWillingNodeIsAskedOnceWithoutAPause) {
  EXPECT_EQ(open(0), 0);
  EXPECT_EQ(attempts_, 1);
  EXPECT_EQ(pauses_, 0);
}

TEST_F(NodePatienceTest, AFreshNodeIsAskedUntilItIsWilling) {
  EXPECT_EQ(open(7), 0);
  EXPECT_EQ(attempts_, 8);
  EXPECT_EQ(pauses_, 7);
}

TEST_F(NodePatienceTest, AnOldNodeIsAskedOnce) {
  age_ = NodePatience::kSettling;
  EXPECT_EQ(open(1), 1);
  EXPECT_EQ(attempts_, 1);
  EXPECT_EQ(pauses_, 0);
}

TEST_F(NodePatienceTest, ANodeThatGrowsOldMeanwhileIsGivenUp) {
  patience_.pause = [this] { age_ += 0.25; };
  EXPECT_EQ(open(100), 5);
}

TEST_F(NodePatienceTest, AClockThatStandsStillEndsAfterTheMostAttempts) {
  EXPECT_EQ(open(1000), NodePatience::kMostAttempts);
  EXPECT_EQ(pauses_, NodePatience::kMostAttempts - 1);
}

TEST_F(NodePatienceTest, ItsPausesCoverTheTimeThatANodeNeeds) {
  EXPECT_GE(std::chrono::duration<double>(NodePatience::kPause * NodePatience::kMostAttempts).count(),
            NodePatience::kSettling);
}

}  // namespace
}  // namespace vireon::tests
