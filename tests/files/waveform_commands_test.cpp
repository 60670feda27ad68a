#include "files/waveform_commands.h"

#include <string>

#include "files/waveform_file.h"
#include "protocol/scoped_flag.h"
#include "tests/files/file_fixture.h"

namespace vireon::files {
namespace {

class WaveformSaving : public tests::FileFixture {
 protected:
  std::string saved(const tests::FrameBytes& frame) { return waveformFile(frame); }
  void name(const std::string& text) { form.txtFn[0].setText(text); }
  void save() { commands.cmdSave_Click(0); }

  tests::WaveformFields frame_;
};

TEST_F(WaveformSaving, WritesNothingUntilAFrameArrivesAndSaysThatItWaits) {
  name("mine");
  save();
  EXPECT_TRUE(waveform.wfmSave);
  EXPECT_TRUE(disk.files.empty());
  EXPECT_EQ(panel(), "Waiting for the next waveform");
}

TEST_F(WaveformSaving, WritesTheNextFrameUnderTheNameInTheBox) {
  name("mine");
  save();
  take(frame_.bytes());
  EXPECT_EQ(file("mine.wfm"), saved(frame_.bytes()));
  EXPECT_EQ(panel(), "Saved mine.wfm");
  EXPECT_EQ(messages.count(), 0U);
}

TEST_F(WaveformSaving, WritesOneFrameAlone) {
  name("mine");
  save();
  take(frame_.bytes());
  frame_.reading = " 9.999 VDC";
  take(frame_.bytes());
  EXPECT_EQ(disk.replaces, 1U);
}

TEST_F(WaveformSaving, AskedForTwiceBeforeTheNextFrameGivesOneFile) {
  save();
  clock.time.second += 1;
  save();
  take(frame_.bytes());
  take(frame_.bytes());
  ASSERT_EQ(disk.files.size(), 1U);
  EXPECT_TRUE(hasFile("Wfm_071221_153013.wfm"));
}

TEST_F(WaveformSaving, ReplacesTheFileOfATypedName) {
  file("mine.wfm") = "old";
  name("mine");
  save();
  take(frame_.bytes());
  EXPECT_EQ(file("mine.wfm"), saved(frame_.bytes()));
}

TEST_F(WaveformSaving, AnEmptyBoxAndThePlaceholderGetANameOfDateAndTime) {
  for (const char* text : {"", "File Name"}) {
    name(text);
    save();
    EXPECT_EQ(form.txtFn[0].text(), "Wfm_071221_153012");
  }
}

TEST_F(WaveformSaving, AMadeNameIsMadeAnewAtEachSave) {
  save();
  take(frame_.bytes());
  clock.time.minute = 31;
  save();
  take(frame_.bytes());
  EXPECT_TRUE(hasFile("Wfm_071221_153012.wfm"));
  EXPECT_TRUE(hasFile("Wfm_071221_153112.wfm"));
}

TEST_F(WaveformSaving, AMadeNameThatTheUserEditedStays) {
  save();
  take(frame_.bytes());
  name("Wfm_071221_153012 good");
  clock.time.minute = 31;
  save();
  take(frame_.bytes());
  EXPECT_TRUE(hasFile("Wfm_071221_153012 good.wfm"));
  EXPECT_EQ(disk.files.size(), 2U);
}

TEST_F(WaveformSaving, TheNameIsTheOneInTheBoxWhenTheFrameComes) {
  name("first");
  save();
  name("second");
  take(frame_.bytes());
  EXPECT_TRUE(hasFile("second.wfm"));
  save();
  name("");
  take(frame_.bytes());
  EXPECT_TRUE(hasFile("Wfm_071221_153012.wfm"));
  EXPECT_EQ(disk.files.size(), 2U);
}

TEST_F(WaveformSaving, ARefusedNameGivesOneMessageAndArmsNothing) {
  for (const char* text : {"../x", "a/b", "a\\b", "..", "a\tb", "a\x81"}) {
    name(text);
    save();
    expectRefusedName();
    EXPECT_FALSE(waveform.wfmSave);
  }
}

TEST_F(WaveformSaving, ANameSpoiltWhileTheSaveWaitedGivesOneMessage) {
  name("mine");
  save();
  name("../x");
  take(frame_.bytes());
  expectRefusedName();
}

TEST_F(WaveformSaving, EachFailureGivesOneMessageAndLeavesTheOldFile) {
  for (const auto failure : {platform::FileReplace::kNoPermission, platform::FileReplace::kNoSpace,
                             platform::FileReplace::kNoFolder, platform::FileReplace::kFailed}) {
    file("mine.wfm") = "old";
    disk.replaceErrors[disk.replaces + 1] = failure;
    name("mine");
    save();
    take(frame_.bytes());
    EXPECT_EQ(messages.count(), 1U);
    EXPECT_NE(messages.lastText().find("folder/mine.wfm"), std::string::npos);
    messages.shown.clear();
    EXPECT_EQ(file("mine.wfm"), "old");
    EXPECT_FALSE(waveform.wfmSave);
    EXPECT_NE(panel(), "Saved mine.wfm");
  }
}

TEST_F(WaveformSaving, ARejectedFrameIsNotSavedAndTheSaveWaitsOn) {
  name("mine");
  save();
  form.StatusBar1.setPanel(1, "");
  tests::WaveformFields bad = frame_;
  bad.tlv = "ZZ";
  // As the program ties the picture to the dispatcher.
  dispatcher.sinks.scopeDraw = [this] {
    try {
      waveform.scopeDraw();
    } catch (...) {
      commands.frameRejected();
      throw;
    }
  };
  take(bad.bytes());
  EXPECT_TRUE(disk.files.empty());
  EXPECT_TRUE(waveform.wfmSave);
  EXPECT_EQ(panel(), "Waiting for the next waveform");
  take(frame_.bytes());
  EXPECT_EQ(panel(), "Saved mine.wfm");
}

TEST_F(WaveformSaving, ANameWithADotIsSavedAsTypedWithAWordOfWarning) {
  name("a.b");
  save();
  take(frame_.bytes());
  EXPECT_TRUE(hasFile("a.b.wfm"));
  EXPECT_EQ(panel(), "Saved a.b.wfm; loading cuts the name at its first dot");
}

TEST_F(WaveformSaving, TheNameOfTheDiskIsUtf8) {
  name("5 \xB5s");
  save();
  take(frame_.bytes());
  EXPECT_TRUE(hasFile("5 µs.wfm"));
  EXPECT_EQ(panel(), "Saved 5 µs.wfm");
}

TEST_F(WaveformSaving, TheStatusBarHasTheLettersOfTheName) {
  form.txtFn[0].type("측정");
  save();
  take(frame_.bytes());
  EXPECT_TRUE(hasFile("측정.wfm"));
  EXPECT_EQ(panel(), "Saved 측정.wfm");
}

class WaveformLoading : public WaveformSaving {
 protected:
  WaveformLoading() { file("a.wfm") = saved(frame_.bytes()); }

  void load(const std::string& chosen = "folder/a.wfm") {
    dialogs.answer = chosen;
    commands.cmdLoad_Click(0);
  }

  // The first 285 bytes of rxBuf.
  std::string buffer(std::size_t length = 285) {
    return {state.rxBuf.begin(), state.rxBuf.begin() + static_cast<std::ptrdiff_t>(length)};
  }
};

TEST_F(WaveformLoading, ShowsTheFrameWithoutAnInstrument) {
  load();
  EXPECT_EQ(tests::linesOf(form.picScope), tests::bothTraces(frame_.a, frame_.b));
  EXPECT_EQ(panel(), "Loaded a.wfm");
  EXPECT_EQ(form.txtFn[0].text(), "a");
  EXPECT_FALSE(state.uiBusy);
}

TEST_F(WaveformLoading, RestoresEveryByteButTheLastFour) {
  state.rxBuf.fill(0xEE);
  load();
  const tests::FrameBytes frame = frame_.bytes();
  EXPECT_TRUE(std::equal(frame.begin(), frame.begin() + 285, state.rxBuf.begin()));
  for (std::size_t i = 285; i < state.rxBuf.size(); ++i) {
    EXPECT_EQ(state.rxBuf[i], 0xEE);
  }
}

TEST_F(WaveformLoading, ThePanelFollowsTheFilesSettings) {
  frame_.hdv = "0C";
  file("a.wfm") = saved(frame_.bytes());
  load();
  EXPECT_EQ(form.lblHd.caption(), state.labels.hdvLbl[12]);
}

TEST_F(WaveformLoading, DoesNotConsumeAnArmedSaveAndWritesNothing) {
  name("mine");
  save();
  load();
  EXPECT_TRUE(waveform.wfmSave);
  EXPECT_EQ(disk.replaces, 0U);
}

TEST_F(WaveformLoading, StopsSamplingAndEndsARecall) {
  form.cmdStart.setCaption("Stop");
  form.tmrInt.setEnabled(true);
  {
    const protocol::ScopedFlag busy(state.uiBusy);
    form.chkMld.setValue(1);
  }
  load();
  expectIdle();
  EXPECT_EQ(form.chkMld.value(), 0);
}

TEST_F(WaveformLoading, AMissingFileSaysSoAndLeavesEverything) {
  form.cmdStart.setCaption("Stop");
  load("folder/none.wfm");
  EXPECT_EQ(panel(), "none.wfm: there is no such file");
  EXPECT_EQ(form.cmdStart.caption(), "Stop");
  EXPECT_TRUE(form.picScope.lines().empty());
  EXPECT_EQ(messages.count(), 0U);
}

TEST_F(WaveformLoading, AFileThatCannotBeReadSaysWhy) {
  for (const auto& [error, text] :
       {std::pair{platform::FileReadError::kNoPermission, "a.wfm: this account may not read it"},
        {platform::FileReadError::kTooLarge, "a.wfm: it is too large for a saved file"},
        {platform::FileReadError::kFailed, "a.wfm: it cannot be read"}}) {
    disk.readErrors = {{disk.reads + 1, error}};
    load();
    EXPECT_EQ(panel(), text);
    EXPECT_EQ(messages.count(), 0U);
  }
}

TEST_F(WaveformLoading, AShortFileLeavesThePartReadInPlace) {
  form.cmdStart.setCaption("Stop");
  state.rxBuf.fill(0xEE);
  file("a.wfm") = " 1 \r\n 2 \r\n 3 \r\n";
  load();
  EXPECT_EQ(buffer(5), "\1\2\3\xEE\xEE");
  EXPECT_EQ(panel(), "a.wfm: it ends after line 3, before its last value");
  EXPECT_EQ(form.cmdStart.caption(), "Stop") << "nothing after the failure is done";
  EXPECT_TRUE(form.picScope.lines().empty());
}

TEST_F(WaveformLoading, AValueThatIsNoByteSaysWhere) {
  file("a.wfm") = " 1 \r\n 256 \r\n";
  load();
  EXPECT_EQ(panel(), "a.wfm: line 2 is not a number from 0 to 255");
}

TEST_F(WaveformLoading, AFrameThatCannotBeDrawnSaysSo) {
  frame_.tlv = "ZZ";
  file("a.wfm") = saved(frame_.bytes());
  load();
  EXPECT_EQ(panel(), "a.wfm: its trigger level is no hexadecimal number");
  EXPECT_FALSE(state.uiBusy);
}

TEST_F(WaveformLoading, InTheMiddleOfAnExchangeTheLinkKeepsItsAnswer) {
  state.rxBuf.fill(0xEE);
  const link::Operations::Scope exchange(connection.operations());
  load();
  EXPECT_EQ(tests::linesOf(form.picScope), tests::bothTraces(frame_.a, frame_.b));
  EXPECT_EQ(state.rxBuf[0], 0xEE);
}

}  // namespace
}  // namespace vireon::files
