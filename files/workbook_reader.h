#pragma once

#include <string_view>

#include "files/progress.h"
#include "files/sheet.h"

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

inline constexpr int kMostReadColumns = 26;  // A to Z

struct WorkbookReadResult {
  Sheet sheet;
  WorkbookReadError error = WorkbookReadError::kNone;
};

// The first `columns` columns, 1 to kMostReadColumns, of the worksheet that is shown when the workbook is
// opened, or of the first visible one where that is none. A formula's cell has its last result. The stream
// may be hostile: beside it this takes 48 MB at most (4 columns) and time in proportion to its size.
WorkbookReadResult readWorkbookStream(std::string_view stream, int columns, const Progress& progress = {});

}  // namespace vireon::files
