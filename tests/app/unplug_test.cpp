#include <gtest/gtest.h>

#include "tests/app/program_bench.h"
#include "tests/fakes/fault_count.h"

namespace vireon::app {
namespace {

using tests::ProgramBench;
using Texts = std::vector<std::string>;

// A waveform exchange: the command, five reports of the answer, four requests between them.
constexpr std::size_t kWaveformReports = 10;

class Unplug : public testing::Test {
 protected:
  static void expectOneMessage(const ProgramBench& bench) {
    ASSERT_EQ(bench.messages.count(), 1U);
    EXPECT_EQ(bench.messages.lastTitle(), "Connection Error");
    EXPECT_EQ(bench.messages.lastText(), "Device not detected...Please check USB cable & connector.");
  }

  static void expectCleanReconnect(ProgramBench& bench) {
    bench.endpoint.setFaults({});
    bench.endpoint.plug();
    bench.instrument.clearLog();
    bench.form().cmdBttn[0].click();
    EXPECT_TRUE(bench.program.connection.connected());
    EXPECT_EQ(bench.instrument.log(), Texts{"DFN??"});
    bench.form().cmdStart.click();
    bench.expectCleanTick();
    EXPECT_EQ(bench.messages.count(), 1U);
  }
};

TEST_F(Unplug, AWaveformExchangeIsTenReports) {
  ProgramBench bench;
  bench.goLive();
  bench.tick();
  EXPECT_EQ(bench.endpoint.exchangeReports(), kWaveformReports);
}

TEST_F(Unplug, AtEveryReportOfALiveFrameLeavesADisconnectedWindowOneMessageAndACleanReconnect) {
  for (std::size_t report = 1; report <= kWaveformReports; ++report) {
    SCOPED_TRACE(report);
    ProgramBench bench;
    bench.goLive();
    bench.tick();
    bench.endpoint.setFaults({.unplugAtReport = report});
    tests::countFault();
    bench.tick();
    EXPECT_FALSE(bench.endpoint.plugged());
    expectOneMessage(bench);
    bench.expectDisconnected();
    bench.tick();
    bench.tick();
    expectOneMessage(bench);
    expectCleanReconnect(bench);
  }
}

TEST_F(Unplug, AtEveryReportOfAShortExchangeLeavesADisconnectedWindowAndOneMessage) {
  struct Exchange {
    const char* name;
    void (*before)(ProgramBench& bench);
    void (*press)(form::MainForm& form);
  };
  const auto live = [](ProgramBench& bench) {
    bench.goLive();
    bench.tick();
  };
  const auto pressConnect = [](form::MainForm& form) { form.cmdBttn[0].click(); };
  const Exchange exchanges[] = {
      {"connecting", [](ProgramBench& bench) { bench.program.Form_Load(); }, pressConnect},
      {"disconnecting", live, pressConnect},
      {"a button", live, [](form::MainForm& form) { form.cmdVu[0].click(); }},
  };
  for (const Exchange& exchange : exchanges) {
    for (std::size_t report = 1; report <= 2; ++report) {
      SCOPED_TRACE(std::string(exchange.name) + ", report " + std::to_string(report));
      ProgramBench bench;
      exchange.before(bench);
      bench.endpoint.setFaults({.unplugAtReport = report});
      tests::countFault();
      exchange.press(bench.form());
      expectOneMessage(bench);
      bench.expectDisconnected();
      expectCleanReconnect(bench);
    }
  }
}

TEST_F(Unplug, AtEveryReportOfATabSwitchLeavesADisconnectedWindowAndOneMessage) {
  for (const int tab : {1, 0}) {
    for (std::size_t report = 1; report <= 2; ++report) {
      SCOPED_TRACE(report);
      ProgramBench bench;
      bench.goLive();
      if (tab == 0) {
        bench.form().SSTab1.setTab(1);
      }
      bench.endpoint.setFaults({.unplugAtReport = report});
      tests::countFault();
      bench.form().SSTab1.setTab(tab);
      expectOneMessage(bench);
      bench.expectDisconnected();
    }
  }
}

TEST_F(Unplug, BetweenTwoTicksIsOneMessage) {
  ProgramBench bench;
  bench.goLive();
  bench.tick();
  bench.endpoint.unplug();
  tests::countFault();
  for (int turn = 0; turn < 5; ++turn) {
    bench.tick();
  }
  expectOneMessage(bench);
  bench.expectDisconnected();
  expectCleanReconnect(bench);
}

TEST_F(Unplug, AndPluggedInAgainBetweenTwoTicksGoesUnnoticed) {
  ProgramBench bench;
  bench.goLive();
  bench.endpoint.unplug();
  tests::countFault();
  bench.endpoint.plug();
  bench.expectCleanTick();
}

TEST_F(Unplug, AtEveryReportOfTheFirstStartIsOneMessageAndTheProgramEnds) {
  for (std::size_t report = 1; report <= 2; ++report) {
    SCOPED_TRACE(report);
    ProgramBench bench;
    bench.endpoint.setFaults({.unplugAtReport = report});
    tests::countFault();
    EXPECT_FALSE(bench.program.Form_Load());
    ASSERT_EQ(bench.messages.count(), 1U);
    EXPECT_EQ(bench.messages.lastTitle(), "Device Not Found");
    EXPECT_EQ(bench.messages.lastText(), "Device not detected...Please check USB cable & connector.");
    EXPECT_FALSE(bench.program.link.usbOpen);
    EXPECT_TRUE(bench.files.files.empty());
  }
}

TEST_F(Unplug, TheSettingsOfTheInstrumentSurviveOnBothSides) {
  ProgramBench bench;
  bench.goLive();
  bench.tick();
  bench.form().cmdVu[0].click();
  bench.endpoint.unplug();
  tests::countFault();
  bench.tick();
  expectCleanReconnect(bench);
  EXPECT_EQ(bench.form().lblVd[0].caption(), "2V");
}

}  // namespace
}  // namespace vireon::app
