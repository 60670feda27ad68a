#include "fuzz/arena.h"

namespace vireon::fuzz {

bool Arena::isThere() {
  return false;
}

Arena::Scope::Scope() = default;
Arena::Scope::~Scope() = default;

void Arena::keep() {}
void Arena::putBack() {}

}  // namespace vireon::fuzz
