#pragma once

#include <cstdint>

namespace vireon::adapters {

// Whether the program's events may happen now. While a modal message is open the timers' ticks are left out
// and what reaches a control is undone; while the window only paints, in the middle of an exchange, ticks and
// close requests wait their turn.
class ModalGate {
 public:
  bool closed() const { return open_ > 0; }
  bool paintingOnly() const { return painting_ > 0; }
  // Modal messages opened so far.
  std::uint64_t messages() const { return messages_; }

  // A modal message is open for a scope.
  class Hold {
   public:
    explicit Hold(ModalGate& gate) : gate_(gate) {
      ++gate_.open_;
      ++gate_.messages_;
    }
    Hold(const Hold&) = delete;
    Hold& operator=(const Hold&) = delete;
    ~Hold() { --gate_.open_; }

   private:
    ModalGate& gate_;
  };

  // The window only paints for a scope.
  class Painting {
   public:
    explicit Painting(ModalGate& gate) : gate_(gate) { ++gate_.painting_; }
    Painting(const Painting&) = delete;
    Painting& operator=(const Painting&) = delete;
    ~Painting() { --gate_.painting_; }

   private:
    ModalGate& gate_;
  };

 private:
  int open_ = 0;
  std::uint64_t messages_ = 0;
  int painting_ = 0;
};

}  // namespace vireon::adapters
