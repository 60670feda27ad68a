#pragma once

namespace vireon::link {

// Sets a flag for a scope.
class FlagScope {
 public:
  explicit FlagScope(bool& flag) : flag_(flag) { flag_ = true; }
  FlagScope(const FlagScope&) = delete;
  FlagScope& operator=(const FlagScope&) = delete;
  ~FlagScope() { flag_ = false; }

 private:
  bool& flag_;
};

}  // namespace vireon::link
