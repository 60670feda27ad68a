#include "files/workbook_writer.h"

#include "files/record_writer.h"
#include "files/sheet_cells.h"
#include "files/workbook_globals_writer.h"
#include "files/worksheet_writer.h"

namespace vireon::files {
namespace {

// What the container takes beside the stream.
constexpr std::size_t kContainerBytes = kLargestWorkbook / 64;

}  // namespace

WorkbookWriteResult writeWorkbookStream(const SheetText& sheet, const Progress& progress) {
  SheetCells cells;
  if (const auto error = cells.take(sheet, progress); error != WorkbookWriteError::kNone) return {{}, error};
  RecordWriter out;
  const std::size_t sheetPosition = writeWorkbookGlobals(out, cells.texts(), cells.uses());
  out.patch32(sheetPosition, out.position());
  writeWorksheet(out, cells);
  if (out.position() > kLargestWorkbook - kContainerBytes) return {{}, WorkbookWriteError::kTooLarge};
  return {out.take(), WorkbookWriteError::kNone};
}

}  // namespace vireon::files
