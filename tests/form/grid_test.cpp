#include "form/grid.h"

#include <gtest/gtest.h>

#include "tests/form/expect_fault.h"
#include "tests/form/recording_view.h"

namespace vireon::form {
namespace {

using tests::expectFault;
using Names = std::vector<std::string>;

class GridTest : public testing::Test {
 protected:
  GridTest() {
    grid_.setRows(3);
    grid_.setColumns(2);
    form_.setView(&view_);
  }

  void fill() {
    for (int row = 0; row < grid_.rows(); ++row) {
      for (int column = 0; column < grid_.columns(); ++column) {
        grid_.setText(row, column, std::to_string(10 * row + column));
      }
    }
    view_.changes.clear();
  }

  void expectChanges(int first, int last) {
    const RowRange changes = grid_.takeChanges();
    EXPECT_EQ(changes.first, first);
    EXPECT_EQ(changes.last, last);
  }

  Form form_{"window"};
  Grid grid_{form_, "grdLog"};
  tests::RecordingView view_;
};

TEST_F(GridTest, StartsWithOneCell) {
  const Grid fresh(form_, "other");
  EXPECT_EQ(fresh.rows(), 1);
  EXPECT_EQ(fresh.columns(), 1);
  EXPECT_EQ(fresh.topRow(), 1);
  EXPECT_EQ(fresh.text(0, 0), "");
}

TEST_F(GridTest, EachCellHoldsItsOwnText) {
  fill();
  for (int row = 0; row < 3; ++row) {
    for (int column = 0; column < 2; ++column) {
      EXPECT_EQ(grid_.text(row, column), std::to_string(10 * row + column));
    }
  }
}

TEST_F(GridTest, ANewTextIsToldToTheViewAndTheSameOneIsNot) {
  grid_.setText(1, 1, "x");
  grid_.setText(1, 1, "x");
  EXPECT_EQ(view_.changes, Names{"grdLog"});
}

TEST_F(GridTest, ACellOutsideIsABoundsFault) {
  const std::pair<int, int> outside[] = {{-1, 0}, {3, 0}, {0, -1}, {0, 2}, {1000, 1000}};
  for (const auto& [row, column] : outside) {
    const int r = row;
    const int c = column;
    expectFault(FaultKind::kBounds, [&] { grid_.setText(r, c, "x"); });
    expectFault(FaultKind::kBounds, [&] { static_cast<void>(grid_.text(r, c)); });
  }
}

TEST_F(GridTest, GrowingKeepsTheCellsAndAddsEmptyRows) {
  fill();
  grid_.setRows(5);
  EXPECT_EQ(grid_.rows(), 5);
  EXPECT_EQ(grid_.text(2, 1), "21");
  EXPECT_EQ(grid_.text(4, 1), "");
  EXPECT_EQ(view_.changes, Names{"grdLog"});
}

TEST_F(GridTest, ShrinkingForgetsTheRowsThatGo) {
  fill();
  grid_.setRows(2);
  EXPECT_EQ(grid_.text(1, 1), "11");
  expectFault(FaultKind::kBounds, [&] { static_cast<void>(grid_.text(2, 0)); });
  grid_.setRows(3);
  EXPECT_EQ(grid_.text(2, 0), "");
}

TEST_F(GridTest, NewColumnsEmptyEveryCell) {
  fill();
  grid_.setColumns(4);
  EXPECT_EQ(grid_.columns(), 4);
  EXPECT_EQ(grid_.rows(), 3);
  EXPECT_EQ(view_.changes, Names{"grdLog"});
  for (int row = 0; row < 3; ++row) {
    for (int column = 0; column < 4; ++column) {
      EXPECT_EQ(grid_.text(row, column), "");
    }
  }
}

TEST_F(GridTest, FewerThanOneRowOrColumnIsAFault) {
  expectFault(FaultKind::kPropertyValue, [&] { grid_.setRows(0); });
  expectFault(FaultKind::kPropertyValue, [&] { grid_.setColumns(0); });
  EXPECT_EQ(grid_.rows(), 3);
  EXPECT_EQ(grid_.columns(), 2);
  grid_.setRows(1);
  grid_.setColumns(1);
  EXPECT_EQ(grid_.text(0, 0), "");
}

TEST_F(GridTest, ClearingEmptiesTheHeaderRowToo) {
  fill();
  grid_.clear();
  EXPECT_EQ(grid_.text(0, 0), "");
  EXPECT_EQ(grid_.text(2, 1), "");
  EXPECT_EQ(grid_.rows(), 3);
  EXPECT_EQ(view_.changes, Names{"grdLog"});
}

TEST_F(GridTest, ClearingFromARowOnKeepsTheRowsAbove) {
  fill();
  grid_.takeChanges();
  grid_.clear(1);
  EXPECT_EQ(grid_.text(0, 1), "1");
  EXPECT_EQ(grid_.text(1, 0), "");
  EXPECT_EQ(grid_.text(2, 1), "");
  EXPECT_EQ(view_.changes, Names{"grdLog"});
  expectChanges(1, 2);
  expectFault(FaultKind::kBounds, [this] { grid_.clear(3); });
}

TEST_F(GridTest, TheSameNumberOfRowsIsNotToldToTheView) {
  grid_.setRows(3);
  EXPECT_EQ(view_.changes, Names{});
}

TEST_F(GridTest, TellsOnceWhichRowsHaveChanged) {
  grid_.setRows(20);
  grid_.takeChanges();
  EXPECT_TRUE(grid_.takeChanges().empty());
  grid_.setText(7, 0, "x");
  grid_.setText(4, 1, "x");
  grid_.setText(9, 1, "");
  expectChanges(4, 7);
  EXPECT_TRUE(grid_.takeChanges().empty());
}

TEST_F(GridTest, NewRowsAndEmptiedOnesHaveChanged) {
  grid_.takeChanges();
  grid_.setRows(5);
  expectChanges(3, 4);
  grid_.setColumns(3);
  expectChanges(0, 4);
  grid_.clear();
  expectChanges(0, 4);
}

TEST_F(GridTest, RowsThatAreGoneHaveNotChanged) {
  grid_.setRows(9);
  grid_.setText(8, 0, "x");
  grid_.setText(2, 0, "x");
  grid_.setRows(4);
  grid_.takeChanges();
  grid_.setText(1, 0, "y");
  grid_.setText(3, 0, "y");
  grid_.setRows(2);
  expectChanges(1, 1);
}

TEST_F(GridTest, ScrollingChangesNoCell) {
  grid_.takeChanges();
  grid_.setTopRow(2);
  EXPECT_TRUE(grid_.takeChanges().empty());
}

TEST_F(GridTest, TheTopRowIsOneOfTheRowsBelowTheHeader) {
  grid_.setTopRow(2);
  EXPECT_EQ(grid_.topRow(), 2);
  grid_.setTopRow(2);
  EXPECT_EQ(view_.changes, Names{"grdLog"});
  for (const int row : {-1, 0, 3}) {
    expectFault(FaultKind::kPropertyValue, [&] { grid_.setTopRow(row); });
  }
  EXPECT_EQ(grid_.topRow(), 2);
  grid_.setTopRow(1);
  EXPECT_EQ(grid_.topRow(), 1);
}

TEST_F(GridTest, TheNewestRowIsOneOfTheRowsBelowTheHeader) {
  EXPECT_EQ(grid_.newestRow(), 0);
  grid_.setNewestRow(2);
  EXPECT_EQ(grid_.newestRow(), 2);
  EXPECT_EQ(view_.changes, Names{"grdLog"});
  for (const int row : {-1, 0, 3}) {
    expectFault(FaultKind::kPropertyValue, [&] { grid_.setNewestRow(row); });
  }
  EXPECT_EQ(grid_.newestRow(), 2);
  EXPECT_EQ(grid_.topRow(), 1);
}

TEST_F(GridTest, TheTopRowFollowsWhenItsRowGoes) {
  grid_.setTopRow(2);
  grid_.setRows(2);
  EXPECT_EQ(grid_.topRow(), 1);
  grid_.setRows(1);
  EXPECT_EQ(grid_.topRow(), 1);
}

TEST_F(GridTest, TheTopRowStaysWhenItsRowStays) {
  grid_.setRows(6);
  grid_.setTopRow(3);
  grid_.setRows(4);
  EXPECT_EQ(grid_.topRow(), 3);
  grid_.setRows(20);
  EXPECT_EQ(grid_.topRow(), 3);
}

TEST_F(GridTest, ColumnsHaveTheirOwnWidthAndAlignment) {
  EXPECT_EQ(grid_.columnWidth(0), 0);
  EXPECT_EQ(grid_.columnAlignment(0), Alignment::kLeft);
  grid_.setColumnWidth(1, 1200);
  grid_.setColumnWidth(1, 1200);
  EXPECT_EQ(view_.changes, Names{"grdLog"});
  grid_.setColumnAlignment(1, Alignment::kCenter);
  grid_.setColumnAlignment(1, Alignment::kCenter);
  EXPECT_EQ(view_.changes, (Names{"grdLog", "grdLog"}));
  EXPECT_EQ(grid_.columnWidth(1), 1200);
  EXPECT_EQ(grid_.columnAlignment(1), Alignment::kCenter);
  EXPECT_EQ(grid_.columnWidth(0), 0);
  EXPECT_EQ(grid_.columnAlignment(0), Alignment::kLeft);
}

TEST_F(GridTest, AColumnOutsideIsABoundsFault) {
  for (const int column : {-1, 2}) {
    expectFault(FaultKind::kBounds, [&] { grid_.setColumnWidth(column, 1); });
    expectFault(FaultKind::kBounds, [&] { grid_.setColumnAlignment(column, Alignment::kLeft); });
    expectFault(FaultKind::kBounds, [&] { static_cast<void>(grid_.columnWidth(column)); });
    expectFault(FaultKind::kBounds, [&] { static_cast<void>(grid_.columnAlignment(column)); });
  }
}

}  // namespace
}  // namespace vireon::form
