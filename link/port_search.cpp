#include <string>
#include <utility>

#include "link/at_end.h"
#include "link/serial_link.h"
#include "link/window_state.h"
#include "protocol/reply_text.h"
#include "protocol/scoped_flag.h"
#include "protocol/vocabulary.h"

namespace vireon::link {
namespace {

constexpr int kRates = platform::SearchView::kRates;
constexpr int kProbeWait = 500;  // milliseconds
constexpr const char* kWait = "Please wait for com port";

// The search as the user sees it, for a scope.
class ShownSearch {
 public:
  ShownSearch(platform::SearchView& view, form::StatusBar& statusBar) : view_(view), statusBar_(statusBar) {
    statusBar_.setPanel(1, kWait);
    view_.begin();
  }
  ShownSearch(const ShownSearch&) = delete;
  ShownSearch& operator=(const ShownSearch&) = delete;
  ~ShownSearch() {
    if (statusBar_.panel(1) == kWait) {
      statusBar_.setPanel(1, {});
    }
    view_.end();
  }

 private:
  platform::SearchView& view_;
  form::StatusBar& statusBar_;
};

}  // namespace

void SerialLink::com_search() {
  const Operations::Scope operation(operations_);
  std::string formerPort = link_.comPort;
  std::string formerRate = link_.baudRate;
  bool ended = false;
  // The former pair where the user ended the search, or memory did.
  const AtEnd restore([&] {
    if (!ended || link_.waitEnded) {
      link_.comPort = std::move(formerPort);
      link_.baudRate = std::move(formerRate);
    }
    link_.comWait = answerTimeOut(link_.baudRate);
  });
  refusal_.reset();
  bool accepted = false;
  clearAdvice(form_);
  const ShownSearch shown(view_, form_.StatusBar1);
  {
    const protocol::ScopedFlag searching(link_.portSearch);
    for (int pair = 0; pair < platform::SearchView::kSteps && !accepted && !link_.waitEnded; ++pair) {
      accepted = tryPair(pair / kRates + 1, pair % kRates + 1);
    }
  }
  form_.StatusBar1.setPanel(1, "");
  link_.rxTimeout = !accepted;
  if (accepted) {
    form_.StatusBar1.setPanel(2, "COM" + link_.comPort + ":" + link_.baudRate);
  } else {
    Mcom.PortOpen(false);
    if (refusal_) {
      showAdvice(form_, *refusal_);
    }
  }
  ended = true;
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
