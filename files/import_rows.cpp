#include "files/import_rows.h"

#include <cstddef>

#include "files/cell_text.h"

namespace vireon::files {
namespace {

bool isEmpty(const CellValue& value) {
  return value.kind == CellKind::kEmpty || (value.kind == CellKind::kText && value.text.empty());
}

int rowsToImport(const Sheet& sheet) {
  int row = 0;
  while (row < sheet.rows() && !isEmpty(sheet.value(row, 0))) ++row;
  return row;
}

}  // namespace

ImportResult importRows(std::string_view stream, const Progress& progress) {
  const auto [sheet, error] = readWorkbookStream(stream, kListColumns, progress);
  if (error != WorkbookReadError::kNone) return {{}, error};
  ImportResult result;
  const int rows = rowsToImport(sheet);
  result.rows.reserve(static_cast<std::size_t>(rows));
  std::size_t bytes = 0;
  for (int row = 0; row < rows; ++row) {
    const DateSystem dates = sheet.dates();
    result.rows.push_back({recordNumberText(sheet.value(row, 0), dates),
                           timeOfDayText(sheet.value(row, 1), dates), plainText(sheet.value(row, 2), dates),
                           plainText(sheet.value(row, 3), dates)});
    for (const std::string& text : result.rows.back()) bytes += text.size();
    // A number may be longer as a text than its cell.
    if (bytes > kMostTextBytes) return {{}, WorkbookReadError::kTooLarge};
  }
  return result;
}

}  // namespace vireon::files
