#pragma once

#include <string_view>

namespace vireon::adapters {

enum class ContainerFault {
  kNone,
  kNotCompound,  // does not begin as a compound file
  kOldWorkbook,  // begins as a workbook of the time before compound files
  kDamaged,      // cut off, its tables lie outside the file or run in circles, or its folder is absurdly long
};

// What a library should not be asked to open: it walks the folder of streams by recursion and sorts it by
// insertion, so a folder of more than kMostEntries would take its stack and its time.
ContainerFault containerFault(std::string_view file);

inline constexpr int kMostEntries = 2048;

}  // namespace vireon::adapters
