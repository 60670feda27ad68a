#pragma once

#include <string_view>
#include <vector>

#include "files/list_row.h"
#include "files/workbook_reader.h"

namespace vireon::files {

struct ImportResult {
  std::vector<ListRow> rows;  // empty unless error is kNone
  WorkbookReadError error = WorkbookReadError::kNone;
};

// Columns A to D of the sheet's rows up to the first whose column A is empty: A as recordNumberText(), B as
// timeOfDayText(), C and D as plainText() give them. The stream may be hostile: beside it this takes 64 MB at
// most, what it returns included, and time in proportion to its size.
ImportResult importRows(std::string_view stream, const Progress& progress = {});

}  // namespace vireon::files
