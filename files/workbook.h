#pragma once

#include <cstddef>

// Workbooks as spreadsheets of 1997 to 2003 write them (BIFF8): the stream "Workbook" of a compound file.
namespace vireon::files {

inline constexpr int kMostSheetRows = 65536;
inline constexpr int kMostSheetColumns = 256;
inline constexpr std::size_t kLongestCellText = 32767;  // UTF-16 units

// Bytes of the largest file that is written or read.
inline constexpr std::size_t kLargestWorkbook = std::size_t{64} << 20U;

inline constexpr int kProgressRows = 256;  // done from one word of the progress to the next

}  // namespace vireon::files
