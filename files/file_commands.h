#pragma once

#include <array>
#include <string>

#include "files/file_names.h"
#include "files/list_commands.h"
#include "files/program_folder.h"
#include "files/spreadsheet_commands.h"
#include "files/trend_commands.h"
#include "files/waveform_commands.h"
#include "platform/file_dialog.h"
#include "protocol/reply_interpreter.h"

namespace vireon::files {

// What the file commands need from the computer; each outlives them.
struct FilePorts {
  platform::FileStore& files;
  platform::FileDialogs& dialogs;
  platform::MessageBoxes& messages;
  const platform::WallClock& clock;
  platform::Beeper& beeper;
  platform::CompoundFiles& compoundFiles;
  platform::DocumentOpener& documents;
};

// The parts of the program that the file commands work on; each outlives them.
struct FileParts {
  form::MainForm& form;
  protocol::InstrumentState& state;
  protocol::ReplyInterpreter& interpreter;
  scope::WaveformDisplay& waveform;
  meter::Sampling& sampling;
  link::LongWork& longWork;
  const link::Operations& operations;
};

// The handlers of the file boxes and buttons, 0 on the scope panel and 1 on the logger panel, and the one
// command for all kinds of saved files. None needs an instrument; while a long work runs none does anything.
class FileCommands {
 public:
  // `folder` is the program's own.
  FileCommands(const FileParts& parts, const FilePorts& ports, const std::string& folder);

  // Makes the controls, the waveform display and the interpreter call these handlers.
  void connectEvents();

  void txtFn_MouseDown(int index);
  void cmdSave_Click(int index);
  void cmdLoad_Click(int index);

  // Lets the user choose a saved file of any kind, shows the panel that fits and loads it.
  void openSaved();

  // The same for a file that was chosen already, wherever it lies; its extension tells its kind. UTF-8.
  void openSaved(const std::string& path);

  // A frame could not be drawn; an armed save waits for the next one.
  void frameRejected() { waveforms_.sayWaiting(); }

  SpreadsheetCommands& spreadsheets() { return spreadsheets_; }

 private:
  enum class Kind { kWaveform, kTrend, kText, kSpreadsheet, kNone };
  struct KindTexts;
  static const std::array<KindTexts, 4> kKinds;

  static Kind kindOf(const std::string& path);
  static const KindTexts& textsOf(Kind kind);
  std::string chosen(const std::string& filter);
  void load(Kind kind, const std::string& path);
  void show(Kind kind, const std::string& path);
  void showPanel(Kind kind);

  FileParts parts_;
  platform::FileStore& files_;
  platform::FileDialogs& dialogs_;
  ProgramFolder folder_;
  std::array<FileNameBox, 2> names_;
  WaveformCommands waveforms_;
  TrendCommands trends_;
  ListCommands lists_;
  SpreadsheetCommands spreadsheets_;
};

}  // namespace vireon::files
