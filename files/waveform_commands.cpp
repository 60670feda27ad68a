#include "files/waveform_commands.h"

#include <exception>
#include <new>
#include <span>

#include "files/waveform_file.h"
#include "protocol/scoped_flag.h"

namespace vireon::files {
namespace {

constexpr std::size_t kLargestWaveformFile = 1U << 20U;

// While the link collects an answer, its buffer gets back after a scope what it held before.
class KeptAnswer {
 public:
  KeptAnswer(protocol::InstrumentState& state, const link::Operations& operations)
      : state_(state), kept_(operations.running()), bytes_(state.rxBuf) {}
  KeptAnswer(const KeptAnswer&) = delete;
  KeptAnswer& operator=(const KeptAnswer&) = delete;
  ~KeptAnswer() {
    if (kept_) {
      state_.rxBuf = bytes_;
    }
  }

 private:
  protocol::InstrumentState& state_;
  bool kept_;
  decltype(protocol::InstrumentState::rxBuf) bytes_;
};

}  // namespace

void WaveformCommands::nameIt() {
  if (name_.empty() || name_.isMade()) {
    name_.make("Wfm_", kExtension);
  }
}

void WaveformCommands::arm() {
  nameIt();
  if (!folder_.allows(name_.name())) {
    return;
  }
  waveform_.wfmSave = true;
  sayWaiting();
}

void WaveformCommands::sayWaiting() {
  if (waveform_.wfmSave) {
    folder_.say("Waiting for the next waveform");
  }
}

// The box may have another text than when the save was armed.
void WaveformCommands::write() {
  if (name_.empty()) {
    name_.make("Wfm_", kExtension);
  }
  const std::string name = name_.name();
  if (folder_.allows(name)) {
    folder_.save(name, kExtension, waveformFile(std::span(state_.rxBuf).first<kWaveformBytes>()));
  }
}

void WaveformCommands::load(const std::string& path) {
  const auto file = folder_.read(path, kLargestWaveformFile);
  if (!file) {
    return;
  }
  const KeptAnswer kept(state_, operations_);
  const ListReadResult result = readWaveform(*file, std::span(state_.rxBuf).first<kWaveformBytesRead>());
  if (result.error != ListError::kNone) {
    folder_.sayProblem(path, result, "a number from 0 to 255");
    return;
  }
  if (form_.cmdStart.caption() == "Stop") {
    sampling_.cmdStart_Click();
  }
  const protocol::ScopedFlag busy(state_.uiBusy);
  form_.chkMld.setValue(0);
  try {
    waveform_.dspWfm();
  } catch (const std::bad_alloc&) {
    throw;
  } catch (const std::exception&) {
    folder_.sayProblem(path, "its trigger level is no hexadecimal number");
    return;
  }
  folder_.sayLoaded(path);
}

}  // namespace vireon::files
