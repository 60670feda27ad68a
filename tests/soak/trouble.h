#pragma once

#include <cstdint>

#include "tests/soak/dice.h"
#include "tests/soak/stage.h"

namespace vireon::soak {

// What goes wrong around the program, at moments that the dice choose, and ends again.
class Trouble {
 public:
  explicit Trouble(Stage& stage) : stage_(stage) {}

  // One fault of any kind, for some acts; none while one lasts.
  void begin(Dice& dice);
  // Whether it has lasted long enough; to be asked before each act.
  void look();
  // Everything is well again.
  void heal();

  std::uint64_t begun() const { return begun_; }

 private:
  void linkFault(Dice& dice);
  void cableFault(Dice& dice);
  void fileFault(Dice& dice);
  void folderAway();
  void printerFault(Dice& dice);
  void say(const std::string& name);

  Stage& stage_;
  std::uint64_t begun_ = 0;
  std::uint64_t endsAt_ = 0;  // input
  bool active_ = false;
};

}  // namespace vireon::soak
