#include "link/long_work.h"
#include "tests/adapters/qt/window_fixture.h"

namespace vireon::tests {
namespace {

class Shield : public WindowTest {
 protected:
  link::LongWork& work() { return program().longWork; }
  bool takesInput(const char* name) { return find(name)->isEnabled(); }
};

TEST_F(Shield, WhileALongWorkRunsOnlyCancelAndExitTakeInput) {
  goLive();
  instrument.clearLog();
  {
    link::LongWork::Scope scope(work(), 100);
    for (const char* name :
         {"cmdStart", "cmdBttn_0", "cmdVu_0", "sldPosH", "cmbFun", "cmdSave_0", "SSTab1"}) {
      EXPECT_FALSE(takesInput(name)) << name;
    }
    EXPECT_TRUE(takesInput("cmdCancel"));
    EXPECT_TRUE(takesInput("cmdBttn_1"));
    QTest::keyClick(&window(), Qt::Key_Up, Qt::ControlModifier);
    click("cmdStart");
    EXPECT_TRUE(instrument.log().empty());
  }
  EXPECT_TRUE(takesInput("cmdStart"));
  EXPECT_TRUE(takesInput("SSTab1"));
}

TEST_F(Shield, ShowsProgressAndCancelInTheStatusBar) {
  EXPECT_FALSE(find("barWork")->isVisible());
  EXPECT_FALSE(find("cmdCancel")->isVisible());
  {
    link::LongWork::Scope scope(work(), 100);
    EXPECT_TRUE(scope.goOn(40));
    turn();
    EXPECT_TRUE(find("barWork")->isVisible());
    EXPECT_EQ(find<QProgressBar>("barWork")->value(), 40);
    QTest::mouseClick(find("cmdCancel"), Qt::LeftButton);
    EXPECT_FALSE(scope.goOn(41));
  }
  turn();
  EXPECT_FALSE(find("barWork")->isVisible());
  EXPECT_FALSE(find("cmdCancel")->isVisible());
}

TEST_F(Shield, EscapeCancels) {
  link::LongWork::Scope scope(work(), 100);
  EXPECT_TRUE(scope.goOn(1));
  turn();
  QTest::keyClick(&window(), Qt::Key_Escape);
  EXPECT_TRUE(QTest::qWaitFor([&] { return !scope.goOn(2); }));
}

TEST_F(Shield, GivesTheFocusBackToTheControlThatHadIt) {
  goLive();
  find("cmdVu_0")->setFocus();
  {
    const link::LongWork::Scope scope(work(), 100);
    EXPECT_NE(window().focusWidget(), find("cmdVu_0"));
  }
  EXPECT_EQ(window().focusWidget(), find("cmdVu_0"));
}

TEST_F(Shield, ACloseRequestWaitsForTheWorksEnd) {
  goLive();
  {
    link::LongWork::Scope scope(work(), 100);
    window().close();
    EXPECT_TRUE(window().isVisible());
    EXPECT_FALSE(scope.goOn(1));
  }
  turn();
  EXPECT_FALSE(window().isVisible());
  EXPECT_FALSE(instrument.remote());
}

TEST_F(Shield, TheExitButtonEndsTheWorkFirst) {
  goLive();
  {
    link::LongWork::Scope scope(work(), 100);
    QTest::mouseClick(find("cmdBttn_1"), Qt::LeftButton);
    EXPECT_TRUE(window().isVisible());
    EXPECT_TRUE(instrument.remote());
    EXPECT_FALSE(scope.goOn(1));
  }
  turn();
  EXPECT_FALSE(window().isVisible());
  EXPECT_FALSE(instrument.remote());
}

}  // namespace
}  // namespace vireon::tests
