#include "protocol/reply_interpreter.h"

#include <exception>
#include <new>

#include "protocol/reply_text.h"

namespace vireon::protocol {

struct ReplyInterpreter::Key {
  std::string_view text;
  bool hasByte;
  void (ReplyInterpreter::*apply)(std::string_view item, int byte);
};

const ReplyInterpreter::Key ReplyInterpreter::kKeys[] = {
    {"drm", false, &ReplyInterpreter::drm}, {"dps", false, &ReplyInterpreter::dps},
    {"drp", false, &ReplyInterpreter::drp}, {"sid", false, &ReplyInterpreter::sid},
    {"sim", false, &ReplyInterpreter::sim}, {"drt", false, &ReplyInterpreter::drt},
    {"vda", true, &ReplyInterpreter::vda},  {"vdb", true, &ReplyInterpreter::vdb},
    {"vpa", true, &ReplyInterpreter::vpa},  {"vpb", true, &ReplyInterpreter::vpb},
    {"hdv", true, &ReplyInterpreter::hdv},  {"hpo", true, &ReplyInterpreter::hpo},
    {"tlv", true, &ReplyInterpreter::tlv},  {"trg", true, &ReplyInterpreter::trg},
    {"dfn", true, &ReplyInterpreter::dfn},  {"drg", true, &ReplyInterpreter::drg},
    {"sts", true, &ReplyInterpreter::sts},
};

void ReplyInterpreter::dspRxd() {
  rxItem_.clear();
  for (int i = 1; i <= state_.rxLen; ++i) {
    if (i >= InstrumentState::kBufferSize) {
      throw form::Fault(form::FaultKind::kBounds);
    }
    const char character = static_cast<char>(state_.rxBuf[static_cast<std::size_t>(i)]);
    if (character == ',') {
      dspSinf(rxItem_);
      rxItem_.clear();
    } else {
      rxItem_ += character;
    }
  }
  dspSinf(rxItem_);
}

void ReplyInterpreter::dspSinf(std::string_view item) {
  try {
    interpret(item);
  } catch (const std::bad_alloc&) {
    throw;  // nothing that the instrument sent
  } catch (const std::exception&) {
    return;  // the trap: the item ends here, the next one is interpreted as usual
  }
}

void ReplyInterpreter::interpret(std::string_view item) {
  const std::string_view key = slice(item, 1, 3);
  for (const Key& entry : kKeys) {
    if (entry.text == key) {
      (this->*entry.apply)(item, entry.hasByte ? hexValue(slice(item, 5, 6)) : 0);
      return;
    }
  }
}

void showToggle(form::CheckBox& box, bool on) {
  box.setValue(on ? 1 : 0);
  box.setForeColor(on ? form::kRed : form::kButtonText);
}

void showRecording(form::MainForm& form, bool recording) {
  form.chkLog1.setCaption(recording ? "Stop" : "Start");
  form.chkLog1.setBackColor(recording ? form::kYellow : form::kButtonFace);
  form.chkLog1.setValue(recording ? 1 : 0);
}

}  // namespace vireon::protocol
