#include "protocol/reply_dispatcher.h"

#include <exception>
#include <new>

#include "protocol/reply_text.h"
#include "protocol/scoped_flag.h"
#include "protocol/vocabulary.h"

namespace vireon::protocol {

void ReplyDispatcher::dspRcv() {
  if (state_.rxBuf[1] == kAck) {
    state_.rxHold = true;
    state_.ackSeen = true;
    return;
  }
  if (state_.rxBuf[1] == kEnq) {
    state_.enqSeen = true;
    return;
  }
  state_.uiBusy = false;  // as it is to be afterwards, whoever called
  const ScopedFlag busy(state_.uiBusy);
  try {
    route();
  } catch (const std::bad_alloc&) {
    throw;  // nothing that the instrument sent
  } catch (const std::exception&) {
    return;
  }
}

void ReplyDispatcher::route() {
  const std::string key(state_.rxBuf.begin() + 1, state_.rxBuf.begin() + 4);
  if (key == "drs" || key == "mem") {
    if (sinks.scopeDraw) {
      sinks.scopeDraw();
    }
  } else if (key == "lgd") {
    if (sinks.dspLog) {
      sinks.dspLog();
    }
  } else if (key == "afn") {
    showFunctionText();
  } else {
    interpreter_.dspRxd();
  }
}

void ReplyDispatcher::showFunctionText() {
  const std::string text(state_.rxBuf.begin() + 5, state_.rxBuf.begin() + 20);
  form_.panAfn.setCaption(std::string(trimmed(text)));
}

}  // namespace vireon::protocol
