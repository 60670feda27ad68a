#include "tests/adapters/qt/window_fixture.h"

namespace vireon::tests {
namespace {

class Closing : public WindowTest {
 protected:
  Closing() {
    window().mayClose = [this] {
      ++asked;
      return allowed;
    };
  }

  bool allowed = true;
  int asked = 0;
};

TEST_F(Closing, TheWindowAsksAndCloses) {
  EXPECT_TRUE(window().close());
  EXPECT_EQ(asked, 1);
  EXPECT_FALSE(window().isVisible());
}

TEST_F(Closing, ARefusalKeepsItOpenAndItAsksAgain) {
  allowed = false;
  EXPECT_FALSE(window().close());
  EXPECT_TRUE(window().isVisible());
  EXPECT_FALSE(window().close());
  EXPECT_EQ(asked, 2);
  allowed = true;
  EXPECT_TRUE(window().close());
}

TEST_F(Closing, AWindowThatMayCloseAsksNeverAgain) {
  window().close();
  window().close();
  EXPECT_EQ(asked, 1);
}

TEST_F(Closing, CloseLaterClosesAtTheNextTurn) {
  window().closeLater();
  EXPECT_TRUE(window().isVisible());
  EXPECT_EQ(asked, 0);
  QApplication::processEvents();
  EXPECT_FALSE(window().isVisible());
  EXPECT_EQ(asked, 1);
}

TEST_F(Closing, ARequestWhileAMessageIsOpenIsIgnored) {
  bool closed = true;
  messages.whileOpen = [&] { closed = window().close(); };
  endpoint.unplug();
  click("cmdBttn_0");
  ASSERT_EQ(messages.seen.size(), 1U);
  EXPECT_FALSE(closed);
  EXPECT_EQ(asked, 0);
  EXPECT_TRUE(QTest::qWaitFor([this] { return window().isVisible(); }));
  EXPECT_TRUE(window().close());
}

TEST_F(Closing, AnEarlierRequestOutlastsTheMessageThatComesInBetween) {
  bool stayed = false;
  messages.whileOpen = [&] {
    window().closeLater();
    QApplication::processEvents();
    stayed = window().isVisible();
  };
  endpoint.unplug();
  click("cmdBttn_0");
  ASSERT_EQ(messages.seen.size(), 1U);
  EXPECT_TRUE(stayed);
  EXPECT_TRUE(QTest::qWaitFor([this] { return !window().isVisible(); }, 30000));
  EXPECT_EQ(asked, 1);
}

TEST_F(Closing, ARequestWhileTheWindowOnlyPaintsWaits) {
  {
    const adapters::ModalGate::Painting painting(gate);
    EXPECT_FALSE(window().close());
    QApplication::processEvents();
    EXPECT_EQ(asked, 0);
  }
  EXPECT_TRUE(QTest::qWaitFor([this] { return !window().isVisible(); }, 30000));
  EXPECT_EQ(asked, 1);
}

}  // namespace
}  // namespace vireon::tests
