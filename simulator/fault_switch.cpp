#include "simulator/fault_switch.h"

namespace vireon::simulator {

void FaultSwitch::choose(const Faults& faults) {
  chosen_ = faults;
  skipped_ = 0;
  used_ = false;
}

void FaultSwitch::begin() {
  if (chosen_.once && used_) chosen_ = {};
  const bool waits = waitsForCommand();
  acting_ = waits ? Faults{} : chosen_;
  used_ = used_ || !waits;
}

void FaultSwitch::decide(std::string_view command) {
  if (!waitsForCommand()) return;
  if (chosen_.onlyOn && !command.starts_with(*chosen_.onlyOn)) return;
  if (skipped_ < chosen_.skip) {
    ++skipped_;
    return;
  }
  acting_ = chosen_;
  used_ = true;
}

}  // namespace vireon::simulator
