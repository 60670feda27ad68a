#pragma once

#include "files/record_writer.h"
#include "files/sheet_cells.h"

namespace vireon::files {

// The worksheet's part of the stream, its first row in bold.
void writeWorksheet(RecordWriter& out, const SheetCells& cells);

}  // namespace vireon::files
