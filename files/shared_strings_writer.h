#pragma once

#include <cstddef>

#include "files/record_writer.h"
#include "files/text_pool.h"

namespace vireon::files {

// The table of a workbook's texts and its index; `uses` is how often cells use them together. The stream must
// begin with the workbook's first record, because the index counts from there.
void writeSharedStrings(RecordWriter& out, const TextPool& texts, std::size_t uses);

}  // namespace vireon::files
