#include <gtest/gtest.h>

#include "tests/form/recording_view.h"
#include "tests/protocol/reply_rig.h"

namespace vireon::protocol {
namespace {

std::string pointItem(int point, const std::string& digits) {
  std::string number = std::to_string(point);
  number.insert(0, 3 - std::min<std::size_t>(3, number.size()), '0');
  return "drt:" + number + ":" + digits;
}

class TrendReplies : public tests::ReplyRig {
 protected:
  TrendReplies() { form_.panTrd.setVisible(true); }

  std::span<const form::Line> lines() const { return form_.picTrd.lines(); }
  std::string stored(std::size_t point) const {
    const auto* text = std::get_if<std::string>(&state_.trdBuf[point]);
    return text == nullptr ? "nothing" : *text;
  }
};

TEST_F(TrendReplies, PointZeroIsStoredAndNothingIsDrawn) {
  item("drt:000:10");
  EXPECT_EQ(stored(0), "&H10");
  EXPECT_EQ(state_.trdCnt, 0);
  EXPECT_TRUE(lines().empty());
  EXPECT_EQ(savedTrends_, 0);
}

TEST_F(TrendReplies, PointZeroBeginsANewPlot) {
  item("drt:000:10");
  item("drt:001:10");
  ASSERT_EQ(lines().size(), 1U);
  item("drt:000:20");
  EXPECT_TRUE(lines().empty());
  EXPECT_EQ(stored(0), "&H20");
  item("drt:001:20");
  EXPECT_EQ(lines().size(), 1U);
}

TEST_F(TrendReplies, EachFurtherPointIsJoinedToTheOneBefore) {
  item("drt:000:00");
  item("drt:001:2A");
  item("drt:002:ff");
  ASSERT_EQ(lines().size(), 2U);
  EXPECT_EQ(lines()[0], (form::Line{750, 1260, 780, 0, form::kRed}));
  EXPECT_EQ(lines()[1], (form::Line{780, 0, 810, 1260 - 30 * 255, form::kRed}));
  EXPECT_EQ(form_.barTrd.value(), 2);
}

TEST_F(TrendReplies, AMissedPointCountsAsZero) {
  item("drt:050:01");
  ASSERT_EQ(lines().size(), 1U);
  EXPECT_EQ(lines()[0], (form::Line{750 + 30 * 49, 1260, 750 + 30 * 50, 1230, form::kRed}));
}

TEST_F(TrendReplies, Point119DrawsFromPoint118AndSavesOnce) {
  item("drt:118:3C");
  item("drt:119:3D");
  EXPECT_EQ(stored(119), "&H3D");
  EXPECT_EQ(lines().back(),
            (form::Line{750 + 30 * 118, 1260 - 30 * 60, 750 + 30 * 119, 1260 - 30 * 61, form::kRed}));
  EXPECT_EQ(savedTrends_, 1);
}

TEST_F(TrendReplies, AWholeRunSavesExactlyOnceWithAllPointsThere) {
  std::size_t linesAtSave = 0;
  interpreter_.effects.saveTrd = [&] {
    ++savedTrends_;
    linesAtSave = lines().size();
  };
  for (int point = 0; point < 120; ++point) {
    item(pointItem(point, "20"));
    EXPECT_EQ(form_.barTrd.value(), point);
  }
  EXPECT_EQ(savedTrends_, 1);
  EXPECT_EQ(linesAtSave, 119U);
}

TEST_F(TrendReplies, Point120IsStillStoredAndDrawnButSavesNothing) {
  item("drt:120:05");
  EXPECT_EQ(stored(120), "&H05");
  ASSERT_EQ(lines().size(), 1U);
  EXPECT_EQ(lines()[0], (form::Line{750 + 30 * 119, 1260, 750 + 30 * 120, 1260 - 150, form::kRed}));
  EXPECT_EQ(form_.barTrd.value(), 120);
  EXPECT_EQ(savedTrends_, 0);
}

TEST_F(TrendReplies, PointsBeyond120AreNeitherStoredNorDrawn) {
  for (const int point : {121, 500, 999}) {
    tests::RecordingView view;
    form_.setView(&view);
    item(pointItem(point, "05"));
    EXPECT_TRUE(view.changes.empty()) << point;
    EXPECT_EQ(state_.trdCnt, point);
    form_.setView(nullptr);
  }
  EXPECT_EQ(form_.barTrd.value(), 0);
  EXPECT_EQ(savedTrends_, 0);
}

TEST_F(TrendReplies, ANegativePointIsAFault) {
  tests::RecordingView view;
  form_.setView(&view);
  item("drt:-01:05");
  EXPECT_TRUE(view.changes.empty());
}

TEST_F(TrendReplies, APointThatIsNoNumberChangesNothing) {
  state_.trdCnt = 7;
  for (const char* text : {"drt:xyz:05", "drt:   :05", "drt:", "drt"}) {
    item(text);
  }
  EXPECT_EQ(state_.trdCnt, 7);
  EXPECT_EQ(stored(7), "nothing");
  EXPECT_EQ(form_.barTrd.value(), 0);
}

TEST_F(TrendReplies, AValueThatIsNoHexNumberIsStoredButNotDrawn) {
  item("drt:118:10");
  const std::size_t before = lines().size();
  item("drt:119:G7");
  EXPECT_EQ(stored(119), "&HG7");
  EXPECT_EQ(form_.barTrd.value(), 119);
  EXPECT_EQ(lines().size(), before);
  EXPECT_EQ(savedTrends_, 0);
  item("drt:120:10");
  EXPECT_EQ(stored(120), "&H10");
  EXPECT_EQ(lines().size(), before);
}

TEST_F(TrendReplies, AShortItemStoresAnEmptyValue) {
  item("drt:000");
  EXPECT_EQ(stored(0), "&H");
  item("drt:001:5");
  EXPECT_EQ(stored(1), "&H5");
}

TEST_F(TrendReplies, APointIsCharacters5To7And9To10) {
  item("drt:0127342");
  EXPECT_EQ(state_.trdCnt, 12);
  EXPECT_EQ(stored(12), "&H34");
}

TEST_F(TrendReplies, TheLoggerGridIsLeftAlone) {
  item("drt:005:10");
  EXPECT_EQ(form_.grdLog.text(1, 0), "");
  EXPECT_EQ(state_.logRow, 1);
}

class LoggerReplies : public tests::ReplyRig {
 protected:
  LoggerReplies() { form_.panTrd.setVisible(false); }

  std::vector<std::string> row(int number) const {
    std::vector<std::string> cells;
    for (int column = 0; column < 4; ++column) {
      cells.push_back(form_.grdLog.text(number, column));
    }
    return cells;
  }
};

using Cells = std::vector<std::string>;

TEST_F(LoggerReplies, ARecordFillsThreeColumnsOfTheNextRow) {
  item("drt:0000112:34:56 1.234 Vxyz");
  EXPECT_EQ(row(1), (Cells{"00001", "12:34:56", " 1.234 V", ""}));
  EXPECT_EQ(state_.logRow, 2);
  item("drt:0000212:34:57-0.001mV");
  EXPECT_EQ(row(1), (Cells{"00001", "12:34:56", " 1.234 V", ""}));
  EXPECT_EQ(row(2), (Cells{"00002", "12:34:57", "-0.001mV", ""}));
  EXPECT_EQ(state_.logRow, 3);
}

TEST_F(LoggerReplies, AShortRecordLeavesTheLaterColumnsEmpty) {
  state_.logRow = 2;
  form_.grdLog.setText(2, 1, "old");
  form_.grdLog.setText(2, 2, "old");
  item("drt:00001");
  EXPECT_EQ(row(2), (Cells{"00001", "", "", ""}));
  item("drt");
  EXPECT_EQ(row(3), (Cells{"", "", "", ""}));
  EXPECT_EQ(state_.logRow, 4);
}

TEST_F(LoggerReplies, TheGridKeepsItsSizeUpToRowTen) {
  for (int record = 1; record <= 10; ++record) {
    item("drt:0000112:34:56 1.234 V");
  }
  EXPECT_EQ(state_.logRow, 11);
  EXPECT_EQ(form_.grdLog.rows(), 13);
  EXPECT_EQ(form_.grdLog.topRow(), 1);
}

TEST_F(LoggerReplies, FromRowElevenOnTheGridGrowsAndScrollsWithEachRecord) {
  for (int record = 1; record <= 40; ++record) {
    item("drt:" + std::to_string(10000 + record) + "12:34:56 1.234 V");
    if (record > 10) {
      EXPECT_EQ(form_.grdLog.rows(), record + 3);
      EXPECT_EQ(form_.grdLog.topRow(), record - 9);
    }
  }
  EXPECT_EQ(state_.logRow, 41);
  for (int record = 1; record <= 40; ++record) {
    EXPECT_EQ(form_.grdLog.text(record, 0), std::to_string(10000 + record));
  }
}

TEST_F(LoggerReplies, ARunThatStartsOverEmptiesTheListAndKeepsItsHeightAndHeadings) {
  for (int record = 1; record <= 30; ++record) {
    item("drt:0000112:34:56 1.234 V");
  }
  form_.grdLog.setText(31, 1, "--EOD---");
  state_.logRow = 1;
  item("drt:0000212:34:56 1.234 V");
  EXPECT_EQ(form_.grdLog.rows(), 33);
  EXPECT_EQ(form_.grdLog.topRow(), 1);
  EXPECT_EQ(row(0), (Cells{"  R/No", "Time", "Reading", "    Remarks"}));
  EXPECT_EQ(row(1), (Cells{"00002", "12:34:56", " 1.234 V", ""}));
  for (int other = 2; other < 33; ++other) {
    EXPECT_EQ(row(other), (Cells{"", "", "", ""})) << other;
  }
  for (int record = 2; record <= 12; ++record) {
    item("drt:0000212:34:56 1.234 V");
  }
  EXPECT_EQ(form_.grdLog.rows(), 33);
  EXPECT_EQ(form_.grdLog.topRow(), 3);
}

TEST_F(LoggerReplies, ARowBeyondTheGridMakesRoomForItself) {
  state_.logRow = 13;
  item("drt:0000112:34:56 1.234 V");
  EXPECT_EQ(state_.logRow, 14);
  EXPECT_EQ(form_.grdLog.rows(), 16);
  EXPECT_EQ(row(13)[0], "00001");
}

TEST_F(LoggerReplies, ASmallGridGrowsToThirteenRows) {
  form_.grdLog.setRows(2);
  item("drt:0000112:34:56 1.234 V");
  EXPECT_EQ(form_.grdLog.rows(), 13);
}

TEST_F(LoggerReplies, TheBytesOfARecordAreLettersOfCodePage1252) {
  item("drt:0000112:34:56 1.2\xB5V\x80");
  EXPECT_EQ(row(1)[2], " 1.2\xC2\xB5V\xE2\x82\xAC");
}

TEST_F(LoggerReplies, RecordsGoOnPastRow32767) {
  form_.grdLog.setRows(32770);
  state_.logRow = 32767;
  item("drt:0000112:34:56 1.234 V");
  item("drt:0000212:34:57 1.234 V");
  EXPECT_EQ(state_.logRow, 32769);
  EXPECT_EQ(form_.grdLog.text(32768, 0), "00002");
  EXPECT_EQ(form_.grdLog.rows(), 32771);
}

TEST_F(LoggerReplies, TheTrendPlotIsLeftAlone) {
  item("drt:119:3C");
  EXPECT_EQ(state_.trdCnt, 0);
  EXPECT_TRUE(form_.picTrd.lines().empty());
  EXPECT_EQ(form_.barTrd.value(), 0);
  EXPECT_EQ(savedTrends_, 0);
}

}  // namespace
}  // namespace vireon::protocol
