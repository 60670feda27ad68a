#include "link/operations.h"

#include <gtest/gtest.h>

#include "tests/link/serial_fixture.h"

namespace vireon::link {
namespace {

class OperationsTest : public testing::Test {
 protected:
  OperationsTest() {
    operations.onIdle = [this] {
      ++idles;
      EXPECT_FALSE(operations.running());
    };
  }

  LinkState link;
  Operations operations{link};
  int idles = 0;
};

TEST_F(OperationsTest, NothingRunsAtTheStart) {
  EXPECT_FALSE(operations.running());
}

TEST_F(OperationsTest, NestedOperationsEndOnceWithTheOutermost) {
  {
    const Operations::Scope outer(operations);
    EXPECT_TRUE(operations.running());
    {
      const Operations::Scope inner(operations);
      EXPECT_TRUE(operations.running());
    }
    EXPECT_TRUE(operations.running());
    EXPECT_EQ(idles, 0);
  }
  EXPECT_EQ(idles, 1);
  { const Operations::Scope next(operations); }
  EXPECT_EQ(idles, 2);
}

TEST_F(OperationsTest, TheUsersWishToEndAWaitHoldsForTheWholeOutermostOperation) {
  link.waitEnded = true;
  const Operations::Scope outer(operations);
  EXPECT_FALSE(link.waitEnded);
  link.waitEnded = true;
  const Operations::Scope inner(operations);
  EXPECT_TRUE(link.waitEnded);
}

TEST_F(OperationsTest, NobodyNeedsToListen) {
  operations.onIdle = nullptr;
  { const Operations::Scope scope(operations); }
  EXPECT_FALSE(operations.running());
}

class OperationsOfTheLink : public tests::SerialFixture {
 protected:
  OperationsOfTheLink() {
    connection.operations().onIdle = [this] { ++idles; };
  }
  int idles = 0;
};

TEST_F(OperationsOfTheLink, ConnectingIsOneOperationOnEitherLink) {
  form.SSTab1.setTab(1);
  for (const char* port : {"1", "0"}) {
    link.comPort = port;
    idles = 0;
    connection.cmdBttn_Click(0);
    EXPECT_EQ(idles, 1) << port;
    connection.cmdBttn_Click(0);
    EXPECT_EQ(idles, 2) << port;
  }
}

TEST_F(OperationsOfTheLink, AnExchangeWithItsParkedCommandIsOneOperation) {
  openPort();
  whileWaiting([this] {
    EXPECT_TRUE(connection.operations().running());
    connection.transKcmd("VDAup");
  });
  send("DFN??");
  EXPECT_EQ(idles, 1);
}

TEST_F(OperationsOfTheLink, ASearchIsOneOperation) {
  silence();
  connection.serial().com_search();
  EXPECT_EQ(idles, 1);
}

TEST_F(OperationsOfTheLink, AMessageAboutAFailureBelongsToTheOperation) {
  silence();
  openPort();
  messages.whileOpen = [this](const platform::Message&) {
    EXPECT_TRUE(connection.operations().running());
    EXPECT_EQ(idles, 0);
  };
  send("DFN??");
  EXPECT_EQ(idles, 1);
}

}  // namespace
}  // namespace vireon::link
