#include "files/file_commands.h"

#include "files/trend_file.h"
#include "files/waveform_file.h"
#include "tests/files/file_fixture.h"

namespace vireon::files {
namespace {

class FileCommandsTest : public tests::FileFixture {
 protected:
  FileCommandsTest() {
    file("w.wfm") = waveformFile(tests::WaveformFields{}.bytes());
    fillTrend();
    file("t.trd") = trendFile(form, state);
    form.barTrd.setValue(0);
    file("l.txt") = "No\r\n1\r\n";
    fillList(1);
    form.optFmt[1].setValue(true);
    form.txtFn[1].setText("s");
    commands.cmdSave_Click(1);
    form.optFmt[0].setValue(true);
    form.txtFn[1].setText("File Name");
    form.grdLog.clear();
    form.StatusBar1.setPanel(1, "");
    messages.shown.clear();
  }

  void load(int index, const std::string& chosen) {
    dialogs.answer = chosen;
    commands.cmdLoad_Click(index);
  }

  std::string lastFilter() { return dialogs.opened.empty() ? "" : dialogs.opened.back().filter; }
};

TEST_F(FileCommandsTest, TheMouseAndTheKeyboardEmptyTheBoxOfItsPlaceholder) {
  form.txtFn[0].mouseDown();
  EXPECT_EQ(form.txtFn[0].text(), "");
  EXPECT_EQ(form.txtFn[1].text(), "File Name");
  form.txtFn[1].focus();
  EXPECT_EQ(form.txtFn[1].text(), "");
  form.txtFn[0].setText("mine");
  form.txtFn[0].mouseDown();
  form.txtFn[0].focus();
  EXPECT_EQ(form.txtFn[0].text(), "mine");
}

TEST_F(FileCommandsTest, TheDialogsFilterGoesByThePanelThatShows) {
  load(0, "");
  EXPECT_EQ(lastFilter(), "Scope Data File(*.wfm)|*.wfm");
  showLogger(4);
  load(1, "");
  EXPECT_EQ(lastFilter(), "Trend Data File(*.trd)|*.trd");
  showLogger(0);
  load(1, "");
  EXPECT_EQ(lastFilter(), "Logger Data Text File(*.txt)|*.txt");
  form.optFmt[1].setValue(true);
  load(1, "");
  EXPECT_EQ(lastFilter(), "Logger Data Excel File(*.xls)|*.xls");
}

TEST_F(FileCommandsTest, TheDialogStaysInTheProgramsFolder) {
  load(0, "");
  EXPECT_EQ(dialogs.opened.back().folder, "folder");
  EXPECT_TRUE(dialogs.opened.back().staysInFolder);
}

TEST_F(FileCommandsTest, ACancelledDialogChangesNothing) {
  form.cmdStart.setCaption("Stop");
  load(0, "");
  EXPECT_EQ(form.cmdStart.caption(), "Stop");
  EXPECT_EQ(form.txtFn[0].text(), "File Name");
  EXPECT_EQ(panel(), "");
  EXPECT_EQ(disk.reads, 0U);
}

TEST_F(FileCommandsTest, TheFileIsTheOneOfTheBaseNameInTheProgramsFolder) {
  for (const char* chosen : {"folder/w.wfm", "/elsewhere/w.wfm", "folder/w.b.wfm", "w", "/elsewhere/w.txt"}) {
    form.StatusBar1.setPanel(1, "");
    load(0, chosen);
    EXPECT_EQ(panel(), "Loaded w.wfm") << chosen;
    EXPECT_EQ(form.txtFn[0].text(), "w");
  }
}

TEST_F(FileCommandsTest, ANameThatDiffersInTheCaseOfLettersAloneIsOpenedWhereTheExactOneIsMissing) {
  load(0, "folder/W.WFM");
  EXPECT_EQ(panel(), "Loaded w.wfm");
}

TEST_F(FileCommandsTest, TheButtonsCallTheirCommands) {
  form.txtFn[0].setText("mine");
  form.cmdSave[0].click();
  EXPECT_TRUE(waveform.wfmSave);
  dialogs.answer = "folder/w.wfm";
  form.cmdLoad[0].click();
  EXPECT_EQ(panel(), "Loaded w.wfm");
  showLogger();
  dialogs.answer = "folder/l.txt";
  form.cmdLoad[1].click();
  EXPECT_EQ(panel(), "Loaded l.txt");
  form.txtFn[1].setText("other");
  form.cmdSave[1].click();
  EXPECT_TRUE(hasFile("other.txt"));
}

TEST_F(FileCommandsTest, OpenSavedOffersAllFourKinds) {
  form.cmdOpen.click();
  EXPECT_EQ(lastFilter(), "Saved Files(*.wfm;*.trd;*.txt;*.xls)|*.wfm;*.trd;*.txt;*.xls");
  EXPECT_TRUE(dialogs.opened.back().staysInFolder);
  EXPECT_EQ(panel(), "");
}

TEST_F(FileCommandsTest, OpenSavedGoesByTheBaseNameToo) {
  dialogs.answer = "/elsewhere/W.b.WFM";
  commands.openSaved();
  EXPECT_EQ(panel(), "Loaded w.wfm");
}

TEST_F(FileCommandsTest, AWaveformIsShownOnTheScopeTab) {
  showLogger(4);
  commands.openSaved("folder/w.wfm");
  EXPECT_EQ(form.SSTab1.tab(), 0);
  EXPECT_TRUE(form.panScon.visible());
  EXPECT_FALSE(form.panDlog.visible());
  EXPECT_EQ(form.picScope.lines().size(), 248U);
  EXPECT_EQ(form.txtFn[0].text(), "w");
}

TEST_F(FileCommandsTest, ATrendIsShownOnTheTrendPanel) {
  commands.openSaved("folder/t.trd");
  EXPECT_EQ(form.SSTab1.tab(), 1);
  EXPECT_TRUE(form.panDlog.visible());
  EXPECT_TRUE(form.panTrd.visible());
  EXPECT_FALSE(form.grdLog.visible());
  EXPECT_EQ(form.cmbDmod.listIndex(), 4);
  EXPECT_EQ(form.lblDttl.caption(), " TREND PLOT ");
  EXPECT_TRUE(form.picStm.visible());
  EXPECT_EQ(form.picTrd.lines().size(), 119U);
  EXPECT_EQ(form.txtFn[1].text(), "t");
}

TEST_F(FileCommandsTest, AListIsShownOnTheLoggerPanel) {
  for (const auto& [name, format] : {std::pair{"l.txt", 0}, {"s.xls", 1}}) {
    commands.openSaved("folder/t.trd");
    commands.openSaved(std::string("folder/") + name);
    EXPECT_EQ(form.SSTab1.tab(), 1);
    EXPECT_FALSE(form.panTrd.visible());
    EXPECT_TRUE(form.grdLog.visible());
    EXPECT_EQ(form.cmbDmod.listIndex(), 0);
    EXPECT_EQ(form.lblDttl.caption(), " DATA LOGGER ");
    EXPECT_FALSE(form.picStm.visible());
    EXPECT_TRUE(form.optFmt[format].value());
    EXPECT_EQ(panel(), std::string("Loaded ") + name);
    EXPECT_EQ(form.grdLog.text(1, 0), "1");
  }
}

TEST_F(FileCommandsTest, AnOtherListModeStaysForAList) {
  showLogger(2);
  state.logRow = 7;
  commands.openSaved("folder/l.txt");
  EXPECT_EQ(form.cmbDmod.listIndex(), 2);
  EXPECT_EQ(state.logRow, 7);
}

TEST_F(FileCommandsTest, ADroppedFileIsLoadedFromWhereItLies) {
  disk.files["/elsewhere/a.b.TRD"] = file("t.trd");
  commands.openSaved("/elsewhere/a.b.TRD");
  EXPECT_EQ(panel(), "Loaded a.b.TRD");
  EXPECT_EQ(form.txtFn[1].text(), "a");
}

TEST_F(FileCommandsTest, AFileOfAnotherKindIsRefused) {
  for (const char* path : {"folder/x.bmp", "folder/vireon.ini", "folder/noextension", "folder/wfm"}) {
    commands.openSaved(path);
    EXPECT_NE(panel().find("only .wfm, .trd, .txt and .xls files are saved files"), std::string::npos)
        << path;
    EXPECT_EQ(disk.reads, 0U);
  }
}

TEST_F(FileCommandsTest, AWindowWithoutALoggerShowsWaveformsAlone) {
  form.SSTab1.setTabs(1);
  commands.openSaved("folder/t.trd");
  EXPECT_EQ(panel(), "t.trd: this instrument's window has no logger");
  commands.openSaved("folder/w.wfm");
  EXPECT_EQ(panel(), "Loaded w.wfm");
}

TEST_F(FileCommandsTest, ShowingAnotherTabEndsTheSamplingOfTheFormerOne) {
  form.cmdStart.setCaption("Stop");
  form.tmrInt.setEnabled(true);
  commands.openSaved("folder/l.txt");
  expectIdle();
}

}  // namespace
}  // namespace vireon::files
