#include <algorithm>
#include <string>
#include <vector>

#include "files/waveform_file.h"
#include "fuzz/arena.h"
#include "fuzz/saved_file_rig.h"

namespace {

using vireon::files::kWaveformBytesRead;
using vireon::fuzz::require;
using vireon::fuzz::SavedFileRig;

constexpr std::size_t kMostLines = 248;  // of the picture

// A frame that was loaded is saved and loaded again without a difference, in its bytes and in the picture.
void fuzzWaveform(SavedFileRig& rig, const std::string& content) {
  vireon::app::Program& program = rig.program;
  const auto lines = [&program] { return program.form.picScope.lines(); };
  const bool loaded = rig.opens(".wfm", content);
  require(lines().size() <= kMostLines);
  if (!loaded) {
    return;
  }
  const std::vector<vireon::form::Line> picture(lines().begin(), lines().end());
  const auto frame = program.state.rxBuf;
  program.form.txtFn[0].setText("b");
  program.fileCommands.cmdSave_Click(0);
  require(program.waveform.wfmSave);
  program.waveform.writeWaveform();
  program.waveform.wfmSave = false;
  program.state.rxBuf.fill(0);
  require(rig.reopens("b.wfm"));
  require(std::equal(frame.begin(), frame.begin() + kWaveformBytesRead, program.state.rxBuf.begin()));
  require(std::equal(picture.begin(), picture.end(), lines().begin(), lines().end()));
}

}  // namespace

// An input is a saved waveform.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  vireon::fuzz::withNew<SavedFileRig>(
      [&](SavedFileRig& rig) { fuzzWaveform(rig, std::string(data, data + size)); });
  return 0;
}
