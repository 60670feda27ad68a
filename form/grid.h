#pragma once

#include <deque>
#include <string>
#include <utility>
#include <vector>

#include "form/control.h"

namespace vireon::form {

// How a column's texts stand in their cells.
enum class Alignment { kLeft, kCenter };

// Rows `first` to `last`; none where `first` is beyond `last`.
struct RowRange {
  int first = 0;
  int last = -1;
  bool empty() const { return first > last; }
};

// A list grid; row 0 is the header row. Its cells, unlike the texts of all other controls, are UTF-8.
class Grid : public Control {
 public:
  Grid(Form& form, std::string name) : Control(form, std::move(name)) {}

  int rows() const { return rows_; }
  // Keeps the cells of the rows that stay; new rows are empty. One row more costs the same in a grid of any
  // size. Faults (kPropertyValue) below 1.
  void setRows(int rows);
  int columns() const { return static_cast<int>(columns_.size()); }
  // Changes the columns and empties all cells. Faults (kPropertyValue) below 1.
  void setColumns(int columns);

  // Faults (kBounds) outside the rows and columns.
  const std::string& text(int row, int column) const;
  void setText(int row, int column, std::string text);
  // Empties the cells from a row on: from 0 the header row's too.
  void clear(int firstRow = 0);

  // The rows whose cells may have changed since the last call, new ones included; for the view of the grid.
  RowRange takeChanges();

  // First row shown below the header. Faults (kPropertyValue) outside 1 to rows-1.
  int topRow() const { return topRow_; }
  void setTopRow(int row);

  // The row written last of a list that grows; a view that showed the one before brings it into view. 0 for
  // none. Faults (kPropertyValue) outside 1 to rows-1.
  int newestRow() const { return newestRow_; }
  void setNewestRow(int row);

  // Twips; 0 is the grid's default width.
  int columnWidth(int column) const { return columns_[checkedColumn(column)].width; }
  void setColumnWidth(int column, int twips);
  Alignment columnAlignment(int column) const { return columns_[checkedColumn(column)].alignment; }
  void setColumnAlignment(int column, Alignment alignment);

  void accept(ControlVisitor& visitor) override;

 private:
  struct Column {
    int width = 0;
    Alignment alignment = Alignment::kLeft;
  };

  std::size_t checkedColumn(int column) const;
  int checkedRow(int row) const;
  std::size_t cell(int row, int column) const;
  void changed(int firstRow, int lastRow);

  int rows_ = 1;
  int topRow_ = 1;
  int newestRow_ = 0;
  std::vector<Column> columns_{Column{}};
  std::deque<std::string> cells_{""};  // row by row; grows without moving what is there
  RowRange changes_{0, 0};
};

}  // namespace vireon::form
