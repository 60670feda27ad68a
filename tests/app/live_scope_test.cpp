#include <gtest/gtest.h>

#include "tests/app/program_bench.h"

namespace vireon::app {
namespace {

using tests::ProgramBench;
using Texts = std::vector<std::string>;
using namespace std::chrono_literals;

class LiveScope : public testing::Test, public ProgramBench {};

TEST_F(LiveScope, TheConnectButtonAsksForTheFunctionAlone) {
  program.Form_Load();
  instrument.clearLog();
  form().cmdBttn[0].click();
  EXPECT_TRUE(program.connection.connected());
  EXPECT_EQ(instrument.log(), Texts{"DFN??"});
  EXPECT_TRUE(form().picMscope.enabled());
}

TEST_F(LiveScope, BothTracesAreDrawnFromExactlyTheSamplesThatWereSent) {
  goLive();
  tick();
  EXPECT_EQ(instrument.log(), Texts{"DRS??"});
  EXPECT_EQ(drawn().size(), 248U);
  EXPECT_EQ(drawn(), sentTraces());
}

TEST_F(LiveScope, TheFrameSetsThePanelToTheInstrumentsState) {
  goLive();
  tick();
  EXPECT_EQ(form().lblVd[0].caption(), "1V");
  EXPECT_EQ(form().lblVd[1].caption(), "0.5V");
  EXPECT_EQ(form().lblSinf[0].caption(), "A:1V");
  EXPECT_EQ(form().lblSinf[1].caption(), "B:0.5V");
  EXPECT_EQ(form().lblHd.caption(), "0.2mS");
  EXPECT_EQ(form().chkVof[0].value(), 1);
  EXPECT_EQ(form().chkVof[1].value(), 1);
  EXPECT_TRUE(form().optTS[0].value());
  EXPECT_EQ(form().chkAt.value(), 1);
  EXPECT_EQ(form().posDV[1].caption(), "CHB");
  EXPECT_EQ(instrument.log(), Texts{"DRS??"}) << "following the instrument echoes nothing back";
}

TEST_F(LiveScope, TheMarkersStandAtTheTracesZeros) {
  goLive();
  tick();
  EXPECT_EQ(form().posDV[0].top(), 30 * instrument.settings().a.position - 300);
  EXPECT_EQ(form().posDV[1].top(), 30 * instrument.settings().b.position - 300);
  EXPECT_EQ(form().markT.left(), 30 * instrument.settings().timeBase.position + 510 - 70);
  EXPECT_EQ(form().posT.top(), form().posDV[0].top());
}

TEST_F(LiveScope, TheReadingTravelsWithTheFrame) {
  goLive();
  tick();
  EXPECT_EQ(form().lblDmm.caption().size(), 10U);
  EXPECT_NE(form().lblDmm.caption().find('V'), std::string::npos);
}

TEST_F(LiveScope, TwoHundredFramesAreDrawnOneAfterTheOther) {
  goLive();
  for (int frame = 0; frame < 200; ++frame) {
    clock.advance(10ms);
    tick();
    ASSERT_EQ(drawn(), sentTraces()) << frame;
  }
  EXPECT_EQ(instrument.log(), Texts(200, "DRS??"));
  EXPECT_EQ(messages.count(), 0U);
  EXPECT_EQ(beeper.beeps, 0);
  EXPECT_TRUE(program.connection.connected());
}

TEST_F(LiveScope, AChangedSignalChangesTheTrace) {
  goLive();
  tick();
  const auto before = drawn();
  instrument.signal(simulator::Channel::kA).amplitude = 0.5;
  clock.advance(10ms);
  tick();
  EXPECT_NE(drawn(), before);
  EXPECT_EQ(drawn(), sentTraces());
}

TEST_F(LiveScope, AChannelThatIsOffIsNotDrawn) {
  goLive();
  instrument.settings().b.on = false;
  tick();
  EXPECT_EQ(drawn().size(), 124U);
  for (const form::Line& line : drawn()) {
    EXPECT_EQ(line.color, form::kRed);
  }
}

TEST_F(LiveScope, TheStoredReferenceTakesChannelBsPlaceAndCaption) {
  goLive();
  tick();
  instrument.storeReference();
  tick();
  EXPECT_EQ(form().posDV[1].caption(), "REF");
  instrument.clearReference();
  tick();
  EXPECT_EQ(form().posDV[1].caption(), "CHB");
}

TEST_F(LiveScope, StoppingStopsThePolls) {
  goLive();
  tick();
  form().cmdStart.click();
  tick();
  EXPECT_EQ(instrument.log(), Texts{"DRS??"});
}

TEST_F(LiveScope, DisconnectingMakesTheInstrumentLocal) {
  goLive();
  tick();
  EXPECT_TRUE(instrument.remote());
  form().cmdBttn[0].click();
  EXPECT_EQ(instrument.log(), (Texts{"DRS??", "GTL"}));
  EXPECT_FALSE(instrument.remote());
  expectDisconnected();
  tick();
  EXPECT_EQ(instrument.log().size(), 2U);
}

TEST_F(LiveScope, TheSlowTicksOfADayAreDrawnToo) {
  form().txtSTime.setText("86400");
  goLive();
  EXPECT_EQ(form().tmrInt.interval(), 86400000);
  clock.advance(24h);
  expectCleanTick();
}

TEST(LiveMeterModel, StartingAsksForTheFunctionText) {
  ProgramBench bench(simulator::Model::kK7900);
  bench.program.Form_Load();
  bench.connect();
  bench.form().cmdStart.click();
  EXPECT_EQ(bench.instrument.log(), Texts{"AFN??"});
  EXPECT_EQ(bench.form().panAfn.caption(), "DC VOLTAGE");
  bench.expectCleanTick();
}

TEST(LiveOneTabModels, TracesAreDrawn) {
  for (const auto model : {simulator::Model::kK7210, simulator::Model::kK7201}) {
    ProgramBench bench(model);
    bench.goLive();
    bench.expectCleanTick();
  }
}

TEST_F(LiveScope, TheMeterTabPollsTheReading) {
  goLive();
  form().SSTab1.setTab(1);
  form().cmdStart.click();
  instrument.clearLog();
  tick();
  EXPECT_EQ(instrument.log(), Texts{"DRM??"});
  EXPECT_EQ(form().dmmMrdg.caption().size(), 6U);
  EXPECT_FALSE(form().dmmMrge.caption().empty());
}

TEST_F(LiveScope, ConnectingWhileTheMeterTabIsShownAsksForTheParametersToo) {
  program.Form_Load();
  connect();
  form().SSTab1.setTab(1);
  form().cmdBttn[0].click();
  instrument.clearLog();
  form().cmdBttn[0].click();
  EXPECT_EQ(instrument.log(), (Texts{"DFN??", "DPS??"}));
}

}  // namespace
}  // namespace vireon::app
