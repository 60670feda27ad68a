#pragma once

#include <string>
#include <string_view>

#include "files/file_names.h"
#include "files/program_folder.h"
#include "form/main_form.h"
#include "link/long_work.h"
#include "platform/beeper.h"
#include "platform/compound_file.h"
#include "platform/document_opener.h"

namespace vireon::files {

// Rows and columns of a grid, the last ones included.
struct GridRange {
  int firstRow = 0;
  int lastRow = 0;
  int firstColumn = 0;
  int lastColumn = 0;
};

// Saving and loading the logger's list as a spreadsheet.
class SpreadsheetCommands {
 public:
  static constexpr const char* kExtension = ".xls";

  // All outlive this object.
  SpreadsheetCommands(form::MainForm& form, link::LongWork& work, platform::Beeper& beeper,
                      platform::CompoundFiles& compoundFiles, platform::DocumentOpener& documents,
                      ProgramFolder& folder, FileNameBox& name)
      : form_(form),
        work_(work),
        beeper_(beeper),
        compoundFiles_(compoundFiles),
        documents_(documents),
        folder_(folder),
        name_(name) {}

  void save();

  // Shows the file's rows; the former list stays when that fails or is cancelled.
  void load(const std::string& path);

  // Writes the range of the form's grid of that name as a workbook, its first row as the bold header, into
  // the program's folder under `name`, and opens it where `open` is set. A file of that name is never
  // replaced; an empty name is asked for.
  void saveExcel(const form::Form& form, std::string_view grid, const std::string& name,
                 const GridRange& range, bool open);

  // Has the desktop open a document; False when the path is empty or nothing could be opened.
  bool openDoc(const std::string& path);

  // Fills the grid from columns A to D of a workbook; False when that failed, was cancelled or the file is
  // not there: then the user knows and the grid is as it was.
  bool Load_ExcelFile(const std::string& strFileName, form::Grid& grdList);

 private:
  bool write(const form::Grid& grid, const std::string& name, const GridRange& range);
  void refuse(const std::string& path, const std::string& problem);

  form::MainForm& form_;
  link::LongWork& work_;
  platform::Beeper& beeper_;
  platform::CompoundFiles& compoundFiles_;
  platform::DocumentOpener& documents_;
  ProgramFolder& folder_;
  FileNameBox& name_;
};

}  // namespace vireon::files
