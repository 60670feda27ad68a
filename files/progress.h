#pragma once

#include <functional>

namespace vireon::files {

// Told the rows done so far, each time some hundred more are; False cancels. May be empty.
using Progress = std::function<bool(int rowsDone)>;

}  // namespace vireon::files
