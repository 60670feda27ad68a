#include "link/long_work.h"

#include <new>

#include "tests/app/program_bench.h"

namespace vireon::app {
namespace {

using tests::ProgramBench;

class LongWork : public testing::Test {
 protected:
  form::MainForm& form() { return bench_.form(); }
  link::LongWork& work() { return bench_.program.longWork; }

  ProgramBench bench_;
};

TEST_F(LongWork, ShowsItsProgressAndHidesItAtTheEnd) {
  EXPECT_FALSE(form().barWork.visible());
  {
    link::LongWork::Scope scope(work(), 200);
    EXPECT_TRUE(form().barWork.visible());
    EXPECT_TRUE(form().cmdCancel.visible());
    EXPECT_TRUE(scope.goOn(50));
    EXPECT_EQ(form().barWork.value(), 50);
    EXPECT_EQ(form().barWork.maximum(), 200);
    EXPECT_TRUE(scope.goOn(1000));
    EXPECT_EQ(form().barWork.value(), 200);
  }
  EXPECT_FALSE(form().barWork.visible());
  EXPECT_FALSE(form().cmdCancel.visible());
}

// A view that has no memory left when the shield goes up.
class ExhaustedView final : public form::ControlView {
 public:
  void changed(const form::Control& /*control*/) override {}
  void refresh(const form::Control& /*control*/) override {}
  void shieldMoved(bool up) override {
    if (up) throw std::bad_alloc();
  }
};

TEST_F(LongWork, ThatCannotBeShownLeavesNothingUnderWay) {
  ExhaustedView view;
  form().setView(&view);
  EXPECT_THROW(link::LongWork::Scope(work(), 200), std::bad_alloc);
  form().setView(nullptr);
  EXPECT_FALSE(work().running());
  EXPECT_FALSE(form().barWork.visible());
  EXPECT_TRUE(form().cmdBttn[0].takesInput());
}

TEST_F(LongWork, LetsTheWindowLiveAtEachStep) {
  link::LongWork::Scope scope(work(), 0);
  const std::size_t before = bench_.pump.pumps;
  scope.goOn(1);
  scope.goOn(2);
  EXPECT_EQ(bench_.pump.pumps, before + 2);
}

TEST_F(LongWork, TakesNoInputButCancelExitAndTheControlsItLeavesOpen) {
  link::LongWork::Scope scope(work(), 0, {&form().chkLog0});
  EXPECT_TRUE(form().cmdCancel.takesInput());
  EXPECT_TRUE(form().cmdBttn[1].takesInput());
  EXPECT_TRUE(form().chkLog0.takesInput());
  EXPECT_FALSE(form().cmdBttn[0].takesInput());
  EXPECT_FALSE(form().SSTab1.takesInput());
}

TEST_F(LongWork, EndsAtTheNextStepAfterCancel) {
  link::LongWork::Scope scope(work(), 10);
  bench_.pump.atPump.emplace_back([this] { form().cmdCancel.click(); });
  EXPECT_FALSE(scope.goOn(1));
  EXPECT_FALSE(scope.goOn(2));
}

TEST_F(LongWork, StartsUncancelledAfterOneThatWasCancelled) {
  {
    const link::LongWork::Scope scope(work(), 10);
    form().cmdCancel.click();
  }
  link::LongWork::Scope scope(work(), 10);
  EXPECT_TRUE(scope.goOn(1));
}

TEST_F(LongWork, KeepsThePollAtRest) {
  bench_.goLive();
  {
    const link::LongWork::Scope scope(work(), 0);
    bench_.tick();
    EXPECT_TRUE(bench_.instrument.log().empty());
  }
  bench_.tick();
  EXPECT_FALSE(bench_.instrument.log().empty());
}

TEST_F(LongWork, ACloseRequestCancelsItAndTheWindowClosesAfterIt) {
  int closings = 0;
  bench_.program.closeLater = [&] { ++closings; };
  {
    link::LongWork::Scope scope(work(), 10);
    EXPECT_FALSE(bench_.program.requestClose());
    EXPECT_FALSE(scope.goOn(1));
    EXPECT_EQ(closings, 0);
  }
  EXPECT_EQ(closings, 1);
  EXPECT_TRUE(bench_.program.requestClose());
}

TEST_F(LongWork, ExitKeepsTheInstrumentUntilItsEnd) {
  bench_.goLive();
  bench_.program.connection.unloadForm = [this] { bench_.program.requestClose(); };
  const link::LongWork::Scope scope(work(), 10);
  form().cmdBttn[1].click();
  EXPECT_TRUE(bench_.program.link.usbOpen);
  EXPECT_TRUE(bench_.instrument.log().empty());
}

}  // namespace
}  // namespace vireon::app
