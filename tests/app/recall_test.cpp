#include "meter/recall.h"

#include "tests/app/program_bench.h"
#include "tests/fakes/fault_count.h"

namespace vireon::app {
namespace {

using tests::ProgramBench;
using namespace std::chrono_literals;
using Texts = std::vector<std::string>;

constexpr int kRecords = 60;  // dumps of 24, 24 and 12, then the end record

// A run recorded by the simulated instrument, then the program on its meter tab.
struct Recorded : ProgramBench {
  Recorded() {
    EXPECT_TRUE(program.Form_Load());
    connect();
    form().SSTab1.setTab(1);
    instrument.answer("DFN10;DPS0,1,0,59;DPC04");
    for (int second = 0; second < kRecords + 5; ++second) {
      clock.advance(1s);
      instrument.answer("STS??");
    }
    EXPECT_EQ(instrument.logger().recordCount(), static_cast<std::size_t>(kRecords));
    program.connection.transUsbOnly("DFN??;DPS??");
    form().grdLog.setText(1, 0, "old");
    instrument.clearLog();
    beeper.beeps = 0;
  }

  void press() { form().chkLog0.setValue(1); }

  // At the n-th turn that the download gives the window, from 0; the list is cleared after the first.
  void atTurn(std::size_t turn, std::function<void()> action) {
    while (pump.atPump.size() < turn) {
      pump.atPump.emplace_back([] {});
    }
    pump.atPump.push_back(std::move(action));
  }

  std::string told() { return form().StatusBar1.panel(1); }
  int listed() {
    int rows = 0;
    while (form().grdLog.text(rows + 1, 0).size() == 5 && form().grdLog.text(rows + 1, 0) != "     ") {
      ++rows;
    }
    return rows;
  }

  void expectAtRest() {
    EXPECT_FALSE(program.longWork.running());
    EXPECT_FALSE(program.connection.operations().running());
    EXPECT_EQ(form().chkLog0.value(), 0);
    EXPECT_TRUE(form().SSTab1.takesInput() || !form().SSTab1.enabled());
    EXPECT_FALSE(program.state.uiBusy);
    EXPECT_FALSE(program.state.logTransfer);
  }
};

TEST(Download, ListsEveryRecordOfTheInstrumentsMemory) {
  Recorded bench;
  bench.press();
  EXPECT_EQ(bench.instrument.log(), (Texts{"DPC02", "DPC02;STS??", "DPC03", "DPC03", "DPC03", "DPC03"}));
  EXPECT_EQ(bench.listed(), kRecords);
  EXPECT_EQ(bench.form().grdLog.text(1, 0), "00000");
  EXPECT_EQ(bench.form().grdLog.text(60, 0), "00059");
  EXPECT_EQ(bench.form().grdLog.text(60, 3), "DCV");
  EXPECT_EQ(bench.form().grdLog.text(61, 1), "--EOD---");
  EXPECT_EQ(bench.form().grdLog.rows(), 65);
  EXPECT_EQ(bench.told(), "Recall complete: 60 records");
  EXPECT_EQ(bench.beeper.beeps, 1);
  EXPECT_EQ(bench.messages.count(), 0U);
  bench.expectAtRest();
}

TEST(Download, CanBeRepeatedWithTheSameResult) {
  Recorded bench;
  bench.press();
  bench.press();
  EXPECT_EQ(bench.listed(), kRecords);
  EXPECT_EQ(bench.told(), "Recall complete: 60 records");
}

TEST(Download, CancelledAtAnyDumpKeepsTheRecordsThatHaveCome) {
  const int expected[] = {0, 24, 48, 60};
  for (std::size_t dump = 0; dump < 4; ++dump) {
    Recorded bench;
    bench.atTurn(dump + 1, [&] { bench.form().chkLog0.setValue(0); });
    bench.press();
    EXPECT_EQ(bench.listed(), expected[dump]);
    EXPECT_EQ(bench.told(), "Recall cancelled: " + std::to_string(expected[dump]) + " records kept");
    EXPECT_TRUE(bench.program.connection.connected());
    bench.expectAtRest();
  }
}

TEST(Download, UnpluggedAtEveryReportOfEachExchangeIsOneMessageAndKeepsWhatHasCome) {
  const std::size_t reports[] = {2, 2, 20, 20, 10, 2};  // of each exchange, at least
  for (std::size_t exchange = 0; exchange < std::size(reports); ++exchange) {
    for (std::size_t report = 1; report <= reports[exchange]; ++report) {
      SCOPED_TRACE(std::to_string(exchange) + " " + std::to_string(report));
      Recorded bench;
      const auto unplug = [&] { bench.endpoint.setFaults({.unplugAtReport = report}); };
      if (exchange == 0) {
        unplug();
      } else {
        bench.atTurn(exchange - 1, unplug);
      }
      bench.press();
      tests::countFault();
      ASSERT_FALSE(bench.endpoint.plugged());
      ASSERT_EQ(bench.messages.count(), 1U);
      EXPECT_EQ(bench.messages.lastTitle(), "Connection Error");
      bench.expectDisconnected();
      bench.expectAtRest();
      EXPECT_EQ(bench.told().substr(0, 30), "Recall ended, the link is lost");
      if (exchange < 2) {
        EXPECT_EQ(bench.form().grdLog.text(1, 0), "old");
      } else {
        EXPECT_EQ(bench.listed(), std::min<int>(24 * (static_cast<int>(exchange) - 2), kRecords));
      }
    }
  }
}

TEST(Download, RefusedAtAnyExchangeEndsThere) {
  for (std::size_t exchange = 0; exchange < 5; ++exchange) {
    SCOPED_TRACE(exchange);
    Recorded bench;
    const auto refuse = [&] { bench.endpoint.setFaults({.refuse = true}); };
    if (exchange == 0) {
      refuse();
    } else {
      bench.atTurn(exchange - 1, refuse);
    }
    bench.press();
    EXPECT_EQ(bench.told().substr(0, 33), "Recall refused by the instrument:");
    EXPECT_TRUE(bench.program.connection.connected());
    EXPECT_EQ(bench.messages.count(), 0U);
    bench.expectAtRest();
  }
}

TEST(Download, ASilentInstrumentLosesTheLink) {
  Recorded bench;
  bench.atTurn(2, [&] { bench.endpoint.setFaults({.silence = true}); });
  bench.press();
  EXPECT_EQ(bench.messages.count(), 1U);
  EXPECT_EQ(bench.told(), "Recall ended, the link is lost: 24 records kept");
  bench.expectDisconnected();
}

TEST(Download, AnswersOfGarbageEndItAfterThree) {
  Recorded bench;
  bench.atTurn(1,
               [&] { bench.endpoint.setFaults({.garbage = simulator::Garbage{.seed = 3, .length = 64}}); });
  bench.press();
  EXPECT_EQ(bench.instrument.commandCount() > 0, true);
  EXPECT_EQ(bench.told(), "Recall ended, no end of the data came: 0 records kept");
  bench.expectAtRest();
}

TEST(Download, ACloseRequestDuringItCancelsFirstAndClosesAfter) {
  Recorded bench;
  int closings = 0;
  bench.program.closeLater = [&] {
    ++closings;
    EXPECT_FALSE(bench.program.longWork.running());
  };
  bench.atTurn(2, [&] {
    EXPECT_FALSE(bench.program.requestClose());
    EXPECT_EQ(closings, 0);
    EXPECT_TRUE(bench.program.link.usbOpen);
  });
  bench.press();
  EXPECT_EQ(closings, 1);
  EXPECT_EQ(bench.listed(), 24);
  EXPECT_TRUE(bench.program.requestClose());
  EXPECT_FALSE(bench.program.link.usbOpen);
  EXPECT_EQ(bench.instrument.log().back(), "GTL");
}

TEST(Download, TheExitButtonDuringItCancelsFirstAndClosesAfter) {
  Recorded bench;
  int closings = 0;
  bench.program.closeLater = [&] { ++closings; };
  bench.program.connection.unloadForm = [&] { EXPECT_FALSE(bench.program.requestClose()); };
  bench.atTurn(3, [&] { bench.form().cmdBttn[1].click(); });
  bench.press();
  EXPECT_EQ(closings, 1);
  EXPECT_EQ(bench.told(), "Recall cancelled: 48 records kept");
}

TEST(Download, DuringItOnlyTheHeldButtonCancelAndExitTakeInputAndThePollRests) {
  Recorded bench;
  bench.form().cmdStart.click();
  bench.atTurn(2, [&] {
    const std::uint64_t before = bench.instrument.commandCount();
    bench.tick();
    bench.form().cmdLog[1].click();
    bench.form().mnuClrMem.click();
    bench.form().cmdStart.click();
    EXPECT_EQ(bench.instrument.commandCount(), before);
    std::vector<std::string> open;
    for (const form::Control* control : bench.form().controls()) {
      if (control->takesInput() && (dynamic_cast<const form::Button*>(control) != nullptr ||
                                    dynamic_cast<const form::CheckBox*>(control) != nullptr)) {
        open.push_back(control->name());
      }
    }
    EXPECT_EQ(open, (Texts{"cmdCancel", "cmdBttn_1", "chkLog0"}));
  });
  bench.press();
  EXPECT_EQ(bench.told(), "Recall complete: 60 records");
  EXPECT_TRUE(bench.form().tmrInt.enabled());
}

TEST(Download, OnASerialLinkSendsNothing) {
  Recorded bench;
  bench.program.link.comPort = "1";
  bench.press();
  EXPECT_TRUE(bench.serialPort.commands.empty());
  EXPECT_EQ(bench.told(), "Works over USB only");
  EXPECT_EQ(bench.form().grdLog.text(1, 0), "old");
  bench.expectAtRest();
}

TEST(Recording, OfTheInstrumentIsFollowedByThePollToItsEnd) {
  ProgramBench bench;
  bench.goLive();
  bench.form().SSTab1.setTab(1);
  bench.instrument.answer("DPS0,1,0,4");
  bench.form().chkLog1.setValue(1);
  EXPECT_EQ(bench.form().chkLog1.caption(), "Stop");
  EXPECT_EQ(bench.form().chkLog1.value(), 1);
  for (int turn = 0; turn < 20; ++turn) {
    bench.clock.advance(500ms);
    bench.tick();
  }
  EXPECT_EQ(bench.form().chkLog1.caption(), "Start");
  EXPECT_EQ(bench.form().chkLog1.value(), 0);
  EXPECT_EQ(bench.form().grdLog.text(1, 0), "00000");
  EXPECT_EQ(bench.form().grdLog.text(5, 0), "00004");
  EXPECT_EQ(bench.form().grdLog.text(6, 0), "");
  EXPECT_EQ(bench.program.state.logRow, 6);
}

TEST(Recording, OfATrendEndsByItselfWithItsLastPointAndItsFile) {
  ProgramBench bench;
  bench.goLive();
  int saved = 0;
  bench.program.interpreter.effects.saveTrd = [&] { ++saved; };
  bench.form().SSTab1.setTab(1);
  bench.form().cmbDmod.setListIndex(4);
  bench.form().chkLog1.setValue(1);
  for (int turn = 0; turn < 2000 && saved == 0; ++turn) {
    bench.clock.advance(500ms);
    bench.tick();
  }
  EXPECT_EQ(saved, 1);
  EXPECT_EQ(bench.form().barTrd.value(), 119);
  EXPECT_EQ(bench.form().picTrd.lines().size(), 119U);
  EXPECT_EQ(bench.form().chkLog1.caption(), "Start");
  EXPECT_TRUE(bench.form().cmdLoad[1].enabled());
}

TEST(MeterModel, ShowsItsFunctionTextWhenSamplingStartsAndListsDwell) {
  ProgramBench bench(simulator::Model::kK7900);
  bench.goLive();
  EXPECT_EQ(bench.form().cmbFun.items().back(), "Dwell");
  EXPECT_EQ(bench.form().cmbFun.items().size(), 9U);
  EXPECT_NE(bench.form().panAfn.caption(), "");
}

}  // namespace
}  // namespace vireon::app
