#include "adapters/qt/grid_model.h"

#include <gtest/gtest.h>

#include <QSignalSpy>

#include "form/main_form.h"

namespace vireon::adapters {
namespace {

class GridModelTest : public testing::Test {
 protected:
  GridModelTest() {
    grid_.setText(0, 0, "  R/No");
    model_.follow();
    data_.clear();
    header_.clear();
  }

  form::MainForm form_;
  form::Grid& grid_ = form_.grdLog;
  GridModel model_{grid_, nullptr};
  QSignalSpy data_{&model_, &QAbstractItemModel::dataChanged};
  QSignalSpy header_{&model_, &QAbstractItemModel::headerDataChanged};
  QSignalSpy inserted_{&model_, &QAbstractItemModel::rowsInserted};
  QSignalSpy removed_{&model_, &QAbstractItemModel::rowsRemoved};
};

TEST_F(GridModelTest, TellsOfTheChangedRowsAlone) {
  grid_.setText(3, 1, "x");
  grid_.setText(5, 0, "x");
  model_.follow();
  ASSERT_EQ(data_.count(), 1);
  EXPECT_EQ(data_[0][0].toModelIndex(), model_.index(2, 0));
  EXPECT_EQ(data_[0][1].toModelIndex(), model_.index(4, 3));
  EXPECT_EQ(header_.count(), 0);
}

TEST_F(GridModelTest, WithoutAChangeTellsNothing) {
  model_.follow();
  grid_.setTopRow(5);
  model_.follow();
  EXPECT_EQ(data_.count() + header_.count() + inserted_.count(), 0);
}

TEST_F(GridModelTest, NewRowsAreInsertedBelowAndNotToldAgain) {
  grid_.setRows(100);
  grid_.setText(50, 0, "x");
  model_.follow();
  ASSERT_EQ(inserted_.count(), 1);
  EXPECT_EQ(inserted_[0][1].toInt(), 12);
  EXPECT_EQ(inserted_[0][2].toInt(), 98);
  EXPECT_EQ(data_.count(), 0);
  EXPECT_EQ(model_.rowCount(), 99);
}

TEST_F(GridModelTest, RowsThatGoAreRemoved) {
  grid_.setRows(100);
  model_.follow();
  grid_.setText(5, 0, "x");
  grid_.setRows(13);
  model_.follow();
  ASSERT_EQ(removed_.count(), 1);
  EXPECT_EQ(removed_[0][1].toInt(), 12);
  EXPECT_EQ(removed_[0][2].toInt(), 98);
  EXPECT_EQ(data_.count(), 1);
}

TEST_F(GridModelTest, ANewHeadingIsTold) {
  grid_.setText(0, 1, "Time");
  model_.follow();
  EXPECT_EQ(header_.count(), 1);
  EXPECT_EQ(data_.count(), 0);
  EXPECT_EQ(model_.headerData(1, Qt::Horizontal, Qt::DisplayRole).toString(), QStringLiteral("Time"));
}

TEST_F(GridModelTest, CellsAreUtf8) {
  grid_.setText(1, 2, "1.5k\xCE\xA9");  // ohm
  EXPECT_EQ(model_.data(model_.index(0, 2), Qt::DisplayRole).toString(), QStringLiteral("1.5k\u03A9"));
}

}  // namespace
}  // namespace vireon::adapters
