#pragma once

#include <string_view>

#include "files/progress.h"
#include "files/sheet_builder.h"
#include "files/workbook_globals.h"

namespace vireon::files {

// Puts the cells of the worksheet that the globals name into the builder.
WorkbookReadError readWorksheet(std::string_view stream, const WorkbookGlobals& globals,
                                SheetBuilder& builder, const Progress& progress);

}  // namespace vireon::files
