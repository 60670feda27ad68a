#include "files/trend_commands.h"

#include "files/trend_file.h"
#include "tests/files/file_fixture.h"

namespace vireon::files {
namespace {

class TrendSaving : public tests::FileFixture {
 protected:
  TrendSaving() {
    showLogger(4);
    fillTrend();
  }

  void save() { commands.cmdSave_Click(1); }
  void name(const std::string& text) { form.txtFn[1].setText(text); }

  // The answer that brings point 119 and with it the automatic save.
  void completePlot() { interpreter.dspSinf("drt:119,42"); }
};

TEST_F(TrendSaving, WritesAFullPlotUnderTheNameInTheBox) {
  name("mine");
  save();
  EXPECT_EQ(file("mine.trd"), trendFile(form, state));
  EXPECT_EQ(panel(), "Saved mine.trd");
  EXPECT_EQ(messages.count(), 0U);
}

TEST_F(TrendSaving, ReplacesTheFileOfATypedName) {
  file("mine.trd") = "old";
  name("mine");
  save();
  EXPECT_NE(file("mine.trd"), "old");
}

TEST_F(TrendSaving, APlotThatIsNotFullWritesNothingAndSaysHowManyPointsThereAre) {
  struct Case {
    int bar;
    const char* text;
  };
  for (const Case& each : {Case{118, "Not saved: the trend plot has 119 of its 120 points"},
                           Case{1, "Not saved: the trend plot has 2 of its 120 points"},
                           Case{0, "Not saved: the trend plot has 0 of its 120 points"},
                           Case{120, "Not saved: the trend plot has 121 of its 120 points"}}) {
    form.barTrd.setValue(each.bar);
    save();
    EXPECT_EQ(panel(), each.text);
  }
  state.trdCnt = 0;
  form.barTrd.setValue(0);
  save();
  EXPECT_EQ(panel(), "Not saved: the trend plot has 1 of its 120 points");
  EXPECT_TRUE(disk.files.empty());
  EXPECT_EQ(messages.count(), 0U);
}

TEST_F(TrendSaving, AnEmptyBoxGetsANameOfDateAndTime) {
  name("");
  save();
  EXPECT_EQ(form.txtFn[1].text(), "Trd_071221_153012");
  EXPECT_TRUE(hasFile("Trd_071221_153012.trd"));
}

TEST_F(TrendSaving, AMadeNameIsMadeAnewAtEachSave) {
  save();
  clock.time.minute = 31;
  save();
  EXPECT_TRUE(hasFile("Trd_071221_153112.trd"));
  EXPECT_EQ(disk.files.size(), 2U);
}

TEST_F(TrendSaving, ARefusedNameGivesOneMessage) {
  name("a/b");
  save();
  expectRefusedName();
}

TEST_F(TrendSaving, EachFailureGivesOneMessageAndLeavesTheOldFile) {
  file("mine.trd") = "old";
  name("mine");
  disk.replaceErrors[1] = platform::FileReplace::kNoSpace;
  save();
  EXPECT_EQ(messages.count(), 1U);
  EXPECT_EQ(file("mine.trd"), "old");
}

TEST_F(TrendSaving, IsForTheTrendModeAlone) {
  name("mine");
  showLogger(0);
  fillList(1);
  form.barTrd.setValue(119);
  save();
  EXPECT_TRUE(hasFile("mine.txt"));
  EXPECT_FALSE(hasFile("mine.trd"));
}

TEST_F(TrendSaving, AFullPlotIsSavedByItselfUnderTheNameInTheBox) {
  name("mine");
  completePlot();
  EXPECT_EQ(file("mine.trd"), trendFile(form, state));
  EXPECT_EQ(form.txtFn[1].text(), "mine");
}

TEST_F(TrendSaving, ByItselfItMakesANameWhereTheBoxIsEmptyOrItsNameRefused) {
  for (const char* text : {"", "File Name", "../x", "a\nb"}) {
    disk.files.clear();
    name(text);
    completePlot();
    EXPECT_EQ(disk.files.size(), 1U) << text;
    EXPECT_TRUE(hasFile("Trd_071221_153012.trd")) << text;
    EXPECT_EQ(messages.count(), 0U);
  }
}

TEST_F(TrendSaving, ByItselfItNeverReplacesAFile) {
  file("mine.trd") = "old";
  file("Trd_071221_153012.trd") = "older";
  name("mine");
  completePlot();
  EXPECT_EQ(file("mine.trd"), "old");
  EXPECT_EQ(file("Trd_071221_153012.trd"), "older");
  EXPECT_EQ(form.txtFn[1].text(), "Trd_071221_153012_2");
  EXPECT_EQ(disk.files.size(), 3U);
  completePlot();
  EXPECT_EQ(disk.files.size(), 4U);
}

TEST_F(TrendSaving, ByItselfAFailureGivesOneMessageToo) {
  disk.replaceErrors[1] = platform::FileReplace::kNoSpace;
  completePlot();
  EXPECT_EQ(messages.count(), 1U);
}

class TrendLoading : public TrendSaving {
 protected:
  TrendLoading() {
    file("a.trd") = trendFile(form, state);
    state = {};
    for (form::Label& label : form.vdtrd) {
      label.setCaption("");
    }
    form.barTrd.setValue(0);
  }

  void load(const std::string& chosen = "folder/a.trd") {
    dialogs.answer = chosen;
    commands.cmdLoad_Click(1);
  }
};

TEST_F(TrendLoading, ShowsThePlotWithoutAnInstrument) {
  load();
  EXPECT_EQ(form.picTrd.lines().size(), 119U);
  EXPECT_EQ(form.picTrd.lines()[1], (form::Line{780, 1230, 810, 1200, form::kRed}));
  EXPECT_EQ(form.barTrd.value(), 119);
  EXPECT_EQ(form.vdtrd[7].caption(), "20Sec");
  EXPECT_EQ(form.vdtrd[3].caption(), "10Min");
  EXPECT_EQ(panel(), "Loaded a.trd");
  EXPECT_EQ(form.txtFn[1].text(), "a");
}

TEST_F(TrendLoading, TheLowerLimitShowsTheUpperOnesText) {
  load();
  EXPECT_EQ(form.vdtrd[1].caption(), "+100mV");
  EXPECT_EQ(form.vdtrd[2].caption(), "+100mV");
}

TEST_F(TrendLoading, APlotThatWasLoadedIsSavedAgainAsNumbers) {
  load();
  name("b");
  save();
  EXPECT_EQ(file("b.trd").substr(0, 35), "20Sec\r\n+100mV\r\n10Min\r\n 0 \r\n 1 \r\n 2 ");
}

TEST_F(TrendLoading, ReplacesThePlotThatWasShown) {
  form.picTrd.line(1, 2, 3, 4, form::kRed);
  load();
  EXPECT_EQ(form.picTrd.lines().size(), 119U);
}

TEST_F(TrendLoading, AMissingFileSaysSoAndLeavesAnEmptyPlot) {
  form.picTrd.line(1, 2, 3, 4, form::kRed);
  form.barTrd.setValue(60);
  load("folder/none.trd");
  EXPECT_EQ(panel(), "none.trd: there is no such file");
  EXPECT_TRUE(form.picTrd.lines().empty());
  EXPECT_EQ(form.barTrd.value(), 0);
  EXPECT_EQ(messages.count(), 0U);
}

TEST_F(TrendLoading, AShortFileLeavesTheLabelsAndPointsReadSoFar) {
  file("a.trd") = "1Min\r\n+5V\r\n9Min\r\n&H10\r\n&H11\r\n";
  load();
  EXPECT_EQ(panel(), "a.trd: it ends after line 5, before its last value");
  EXPECT_EQ(form.vdtrd[7].caption(), "1Min");
  EXPECT_EQ(state.trdBuf[1], protocol::TrendPoint(17.0));
  EXPECT_EQ(state.trdBuf[2], protocol::TrendPoint());
  EXPECT_TRUE(form.picTrd.lines().empty());
}

TEST_F(TrendLoading, APointThatIsNoNumberSaysWhere) {
  file("a.trd") = "1Min\r\n+5V\r\n9Min\r\nx\r\n";
  load();
  EXPECT_EQ(panel(), "a.trd: line 4 is not a number");
}

}  // namespace
}  // namespace vireon::files
