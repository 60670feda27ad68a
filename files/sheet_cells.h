#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "files/text_pool.h"
#include "files/workbook_writer.h"

namespace vireon::files {

// What a cell is written as.
enum class CellContent : std::uint8_t { kNothing, kText, kRecordNumber, kTime };

// The cells to be written, four bytes each, and their texts.
class SheetCells {
 public:
  // Asks for every cell once. Empty rows at the end are left out.
  WorkbookWriteError take(const SheetText& sheet, const Progress& progress);

  int rows() const { return columns_ == 0 ? 0 : static_cast<int>(cells_.size()) / columns_; }
  int columns() const { return columns_; }
  const TextPool& texts() const { return texts_; }
  std::size_t uses() const { return uses_; }      // cells that are texts
  std::size_t filled() const { return filled_; }  // cells that are anything

  CellContent content(int row, int column) const {
    return static_cast<CellContent>(cells_[place(row, column)] >> kValueBits);
  }
  // A text's number, a record number, or seconds since midnight.
  std::uint32_t value(int row, int column) const {
    return cells_[place(row, column)] & ((std::uint32_t{1} << kValueBits) - 1);
  }

 private:
  static constexpr unsigned kValueBits = 30;

  std::size_t place(int row, int column) const {
    return static_cast<std::size_t>(row) * static_cast<std::size_t>(columns_) +
           static_cast<std::size_t>(column);
  }
  WorkbookWriteError takeRow(const SheetText& sheet, int row);
  std::uint32_t cell(std::string_view text, int column);

  int columns_ = 0;
  std::size_t uses_ = 0;
  std::size_t filled_ = 0;
  std::vector<std::uint32_t> cells_;  // CellContent above the value
  TextPool texts_;
};

}  // namespace vireon::files
