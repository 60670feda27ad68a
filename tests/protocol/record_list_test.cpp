#include "protocol/record_list.h"

#include <gtest/gtest.h>

#include "form/main_form.h"

namespace vireon::protocol {
namespace {

class RecordList : public testing::Test {
 protected:
  form::MainForm form_;
  form::Grid& list_ = form_.grdLog;
};

TEST_F(RecordList, HasAtLeastThirteenRowsAndThreeFromItsRowOn) {
  struct Row {
    int rows;
    int row;
    int expected;
  };
  for (const Row& room : {Row{1, 1, 13}, Row{13, 10, 13}, Row{13, 11, 14}, Row{13, 13, 16}, Row{40, 11, 40},
                          Row{13, 1000, 1003}}) {
    list_.setRows(room.rows);
    makeRoom(list_, room.row);
    EXPECT_EQ(list_.rows(), room.expected) << room.rows << " " << room.row;
  }
}

TEST_F(RecordList, ScrollsByOneBelowRowTenAsFarAsItGoes) {
  followRecord(list_, 10);
  EXPECT_EQ(list_.topRow(), 1);
  followRecord(list_, 11);
  EXPECT_EQ(list_.topRow(), 2);
  list_.setTopRow(12);
  followRecord(list_, 11);
  EXPECT_EQ(list_.topRow(), 12);
}

TEST_F(RecordList, ARecordAndAnEndMarkAreTheNewestRow) {
  followRecord(list_, 3);
  EXPECT_EQ(list_.newestRow(), 3);
  followRecord(list_, 11);
  EXPECT_EQ(list_.newestRow(), 11);
  markEnd(list_, 20, kEndOfPoll);
  EXPECT_EQ(list_.newestRow(), 20);
}

TEST_F(RecordList, AnEndMarkStandsInTheColumnOfTheTimes) {
  markEnd(list_, 4, kEndOfData);
  EXPECT_EQ(list_.text(4, 1), "--EOD---");
  EXPECT_EQ(list_.text(4, 0), "");
  EXPECT_EQ(list_.text(4, 2), "");
}

TEST_F(RecordList, AnEndMarkMakesRoomForItself) {
  markEnd(list_, 30, kEndOfData);
  EXPECT_EQ(list_.text(30, 1), "--EOD---");
}

TEST_F(RecordList, AnEndMarkIsNotWrittenOverARecord) {
  for (int column = 0; column < 3; ++column) {
    list_.clear(1);
    list_.setText(2, column, "12");
    markEnd(list_, 2, kEndOfPoll);
    EXPECT_EQ(list_.text(2, 1), column == 1 ? "12" : "") << column;
  }
}

TEST_F(RecordList, AnEndMarkReplacesAnotherOne) {
  markEnd(list_, 2, kEndOfData);
  markEnd(list_, 2, kEndOfPoll);
  EXPECT_EQ(list_.text(2, 1), "--EOD--");
  list_.setText(2, 0, "     ");
  list_.setText(2, 3, "DCV");
  markEnd(list_, 2, kEndOfData);
  EXPECT_EQ(list_.text(2, 1), "--EOD---");
}

}  // namespace
}  // namespace vireon::protocol
