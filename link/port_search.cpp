#include <string>

#include "link/flag_scope.h"
#include "link/serial_link.h"
#include "link/window_state.h"
#include "protocol/reply_text.h"
#include "protocol/vocabulary.h"

namespace vireon::link {
namespace {

constexpr int kPorts = 4;
constexpr int kRates = 4;        // 9600 and its halves down to 1200
constexpr int kProbeWait = 500;  // milliseconds

}  // namespace

void SerialLink::com_search() {
  const Operations::Scope operation(operations_);
  const std::string formerPort = link_.comPort;
  const std::string formerRate = link_.baudRate;
  refusal_.reset();
  bool accepted = false;
  {
    const FlagScope searching(link_.portSearch);
    clearAdvice(form_);
    form_.StatusBar1.setPanel(1, "Please wait for com port");
    view_.begin();
    for (int pair = 0; pair < kPorts * kRates && !accepted && !link_.waitEnded; ++pair) {
      accepted = tryPair(pair / kRates + 1, pair % kRates + 1);
    }
    form_.StatusBar1.setPanel(1, "");
  }
  link_.rxTimeout = !accepted;
  if (accepted) {
    form_.StatusBar1.setPanel(2, "COM" + link_.comPort + ":" + link_.baudRate);
  } else {
    if (link_.waitEnded) {
      link_.comPort = formerPort;
      link_.baudRate = formerRate;
    }
    Mcom.PortOpen(false);
    if (refusal_) {
      showAdvice(form_, *refusal_);
    }
  }
  link_.comWait = answerTimeOut(link_.baudRate);
  view_.end();
}

// True when an instrument of the family answers on the port at the attempt's rate.
bool SerialLink::tryPair(int port, int attempt) {
  link_.comPort = std::to_string(port);
  link_.baudRate = attempt == 1 ? "9600" : std::to_string(protocol::leadingNumber(link_.baudRate) / 2);
  view_.trying(port, link_.baudRate, (port - 1) * kRates + attempt);
  pump_.pump();
  link_.rxTimeout = false;
  state_.modelId.clear();
  com_open();
  if (link_.rxTimeout) {
    if (const auto advice = adviceFor(Mcom.openResult()); advice && !refusal_) {
      refusal_ = advice;
      view_.advise(advice->line, advice->text);
    }
    return false;
  }
  link_.comWait = kProbeWait;
  std::string command(protocol::kQueryModel);
  trans_rs2(command);
  return state_.modelId.starts_with(protocol::kModelPrefix);
}

}  // namespace vireon::link
