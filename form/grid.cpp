#include "form/grid.h"

#include <algorithm>

#include "form/control_visitor.h"

namespace vireon::form {

void Grid::setRows(int rows) {
  if (rows < 1) {
    throw Fault(FaultKind::kPropertyValue);
  }
  cells_.resize(static_cast<std::size_t>(rows) * columns_.size());
  rows_ = rows;
  topRow_ = std::clamp(topRow_, 1, std::max(1, rows - 1));
  touch();
}

void Grid::setColumns(int columns) {
  if (columns < 1) {
    throw Fault(FaultKind::kPropertyValue);
  }
  columns_.resize(static_cast<std::size_t>(columns));
  cells_.assign(static_cast<std::size_t>(rows_) * columns_.size(), {});
  touch();
}

const std::string& Grid::text(int row, int column) const {
  return cells_[cell(row, column)];
}

void Grid::setText(int row, int column, std::string text) {
  assign(cells_[cell(row, column)], std::move(text));
}

void Grid::clear() {
  std::fill(cells_.begin(), cells_.end(), std::string());
  touch();
}

void Grid::setTopRow(int row) {
  if (row < 1 || row >= rows_) {
    throw Fault(FaultKind::kPropertyValue);
  }
  assign(topRow_, row);
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
