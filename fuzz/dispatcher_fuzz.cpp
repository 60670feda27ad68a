#include <algorithm>
#include <span>

#include "form/text_encoding.h"
#include "fuzz/frame_script.h"
#include "fuzz/program_rig.h"

namespace {

using vireon::app::Program;
using vireon::fuzz::require;

void prepare(Program& program, std::uint8_t setup) {
  const vireon::protocol::UiBusyScope busy(program.state);
  program.form.SSTab1.setTab(setup & vireon::fuzz::kMeterTab);
  program.form.cmbDmod.setListIndex(std::min(4, (setup >> vireon::fuzz::kModeShift) & 7));
  program.form.panTrd.setVisible((setup & vireon::fuzz::kTrendPanel) != 0);
  program.form.chkLog1.setCaption((setup & vireon::fuzz::kRecording) != 0 ? "Stop" : "Start");
  program.waveform.wfmSave = (setup & vireon::fuzz::kSaveArmed) != 0;
}

void receive(Program& program, std::span<const std::uint8_t> text) {
  program.state.rxBuf[0] = 2;
  std::copy(text.begin(), text.end(), program.state.rxBuf.begin() + 1);
  program.state.rxLen = static_cast<int>(text.size());
  program.dispatcher.dspRcv();
}

bool isUtf8(const std::string& text) {
  const auto converted = vireon::form::text1252FromUtf8(text);
  return converted.complete && vireon::form::utf8From1252(converted.text) == text;
}

// The rows that a frame can have filled, the latest ones.
void checkList(const Program& program) {
  const vireon::form::Grid& list = program.form.grdLog;
  const int next = program.state.logRow;
  require(next >= 1 && list.rows() >= std::max(13, next + 2));
  require(list.topRow() >= 1 && list.topRow() < list.rows());
  for (int row = std::max(1, next - 60); row <= next; ++row) {
    for (int column = 0; column < list.columns(); ++column) {
      require(isUtf8(list.text(row, column)));
    }
  }
}

void checkInvariants(const Program& program, int sent) {
  require(!program.state.uiBusy);
  require(program.form.picScope.lines().size() <= 248);
  require(program.form.SSTab1.tab() < program.form.SSTab1.tabs());
  require(program.form.barTrd.value() >= 0 && program.form.barTrd.value() <= 120);
  require(program.form.posT.top() <= 2900);
  checkList(program);
  require(sent == 0);
}

}  // namespace

// Frames of any content through the real dispatcher, controls and picture; nothing may be sent meanwhile.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) {
    return 0;
  }
  vireon::fuzz::ProgramRig rig;
  Program& program = rig.program;
  const int before = rig.hid.searches;
  prepare(program, data[0]);
  std::span<const std::uint8_t> rest(data + 1, size - 1);
  while (!rest.empty()) {
    const auto end = std::find(rest.begin(), rest.end(), vireon::fuzz::kFrameEnd);
    const auto length = std::min<std::size_t>(600, static_cast<std::size_t>(end - rest.begin()));
    receive(program, rest.first(length));
    checkInvariants(program, rig.hid.searches - before);
    rest = rest.subspan(std::min(rest.size(), length + 1));
  }
  return 0;
}
