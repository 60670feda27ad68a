#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "files/cell_value.h"

namespace vireon::files {

// Bytes of all texts that one sheet may give out, a text that several cells share counted for each.
inline constexpr std::size_t kMostTextBytes = std::size_t{8} << 20U;

// The first columns of a worksheet.
class Sheet {
 public:
  // Up to the last row that has a cell in these columns.
  int rows() const { return columns_ == 0 ? 0 : static_cast<int>(cells_.size()) / columns_; }
  int columns() const { return columns_; }
  DateSystem dates() const { return dates_; }

  // The cell of a row and column, each counted from 0; empty outside. Its text holds while the sheet does.
  CellValue value(int row, int column) const;

 private:
  friend class SheetBuilder;

  struct Cell {
    CellKind kind = CellKind::kEmpty;
    NumberKind numberKind = NumberKind::kPlain;
    std::uint32_t length = 0;  // of a text in texts_
    std::uint64_t bits = 0;    // a number's bits, a text's place in texts_, a boolean, an error's code
  };

  int columns_ = 0;
  DateSystem dates_ = DateSystem::k1900;
  std::vector<Cell> cells_;
  std::string texts_;
};

}  // namespace vireon::files
