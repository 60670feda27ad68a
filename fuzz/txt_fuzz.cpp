#include <algorithm>
#include <string>
#include <vector>

#include "files/list_text_file.h"
#include "files/list_view.h"
#include "files/time_text.h"
#include "fuzz/arena.h"
#include "fuzz/saved_file_rig.h"

namespace {

using vireon::form::Grid;
using vireon::fuzz::require;
using vireon::fuzz::SavedFileRig;

constexpr int kTimeColumn = 1;

// The cells that a save writes, as they are read back.
std::vector<std::string> writtenCells(const Grid& list) {
  std::vector<std::string> cells;
  const int rows = vireon::files::writtenRows(list);
  for (int row = 0; row < rows; ++row) {
    for (int column = 0; column < vireon::files::kListColumns; ++column) {
      const std::string& text = list.text(row, column);
      cells.push_back(column == kTimeColumn ? vireon::files::timeText(text) : text);
      std::replace_if(
          cells.back().begin(), cells.back().end(),
          [](char letter) { return static_cast<unsigned char>(letter) < ' '; }, ' ');
    }
  }
  return cells;
}

std::vector<std::string> shownCells(const Grid& list) {
  std::vector<std::string> cells;
  for (int row = 0; row < vireon::files::writtenRows(list); ++row) {
    for (int column = 0; column < vireon::files::kListColumns; ++column) {
      cells.push_back(list.text(row, column));
    }
  }
  return cells;
}

// A list that was loaded is saved and loaded again: the same, but for the form of times and for control
// characters, which give way to blanks.
void fuzzList(SavedFileRig& rig, const std::string& content) {
  const Grid& list = rig.program.form.grdLog;
  const bool loaded = rig.opens(".txt", content);
  require(list.rows() >= 13 && list.columns() == vireon::files::kListColumns);
  if (!loaded || vireon::files::isEmptyList(list)) {
    return;
  }
  const std::vector<std::string> cells = writtenCells(list);
  rig.savedAs("b", ".txt");
  require(rig.reopens("b.txt") && shownCells(list) == cells);
}

}  // namespace

// An input is a saved list.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  vireon::fuzz::withNew<SavedFileRig>(
      [&](SavedFileRig& rig) { fuzzList(rig, std::string(data, data + size)); });
  return 0;
}
