#pragma once

#include <array>
#include <string>

#include "protocol/scoped_flag.h"
#include "scope/scale_tables.h"
#include "tests/fakes/fake_ports.h"
#include "tests/fakes/fake_raw_hid.h"
#include "tests/scope/waveform_frame.h"

namespace vireon::tests {

inline constexpr std::array kSavedKinds = {".wfm", ".trd", ".txt", ".xls"};

// What the file held before the program saved.
inline const std::string kOldContent = "the old content";

enum class SaveOutcome {
  kSaved,  // the user was told so, of nothing else
  kTold,   // the user got one message that it failed
  kOther,  // anything else; none of it may happen
};

// The program with something of each kind to save, on any file store.
class SavingProgram {
 public:
  SavingProgram(platform::FileStore& files, const std::string& folder)
      : program_(ports_.with(hid_, files), folder) {
    ports_.pump.timeOut = &program_.form.tmrCom;
    const protocol::ScopedFlag busy(program_.state.uiBusy);
    scope::initLbl(program_.form, program_.state);
    for (form::TextBox& box : program_.form.txtFn) {
      box.setText("saved");
    }
    ports_.documents.answer = false;
    form::Grid& list = program_.form.grdLog;
    list.setRows(2000);
    for (int row = 0; row < list.rows(); ++row) {
      list.setText(row, 0, std::to_string(row));
      list.setText(row, 2, "-1.234mV");
    }
    program_.form.barTrd.setValue(119);
  }

  // Saves as "saved" with the extension.
  SaveOutcome save(const std::string& kind) {
    form::MainForm& form = program_.form;
    {
      const protocol::ScopedFlag busy(program_.state.uiBusy);
      form.cmbDmod.setListIndex(kind == ".trd" ? 4 : 0);
    }
    form.optFmt[kind == ".xls" ? 1 : 0].setValue(true);
    form.StatusBar1.setPanel(1, "");
    ports_.messages.shown.clear();
    form.cmdSave[kind == ".wfm" ? 0 : 1].click();
    if (kind == ".wfm") {
      receiveFrame(program_.state, WaveformFields{}.bytes());
      program_.dispatcher.dspRcv();
    }
    const bool saved = form.StatusBar1.panel(1) == "Saved saved" + kind;
    const bool told =
        ports_.messages.count() == 1 && ports_.messages.lastText().starts_with("The file was not saved");
    if (saved == told) {
      return SaveOutcome::kOther;
    }
    return saved ? SaveOutcome::kSaved : SaveOutcome::kTold;
  }

 private:
  FakeRawHid hid_;
  FakePorts ports_;
  app::Program program_;
};

}  // namespace vireon::tests
