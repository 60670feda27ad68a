#include "files/spreadsheet_commands.h"

#include <algorithm>

#include "files/import_rows.h"
#include "files/list_view.h"
#include "files/workbook_writer.h"

namespace vireon::files {
namespace {

using platform::MessageIcon;

constexpr const char* kNoWorkbook = "The file is no workbook.";
constexpr const char* kOldWorkbook =
    "The workbook was written for a spreadsheet of before 1997. Save it anew as \"Excel 97-2003\".";
constexpr const char* kDamaged = "The workbook is damaged.";
constexpr const char* kTooLarge = "The workbook is too large.";
constexpr const char* kNoLibrary = "The library for workbooks, libgsf, is not installed.";

const form::Grid* gridOf(const form::Form& form, std::string_view name) {
  const auto& controls = form.controls();
  const auto found =
      std::find_if(controls.begin(), controls.end(), [&](const auto* each) { return each->name() == name; });
  return found == controls.end() ? nullptr : dynamic_cast<const form::Grid*>(*found);
}

// The range without the rows after the last one with any text.
GridRange withoutEmptyEnd(const form::Grid& grid, GridRange range) {
  const auto isEmpty = [&](int row) {
    for (int column = range.firstColumn; column <= range.lastColumn; ++column) {
      if (!grid.text(row, column).empty()) {
        return false;
      }
    }
    return true;
  };
  while (range.lastRow > range.firstRow && isEmpty(range.lastRow)) {
    --range.lastRow;
  }
  return range;
}

const char* reason(platform::UnpackError error) {
  switch (error) {
    case platform::UnpackError::kNotCompound:
    case platform::UnpackError::kNoWorkbook:
      return kNoWorkbook;
    case platform::UnpackError::kOldWorkbook:
      return kOldWorkbook;
    case platform::UnpackError::kTooLarge:
      return kTooLarge;
    case platform::UnpackError::kNoLibrary:
      return kNoLibrary;
    case platform::UnpackError::kDamaged:
    case platform::UnpackError::kNone:
      break;
  }
  return kDamaged;
}

const char* reason(WorkbookReadError error) {
  switch (error) {
    case WorkbookReadError::kOldWorkbook:
      return kOldWorkbook;
    case WorkbookReadError::kEncrypted:
      return "The workbook is protected by a password.";
    case WorkbookReadError::kNoSheet:
      return "The workbook has no visible worksheet.";
    case WorkbookReadError::kTooLarge:
      return kTooLarge;
    case WorkbookReadError::kMalformed:
    case WorkbookReadError::kCancelled:
    case WorkbookReadError::kNone:
      break;
  }
  return kDamaged;
}

const char* reason(WorkbookWriteError error) {
  switch (error) {
    case WorkbookWriteError::kTooManyRows:
      return "The list has more rows than an .xls file holds (65536); a .txt file holds them.";
    case WorkbookWriteError::kTextTooLong:
      return "A text of the list is longer than an .xls file holds (32767 characters).";
    default:
      return "The list is too large for an .xls file.";
  }
}

const char* reason(platform::PackError error) {
  switch (error) {
    case platform::PackError::kTooLarge:
      return reason(WorkbookWriteError::kTooLarge);
    case platform::PackError::kNoLibrary:
      return kNoLibrary;
    case platform::PackError::kFailed:
    case platform::PackError::kNone:
      break;
  }
  return "The workbook could not be made.";
}

}  // namespace

void SpreadsheetCommands::save() {
  if (name_.isMade()) {
    name_.make("Log_", kExtension);
  }
  const std::string name = name_.name();
  if (folder_.allows(name)) {
    const form::Grid& list = form_.grdLog;
    saveExcel(form_, list.name(), name, {0, list.rows() - 1, 0, list.columns() - 1}, true);
  }
}

void SpreadsheetCommands::saveExcel(const form::Form& form, std::string_view grid, const std::string& name,
                                    const GridRange& range, bool open) {
  const form::Grid* const list = gridOf(form, grid);
  const std::string path = folder_.pathOf(name + kExtension);
  if (list == nullptr) {
    return;
  }
  if (folder_.has(name + kExtension)) {
    folder_.messages().show({"INFORMATION", path + " is Exist.", MessageIcon::kInformation});
    return;
  }
  if (isEmptyList(*list)) {
    folder_.tell(kNoneData);
    return;
  }
  const GridRange filled = withoutEmptyEnd(*list, range);
  if (filled.lastRow - filled.firstRow >= kMostSheetRows) {
    refuse(path, reason(WorkbookWriteError::kTooManyRows));
    return;
  }
  if (name.empty()) {
    folder_.tell("Please enter a file name first.", MessageIcon::kExclamation);
    return;
  }
  if (write(*list, name, filled) && (!open || openDoc(path))) {
    folder_.tell("Complete Excel file: " + path);
  }
}

bool SpreadsheetCommands::write(const form::Grid& grid, const std::string& name, const GridRange& range) {
  const int rows = range.lastRow - range.firstRow + 1;
  const SheetText sheet{
      rows, range.lastColumn - range.firstColumn + 1, [&](int row, int column) -> std::string_view {
        // The window lives meanwhile, and the list with it.
        const int gridRow = range.firstRow + row;
        return gridRow < grid.rows() ? grid.text(gridRow, range.firstColumn + column) : std::string_view();
      }};
  const WorkbookWriteResult workbook = [&] {
    ListProgress progress(work_, rows);
    return writeWorkbookStream(sheet, progress.function());
  }();
  if (workbook.error == WorkbookWriteError::kCancelled) {
    folder_.say("Cancelled: nothing was saved");
    return false;
  }
  const std::string path = folder_.pathOf(name + kExtension);
  if (workbook.error != WorkbookWriteError::kNone) {
    refuse(path, reason(workbook.error));
    return false;
  }
  const platform::PackResult packed = compoundFiles_.pack(workbook.stream);
  if (packed.error != platform::PackError::kNone) {
    refuse(path, reason(packed.error));
    return false;
  }
  return folder_.save(name, kExtension, packed.file);
}

void SpreadsheetCommands::refuse(const std::string& path, const std::string& problem) {
  folder_.tell("The file was not saved:\n" + path + "\n\n" + problem, MessageIcon::kExclamation);
}

bool SpreadsheetCommands::openDoc(const std::string& path) {
  return !path.empty() && documents_.open(path);
}

void SpreadsheetCommands::load(const std::string& path) {
  if (Load_ExcelFile(path, form_.grdLog)) {
    beeper_.beep();
    folder_.sayLoaded(path);
  }
}

bool SpreadsheetCommands::Load_ExcelFile(const std::string& strFileName, form::Grid& grdList) {
  const auto unreadable = [&](const std::string& problem) {
    folder_.tell("The file was not loaded:\n" + strFileName + "\n\n" + problem, MessageIcon::kExclamation);
    return false;
  };
  if (!folder_.exists(strFileName)) {
    folder_.messages().show(
        {"파일 찾기", strFileName + "\r\n 파일이 존재하지 않습니다.", MessageIcon::kExclamation});
    return false;
  }
  std::string problem;
  const auto file = folder_.read(strFileName, kLargestWorkbook, problem);
  if (!file) {
    return unreadable("The reason: " + problem + ".");
  }
  const platform::UnpackResult container = compoundFiles_.unpack(*file, kLargestWorkbook);
  if (container.error != platform::UnpackError::kNone) {
    return unreadable(reason(container.error));
  }
  ImportResult import = [&] {
    ListProgress progress(work_, 0);
    return importRows(container.workbook, progress.function());
  }();
  if (import.error == WorkbookReadError::kCancelled) {
    folder_.say("Cancelled: the list is as it was");
    return false;
  }
  if (import.error != WorkbookReadError::kNone) {
    return unreadable(reason(import.error));
  }
  fillList(grdList, std::move(import.rows));
  return true;
}

}  // namespace vireon::files
