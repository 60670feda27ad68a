#pragma once

#include <string>

#include "files/file_names.h"
#include "files/program_folder.h"
#include "form/main_form.h"
#include "link/operations.h"
#include "meter/sampling.h"
#include "protocol/instrument_state.h"
#include "scope/waveform_display.h"

namespace vireon::files {

// Saving and loading waveforms.
class WaveformCommands {
 public:
  static constexpr const char* kExtension = ".wfm";

  // All outlive this object.
  WaveformCommands(form::MainForm& form, protocol::InstrumentState& state, scope::WaveformDisplay& waveform,
                   meter::Sampling& sampling, const link::Operations& operations, ProgramFolder& folder,
                   FileNameBox& name)
      : form_(form),
        state_(state),
        waveform_(waveform),
        sampling_(sampling),
        operations_(operations),
        folder_(folder),
        name_(name) {}

  // Arms the saving of the next frame.
  void arm();

  // Says that an armed save still waits.
  void sayWaiting();

  // Writes the frame in rxBuf to the file that the box names now.
  void write();

  // Shows the file's frame and stops sampling. A file that ends too early leaves in rxBuf what it had.
  void load(const std::string& path);

 private:
  void nameIt();

  form::MainForm& form_;
  protocol::InstrumentState& state_;
  scope::WaveformDisplay& waveform_;
  meter::Sampling& sampling_;
  const link::Operations& operations_;
  ProgramFolder& folder_;
  FileNameBox& name_;
};

}  // namespace vireon::files
