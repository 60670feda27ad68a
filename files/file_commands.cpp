#include "files/file_commands.h"

#include <algorithm>

#include "meter/panel_layouts.h"
#include "protocol/logger_mode.h"
#include "protocol/scoped_flag.h"

namespace vireon::files {

struct FileCommands::KindTexts {
  Kind kind;
  const char* extension;
  const char* filter;
};

const std::array<FileCommands::KindTexts, 4> FileCommands::kKinds{
    {{Kind::kWaveform, WaveformCommands::kExtension, "Scope Data File(*.wfm)|*.wfm"},
     {Kind::kTrend, TrendCommands::kExtension, "Trend Data File(*.trd)|*.trd"},
     {Kind::kText, ListCommands::kExtension, "Logger Data Text File(*.txt)|*.txt"},
     {Kind::kSpreadsheet, SpreadsheetCommands::kExtension, "Logger Data Excel File(*.xls)|*.xls"}}};

FileCommands::FileCommands(const FileParts& parts, const FilePorts& ports, const std::string& folder)
    : parts_(parts),
      files_(ports.files),
      dialogs_(ports.dialogs),
      folder_(parts.form, ports.files, ports.messages, folder),
      names_{{{parts.form.txtFn[0], ports.files, ports.clock, folder},
              {parts.form.txtFn[1], ports.files, ports.clock, folder}}},
      waveforms_(parts.form, parts.state, parts.waveform, parts.sampling, parts.operations, folder_,
                 names_[0]),
      trends_(parts.form, parts.state, folder_, names_[1]),
      lists_(parts.form, parts.longWork, ports.beeper, folder_, names_[1]),
      spreadsheets_(parts.form, parts.longWork, ports.beeper, ports.compoundFiles, ports.documents, folder_,
                    names_[1]) {}

void FileCommands::connectEvents() {
  form::MainForm& form = parts_.form;
  form.txtFn.onEach(&form::TextBox::onMouseDown, [this](int index) { txtFn_MouseDown(index); });
  form.txtFn.onEach(&form::TextBox::onFocus, [this](int index) { txtFn_MouseDown(index); });
  form.cmdSave.onEach(&form::Button::onClick, [this](int index) { cmdSave_Click(index); });
  form.cmdLoad.onEach(&form::Button::onClick, [this](int index) { cmdLoad_Click(index); });
  form.cmdOpen.onClick = [this] { openSaved(); };
  parts_.waveform.writeWaveform = [this] { waveforms_.write(); };
  parts_.interpreter.effects.saveTrd = [this] { trends_.saveTrd(); };
}

void FileCommands::txtFn_MouseDown(int index) {
  names_.at(static_cast<std::size_t>(index)).clearPlaceholder();
}

void FileCommands::cmdSave_Click(int index) {
  if (parts_.longWork.running()) {
    return;
  }
  if (index == 0) {
    waveforms_.arm();
  } else if (parts_.form.cmbDmod.listIndex() == protocol::kTrendPlot) {
    trends_.save();
  } else if (parts_.form.optFmt[0].value()) {
    lists_.save();
  } else {
    spreadsheets_.save();
  }
}

void FileCommands::cmdLoad_Click(int index) {
  if (parts_.longWork.running()) {
    return;
  }
  const form::MainForm& form = parts_.form;
  const Kind ofLogger = form.panTrd.visible()    ? Kind::kTrend
                        : form.optFmt[0].value() ? Kind::kText
                                                 : Kind::kSpreadsheet;
  const std::string chosenPath = chosen(textsOf(form.panScon.visible() ? Kind::kWaveform : ofLogger).filter);
  const std::string base(baseNameOf(chosenPath));
  if (base.empty()) {
    return;
  }
  names_.at(static_cast<std::size_t>(index)).show(base);
  const Kind kind = index == 0 ? Kind::kWaveform : ofLogger;
  load(kind, findFile(files_, folder_.path(), base + textsOf(kind).extension));
}

const FileCommands::KindTexts& FileCommands::textsOf(Kind kind) {
  return *std::find_if(kKinds.begin(), kKinds.end(), [&](const auto& each) { return each.kind == kind; });
}

// Empty when the user cancelled.
std::string FileCommands::chosen(const std::string& filter) {
  return dialogs_.openName({filter, folder_.path(), "", true});
}

void FileCommands::openSaved() {
  if (parts_.longWork.running()) {
    return;
  }
  const std::string path = chosen("Saved Files(*.wfm;*.trd;*.txt;*.xls)|*.wfm;*.trd;*.txt;*.xls");
  if (path.empty()) {
    return;
  }
  const std::string extension = extensionOf(path);
  show(kindOf(path), findFile(files_, folder_.path(), std::string(baseNameOf(path)) + extension));
}

void FileCommands::openSaved(const std::string& path) {
  parts_.form.attend([&] {
    if (!parts_.longWork.running()) {
      show(kindOf(path), path);
    }
  });
}

FileCommands::Kind FileCommands::kindOf(const std::string& path) {
  const auto found =
      std::find_if(kKinds.begin(), kKinds.end(),
                   [extension = extensionOf(path)](const auto& each) { return each.extension == extension; });
  return found == kKinds.end() ? Kind::kNone : found->kind;
}

void FileCommands::show(Kind kind, const std::string& path) {
  if (kind == Kind::kNone) {
    folder_.sayProblem(path, "only .wfm, .trd, .txt and .xls files are saved files");
    return;
  }
  if (kind != Kind::kWaveform && parts_.form.SSTab1.tabs() < 2) {
    folder_.sayProblem(path, "this instrument's window has no logger");
    return;
  }
  showPanel(kind);
  names_.at(kind == Kind::kWaveform ? 0 : 1).show(std::string(baseNameOf(path)));
  load(kind, path);
}

void FileCommands::showPanel(Kind kind) {
  form::MainForm& form = parts_.form;
  const int tab = kind == Kind::kWaveform ? 0 : 1;
  // What the other tab samples is not what the panel is to show.
  if (form.SSTab1.tab() != tab && form.cmdStart.caption() == "Stop") {
    parts_.sampling.cmdStart_Click();
  }
  const protocol::ScopedFlag busy(parts_.state.uiBusy);
  form.SSTab1.setTab(tab);
  meter::setTabPan(form);
  if (kind == Kind::kWaveform) {
    return;
  }
  const bool trend = kind == Kind::kTrend;
  if (form.panTrd.visible() != trend || (form.cmbDmod.listIndex() == protocol::kTrendPlot) != trend) {
    const int mode = trend ? protocol::kTrendPlot : protocol::kDataLogger;
    form.cmbDmod.setListIndex(mode);
    meter::setSubPan(form, mode);
    trend ? parts_.interpreter.enterTrendMode() : parts_.interpreter.enterListMode();
  }
  if (!trend) {
    form.optFmt[kind == Kind::kText ? 0 : 1].setValue(true);
  }
}

void FileCommands::load(Kind kind, const std::string& path) {
  switch (kind) {
    case Kind::kWaveform:
      waveforms_.load(path);
      break;
    case Kind::kTrend:
      trends_.load(path);
      break;
    case Kind::kText:
      lists_.load(path);
      break;
    case Kind::kSpreadsheet:
      spreadsheets_.load(path);
      break;
    case Kind::kNone:
      break;
  }
}

}  // namespace vireon::files
