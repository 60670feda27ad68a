#include "files/list_commands.h"

#include "files/list_text_file.h"
#include "tests/files/file_fixture.h"

namespace vireon::files {
namespace {

class ListAsText : public tests::FileFixture {
 protected:
  ListAsText() { showLogger(); }

  void name(const std::string& text) { form.txtFn[1].setText(text); }
  void save() { commands.cmdSave_Click(1); }
  void load(const std::string& chosen = "folder/a.txt") {
    dialogs.answer = chosen;
    commands.cmdLoad_Click(1);
  }
};

TEST_F(ListAsText, IsSavedWithItsHeaderAndTold) {
  fillList(2);
  name("mine");
  save();
  EXPECT_EQ(file("mine.txt"),
            "  R/No\tTime\tReading\t    Remarks\r\n1\t01:02:03\t1.5mV\t\r\n2\t01:02:03\t1.5mV\t\r\n");
  EXPECT_EQ(panel(), "Saved mine.txt");
  expectMessage("Complete Text file: \r\nfolder/mine.txt");
}

TEST_F(ListAsText, ReplacesAFileOfATypedName) {
  file("mine.txt") = "old";
  fillList(1);
  name("mine");
  save();
  EXPECT_NE(file("mine.txt"), "old");
}

TEST_F(ListAsText, AnEmptyBoxGetsANameOfDateAndTimeThatIsMadeAnewEachTime) {
  fillList(1);
  save();
  EXPECT_TRUE(hasFile("Log_071221_153012.txt"));
  clock.time.hour = 16;
  save();
  EXPECT_TRUE(hasFile("Log_071221_163012.txt"));
}

TEST_F(ListAsText, AnEmptyListSavesNothing) {
  for (int rows : {1, 2, 13}) {
    form.grdLog.setRows(rows);
    save();
    expectMessage("None Data. Please check again!! ");
  }
  fillList(1);
  form.grdLog.setText(0, 0, "");
  save();
  expectMessage("None Data. Please check again!! ");
  EXPECT_EQ(disk.replaces, 0U);
}

TEST_F(ListAsText, ARefusedNameGivesOneMessage) {
  fillList(1);
  name("..");
  save();
  expectRefusedName();
}

TEST_F(ListAsText, EachFailureGivesOneMessageAndNoWordOfSuccess) {
  fillList(1);
  name("mine");
  file("mine.txt") = "old";
  for (const auto failure : {platform::FileReplace::kNoPermission, platform::FileReplace::kNoSpace,
                             platform::FileReplace::kNoFolder, platform::FileReplace::kFailed}) {
    disk.replaceErrors[disk.replaces + 1] = failure;
    save();
    EXPECT_EQ(messages.count(), 1U);
    EXPECT_EQ(messages.lastText().find("Complete"), std::string::npos);
    messages.shown.clear();
    EXPECT_EQ(file("mine.txt"), "old");
    EXPECT_EQ(panel(), "");
  }
}

TEST_F(ListAsText, SaysThatSomeLettersDidNotFit) {
  fillList(1);
  form.grdLog.setText(1, 3, "한글");
  name("mine");
  save();
  EXPECT_EQ(panel(), "Saved mine.txt; \"?\" stands for each letter that such a file cannot hold");
}

TEST_F(ListAsText, IsLoadedRowByRowWithABeep) {
  file("a.txt") = "No\tTime\tReading\tRemarks\r\n1\t01:02:03\t5 \xB5\x41\tx\r\n2\t01:02:04\r\n";
  load();
  EXPECT_EQ(row(0), (Row{"No", "Time", "Reading", "Remarks"}));
  EXPECT_EQ(row(1), (Row{"1", "01:02:03", "5 µA", "x"}));
  EXPECT_EQ(row(2), (Row{"2", "01:02:04", "", ""}));
  EXPECT_EQ(beeper.beeps, 1);
  EXPECT_EQ(panel(), "Loaded a.txt");
  EXPECT_EQ(form.txtFn[1].text(), "a");
  EXPECT_EQ(messages.count(), 0U);
}

TEST_F(ListAsText, EmptiesTheListAndKeepsItsRows) {
  fillList(40);
  const int before = form.grdLog.rows();
  form.grdLog.setTopRow(20);
  file("a.txt") = "No\r\n1\r\n";
  load();
  EXPECT_EQ(form.grdLog.rows(), before);
  EXPECT_EQ(row(2), Row{});
  EXPECT_EQ(row(40), Row{});
  EXPECT_EQ(form.grdLog.topRow(), 1);
}

TEST_F(ListAsText, GrowsTheListSoThatOneRowIsLeftBelow) {
  for (const int lines : {12, 13, 20}) {
    form.grdLog.setRows(13);
    file("a.txt").clear();
    for (int line = 0; line < lines; ++line) {
      file("a.txt") += "x\r\n";
    }
    load();
    EXPECT_EQ(form.grdLog.rows(), std::max(13, lines + 1));
  }
}

TEST_F(ListAsText, SavedAndLoadedGivesTheSameListAgain) {
  fillList(30);
  setRow(7, {"7", "01:02:03", "-1.25 \xC2\xB5V", "€"});
  for (int record = 1; record <= 30; ++record) {
    form.grdLog.setText(record, 1, "01:02:03");
  }
  const auto before = rows();
  name("a");
  save();
  form.grdLog.clear();
  load();
  EXPECT_EQ(rows(), before);
}

TEST_F(ListAsText, AFileThatCannotBeLoadedSaysWhyAndLeavesTheList) {
  fillList(3);
  const auto before = rows();
  load("folder/none.txt");
  EXPECT_EQ(panel(), "none.txt: there is no such file");
  file("a.txt") = std::string("a\0b", 3);
  load();
  EXPECT_EQ(panel(), "a.txt: it is no text file");
  file("a.txt") = std::string(kMostListLines + 1, '\n');
  load();
  EXPECT_EQ(panel(), "a.txt: it has more than 250000 lines");
  disk.readErrors[disk.reads + 1] = platform::FileReadError::kFailed;
  load();
  EXPECT_EQ(panel(), "a.txt: it cannot be read");
  EXPECT_EQ(rows(), before);
  EXPECT_EQ(beeper.beeps, 0);
  EXPECT_EQ(messages.count(), 0U);
}

TEST_F(ListAsText, AnEmptyFileIsAnEmptyList) {
  fillList(3);
  file("a.txt") = "";
  load();
  EXPECT_EQ(row(0), Row{});
  EXPECT_EQ(row(3), Row{});
}

}  // namespace
}  // namespace vireon::files
