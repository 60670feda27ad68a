#pragma once

#include <utility>

namespace vireon::link {

// Does something at the end of a scope, however that ends. What it throws goes no further: mostly memory has
// run out then, and what the scope threw already tells the user so.
template <class Action>
class AtEnd {
 public:
  explicit AtEnd(Action action) : action_(std::move(action)) {}
  AtEnd(const AtEnd&) = delete;
  AtEnd& operator=(const AtEnd&) = delete;
  ~AtEnd() {
    try {
      action_();
    } catch (...) {
      return;
    }
  }

 private:
  Action action_;
};

}  // namespace vireon::link
