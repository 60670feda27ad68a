#pragma once

namespace vireon::fuzz {

// Memory that is put back as it was: a rig is built once and is as new for every input, in some microseconds.
// A build with the address sanitizer has none (no_arena.cpp), so that it sees every block by itself.
class Arena {
 public:
  // Whether this build has it.
  static bool isThere();

  // While one lives, what is allocated comes from the arena; nothing in it is freed.
  class Scope {
   public:
    Scope();
    Scope(const Scope&) = delete;
    Scope& operator=(const Scope&) = delete;
    ~Scope();
  };

  // Keeps all that has been allocated so far as it is now.
  static void keep();

  // Puts what was kept back, byte by byte; all that was allocated since is gone.
  static void putBack();
};

// Calls `use` with a rig that nobody has used.
template <class Rig, class Use>
void withNew(Use use) {
  if (!Arena::isThere()) {
    Rig rig;
    use(rig);
    return;
  }
  const Arena::Scope allocating;
  static Rig* const rig = [] {
    auto* made = new Rig;  // lives as long as the process, as the arena does
    Arena::keep();
    return made;
  }();
  Arena::putBack();
  use(*rig);
}

}  // namespace vireon::fuzz
