#pragma once

#include <poll.h>

#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "simulator/instrument.h"
#include "simulator/serve/gadget_device.h"
#include "simulator/usb_endpoint.h"
#include "tests/usb/gadget.h"

namespace vireon::tests {

// A simulated instrument at a plugged-in gadget, served by a thread of the test's own process, so that the
// test can ask what was sent.
class ServedInstrument {
 public:
  explicit ServedInstrument(const Gadget& gadget)
      : device_(endpoint_, clock_, gadget.deviceNode(),
                [node = gadget.deviceNode()] { return simulator::openGadgetNode(node); }, {}),
        thread_([this](const std::stop_token& stop) { serve(stop); }) {}

  // The picture last sent, and all commands so far.
  simulator::Trace trace() {
    const std::lock_guard lock(mutex_);
    return instrument_.trace();
  }
  std::vector<std::string> log() {
    const std::lock_guard lock(mutex_);
    return {instrument_.log().begin(), instrument_.log().end()};
  }

 private:
  static constexpr int kLookAgain = 20;  // milliseconds

  void serve(const std::stop_token& stop) {
    while (!stop.stop_requested()) {
      pollfd watched{-1, 0, 0};
      {
        const std::lock_guard lock(mutex_);
        device_.serve();
        const simulator::Wake wake = device_.wake();
        watched.fd = wake.descriptor;
        watched.events = wake.events;
      }
      ::poll(&watched, 1, kLookAgain);
    }
  }

  std::mutex mutex_;
  simulator::SteadyClock clock_;
  simulator::Instrument instrument_{simulator::Model::kK7310, clock_};
  simulator::UsbEndpoint endpoint_{instrument_, clock_};
  simulator::GadgetDevice device_;
  std::jthread thread_;
};

}  // namespace vireon::tests
