#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "files/workbook_reader.h"

namespace vireon::files {

using ImportedRow = std::array<std::string, 4>;

struct ImportResult {
  std::vector<ImportedRow> rows;  // UTF-8; empty unless error is kNone
  WorkbookReadError error = WorkbookReadError::kNone;
};

// Columns A to D of the sheet's rows up to the first whose column A is empty: A as recordNumberText(), B as
// timeOfDayText(), C and D as plainText() give them. The stream may be hostile: beside it this takes 64 MB at
// most, what it returns included, and time in proportion to its size.
ImportResult importRows(std::string_view stream, const Progress& progress = {});

}  // namespace vireon::files
