#include <algorithm>
#include <span>

#include "form/text_encoding.h"
#include "fuzz/arena.h"
#include "fuzz/program_rig.h"
#include "protocol/scoped_flag.h"

namespace {

using vireon::app::Program;
using vireon::fuzz::ProgramRig;
using vireon::fuzz::require;

// Byte 0 of an input, the window's state.
constexpr std::uint8_t kMeterTab = 1;    // bit 0: tab 1 is shown
constexpr std::uint8_t kTrendPanel = 2;  // bit 1: the trend panel is shown
constexpr std::uint8_t kRecording = 4;   // bit 2: the record button reads "Stop"
constexpr std::uint8_t kSaveArmed = 8;   // bit 3: the next waveform frame is to be saved
constexpr unsigned kModeShift = 4;       // bits 4 to 6: list position of the logger mode

constexpr std::uint8_t kFrameEnd = 3;
constexpr std::size_t kLongestText = vireon::protocol::InstrumentState::kBufferSize - 1;

void prepare(Program& program, std::uint8_t setup) {
  const vireon::protocol::ScopedFlag busy(program.state.uiBusy);
  program.form.SSTab1.setTab(setup & kMeterTab);
  program.form.cmbDmod.setListIndex(std::min(4, (setup >> kModeShift) & 7));
  program.form.panTrd.setVisible((setup & kTrendPanel) != 0);
  program.form.chkLog1.setCaption((setup & kRecording) != 0 ? "Stop" : "Start");
  program.waveform.wfmSave = (setup & kSaveArmed) != 0;
}

bool isAscii(char letter) {
  return static_cast<unsigned char>(letter) < 0x80;
}

bool isUtf8(const std::string& text) {
  if (std::all_of(text.begin(), text.end(), isAscii)) {
    return true;
  }
  const auto converted = vireon::form::text1252FromUtf8(text);
  return converted.complete && vireon::form::utf8From1252(converted.text) == text;
}

// The rows that the last frame can have filled.
void checkList(const Program& program, int formerRow) {
  const vireon::form::Grid& list = program.form.grdLog;
  const int next = program.state.logRow;
  require(next >= 1 && list.rows() >= std::max(13, next + 2));
  require(list.topRow() >= 1 && list.topRow() < list.rows());
  for (int row = std::min(formerRow, next); row <= next; ++row) {
    for (int column = 0; column < list.columns(); ++column) {
      require(isUtf8(list.text(row, column)));
    }
  }
}

void checkWindow(const Program& program) {
  require(!program.state.uiBusy);
  require(program.form.picScope.lines().size() <= 248);
  require(program.form.SSTab1.tab() < program.form.SSTab1.tabs());
  require(program.form.barTrd.value() >= 0 && program.form.barTrd.value() <= 120);
  require(program.form.posT.top() <= 2900);
}

void receive(Program& program, std::span<const std::uint8_t> text) {
  program.state.rxBuf[0] = 2;
  std::copy(text.begin(), text.end(), program.state.rxBuf.begin() + 1);
  program.state.rxLen = static_cast<int>(text.size());
  const auto frame = program.state.rxBuf;
  const int formerRow = program.state.logRow;
  program.dispatcher.dspRcv();
  require(program.state.rxBuf == frame && program.state.rxLen == static_cast<int>(text.size()));
  checkWindow(program);
  checkList(program, formerRow);
}

void fuzzFrames(ProgramRig& rig, std::span<const std::uint8_t> input) {
  const int before = rig.hid.searches;
  prepare(rig.program, input[0]);
  for (auto rest = input.subspan(1); !rest.empty();) {
    const auto end = std::find(rest.begin(), rest.end(), kFrameEnd);
    const auto length = std::min(kLongestText, static_cast<std::size_t>(end - rest.begin()));
    receive(rig.program, rest.first(length));
    require(rig.hid.searches == before);
    rest = rest.subspan(std::min(rest.size(), length + 1));
  }
}

}  // namespace

// An input is a byte and frame texts, each ended by kFrameEnd. They go through the real dispatcher to the
// controls and the picture; nothing may be sent meanwhile.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size > 0) {
    vireon::fuzz::withNew<ProgramRig>([&](ProgramRig& rig) { fuzzFrames(rig, {data, size}); });
  }
  return 0;
}
