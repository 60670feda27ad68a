#pragma once

#include <cstddef>
#include <functional>

// Workbooks as spreadsheets of 1997 to 2003 write them (BIFF8): the stream "Workbook" of a compound file.
namespace vireon::files {

inline constexpr int kMostSheetRows = 65536;
inline constexpr int kMostSheetColumns = 256;
inline constexpr std::size_t kLongestCellText = 32767;  // UTF-16 units

// Bytes of the largest file that is written or read.
inline constexpr std::size_t kLargestWorkbook = std::size_t{64} << 20U;

inline constexpr int kProgressRows = 256;

// Told the rows done so far, each time kProgressRows more are done; False cancels. May be empty.
using Progress = std::function<bool(int rowsDone)>;

}  // namespace vireon::files
