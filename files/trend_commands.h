#pragma once

#include <string>

#include "files/file_names.h"
#include "files/program_folder.h"
#include "form/main_form.h"
#include "protocol/instrument_state.h"

namespace vireon::files {

// Saving and loading trend plots.
class TrendCommands {
 public:
  static constexpr const char* kExtension = ".trd";

  // All outlive this object.
  TrendCommands(form::MainForm& form, protocol::InstrumentState& state, ProgramFolder& folder,
                FileNameBox& name)
      : form_(form), state_(state), folder_(folder), name_(name) {}

  // Saves the plot when it is full, as the user asked for it.
  void save();

  // Saves a plot that has just become full by itself; no file is ever replaced.
  void saveTrd();

  // Shows the file's plot. A file that ends too early leaves the labels and points read so far.
  void load(const std::string& path);

 private:
  int points() const;
  void write();

  form::MainForm& form_;
  protocol::InstrumentState& state_;
  ProgramFolder& folder_;
  FileNameBox& name_;
};

}  // namespace vireon::files
