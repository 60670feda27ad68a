#pragma once

namespace vireon::adapters {

// Whether a modal message is open; while one is, the program's timers hold still.
class ModalGate {
 public:
  bool closed() const { return depth_ > 0; }

  // Closes the gate for a scope.
  class Hold {
   public:
    explicit Hold(ModalGate& gate) : gate_(gate) { ++gate_.depth_; }
    Hold(const Hold&) = delete;
    Hold& operator=(const Hold&) = delete;
    ~Hold() { --gate_.depth_; }

   private:
    ModalGate& gate_;
  };

 private:
  int depth_ = 0;
};

}  // namespace vireon::adapters
