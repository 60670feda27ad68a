#include "form/grid.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "form/control_visitor.h"

namespace vireon::form {

void Grid::setRows(int rows) {
  if (rows < 1) {
    throw Fault(FaultKind::kPropertyValue);
  }
  if (rows == rows_) {
    return;
  }
  cells_.resize(static_cast<std::size_t>(rows) * columns_.size());
  const int former = std::exchange(rows_, rows);
  topRow_ = std::clamp(topRow_, 1, std::max(1, rows - 1));
  changed(former, rows - 1);
  touch();
}

void Grid::setColumns(int columns) {
  if (columns < 1) {
    throw Fault(FaultKind::kPropertyValue);
  }
  columns_.resize(static_cast<std::size_t>(columns));
  cells_.assign(static_cast<std::size_t>(rows_) * columns_.size(), {});
  changed(0, rows_ - 1);
  touch();
}

const std::string& Grid::text(int row, int column) const {
  return cells_[cell(row, column)];
}

void Grid::setText(int row, int column, std::string text) {
  if (assign(cells_[cell(row, column)], std::move(text))) {
    changed(row, row);
  }
}

void Grid::clear(int firstRow) {
  std::fill(cells_.begin() + static_cast<std::ptrdiff_t>(cell(firstRow, 0)), cells_.end(), std::string());
  changed(firstRow, rows_ - 1);
  touch();
}

RowRange Grid::takeChanges() {
  const RowRange changes = std::exchange(changes_, {});
  return {changes.first, std::min(changes.last, rows_ - 1)};
}

void Grid::changed(int firstRow, int lastRow) {
  if (firstRow <= lastRow) {
    changes_ = changes_.empty()
                   ? RowRange{firstRow, lastRow}
                   : RowRange{std::min(changes_.first, firstRow), std::max(changes_.last, lastRow)};
  }
}

void Grid::setTopRow(int row) {
  assign(topRow_, checkedRow(row));
}

void Grid::setNewestRow(int row) {
  assign(newestRow_, checkedRow(row));
}

int Grid::checkedRow(int row) const {
  if (row < 1 || row >= rows_) {
    throw Fault(FaultKind::kPropertyValue);
  }
  return row;
}

void Grid::setColumnWidth(int column, int twips) {
  assign(columns_[checkedColumn(column)].width, twips);
}

void Grid::setColumnAlignment(int column, Alignment alignment) {
  assign(columns_[checkedColumn(column)].alignment, alignment);
}

std::size_t Grid::checkedColumn(int column) const {
  if (column < 0 || column >= columns()) {
    throw Fault(FaultKind::kBounds);
  }
  return static_cast<std::size_t>(column);
}

std::size_t Grid::cell(int row, int column) const {
  if (row < 0 || row >= rows_) {
    throw Fault(FaultKind::kBounds);
  }
  return static_cast<std::size_t>(row) * columns_.size() + checkedColumn(column);
}

void Grid::accept(ControlVisitor& visitor) {
  visitor.visit(*this);
}

}  // namespace vireon::form
