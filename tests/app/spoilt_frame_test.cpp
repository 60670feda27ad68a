#include <gtest/gtest.h>

#include <functional>

#include "tests/app/program_bench.h"
#include "tests/fakes/fault_count.h"

namespace vireon::app {
namespace {

using simulator::Faults;
using tests::ProgramBench;
using namespace std::chrono_literals;

constexpr std::size_t kAnswerReports = 5;
constexpr std::size_t kAnswerBytes = 290;

// One live frame arrives spoilt; the next one, after a reconnect where the link broke, is whole.
class SpoiltFrame : public testing::Test {
 protected:
  // Returns whether the window is still connected after the spoilt frame.
  static bool survives(Faults faults) {
    ProgramBench bench;
    bench.goLive();
    bench.tick();
    faults.once = true;
    bench.endpoint.setFaults(faults);
    tests::countFault();
    bench.clock.advance(10ms);
    bench.tick();

    const bool connected = bench.program.connection.connected();
    EXPECT_EQ(bench.messages.count(), connected ? 0U : 1U);
    EXPECT_FALSE(bench.program.state.uiBusy);
    if (!connected) {
      bench.expectDisconnected();
      bench.goLive();
    }
    EXPECT_EQ(bench.form().cmdStart.caption(), "Stop");
    bench.expectCleanTick();
    return connected;
  }
};

TEST_F(SpoiltFrame, WithoutAFaultTheWindowStaysConnected) {
  ProgramBench bench;
  bench.goLive();
  bench.tick();
  bench.clock.advance(10ms);
  bench.expectCleanTick();
  EXPECT_TRUE(bench.program.connection.connected());
}

TEST_F(SpoiltFrame, ALostReportCostsOneFrameAndTheLastOneTheConnection) {
  for (std::size_t report = 1; report <= kAnswerReports; ++report) {
    SCOPED_TRACE(report);
    EXPECT_EQ(survives({.dropReport = report}), report != kAnswerReports);
  }
}

TEST_F(SpoiltFrame, ADoubledReportCostsOneFrame) {
  for (std::size_t report = 1; report <= kAnswerReports; ++report) {
    SCOPED_TRACE(report);
    EXPECT_TRUE(survives({.doubleReport = report}));
  }
}

TEST_F(SpoiltFrame, SwappedReportsCostOneFrame) {
  for (std::size_t report = 1; report < kAnswerReports; ++report) {
    SCOPED_TRACE(report);
    EXPECT_TRUE(survives({.swapReport = report}));
  }
}

TEST_F(SpoiltFrame, AShortenedReportCostsTheConnection) {
  for (std::size_t report = 1; report <= kAnswerReports; ++report) {
    for (const std::size_t length : {0U, 1U, 32U, 63U}) {
      SCOPED_TRACE(testing::Message() << report << " " << length);
      EXPECT_FALSE(survives({.shortReport = simulator::ShortReport{report, length}}));
    }
  }
}

TEST_F(SpoiltFrame, AFrameCutAtAnyByteCostsTheConnection) {
  for (std::size_t bytes = 0; bytes < kAnswerBytes; ++bytes) {
    SCOPED_TRACE(bytes);
    EXPECT_FALSE(survives({.cutAfterBytes = bytes}));
  }
  EXPECT_TRUE(survives({.cutAfterBytes = kAnswerBytes}));
}

TEST_F(SpoiltFrame, AFrameCutAfterAnyReportCostsTheConnection) {
  for (std::size_t reports = 0; reports < kAnswerReports; ++reports) {
    SCOPED_TRACE(reports);
    EXPECT_FALSE(survives({.cutAfterReports = reports}));
  }
}

TEST_F(SpoiltFrame, SilenceCostsTheConnection) {
  EXPECT_FALSE(survives({.silence = true}));
}

TEST_F(SpoiltFrame, AFrameLateWithinTheTimeOutIsDrawnAndALaterOneCostsTheConnection) {
  EXPECT_TRUE(survives({.lateBy = 5999ms}));
  EXPECT_TRUE(survives({.lateBy = 6000ms}));
  EXPECT_FALSE(survives({.lateBy = 6001ms}));
}

TEST_F(SpoiltFrame, ARefusalCostsOneFrame) {
  EXPECT_TRUE(survives({.refuse = true}));
}

TEST_F(SpoiltFrame, GarbageThatEndsCostsOneFrame) {
  for (std::uint64_t seed = 1; seed <= 40; ++seed) {
    for (const std::size_t length : {1U, 2U, 3U, 64U, 65U, 290U, 601U}) {
      SCOPED_TRACE(testing::Message() << seed << " " << length);
      EXPECT_TRUE(survives({.garbage = simulator::Garbage{seed, length, true}}));
    }
  }
}

TEST_F(SpoiltFrame, GarbageWithoutAnEndCostsTheConnectionUnlessItIsTooLong) {
  for (std::uint64_t seed = 1; seed <= 10; ++seed) {
    SCOPED_TRACE(seed);
    EXPECT_FALSE(survives({.garbage = simulator::Garbage{seed, 64, false}}));
    EXPECT_FALSE(survives({.garbage = simulator::Garbage{seed, 576, false}}));
    EXPECT_TRUE(survives({.garbage = simulator::Garbage{seed, 602, false}}));
    EXPECT_TRUE(survives({.garbage = simulator::Garbage{seed, 5000, false}}));
  }
}

}  // namespace
}  // namespace vireon::app
