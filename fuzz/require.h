#pragma once

#include <cstdlib>

namespace vireon::fuzz {

// Ends the target where a property does not hold; the input is then a finding.
inline void require(bool property) {
  if (!property) {
    std::abort();
  }
}

}  // namespace vireon::fuzz
