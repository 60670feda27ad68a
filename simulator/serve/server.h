#pragma once

#include <cstdint>
#include <string>

#include "simulator/clock.h"
#include "simulator/fault_names.h"
#include "simulator/instrument.h"
#include "simulator/serve/control_lines.h"
#include "simulator/serve/served_link.h"

namespace vireon::simulator {

// Serves one link until it is told to stop, and is controlled by lines meanwhile. Keeps references to all
// it is given.
class Server {
 public:
  // `stop` is a descriptor that becomes readable when it is time to end.
  Server(ServedLink& link, Link kind, Instrument& instrument, Clock& clock, LineWriter& out, int stop);

  // From now on lines are taken from `in`, whose end ends the serving, and commands are told.
  void control(LineReader& in) { in_ = &in; }

  // Says "ready PATH" and serves. Throws what the link throws.
  void run();

 private:
  void tell();
  void waitForNews();
  void carryOut(const std::string& line);
  void carryOutOrThrow(const std::string& line);

  ServedLink& link_;
  Link kind_;
  Instrument& instrument_;
  Clock& clock_;
  LineWriter& out_;
  int stop_;
  LineReader* in_ = nullptr;
  std::uint64_t told_ = 0;
  bool plugged_ = true;
  bool ended_ = false;
};

}  // namespace vireon::simulator
