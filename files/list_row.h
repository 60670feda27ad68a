#pragma once

#include <array>
#include <string>

namespace vireon::files {

inline constexpr int kListColumns = 4;

// A row of the logger's list: record number, time, reading, remarks. UTF-8.
using ListRow = std::array<std::string, kListColumns>;

}  // namespace vireon::files
