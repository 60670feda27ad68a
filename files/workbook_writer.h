#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "files/progress.h"
#include "files/workbook.h"

namespace vireon::files {

// A grid to be written: row 0 is the header row, column 0 the record number, column 1 the time of day.
struct SheetText {
  int rows = 0;
  int columns = 0;
  // UTF-8; asked for once per cell, row by row. The view must hold until the next call.
  std::function<std::string_view(int row, int column)> text;
};

enum class WorkbookWriteError {
  kNone,
  kTooManyRows,     // more than kMostSheetRows
  kTooManyColumns,  // more than kMostSheetColumns
  kTextTooLong,     // a cell of more than kLongestCellText
  kTooLarge,        // the file would have more than kLargestWorkbook bytes
  kCancelled,       // progress returned False
};

struct WorkbookWriteResult {
  std::string stream;  // the bytes of the stream "Workbook"; empty unless error is kNone
  WorkbookWriteError error = WorkbookWriteError::kNone;
};

// A workbook of one worksheet, "Logger", with the header row in bold. A record number of five digits is
// written as a number under the format "00000", a time "hh:mm:ss" as a time under that format, every other
// text as text, an empty one not at all; importRows() gives all of them back as they were. Bytes that are no
// UTF-8 become U+FFFD.
WorkbookWriteResult writeWorkbookStream(const SheetText& sheet, const Progress& progress = {});

}  // namespace vireon::files
