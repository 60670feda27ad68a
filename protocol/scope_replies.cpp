#include <algorithm>

#include "protocol/reply_interpreter.h"
#include "protocol/reply_text.h"

namespace vireon::protocol {
namespace {

constexpr int kStep = 30;  // twips per sample step and per sample

}  // namespace

void ReplyInterpreter::sid(std::string_view item, int /*byte*/) {
  form_.setCaption(std::string(slice(item, 5, 34)));
}

void ReplyInterpreter::sim(std::string_view item, int /*byte*/) {
  state_.modelId = slice(item, 5, 10);
}

void ReplyInterpreter::vda(std::string_view /*item*/, int byte) {
  if (effects.dspVinf) {
    effects.dspVinf(0, byte);
  }
}

void ReplyInterpreter::vdb(std::string_view /*item*/, int byte) {
  if (effects.dspVinf) {
    effects.dspVinf(1, byte);
  }
}

void ReplyInterpreter::vpa(std::string_view /*item*/, int byte) {
  position(0, byte);
}

void ReplyInterpreter::vpb(std::string_view /*item*/, int byte) {
  position(1, byte);
}

void ReplyInterpreter::position(int channel, int byte) {
  form_.posDV[channel].setTop((byte - 21) * kStep + 330);
  form_.sldPosV[channel].setValue(byte);
}

void ReplyInterpreter::hdv(std::string_view /*item*/, int byte) {
  const auto code = static_cast<std::size_t>(byte & 31);
  if (code >= state_.labels.hdvLbl.size()) {
    throw form::Fault(form::FaultKind::kBounds);
  }
  form_.lblHd.setCaption(state_.labels.hdvLbl[code]);
  form_.lblSinf[2].setCaption(state_.labels.hdvLbl[code]);
  showToggle(form_.chkHat, (byte & 64) != 0);
}

void ReplyInterpreter::hpo(std::string_view /*item*/, int byte) {
  form_.markT.setLeft((byte - 2) * kStep + 500);
  form_.sldPosH.setValue(byte);
}

void ReplyInterpreter::tlv(std::string_view /*item*/, int byte) {
  form_.posT.setVisible(!form_.optTS[2].value());
  int reference = 0;
  if (form_.optTS[0].value()) {
    reference = form_.posDV[0].top();
  } else if (form_.optTS[1].value()) {
    reference = form_.posDV[1].top();
  }
  form_.posT.setTop(std::clamp((128 - byte) * kStep + reference, 200, 2900));
  form_.trgLvl.setValue(byte ^ 255);
}

void ReplyInterpreter::trg(std::string_view /*item*/, int byte) {
  const int source = byte & 3;
  if (source < form_.optTS.size()) {
    form_.optTS[source].setValue(true);
    form_.lblSinf[4].setCaption(form_.optTS[source].caption());
  }
  if (state_.trgLevelSync) {
    form_.trgLvl.setValue(byte ^ 255);
  }
  const char* const slope = (byte & 4) == 0 ? "+" : "-";
  form_.cmdSlp.setCaption(slope);
  form_.lblSinf[3].setCaption(slope);
  const bool automatic = (byte & 32) != 0;
  showToggle(form_.chkAt, automatic);
  form_.lblSinf[5].setCaption(automatic ? "Auto" : "Norm");
}

}  // namespace vireon::protocol
