#include "files/workbook_writer.h"

#include <algorithm>

#include "files/record_writer.h"
#include "files/sheet_cells.h"
#include "files/workbook_globals_writer.h"
#include "files/worksheet_writer.h"

namespace vireon::files {
namespace {

// What the container takes beside the stream.
constexpr std::size_t kContainerBytes = kLargestWorkbook / 64;

// A little more than the stream will have.
std::size_t expectedBytes(const SheetCells& cells) {
  constexpr std::size_t kFixed = 4096;
  constexpr std::size_t kRow = 24;   // its record and its part of the indexes
  constexpr std::size_t kCell = 18;  // the longest record
  constexpr std::size_t kText = 4;   // beside its characters
  const TextPool& texts = cells.texts();
  return kFixed + static_cast<std::size_t>(cells.rows()) * kRow + cells.filled() * kCell +
         texts.size() * kText + texts.bytes();
}

}  // namespace

WorkbookWriteResult writeWorkbookStream(const SheetText& sheet, const Progress& progress) {
  SheetCells cells;
  if (const auto error = cells.take(sheet, progress); error != WorkbookWriteError::kNone) return {{}, error};
  RecordWriter out;
  out.reserve(std::min(expectedBytes(cells), kLargestWorkbook));
  const std::size_t sheetPosition = writeWorkbookGlobals(out, cells.texts(), cells.uses());
  out.patch32(sheetPosition, out.position());
  writeWorksheet(out, cells);
  if (out.position() > kLargestWorkbook - kContainerBytes) return {{}, WorkbookWriteError::kTooLarge};
  return {out.take(), WorkbookWriteError::kNone};
}

}  // namespace vireon::files
