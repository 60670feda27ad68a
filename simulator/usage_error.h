#pragma once

#include <stdexcept>

namespace vireon::simulator {

// Words given by the user that have no meaning; what() is one line that names them.
class UsageError : public std::runtime_error {
  using std::runtime_error::runtime_error;
};

}  // namespace vireon::simulator
