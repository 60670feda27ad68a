#include "tests/faults/allocation/failing_allocations.h"
#include "tests/faults/outcome.h"
#include "tests/faults/stories.h"

namespace vireon::tests {
namespace {

constexpr const char* kOutOfMemory = "There is not enough memory";

// Every allocation that the program makes in a story fails, once only and from then on to the story's end.
class AllocationSweep : public testing::TestWithParam<Story> {
 protected:
  struct Run {
    Outcome before;
    Outcome after;
    std::size_t allocations = 0;
  };

  static Run play(std::size_t failAt, bool fromThenOn) {
    FaultPlan nothing;
    FaultBench bench(nothing);
    GetParam().prepare(bench);
    Run run;
    run.before = outcomeOf(bench);
    AllocationPlan& plan = allocationPlan();
    plan.begin(failAt, fromThenOn);
    GetParam().play(bench);
    run.allocations = plan.made;
    EXPECT_EQ(plan.failed > 0, failAt != 0);
    plan.begin(0, false);
    run.after = outcomeOf(bench);
    expectAtRest(bench);
    expectGoesOn(bench, GetParam().isStart);
    return run;
  }

  static std::ptrdiff_t memoryMessages(const Outcome& outcome) {
    return std::count_if(outcome.told.begin(), outcome.told.end(),
                         [](const std::string& text) { return text.starts_with(kOutOfMemory); });
  }
};

TEST_P(AllocationSweep, EndsWhatWasUnderWayTellsItOnceAndTheUserGoesOn) {
  const Run faultless = play(0, false);
  EXPECT_EQ(memoryMessages(faultless.after), 0);
  for (std::size_t at = 1; at <= faultless.allocations; ++at) {
    for (const bool fromThenOn : {false, true}) {
      SCOPED_TRACE(testing::Message() << "allocation " << at << (fromThenOn ? " and all further" : ""));
      const Run now = play(at, fromThenOn);
      expectFilesWhole(faultless.before, faultless.after, now.after);
      if (!GetParam().listLives) expectListWhole(faultless.before, faultless.after, now.after);
      EXPECT_GE(memoryMessages(now.after), 1);
      EXPECT_TRUE(fromThenOn || memoryMessages(now.after) == 1) << memoryMessages(now.after);
    }
  }
}

TEST(Allocations, TheProgramsAllocationsAreCounted) {
  FaultPlan nothing;
  FaultBench bench(nothing);
  bench.goLive();
  fillList(bench, 60);
  AllocationPlan& plan = allocationPlan();
  plan.begin(0, false);
  bench.click(bench.form().cmdSave[1]);
  EXPECT_GT(plan.made, 5U);
}

// A live frame, from the timer's tick to the picture, takes no memory.
TEST(Allocations, ALiveFrameMakesNone) {
  FaultPlan nothing;
  FaultBench bench(nothing);
  bench.goLive();
  AllocationPlan& plan = allocationPlan();
  plan.begin(0, false);
  for (int frame = 0; frame < 20; ++frame) bench.tick();
  EXPECT_EQ(plan.made, 0U);
}

INSTANTIATE_TEST_SUITE_P(Stories, AllocationSweep, testing::ValuesIn(stories()), nameOf);

}  // namespace
}  // namespace vireon::tests
