#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "files/list_row.h"
#include "files/progress.h"
#include "form/grid.h"

// The logger's list as a text file: a line a row, four columns parted by TAB, code page 1252.
namespace vireon::files {

inline constexpr int kProgressLines = 500;  // done from one word of the progress to the next

// Lines and bytes of the longest file that is read; its cells take some 64 MB.
inline constexpr std::size_t kMostListLines = 250000;
inline constexpr std::size_t kLargestListFile = std::size_t{64} << 20U;

// How many rows of the list are written: those up to the first whose column 0 is empty, the header row among
// them.
int writtenRows(const form::Grid& list);

struct ListText {
  std::string bytes;       // the whole file
  bool complete = true;    // False where "?" stands for a letter, or a blank for a control character
  bool cancelled = false;  // progress returned False
};

// The file of these rows, the times in column 1 as "hh:mm:ss".
ListText listText(const form::Grid& list, int rows, const Progress& progress = {});

// How many lines the file has; the last needs no line end.
std::size_t listLines(std::string_view file);

struct ListRows {
  std::vector<ListRow> rows;
  bool cancelled = false;
};

// The cells of the file, a row a line; what follows a line's fourth field is left out.
ListRows listRows(std::string_view file, const Progress& progress = {});

}  // namespace vireon::files
