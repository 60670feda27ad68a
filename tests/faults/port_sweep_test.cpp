#include <cstdio>
#include <map>

#include "tests/faults/outcome.h"
#include "tests/faults/stories.h"

namespace vireon::tests {
namespace {

// Every call that a story makes to a port fails in each way that the port has, once only, from then on, and
// all ports from then on.
class PortSweep : public testing::TestWithParam<Story> {
 protected:
  struct Run {
    Outcome before;
    Outcome after;
    std::vector<PortCall> calls;
  };

  static Run play(const Fault& fault) {
    FaultPlan plan;
    FaultBench bench(plan);
    GetParam().prepare(bench);
    Run run;
    run.before = outcomeOf(bench);
    plan.begin(fault);
    GetParam().play(bench);
    run.after = outcomeOf(bench);
    run.calls = plan.calls();
    EXPECT_EQ(plan.struck(), fault.at != 0);
    plan.begin({});
    expectAtRest(bench);
    expectGoesOn(bench, GetParam().isStart);
    return run;
  }

  static const char* textOf(Reach reach) {
    return reach == Reach::kOnce             ? "once"
           : reach == Reach::kPortFromThenOn ? "this port from then on"
                                             : "all ports from then on";
  }

  // What was lost is told; the user's own doing, a lost date and the settings' own rules are not.
  static void expectTold(const Run& faultless, const Run& now, const PortCall& failed) {
    const bool silent = failed.port == "file dialog" || failed.port == "wall clock" ||
                        failed.port == "message box" || failed.port == "document opener";
    if (silent || now.after.isLike(faultless.after)) return;
    EXPECT_TRUE(now.after.told != faultless.after.told || now.after.panels != faultless.after.panels);
  }
};

TEST_P(PortSweep, LosesNothingTellsItOnceAndTheUserGoesOn) {
  const Run faultless = play({});
  std::map<std::string, std::size_t> injected;
  for (std::size_t at = 1; at <= faultless.calls.size(); ++at) {
    const PortCall& call = faultless.calls[at - 1];
    for (int kind = 1; kind <= call.kinds; ++kind) {
      for (const Reach reach : {Reach::kOnce, Reach::kPortFromThenOn, Reach::kAllFromThenOn}) {
        SCOPED_TRACE(testing::Message() << "call " << at << ": " << call.port << " " << call.call << ", kind "
                                        << kind << ", " << textOf(reach));
        const Run now = play({at, kind, reach});
        expectFilesWhole(faultless.before, faultless.after, now.after);
        if (!GetParam().listLives) expectListWhole(faultless.before, faultless.after, now.after);
        expectTold(faultless, now, call);
        ++injected[std::string(call.port)];
      }
    }
  }
  EXPECT_FALSE(injected.empty());
  for (const auto& [port, count] : injected) {
    RecordProperty(port, static_cast<int>(count));
    std::printf("  %s: %zu\n", port.c_str(), count);
  }
}

INSTANTIATE_TEST_SUITE_P(Stories, PortSweep, testing::ValuesIn(stories()), nameOf);

}  // namespace
}  // namespace vireon::tests
