#include <gtest/gtest.h>

#include <new>

#include "form/buttons.h"
#include "form/fields.h"
#include "form/timer.h"

namespace vireon::form {
namespace {

// A window whose user is told when memory has run out.
class OutOfMemoryGuard : public testing::Test {
 protected:
  OutOfMemoryGuard() {
    form_.onOutOfMemory = [this] { ++told_; };
  }

  [[noreturn]] static void runOut() { throw std::bad_alloc(); }

  Form form_{"window"};
  Button outer_{form_, "cmdOuter"};
  CheckBox inner_{form_, "chkInner"};
  int told_ = 0;
};

TEST_F(OutOfMemoryGuard, EndsTheHandlerOfEachEventAndTellsIt) {
  TextBox box(form_, "txtBox");
  Timer timer(form_, "tmr");
  timer.setInterval(1);
  timer.setEnabled(true);
  outer_.onClick = runOut;
  box.onChange = runOut;
  box.onKeyPress = [](int) { runOut(); };
  timer.onTimer = runOut;
  outer_.click();
  box.type("text");
  box.keyPress(13);
  timer.tick();
  EXPECT_EQ(told_, 4);
}

TEST_F(OutOfMemoryGuard, TellsItOnceAtTheEndOfTheOutermostHandler) {
  inner_.onClick = runOut;
  int toldWithin = -1;
  bool wentOn = false;
  outer_.onClick = [&] {
    inner_.setValue(1);
    inner_.setValue(0);
    toldWithin = told_;
    wentOn = true;
    runOut();
  };
  outer_.click();
  EXPECT_TRUE(wentOn);
  EXPECT_EQ(toldWithin, 0);
  EXPECT_EQ(told_, 1);
  outer_.click();
  EXPECT_EQ(told_, 2);
}

TEST_F(OutOfMemoryGuard, LetsEveryOtherFaultPass) {
  outer_.onClick = [] { throw Fault(FaultKind::kBounds); };
  EXPECT_THROW(outer_.click(), Fault);
  EXPECT_EQ(told_, 0);
  outer_.onClick = runOut;
  outer_.click();
  EXPECT_EQ(told_, 1);
}

TEST_F(OutOfMemoryGuard, ThrowsOnWhereNobodyTells) {
  form_.onOutOfMemory = nullptr;
  outer_.onClick = runOut;
  EXPECT_THROW(outer_.click(), std::bad_alloc);
}

}  // namespace
}  // namespace vireon::form
