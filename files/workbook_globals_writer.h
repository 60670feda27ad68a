#pragma once

#include <cstddef>

#include "files/record_writer.h"
#include "files/text_pool.h"

namespace vireon::files {

// Cell formats, by their place in the workbook's list.
enum class CellFormat : unsigned {
  kText = 15,
  kRecordNumber,
  kTime,
  kBoldText,
  kBoldRecordNumber,
  kBoldTime,
};

// Begins a workbook of one worksheet: all that stands before it. Returns the place of the 32 bits that must
// become the worksheet's position.
std::size_t writeWorkbookGlobals(RecordWriter& out, const TextPool& texts, std::size_t uses);

}  // namespace vireon::files
