#pragma once

#include <utility>

namespace vireon::link {

// Does something at the end of a scope, however that ends.
template <class Action>
class AtEnd {
 public:
  explicit AtEnd(Action action) : action_(std::move(action)) {}
  AtEnd(const AtEnd&) = delete;
  AtEnd& operator=(const AtEnd&) = delete;
  ~AtEnd() { action_(); }

 private:
  Action action_;
};

}  // namespace vireon::link
