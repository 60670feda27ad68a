#pragma once

#include <string>

#include "files/file_names.h"
#include "files/program_folder.h"
#include "form/main_form.h"
#include "link/long_work.h"
#include "platform/beeper.h"

namespace vireon::files {

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
