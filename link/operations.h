#pragma once

#include <functional>

#include "link/link_state.h"

namespace vireon::link {

// Knows whether something is under way on the link: an exchange, a connection being made, a search.
class Operations {
 public:
  explicit Operations(LinkState& link) : link_(link) {}

  bool running() const { return depth_ > 0; }

  // The outermost operation has ended. Its caller is still at work: what closes the window must be put off.
  std::function<void()> onIdle;

  // Marks an operation for a scope; scopes nest.
  class Scope {
   public:
    explicit Scope(Operations& operations) : operations_(operations) {
      if (operations_.depth_++ == 0) {
        operations_.link_.waitEnded = false;
      }
    }
    Scope(const Scope&) = delete;
    Scope& operator=(const Scope&) = delete;
    ~Scope() {
      if (--operations_.depth_ == 0 && operations_.onIdle) {
        operations_.onIdle();
      }
    }

   private:
    Operations& operations_;
  };

 private:
  LinkState& link_;
  int depth_ = 0;
};

}  // namespace vireon::link
