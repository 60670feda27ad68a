#include <gtest/gtest.h>

#include <functional>

#include "tests/app/program_bench.h"

namespace vireon::app {
namespace {

using tests::ProgramBench;
using Texts = std::vector<std::string>;
using Form = form::MainForm;

constexpr const char* kScopeQueries = ";VDA??;VDB??;VPA??;VPB??;HDV??;HPO??;TRG??;DFN??;STS??";

// A control that the user moves after one live frame, the command that the instrument must receive, and
// what the panel shows of the answer.
struct Row {
  const char* name;
  std::function<void(Form&)> move;
  const char* command;
  std::function<std::string(Form&)> shown;
  const char* expected;
};

std::string onOff(bool on) {
  return on ? "on" : "off";
}

const Row kScopeRows[] = {
    {"A up", [](Form& f) { f.cmdVu[0].click(); }, "VDAup;VDA??", [](Form& f) { return f.lblVd[0].caption(); },
     "2V"},
    {"A down", [](Form& f) { f.cmdVd[0].click(); }, "VDAdn;VDA??",
     [](Form& f) { return f.lblSinf[0].caption(); }, "A:0.5V"},
    {"B up", [](Form& f) { f.cmdVu[1].click(); }, "VDBup;VDB??", [](Form& f) { return f.lblVd[1].caption(); },
     "1V"},
    {"B down", [](Form& f) { f.cmdVd[1].click(); }, "VDBdn;VDB??",
     [](Form& f) { return f.lblSinf[1].caption(); }, "B:0.2V"},
    {"A coupling", [](Form& f) { f.chkVac[0].setValue(1); }, "VDAac;VDA??",
     [](Form& f) { return f.chkVac[0].caption(); }, "AC"},
    {"B coupling", [](Form& f) { f.chkVac[1].setValue(1); }, "VDBac;VDB??",
     [](Form& f) { return f.chkVac[1].caption(); }, "AC"},
    {"A auto", [](Form& f) { f.chkVat[0].setValue(1); }, "VDAat;VDA??",
     [](Form& f) { return onOff(f.chkVat[0].value() == 1 && f.chkVat[0].foreColor() == form::kRed); }, "on"},
    {"A off", [](Form& f) { f.chkVof[0].setValue(0); }, "VDAof;VDA??",
     [](Form& f) { return f.chkVof[0].caption() + onOff(f.posDV[0].visible()); }, "OFFoff"},
    {"B off", [](Form& f) { f.chkVof[1].setValue(0); }, "VDBof;VDB??",
     [](Form& f) { return f.chkVof[1].caption() + onOff(f.posDV[1].visible()); }, "OFFoff"},
    {"slower", [](Form& f) { f.cmdTud[0].click(); }, "HDVup;HDV??", [](Form& f) { return f.lblHd.caption(); },
     "0.5mS"},
    {"faster", [](Form& f) { f.cmdTud[1].click(); }, "HDVdn;HDV??",
     [](Form& f) { return f.lblSinf[2].caption(); }, "0.1mS"},
    {"time auto", [](Form& f) { f.chkHat.setValue(1); }, "HDVat;HDV??",
     [](Form& f) { return onOff(f.chkHat.value() == 1 && f.chkHat.foreColor() == form::kRed); }, "on"},
    {"trigger normal", [](Form& f) { f.chkAt.setValue(0); }, "TRGnr;TRG??",
     [](Form& f) { return f.lblSinf[5].caption(); }, "Norm"},
    {"slope", [](Form& f) { f.cmdSlp.click(); }, "TRGl-;TRG??",
     [](Form& f) { return f.lblSinf[3].caption() + f.cmdSlp.caption(); }, "--"},
    {"source B", [](Form& f) { f.optTS[1].setValue(true); }, "TRGsb;TRG??;TLV80;TLV??",
     [](Form& f) { return f.lblSinf[4].caption() + onOff(f.posT.visible()); }, "CHBon"},
    {"source external", [](Form& f) { f.optTS[2].setValue(true); }, "TRGse;TRG??;TLV80;TLV??",
     [](Form& f) { return f.lblSinf[4].caption() + onOff(f.posT.visible()); }, "EXToff"},
    {"A position", [](Form& f) { f.sldPosV[0].setValue(50); }, "VPA32;VPA??;TLV??",
     [](Form& f) { return std::to_string(f.posDV[0].top()); }, "1200"},
    {"B position", [](Form& f) { f.sldPosV[1].setValue(10); }, "VPB0A;VPB??;TLV??",
     [](Form& f) { return std::to_string(f.posDV[1].top()); }, "0"},
    {"horizontal position", [](Form& f) { f.sldPosH.setValue(40); }, "HPO28;HPO??",
     [](Form& f) { return std::to_string(f.markT.left()); }, "1640"},
    {"trigger level", [](Form& f) { f.trgLvl.setValue(117); }, "TLV8A;TLV??",
     [](Form& f) { return std::to_string(f.posT.top()); }, "420"},
    {"scope function", [](Form& f) { f.cmbFun.setListIndex(2); }, "DFN02;DFN??;VDA??;VDB??",
     [](Form& f) { return onOff(f.posDV[1].visible()) + f.lblVd[0].caption(); }, "off2k"},
    {"hold", [](Form& f) { f.chkMhld.setValue(1); }, "DHDon;STS??",
     [](Form& f) { return onOff(f.chkMhld.foreColor() == form::kRed); }, "on"},
    {"memory", [](Form& f) { f.chkMld.setValue(1); }, "MEM00",
     [](Form& f) { return onOff(f.chkMld.foreColor() == form::kRed && !f.picScope.lines().empty()); }, "on"},
    {"clock", [](Form& f) { f.cmdClock.click(); }, "SCK07-12-21 14:05:09",
     [](Form& f) { return f.StatusBar1.panel(2); }, "Connected"},
};

const Row kMeterRows[] = {
    {"function", [](Form& f) { f.optFun[1].setValue(true); }, "DFN11;DFN??;DPS??",
     [](Form& f) { return std::to_string(f.cmbFun.listIndex()); }, "1"},
    {"range up", [](Form& f) { f.mrgUD[1].click(); }, "DRGup;DRG??",
     [](Form& f) { return onOff(f.chkDmAt.value() == 1); }, "off"},
    {"range auto", [](Form& f) { f.mrgUD[2].click(); }, "DRGat;DRG??",
     [](Form& f) { return onOff(f.chkDmAt.value() == 1); }, "on"},
    {"auto box", [](Form& f) { f.chkDmAt.setValue(1); }, "DRGat;DRG??",
     [](Form& f) { return onOff(f.chkDmAt.foreColor() == form::kRed); }, "on"},
};

class FrontPanel : public testing::Test {
 protected:
  // Moves the row's control and compares; the instrument took the command.
  static void check(ProgramBench& bench, const Row& row) {
    bench.instrument.clearLog();
    row.move(bench.form());
    EXPECT_EQ(bench.instrument.log(), Texts{row.command});
    EXPECT_EQ(row.shown(bench.form()), row.expected);
    EXPECT_FALSE(bench.program.state.enqSeen);
    EXPECT_EQ(bench.messages.count(), 0U);
  }
};

TEST_F(FrontPanel, EveryScopeControlReachesTheInstrumentAndThePanelFollows) {
  for (const Row& row : kScopeRows) {
    SCOPED_TRACE(row.name);
    ProgramBench bench;
    bench.goLive();
    bench.tick();
    check(bench, row);
  }
}

TEST_F(FrontPanel, AfterEveryScopeControlTheNextFrameIsDrawnAsSent) {
  for (const Row& row : kScopeRows) {
    SCOPED_TRACE(row.name);
    ProgramBench bench;
    bench.goLive();
    bench.tick();
    row.move(bench.form());
    bench.form().chkMld.setValue(0);  // nothing is polled during a recall
    const bool both = bench.instrument.settings().a.on && bench.instrument.settings().b.on &&
                      bench.instrument.settings().meter.function == simulator::Function::kDcv;
    bench.tick();
    EXPECT_EQ(bench.program.connection.connected(), true);
    if (both) {
      EXPECT_EQ(bench.drawn(), bench.sentTraces());
    } else {
      EXPECT_EQ(bench.drawn().size(), 124U);
    }
  }
}

TEST_F(FrontPanel, EveryMeterControlReachesTheInstrumentAndThePanelFollows) {
  for (const Row& row : kMeterRows) {
    SCOPED_TRACE(row.name);
    ProgramBench bench;
    bench.goLive();
    bench.form().SSTab1.setTab(1);
    check(bench, row);
  }
}

TEST_F(FrontPanel, TheMeterTabTakesTheInstrumentIntoTheLoggerModeAndBack) {
  ProgramBench bench;
  bench.goLive();
  bench.form().SSTab1.setTab(1);
  EXPECT_EQ(bench.instrument.log(), Texts{"DFN10;DFN??;DPS??"});
  EXPECT_EQ(bench.instrument.settings().meter.mode, simulator::LoggerMode::kDataLogger);
  EXPECT_EQ(bench.form().cmbDmod.listIndex(), 0);
  EXPECT_TRUE(bench.form().picSwin[0].visible());
  EXPECT_TRUE(bench.form().picDmm.visible());

  bench.instrument.clearLog();
  bench.form().SSTab1.setTab(0);
  EXPECT_EQ(bench.instrument.log(), Texts{std::string("DFN00") + kScopeQueries});
  EXPECT_EQ(bench.instrument.settings().meter.mode, simulator::LoggerMode::kOff);
  EXPECT_TRUE(bench.form().picScope.visible());
}

TEST_F(FrontPanel, AnInstrumentThatIsInALoggerModeTakesTheWindowToTheMeterTab) {
  ProgramBench bench;
  bench.program.Form_Load();
  bench.instrument.settings().meter.mode = simulator::LoggerMode::kRecord;
  bench.instrument.clearLog();
  bench.form().cmdBttn[0].click();
  EXPECT_EQ(bench.instrument.log(), (Texts{"DFN??", "DPS??"}));
  EXPECT_EQ(bench.form().SSTab1.tab(), 1);
  EXPECT_TRUE(bench.form().picDmm.visible());
  EXPECT_TRUE(bench.form().panDlog.visible());
  EXPECT_FALSE(bench.form().picScope.visible());
  EXPECT_TRUE(bench.form().picSwin[1].visible());
}

TEST_F(FrontPanel, EveryLoggerModeIsTakenUpByTheInstrument) {
  ProgramBench bench;
  bench.goLive();
  bench.form().SSTab1.setTab(1);
  for (const int mode : {1, 2, 3, 4, 0}) {
    bench.instrument.clearLog();
    bench.form().cmbDmod.setListIndex(mode);
    EXPECT_EQ(bench.instrument.log(), (Texts{"DFN" + std::to_string(mode + 1) + "0;DFN??", "DPS??"}));
    EXPECT_EQ(static_cast<int>(bench.instrument.settings().meter.mode), mode + 1);
    EXPECT_EQ(bench.form().picSwin[0].visible(), mode == 0 || mode == 4);
    EXPECT_EQ(bench.form().picSwin[1].visible(), mode >= 1 && mode <= 3);
    EXPECT_EQ(bench.form().panTrd.visible(), mode == 4);
  }
}

TEST_F(FrontPanel, TheScopePanelBeepsOnceForEachCommand) {
  ProgramBench bench;
  bench.goLive();
  bench.tick();
  bench.form().cmdVu[0].click();
  bench.form().cmdTud[0].click();
  EXPECT_EQ(bench.beeper.beeps, 2);
}

}  // namespace
}  // namespace vireon::app
