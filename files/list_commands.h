#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "files/file_names.h"
#include "files/list_text_file.h"
#include "files/program_folder.h"
#include "files/workbook.h"
#include "form/main_form.h"
#include "link/long_work.h"
#include "platform/beeper.h"

namespace vireon::files {

inline constexpr int kLongList = 5000;  // a list of more rows shows its progress and can be cancelled
inline constexpr const char* kNoneData = "None Data. Please check again!! ";

// The progress of work on a list, shown once it is known to be a long one.
class ListProgress {
 public:
  // `rows` is 0 where their number is not known.
  ListProgress(link::LongWork& work, int rows) : work_(work), rows_(rows) {}

  // For a reader or writer of lists; valid as long as this object.
  Progress function() {
    return [this](int done) { return goOn(done); };
  }

 private:
  bool goOn(int done) {
    if (!scope_ && (rows_ == 0 ? done : rows_) > kLongList) {
      scope_.emplace(work_, rows_);
    }
    return !scope_ || scope_->goOn(done);
  }

  link::LongWork& work_;
  int rows_;
  std::optional<link::LongWork::Scope> scope_;
};

// Whether the list has no record to save.
bool isEmptyList(const form::Grid& list);

// Puts the rows into the list, from the header row on, and empties all others.
void fillList(form::Grid& list, std::vector<ListRow> rows);

// Saving and loading the logger's list as text.
class ListCommands {
 public:
  static constexpr const char* kExtension = ".txt";

  // All outlive this object.
  ListCommands(form::MainForm& form, link::LongWork& work, platform::Beeper& beeper, ProgramFolder& folder,
               FileNameBox& name)
      : form_(form), work_(work), beeper_(beeper), folder_(folder), name_(name) {}

  void save();

  // Shows the file's rows; the former list stays when that fails or is cancelled.
  void load(const std::string& path);

 private:
  form::MainForm& form_;
  link::LongWork& work_;
  platform::Beeper& beeper_;
  ProgramFolder& folder_;
  FileNameBox& name_;
};

}  // namespace vireon::files
