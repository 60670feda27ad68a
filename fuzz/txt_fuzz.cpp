#include <string>

#include "files/list_commands.h"
#include "fuzz/arena.h"
#include "fuzz/saved_file_rig.h"

namespace {

using vireon::fuzz::require;
using vireon::fuzz::SavedFileRig;

// A list that was loaded is saved and loaded again without a difference.
void fuzzList(SavedFileRig& rig, const std::string& content) {
  const vireon::form::Grid& list = rig.program.form.grdLog;
  const bool loaded = rig.opens(".txt", content);
  require(list.rows() >= 13 && list.columns() == 4);
  if (!loaded || vireon::files::isEmptyList(list)) {
    return;
  }
  // A control character that gives way to a blank may make a time of a text: the second file is the settled
  // one.
  rig.savedAs("b", ".txt");
  require(rig.reopens("b.txt"));
  const std::string settled = rig.savedAs("c", ".txt");
  require(rig.reopens("c.txt"));
  require(rig.savedAs("d", ".txt") == settled);
}

}  // namespace

// An input is a saved list.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  vireon::fuzz::withNew<SavedFileRig>(
      [&](SavedFileRig& rig) { fuzzList(rig, std::string(data, data + size)); });
  return 0;
}
