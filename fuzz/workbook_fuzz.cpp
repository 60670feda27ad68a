#include <cstdint>
#include <string_view>

#include "files/import_rows.h"
#include "files/workbook_writer.h"
#include "fuzz/require.h"

namespace {

using vireon::files::ImportResult;
using vireon::files::WorkbookReadError;
using vireon::files::WorkbookWriteError;
using vireon::fuzz::require;

void requireBounded(const ImportResult& result) {
  require(result.error == WorkbookReadError::kNone || result.rows.empty());
  require(result.rows.size() <= vireon::files::kMostSheetRows);
  std::size_t bytes = 0;
  for (const auto& row : result.rows) {
    require(!row[0].empty());
    for (const auto& text : row) bytes += text.size();
  }
  require(bytes <= vireon::files::kMostTextBytes);
}

}  // namespace

// An input is a workbook stream. What was imported is exported and imported again.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const ImportResult first =
      vireon::files::importRows(std::string_view(reinterpret_cast<const char*>(data), size));
  requireBounded(first);
  const auto written = vireon::files::writeWorkbookStream(
      {static_cast<int>(first.rows.size()), 4, [&first](int row, int column) -> std::string_view {
         return first.rows[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)];
       }});
  if (written.error != WorkbookWriteError::kNone) {
    require(written.error == WorkbookWriteError::kTextTooLong);
    return 0;
  }
  const ImportResult second = vireon::files::importRows(written.stream);
  require(second.error == WorkbookReadError::kNone && second.rows == first.rows);
  return 0;
}
