#pragma once

#include <algorithm>
#include <filesystem>
#include <string>
#include <system_error>

namespace vireon::tests {

// How often this process has the file open.
inline std::ptrdiff_t openCount(const std::filesystem::path& file) {
  const auto real = std::filesystem::canonical(file);
  const std::filesystem::directory_iterator descriptors("/proc/self/fd");
  return std::count_if(begin(descriptors), end(descriptors), [&](const auto& descriptor) {
    std::error_code gone;
    return std::filesystem::read_symlink(descriptor.path(), gone) == real;
  });
}

}  // namespace vireon::tests
