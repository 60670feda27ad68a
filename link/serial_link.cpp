#include "link/serial_link.h"

#include <cstdint>
#include <limits>
#include <new>
#include <utility>
#include <vector>

#include "link/at_end.h"
#include "link/window_state.h"
#include "protocol/reply_text.h"
#include "protocol/scoped_flag.h"
#include "protocol/vocabulary.h"

namespace vireon::link {
namespace {

constexpr int kControlFrame = 3;     // stored bytes of a control answer: STX, code, ETX
constexpr int kAnswerTimeOut = 800;  // milliseconds where no rate says otherwise

}  // namespace

SerialLink::SerialLink(form::MainForm& form, protocol::InstrumentState& state, LinkState& link,
                       Operations& operations, const SerialPorts& ports)
    : Mcom(ports.port),
      form_(form),
      state_(state),
      link_(link),
      operations_(operations),
      pump_(ports.pump),
      messages_(ports.messages),
      view_(ports.view) {
  Mcom.OnComm = [this] { form_.attend([this] { Mcom_OnComm(); }); };
  Mcom.onLost = [this] { form_.attend([this] { lost(); }); };
  form_.tmrCom.onTimer = [this] { tmrCom_Timer(); };
}

void SerialLink::com_open() {
  try {
    if (Mcom.PortOpen()) {
      Mcom.PortOpen(false);
    }
    const int number = protocol::leadingNumber(link_.comPort);
    if (number > std::numeric_limits<std::int16_t>::max()) {
      throw form::Fault(form::FaultKind::kConversion);
    }
    Mcom.CommPort(number);
    Mcom.Settings(link_.baudRate + ",N,8,1");
    Mcom.InputLen(0);
    Mcom.PortOpen(true);
    Mcom.InputMode(CommControl::kInputModeBinary);
  } catch (const form::Fault&) {
    link_.rxTimeout = true;
  }
}

void SerialLink::trans_rs2(std::string& command) {
  if (link_.linkBusy) {
    link_.pendingCmd = command;
    link_.cmdPending = true;
    return;
  }
  const Operations::Scope operation(operations_);
  const AtEnd close([this] {
    if (std::exchange(closing_, false)) {
      Mcom.PortOpen(false);
    }
  });
  while (exchange(command)) {
    link_.cmdPending = false;
    command = std::exchange(link_.pendingCmd, {});
  }
}

// One command and its answer; True when a parked command is to be sent next.
bool SerialLink::exchange(const std::string& command) {
  if (!Mcom.PortOpen() || link_.waitEnded) {
    link_.rxTimeout = true;
    link_.cmdPending = false;
    return false;
  }
  send(command);
  if (!link_.rxTimeout) {
    return link_.cmdPending;
  }
  showLamps(form_, form::kWhite, form::kWhite);
  if (link_.portSearch && !link_.waitEnded) {
    return link_.cmdPending;
  }
  link_.cmdPending = false;
  if (!link_.waitEnded && !probing) {
    fail();
  }
  return false;
}

// Sends and waits; afterwards one of rxDone, rxEnq and rxTimeout is set.
void SerialLink::send(const std::string& command) {
  const protocol::ScopedFlag busy(link_.linkBusy);
  std::vector<std::uint8_t> frame{protocol::kStx};
  frame.reserve(command.size() + 2);
  frame.insert(frame.end(), command.begin(), command.end());
  frame.push_back(protocol::kEtx);
  // Bytes that nobody asked for may be being taken below us; the answer is collected here all the same.
  const AtEnd rest([this, below = std::exchange(collecting_, false)] {
    collecting_ = below;
    form_.tmrCom.setEnabled(false);
  });
  memoryRanOut_ = false;
  form_.Txled[0].setFillColor(form::kRed);
  form_.Txled[0].refresh();
  form_.tmrCom.setInterval(link_.comWait > 0 ? link_.comWait : kAnswerTimeOut);
  form_.tmrCom.setEnabled(true);
  link_.rxTimeout = link_.rxDone = link_.rxEnq = false;
  link_.rxTimeout = !Mcom.Output(frame);
  while (!link_.rxTimeout && !link_.rxDone && !link_.rxEnq) {
    pump_.wait();
  }
  if (std::exchange(memoryRanOut_, false)) {
    showLamps(form_, form::kWhite, form::kWhite);
    throw std::bad_alloc();
  }
}

void SerialLink::closeWhenDone() {
  if (link_.linkBusy) {
    closing_ = true;
  } else {
    Mcom.PortOpen(false);
  }
}

void SerialLink::Mcom_OnComm() {
  if (Mcom.CommEvent() != CommControl::kEventReceive) {
    return;
  }
  if (collecting_) {
    arrivedMeanwhile_ = true;
    return;
  }
  try {
    takeArrived();
  } catch (const std::bad_alloc&) {
    if (!link_.linkBusy) {
      showLamps(form_, form::kWhite, form::kWhite);
      throw;
    }
    // Whoever waits for this answer ends there.
    memoryRanOut_ = true;
    link_.rxDone = true;
  }
}

void SerialLink::takeArrived() {
  const protocol::ScopedFlag once(collecting_);
  do {
    arrivedMeanwhile_ = false;
    showLamps(form_, form::kWhite, form::kGreen);
    try {
      if (collect()) {
        takeFrame();
      }
    } catch (const form::Fault&) {
      return;
    }
  } while (arrivedMeanwhile_ && !link_.rxTimeout && Mcom.InBufferCount() > 0);
}

// A frame of three stored bytes is a control answer; any other code than these two answers nothing, and the
// wait goes on to its end.
void SerialLink::takeFrame() {
  form_.Txled[1].setFillColor(form::kWhite);
  form_.Txled[1].refresh();
  const int stored = state_.rxLen;
  if (stored == kControlFrame) {
    link_.rxDone = link_.rxDone || state_.rxBuf[1] == protocol::kAck;
    link_.rxEnq = link_.rxEnq || state_.rxBuf[1] == protocol::kEnq;
    if (state_.rxBuf[1] == protocol::kAck || state_.rxBuf[1] == protocol::kEnq) {
      form_.tmrCom.setEnabled(false);
    }
    return;
  }
  form_.tmrCom.setEnabled(false);
  state_.rxLen = stored < 2 ? 0 : stored - 2;
  if (dspRcv) {
    dspRcv();
  }
  state_.rxLen = stored;
  link_.rxDone = true;
}

// Moves what arrived to rxBuf; True when an ETX ended the frame. Faults (kBounds) when rxBuf is full.
bool SerialLink::collect() {
  for (;;) {
    pump_.pump();
    if (link_.rxTimeout || Mcom.InBufferCount() == 0) {
      return false;
    }
    for (const std::uint8_t byte : Mcom.Input()) {
      if (byte == protocol::kStx) {
        state_.rxLen = 0;
      }
      if (state_.rxLen >= protocol::InstrumentState::kBufferSize) {
        throw form::Fault(form::FaultKind::kBounds);
      }
      state_.rxBuf[static_cast<std::size_t>(state_.rxLen++)] = byte;
      if (byte == protocol::kEtx) {
        return true;
      }
    }
  }
}

void SerialLink::tmrCom_Timer() {
  link_.rxTimeout = true;
  form_.tmrCom.setEnabled(false);
}

void SerialLink::endWait() {
  link_.waitEnded = operations_.running();
  if (link_.linkBusy || link_.portSearch) {
    link_.rxTimeout = true;
  }
}

// The adapter went: a running wait ends by it, an idle connection is told at once.
void SerialLink::lost() {
  link_.rxTimeout = true;
  if (!operations_.running() && form_.cmdBttn[0].backColor() != form::kButtonFace) {
    fail();
  }
}

void SerialLink::fail() {
  const FallBack fallBackInTheEnd(form_);
  Mcom.PortOpen(false);
  messages_.show({"Communication Error", "Device Unavailable or Communication Error",
                  platform::MessageIcon::kCritical, platform::MessageButtons::kOk});
}

}  // namespace vireon::link
