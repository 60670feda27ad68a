#include "app/program.h"

#include <gtest/gtest.h>

#include "tests/app/program_bench.h"

namespace vireon::app {
namespace {

using simulator::Model;
using tests::ProgramBench;
using Texts = std::vector<std::string>;

TEST(StartUp, OnlyTheIdentityIsAskedFor) {
  ProgramBench bench;
  bench.program.Form_Load();
  EXPECT_EQ(bench.instrument.log(), Texts{"SID??;SIM??"});
  EXPECT_EQ(bench.messages.count(), 0U);
  EXPECT_EQ(bench.beeper.beeps, 0);
  EXPECT_EQ(bench.form().caption(), "Vireon K7310 Scope and Meter");
}

TEST(StartUp, TheWindowStartsDisconnected) {
  ProgramBench bench;
  bench.program.Form_Load();
  form::MainForm& form = bench.form();
  EXPECT_FALSE(bench.program.connection.connected());
  EXPECT_EQ(form.cmdBttn[0].backColor(), form::kButtonFace);
  EXPECT_TRUE(form.cmdBttn[0].enabled());
  EXPECT_TRUE(form.cmdBttn[1].enabled());
  for (const form::Control* control : std::initializer_list<const form::Control*>{
           &form.SSTab1, &form.cmdClock, &form.picMscope, &form.panDlog, &form.panScon, &form.cmdStart,
           &form.txtSTime}) {
    EXPECT_FALSE(control->enabled()) << control->name();
  }
  EXPECT_EQ(form.StatusBar1.panel(1), "");
  EXPECT_EQ(form.StatusBar1.panel(2), "USB(HID)");
  EXPECT_EQ(form.Txled[0].fillColor(), form::kWhite);
  EXPECT_EQ(form.Txled[1].fillColor(), form::kWhite);
}

TEST(StartUp, SamplingIsPreparedAndIdle) {
  ProgramBench bench;
  bench.program.Form_Load();
  EXPECT_EQ(bench.form().cmdStart.caption(), "Start");
  EXPECT_EQ(bench.form().cmdStart.backColor(), form::kButtonFace);
  EXPECT_EQ(bench.form().txtSTime.text(), "0.5");
  EXPECT_EQ(bench.form().tmrInt.interval(), 500);
  EXPECT_FALSE(bench.form().tmrInt.enabled());
}

TEST(StartUp, TheScopeTabIsShownWithItsPanels) {
  ProgramBench bench;
  bench.form().SSTab1.setTab(1);
  bench.instrument.clearLog();
  bench.program.Form_Load();
  form::MainForm& form = bench.form();
  EXPECT_EQ(form.SSTab1.tab(), 0);
  EXPECT_TRUE(form.picMscope.visible());
  EXPECT_TRUE(form.picScope.visible());
  EXPECT_TRUE(form.panScon.visible());
  EXPECT_FALSE(form.picDmm.visible());
  EXPECT_FALSE(form.panDlog.visible());
  EXPECT_FALSE(form.panTrd.visible());
  EXPECT_FALSE(form.picSet.visible());
  EXPECT_FALSE(form.picSwin[0].visible());
  EXPECT_FALSE(form.picSwin[1].visible());
  EXPECT_EQ(bench.instrument.log(), Texts{"SID??;SIM??"});
}

TEST(StartUp, TheMarkersBearTheirCaptions) {
  ProgramBench bench;
  bench.program.Form_Load();
  EXPECT_EQ(bench.form().posT.caption(), "~T");
  EXPECT_EQ(bench.form().posDV[0].caption(), "CHA");
  EXPECT_EQ(bench.form().posDV[1].caption(), "CHB");
}

TEST(StartUp, TheLoggerIsEmptyAndIdle) {
  ProgramBench bench;
  bench.program.Form_Load();
  form::MainForm& form = bench.form();
  EXPECT_EQ(form.grdLog.rows(), 13);
  EXPECT_EQ(form.grdLog.columns(), 4);
  EXPECT_EQ(form.grdLog.text(0, 1), "Time");
  EXPECT_EQ(form.grdLog.text(1, 1), "");
  EXPECT_EQ(bench.program.state.logRow, 1);
  EXPECT_FALSE(bench.program.state.logEnd);
  EXPECT_EQ(form.chkLog1.caption(), "Start");
  EXPECT_EQ(form.barTrd.value(), 0);
  EXPECT_EQ(form.barTrd.minimum(), 0);
  EXPECT_EQ(form.barTrd.maximum(), 120);
}

TEST(StartUp, TheListsAreFilledAndNothingIsSentAboutIt) {
  ProgramBench bench;
  bench.program.Form_Load();
  EXPECT_EQ(bench.form().cmbDmod.items().size(), 5U);
  EXPECT_EQ(bench.form().cmbFun.listIndex(), 0);
  EXPECT_FALSE(bench.program.state.labels.vdLbl[0].empty());
  EXPECT_FALSE(bench.program.state.uiBusy);
}

TEST(StartUp, EachModelHasItsTabsAndFunctions) {
  struct Row {
    Model model;
    const char* id;
    std::int16_t product;
    int tabs;
    std::size_t functions;
  };
  constexpr Row kRows[] = {{Model::kK7310, "K7310", -8191, 2, 8},
                           {Model::kK7210, "K7210", -8190, 1, 8},
                           {Model::kK7201, "K7201", -8189, 1, 8},
                           {Model::kK7900, "K7900", -8188, 1, 9}};
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.id);
    ProgramBench bench(row.model);
    bench.program.Form_Load();
    EXPECT_EQ(bench.program.state.modelId, row.id);
    EXPECT_EQ(bench.program.link.usbProductId, row.product);
    EXPECT_EQ(bench.form().SSTab1.tabs(), row.tabs);
    EXPECT_EQ(bench.form().cmdClock.visible(), row.tabs == 2);
    EXPECT_EQ(bench.form().cmbFun.items().size(), row.functions);
    EXPECT_EQ(bench.form().cmbFun.items().back(), row.functions == 9 ? "Dwell" : "Duty");
    EXPECT_EQ(bench.instrument.log(), Texts{"SID??;SIM??"});
  }
}

TEST(Shutdown, UnloadingTakesLeaveOfAnInstrumentThatIsOpen) {
  ProgramBench bench;
  bench.program.Form_Load();
  bench.connect();
  EXPECT_TRUE(bench.instrument.remote());
  bench.program.Form_Unload();
  EXPECT_EQ(bench.instrument.log(), Texts{"GTL"});
  EXPECT_FALSE(bench.instrument.remote());
  EXPECT_FALSE(bench.program.link.usbOpen);
  bench.program.Form_Unload();
  EXPECT_EQ(bench.instrument.log(), Texts{"GTL"});
}

TEST(Shutdown, UnloadingWithNothingOpenSendsNothing) {
  ProgramBench bench;
  bench.program.Form_Load();
  bench.connect();
  bench.form().cmdBttn[0].click();
  bench.instrument.clearLog();
  bench.program.Form_Unload();
  EXPECT_TRUE(bench.instrument.log().empty());
  EXPECT_EQ(bench.messages.count(), 0U);
}

TEST(Shutdown, TheExitButtonTakesLeaveAndUnloads) {
  ProgramBench bench;
  bench.program.Form_Load();
  bench.connect();
  int unloads = 0;
  bench.program.connection.unloadForm = [&] {
    ++unloads;
    bench.program.Form_Unload();
  };
  bench.form().cmdBttn[1].click();
  EXPECT_EQ(unloads, 1);
  EXPECT_EQ(bench.instrument.log(), Texts{"GTL"});
}

}  // namespace
}  // namespace vireon::app
