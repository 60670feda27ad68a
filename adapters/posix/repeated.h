#pragma once

#include <cerrno>

namespace vireon::adapters {

// Repeats a call that a signal ended.
template <typename Call>
auto repeated(Call call) {
  auto result = call();
  while (result < 0 && errno == EINTR) result = call();
  return result;
}

}  // namespace vireon::adapters
