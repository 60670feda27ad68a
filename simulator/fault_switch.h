#pragma once

#include <cstddef>
#include <string_view>

#include "simulator/faults.h"

namespace vireon::simulator {

// Which of the faults that were chosen act on the exchange in progress.
class FaultSwitch {
 public:
  // Replaces all faults, from the next exchange on.
  void choose(const Faults& faults);
  const Faults& chosen() const { return chosen_; }

  const Faults& acting() const { return acting_; }

  // An exchange begins, its command is not known yet: faults that wait for a command do not act.
  void begin();

  // The command string of the exchange, which decides about faults that wait for one.
  void decide(std::string_view command);

  // The exchange did not count for `once`.
  void keep() { used_ = false; }

 private:
  bool waitsForCommand() const { return chosen_.onlyOn.has_value() || chosen_.skip > 0; }

  Faults chosen_;
  Faults acting_;
  std::size_t skipped_ = 0;
  bool used_ = false;
};

}  // namespace vireon::simulator
