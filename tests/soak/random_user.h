#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>

#include "tests/soak/dice.h"
#include "tests/soak/stage.h"
#include "tests/soak/trouble.h"

namespace vireon::soak {

// Does what comes to his mind. What that is hangs on the seed, the session, the number of the act, and on
// what the window offers then.
class RandomUser {
 public:
  RandomUser(Stage& stage, Trouble& trouble) : stage_(stage), trouble_(trouble) {}

  // One act. Milliseconds until the next.
  int act();

 private:
  int useMain(Dice& dice);
  void useOneOf(Dice& dice, QWidget& window);
  bool isWanted(Dice& dice, const std::string& name) const;
  int waitForWork(Dice& dice);
  Dice dice();

  Stage& stage_;
  Trouble& trouble_;
  std::uint64_t drawnFor_ = 0;  // act
  std::uint64_t draws_ = 0;     // since that act
  // Of the first look at the work that goes on.
  std::optional<std::chrono::steady_clock::time_point> workSince_{};
};

}  // namespace vireon::soak
