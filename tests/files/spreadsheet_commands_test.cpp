#include "files/spreadsheet_commands.h"

#include "files/workbook_reader.h"
#include "tests/files/file_fixture.h"
#include "tests/files/workbook_bytes.h"

namespace vireon::files {
namespace {

class Spreadsheet : public tests::FileFixture {
 protected:
  Spreadsheet() {
    showLogger();
    form.optFmt[1].setValue(true);
  }

  void name(const std::string& text) { form.txtFn[1].setText(text); }
  void save() { commands.cmdSave_Click(1); }
  void load(const std::string& chosen = "folder/a.xls") {
    dialogs.answer = chosen;
    commands.cmdLoad_Click(1);
  }
  void expectNothingWritten() {
    EXPECT_EQ(disk.replaces, 0U);
    EXPECT_TRUE(documents.opened.empty());
  }
};

TEST_F(Spreadsheet, IsSavedAndOpenedAndTold) {
  fillList(2);
  name("mine");
  save();
  EXPECT_TRUE(file("mine.xls").starts_with(tests::FakeCompoundFiles::kMark));
  EXPECT_EQ(documents.opened, std::vector<std::string>{"folder/mine.xls"});
  EXPECT_EQ(panel(), "Saved mine.xls");
  expectMessage("Complete Excel file: folder/mine.xls");
}

TEST_F(Spreadsheet, NothingIsToldWhereItCannotBeOpened) {
  documents.answer = false;
  fillList(1);
  name("mine");
  save();
  EXPECT_TRUE(hasFile("mine.xls"));
  EXPECT_EQ(messages.count(), 0U);
}

TEST_F(Spreadsheet, SavedWithoutOpeningIsTold) {
  fillList(1);
  commands.spreadsheets().saveExcel(form, "grdLog", "mine", {0, 1, 0, 3}, false);
  EXPECT_TRUE(documents.opened.empty());
  expectMessage("Complete Excel file: folder/mine.xls");
}

TEST_F(Spreadsheet, AnExistingFileIsNeverReplaced) {
  file("mine.xls") = "old";
  fillList(1);
  name("mine");
  save();
  EXPECT_EQ(messages.lastTitle(), "INFORMATION");
  expectMessage("folder/mine.xls is Exist.", platform::MessageIcon::kInformation);
  EXPECT_EQ(file("mine.xls"), "old");
  expectNothingWritten();
}

TEST_F(Spreadsheet, AnEmptyListSavesNothing) {
  name("mine");
  save();
  expectMessage("None Data. Please check again!! ");
  expectNothingWritten();
}

TEST_F(Spreadsheet, AnEmptyBoxIsAskedForANameAfterTheOtherTests) {
  for (const char* text : {"", "File Name"}) {
    name(text);
    form.grdLog.clear();
    save();
    expectMessage("None Data. Please check again!! ");
    fillList(1);
    save();
    expectMessage("Please enter a file name first.", platform::MessageIcon::kExclamation);
    EXPECT_EQ(form.txtFn[1].text(), text);
    expectNothingWritten();
  }
}

TEST_F(Spreadsheet, ANameThatTheProgramMadeIsMadeAnew) {
  fillList(1);
  name("");
  form.optFmt[0].setValue(true);
  save();
  form.optFmt[1].setValue(true);
  clock.time.hour = 16;
  save();
  EXPECT_TRUE(hasFile("Log_071221_163012.xls"));
}

TEST_F(Spreadsheet, ARefusedNameGivesOneMessage) {
  fillList(1);
  name("a/b");
  save();
  expectRefusedName();
}

TEST_F(Spreadsheet, MoreRowsThanTheFormatHoldsAreRefusedAndNothingIsWritten) {
  fillList(1);
  form.grdLog.setRows(65537);
  form.grdLog.setText(65536, 3, "x");
  name("mine");
  save();
  expectMessage(
      "The file was not saved:\nfolder/mine.xls\n\n"
      "The list has more rows than an .xls file holds (65536); a .txt file holds them.",
      platform::MessageIcon::kExclamation);
  expectNothingWritten();
}

TEST_F(Spreadsheet, EmptyRowsAtTheEndDoNotCount) {
  fillList(1);
  form.grdLog.setRows(70000);
  form.grdLog.setText(65535, 3, "x");
  name("mine");
  save();
  EXPECT_TRUE(hasFile("mine.xls"));
}

TEST_F(Spreadsheet, EachFailureOfTheDiskGivesOneMessageAndOpensNothing) {
  fillList(1);
  name("mine");
  for (const auto failure : {platform::FileReplace::kNoPermission, platform::FileReplace::kNoSpace,
                             platform::FileReplace::kNoFolder, platform::FileReplace::kFailed}) {
    disk.replaceErrors[disk.replaces + 1] = failure;
    save();
    EXPECT_EQ(messages.count(), 1U);
    EXPECT_EQ(messages.lastText().find("Complete"), std::string::npos);
    messages.shown.clear();
    EXPECT_TRUE(documents.opened.empty());
  }
}

TEST_F(Spreadsheet, AContainerThatCannotBeMadeGivesOneMessage) {
  fillList(1);
  name("mine");
  using Pack = platform::PackError;
  for (const auto& [error, reason] :
       {std::pair{Pack::kFailed, "could not be made"}, {Pack::kNoLibrary, "libgsf, is not installed"}}) {
    compoundFiles.packError = error;
    save();
    ASSERT_EQ(messages.count(), 1U);
    EXPECT_NE(messages.lastText().find(reason), std::string::npos) << reason;
    messages.shown.clear();
    expectNothingWritten();
  }
}

TEST_F(Spreadsheet, ATextLongerThanTheFormatHoldsGivesOneMessage) {
  fillList(1);
  form.grdLog.setText(1, 3, std::string(40000, 'x'));
  name("mine");
  save();
  EXPECT_EQ(messages.count(), 1U);
  EXPECT_NE(messages.lastText().find("longer than an .xls file holds"), std::string::npos);
  expectNothingWritten();
}

TEST_F(Spreadsheet, AnEmptyPathOpensNoDocument) {
  EXPECT_FALSE(commands.spreadsheets().openDoc(""));
  EXPECT_TRUE(documents.opened.empty());
}

TEST_F(Spreadsheet, SavedAndLoadedGivesTheSameListAgain) {
  fillList(30);
  for (int record = 1; record <= 30; ++record) {
    form.grdLog.setText(record, 0, std::to_string(100000 + record).substr(1));
    form.grdLog.setText(record, 1, "01:02:03");
  }
  setRow(7, {"00007", "--EOD---", "", "µ 한글"});
  const auto before = rows();
  name("a");
  save();
  form.grdLog.clear();
  load();
  EXPECT_EQ(rows(), before);
  EXPECT_EQ(beeper.beeps, 1);
  EXPECT_EQ(panel(), "Loaded a.xls");
}

TEST_F(Spreadsheet, AFileThatIsMissingGivesItsMessage) {
  load("folder/none.xls");
  EXPECT_EQ(messages.lastTitle(), "파일 찾기");
  expectMessage("folder/none.xls\r\n 파일이 존재하지 않습니다.", platform::MessageIcon::kExclamation);
  EXPECT_EQ(beeper.beeps, 0);
}

TEST_F(Spreadsheet, AnUnreadableFileGivesOneMessageAndLeavesTheList) {
  fillList(3);
  const auto before = rows();
  using Unpack = platform::UnpackError;
  for (const auto& [error, reason] : {std::pair{Unpack::kNotCompound, "no workbook"},
                                      {Unpack::kNoWorkbook, "no workbook"},
                                      {Unpack::kOldWorkbook, "before 1997"},
                                      {Unpack::kDamaged, "damaged"},
                                      {Unpack::kTooLarge, "too large"},
                                      {Unpack::kNoLibrary, "libgsf, is not installed"}}) {
    file("a.xls") = "x";
    compoundFiles.unpackError = error;
    load();
    ASSERT_EQ(messages.count(), 1U);
    EXPECT_TRUE(messages.lastText().starts_with("The file was not loaded:\nfolder/a.xls\n\n"));
    EXPECT_NE(messages.lastText().find(reason), std::string::npos);
    messages.shown.clear();
  }
  compoundFiles.unpackError.reset();
  for (const char* bytes : {"", "a renamed .txt", "compound:no workbook"}) {
    file("a.xls") = bytes;
    load();
    EXPECT_EQ(messages.count(), 1U) << bytes;
    messages.shown.clear();
  }
  for (const auto error : {platform::FileReadError::kNoPermission, platform::FileReadError::kTooLarge,
                           platform::FileReadError::kFailed}) {
    disk.readErrors = {{disk.reads + 1, error}};
    load();
    EXPECT_EQ(messages.count(), 1U);
    messages.shown.clear();
  }
  EXPECT_EQ(rows(), before);
  EXPECT_EQ(beeper.beeps, 0);
}

TEST_F(Spreadsheet, WhatIsWrongWithAWorkbookIsTold) {
  using tests::begin;
  using tests::end;
  using tests::oneSheet;
  using tests::record;
  const std::string longText =
      record(biff::kLabel, tests::cellAt(0, 0) + tests::narrow(std::string(8000, 'x')));
  std::string longTexts;
  for (int cell = 0; cell < 1100; ++cell) longTexts += longText;
  for (const auto& [stream, reason] :
       {std::pair<std::string, std::string>{begin(biff::kGlobals, 0x0500) + end(), "before 1997"},
        {oneSheet("", record(biff::kFilePass, tests::u16(1))), "protected by a password"},
        {tests::workbook("", tests::SheetBytes{"", 1}), "no visible worksheet"},
        {oneSheet(longTexts), "too large"}}) {
    file("a.xls") = std::string(tests::FakeCompoundFiles::kMark) + stream;
    load();
    ASSERT_EQ(messages.count(), 1U);
    EXPECT_NE(messages.lastText().find(reason), std::string::npos) << reason;
    messages.shown.clear();
  }
}

TEST_F(Spreadsheet, AContainerThatWouldBeTooLargeGivesOneMessage) {
  fillList(1);
  name("mine");
  compoundFiles.packError = platform::PackError::kTooLarge;
  save();
  EXPECT_EQ(messages.count(), 1U);
  EXPECT_NE(messages.lastText().find("The list is too large for an .xls file."), std::string::npos);
  expectNothingWritten();
}

}  // namespace
}  // namespace vireon::files
