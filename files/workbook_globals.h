#pragma once

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

#include "files/cell_value.h"
#include "files/workbook_reader.h"

namespace vireon::files {

// What stands before a workbook's sheets.
struct WorkbookGlobals {
  WorkbookReadError error = WorkbookReadError::kNone;
  DateSystem dates = DateSystem::k1900;
  std::size_t sheet = 0;                   // the position of the sheet to be read
  std::optional<std::size_t> sharedTexts;  // the position of their table
  std::vector<NumberKind> numberKinds;     // of the cell formats, in their order
};

WorkbookGlobals readWorkbookGlobals(std::string_view stream);

}  // namespace vireon::files
