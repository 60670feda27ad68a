#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "files/cell_value.h"
#include "files/workbook.h"

namespace vireon::files {

enum class WorkbookReadError {
  kNone,
  kOldWorkbook,  // written for a spreadsheet of before 1997
  kEncrypted,    // protected by a password
  kNoSheet,      // no worksheet that shows: charts, macros and hidden ones alone
  kMalformed,    // cut off, or no workbook
  kTooLarge,     // the cells' texts have more than kMostTextBytes together
  kCancelled,    // progress returned False
};

// Bytes of all texts that one sheet may give out, a text that several cells share counted for each.
inline constexpr std::size_t kMostTextBytes = std::size_t{16} << 20U;

// The cells of one worksheet.
class Sheet {
 public:
  // Up to the last row that has a cell in the columns read.
  int rows() const { return columns_ == 0 ? 0 : static_cast<int>(cells_.size()) / columns_; }
  int columns() const { return columns_; }
  DateSystem dates() const { return dates_; }

  // The cell of a row and column, each counted from 0; empty outside. Holds while the sheet does.
  CellValue value(int row, int column) const;

 private:
  friend class SheetBuilder;

  struct Cell {
    CellKind kind = CellKind::kEmpty;
    NumberKind numberKind = NumberKind::kPlain;
    std::uint32_t length = 0;  // of a text in texts_
    union {
      double number = 0;     // of a boolean 0 or 1
      std::uint64_t offset;  // of a text in texts_
    };
  };

  int columns_ = 0;
  DateSystem dates_ = DateSystem::k1900;
  std::vector<Cell> cells_;
  std::string texts_;
};

struct WorkbookReadResult {
  Sheet sheet;
  WorkbookReadError error = WorkbookReadError::kNone;
};

// The first `columns` columns, 1 to 256, of the worksheet that is shown when the workbook is opened, or of
// the first visible one where that is a chart. The stream may be hostile.
WorkbookReadResult readWorkbookStream(std::string_view stream, int columns, const Progress& progress = {});

using ImportedRow = std::array<std::string, 4>;

struct ImportResult {
  std::vector<ImportedRow> rows;  // UTF-8; empty unless error is kNone
  WorkbookReadError error = WorkbookReadError::kNone;
};

// Columns A to D of the sheet's rows up to the first whose column A is empty: A as recordNumberText(), B as
// timeOfDayText(), C and D as plainText() give them. Whatever the stream, it takes at most 48 MB.
ImportResult importRows(std::string_view stream, const Progress& progress = {});

}  // namespace vireon::files
