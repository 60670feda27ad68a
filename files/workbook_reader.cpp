#include "files/workbook_reader.h"

#include "files/sheet_builder.h"
#include "files/workbook_globals.h"
#include "files/worksheet_reader.h"

namespace vireon::files {

WorkbookReadResult readWorkbookStream(std::string_view stream, int columns, const Progress& progress) {
  const WorkbookGlobals globals = readWorkbookGlobals(stream);
  if (globals.error != WorkbookReadError::kNone) return {{}, globals.error};
  SheetBuilder builder(columns, globals.dates);
  const auto error = readWorksheet(stream, globals, builder, progress);
  if (error != WorkbookReadError::kNone) return {{}, error};
  return builder.finish(stream, globals.sharedTexts);
}

}  // namespace vireon::files
