#include "files/list_commands.h"
#include "tests/files/file_fixture.h"

namespace vireon::files {
namespace {

// Saving and loading a list, as text and as a spreadsheet.
class LongLists : public tests::FileFixture, public testing::WithParamInterface<const char*> {
 protected:
  LongLists() {
    showLogger();
    form.optFmt[std::string(GetParam()) == ".xls" ? 1 : 0].setValue(true);
    form.txtFn[1].setText("a");
  }

  std::string name() const { return std::string("a") + GetParam(); }

  void save() { commands.cmdSave_Click(1); }
  void load() {
    dialogs.answer = "folder/" + name();
    commands.cmdLoad_Click(1);
  }

  // A file of so many records, and another list than that shown.
  void prepareFile(int records) {
    fillList(records);
    save();
    messages.shown.clear();
    form.grdLog.setRows(13);
    fillList(3);
  }

  // During the next pumps the window is looked at.
  void lookAtEachPump() {
    for (int pumps = 0; pumps < 1000; ++pumps) {
      pump.atPump.emplace_back([this] {
        ++looks_;
        EXPECT_TRUE(form.barWork.visible());
        EXPECT_TRUE(form.cmdCancel.takesInput());
        EXPECT_FALSE(form.cmdSave[1].takesInput());
        EXPECT_TRUE(state.logTransfer);
      });
    }
  }
  void cancelAtNextPump() {
    pump.atPump.clear();
    pump.atPump.emplace_back([this] { form.cmdCancel.click(); });
  }

  int looks_ = 0;
};

TEST_P(LongLists, OverFiveThousandRowsTheSavingShowsItsProgress) {
  fillList(5000);
  lookAtEachPump();
  save();
  EXPECT_GE(looks_, 10);
  EXPECT_TRUE(hasFile(name()));
  EXPECT_FALSE(form.barWork.visible());
}

TEST_P(LongLists, UpToFiveThousandRowsNothingOfTheKindIsSeen) {
  fillList(4999);
  lookAtEachPump();
  save();
  EXPECT_TRUE(hasFile(name()));
  load();
  EXPECT_EQ(looks_, 0);
  EXPECT_EQ(form.grdLog.text(4999, 0).empty(), false);
}

TEST_P(LongLists, OverFiveThousandRowsTheLoadingShowsItsProgress) {
  prepareFile(6000);
  lookAtEachPump();
  load();
  EXPECT_GE(looks_, 2);
  EXPECT_EQ(form.grdLog.rows(), 6002);
  EXPECT_FALSE(form.barWork.visible());
  EXPECT_EQ(beeper.beeps, 1);
}

TEST_P(LongLists, ACancelledSavingWritesNothing) {
  fillList(6000);
  cancelAtNextPump();
  save();
  EXPECT_FALSE(hasFile(name()));
  EXPECT_EQ(disk.replaces, 0U);
  EXPECT_EQ(panel(), "Cancelled: nothing was saved");
  EXPECT_EQ(messages.count(), 0U);
}

TEST_P(LongLists, ACancelledLoadingLeavesTheListAsItWas) {
  prepareFile(6000);
  const auto before = rows();
  cancelAtNextPump();
  load();
  EXPECT_EQ(rows(), before);
  EXPECT_EQ(panel(), "Cancelled: the list is as it was");
  EXPECT_EQ(messages.count(), 0U);
  EXPECT_EQ(beeper.beeps, 0);
}

TEST_P(LongLists, NoOtherFileCommandRunsMeanwhile) {
  prepareFile(6000);
  pump.atPump.emplace_back([this] {
    dialogs.opened.clear();
    commands.cmdSave_Click(0);
    commands.cmdSave_Click(1);
    commands.cmdLoad_Click(0);
    commands.cmdLoad_Click(1);
    commands.openSaved();
    commands.openSaved("folder/" + name());
    EXPECT_TRUE(dialogs.opened.empty());
    EXPECT_FALSE(waveform.wfmSave);
  });
  load();
  EXPECT_EQ(disk.replaces, 1U);
  EXPECT_EQ(disk.reads, 1U);
}

INSTANTIATE_TEST_SUITE_P(Formats, LongLists, testing::Values(".txt", ".xls"));

}  // namespace
}  // namespace vireon::files
