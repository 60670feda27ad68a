#include "files/trend_file.h"
#include "files/waveform_file.h"
#include "protocol/scoped_flag.h"
#include "tests/app/program_bench.h"

namespace vireon::app {
namespace {

class SavedFiles : public testing::Test, public tests::ProgramBench {
 protected:
  std::string& file(const std::string& name) { return files.files["folder/" + name]; }
  std::string panel() { return form().StatusBar1.panel(1); }
  std::string frameInHand() {
    return files::waveformFile(std::span(program.state.rxBuf).first<files::kWaveformBytes>());
  }
  void load(int index, const std::string& name) {
    fileDialogs.answer = "folder/" + name;
    form().cmdLoad[index].click();
  }
};

TEST_F(SavedFiles, TheNextLiveFrameIsSavedMinutesLater) {
  goLive();
  tick();
  form().cmdSave[0].click();
  EXPECT_EQ(panel(), "Waiting for the next waveform");
  clock.advance(std::chrono::minutes(5));
  tick();
  EXPECT_EQ(file("Wfm_071221_140509.wfm"), frameInHand());
  EXPECT_EQ(panel(), "Saved Wfm_071221_140509.wfm");
  expectCleanTick();
}

TEST_F(SavedFiles, ALiveFrameThatIsSpoiltIsNotTheOneSaved) {
  goLive();
  form().cmdSave[0].click();
  form().StatusBar1.setPanel(1, "");
  const std::size_t before = files.replaces;
  program.state.rxBuf.fill('Z');
  std::copy_n("drs", 3, program.state.rxBuf.begin() + 1);
  program.dispatcher.dspRcv();
  EXPECT_EQ(files.replaces, before);
  EXPECT_EQ(panel(), "Waiting for the next waveform");
  tick();
  EXPECT_EQ(files.replaces, before + 1);
}

TEST_F(SavedFiles, AFullDiskWhileSamplingGivesOneMessageAndTheSamplingGoesOn) {
  goLive();
  form().cmdSave[0].click();
  files.replaceErrors[files.replaces + 1] = platform::FileReplace::kNoSpace;
  tick();
  EXPECT_EQ(messages.count(), 1U);
  expectCleanTick();
}

TEST_F(SavedFiles, AWaveformIsShownAgainByAnotherRunWithoutAnInstrument) {
  goLive();
  form().cmdSave[0].click();
  tick();
  const auto traces = drawn();
  const std::string settings = form().lblSinf[0].caption() + form().lblHd.caption();

  tests::ProgramBench later;
  later.files.files = files.files;
  ASSERT_TRUE(later.program.Form_Load());
  later.fileDialogs.answer = "folder/Wfm_071221_140509.wfm";
  later.form().cmdLoad[0].click();
  EXPECT_EQ(later.drawn(), traces);
  EXPECT_EQ(later.form().lblSinf[0].caption() + later.form().lblHd.caption(), settings);
  EXPECT_TRUE(later.instrument.log().empty());
  EXPECT_FALSE(later.program.connection.connected());
  EXPECT_EQ(later.messages.count(), 0U);
}

TEST_F(SavedFiles, LoadingWhileSamplingStopsItFirst) {
  goLive();
  form().cmdSave[0].click();
  tick();
  const auto saved = drawn();
  clock.advance(std::chrono::seconds(1));
  tick();
  load(0, "Wfm_071221_140509.wfm");
  EXPECT_EQ(form().cmdStart.caption(), "Start");
  EXPECT_FALSE(form().tmrInt.enabled());
  EXPECT_EQ(drawn(), saved);
}

TEST_F(SavedFiles, APlotThatHasBecomeFullIsSavedByItself) {
  ASSERT_TRUE(program.Form_Load());
  program.interpreter.dspSinf("dfn:50");
  for (int point = 0; point < 120; ++point) {
    std::string number = std::to_string(1000 + point).substr(1);
    program.interpreter.dspSinf("drt:" + number + ",3A");
  }
  EXPECT_EQ(file("Trd_071221_140509.trd"), files::trendFile(form(), program.state));
  EXPECT_EQ(messages.count(), 0U);
}

TEST_F(SavedFiles, AListSurvivesTheWayThroughBothFormats) {
  ASSERT_TRUE(program.Form_Load());
  {
    const protocol::ScopedFlag busy(program.state.uiBusy);
    form().SSTab1.setTab(1);
  }
  form().SSTab1.onLook();
  form::Grid& list = form().grdLog;
  for (int row = 1; row <= 9; ++row) {
    list.setText(row, 0, "0000" + std::to_string(row));
    list.setText(row, 1, "01:02:0" + std::to_string(row));
    list.setText(row, 2, "-1.5mV");
  }
  form().txtFn[1].setText("both");
  form().cmdSave[1].click();
  form().optFmt[1].setValue(true);
  form().cmdSave[1].click();
  EXPECT_EQ(documents.opened, std::vector<std::string>{"folder/both.xls"});
  for (const int format : {0, 1}) {
    list.clear();
    form().optFmt[format].setValue(true);
    load(1, format == 0 ? "both.txt" : "both.xls");
    EXPECT_EQ(list.text(0, 0), "  R/No");
    EXPECT_EQ(list.text(9, 0), "00009");
    EXPECT_EQ(list.text(9, 1), "01:02:09");
    EXPECT_EQ(list.text(9, 2), "-1.5mV");
    EXPECT_EQ(list.text(10, 0), "");
  }
}

TEST_F(SavedFiles, ARequestToCloseDuringALongExportEndsItAndNothingIsWritten) {
  ASSERT_TRUE(program.Form_Load());
  form().grdLog.setRows(7000);
  for (int row = 0; row < 6999; ++row) {
    form().grdLog.setText(row, 0, "1");
  }
  int closings = 0;
  program.closeLater = [&] { ++closings; };
  pump.atPump.emplace_back([&] { EXPECT_FALSE(program.requestClose()); });
  const std::size_t before = files.replaces;
  form().cmdSave[1].click();
  EXPECT_EQ(files.replaces, before);
  EXPECT_EQ(messages.count(), 0U);
  EXPECT_EQ(closings, 1);
}

}  // namespace
}  // namespace vireon::app
