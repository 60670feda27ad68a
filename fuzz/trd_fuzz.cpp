#include <string>

#include "files/trend_file.h"
#include "fuzz/arena.h"
#include "fuzz/saved_file_rig.h"

namespace {

using vireon::files::kTrendPoints;
using vireon::fuzz::require;
using vireon::fuzz::SavedFileRig;

// A trend plot that was loaded is saved and loaded again without a difference.
void fuzzTrend(SavedFileRig& rig, const std::string& content) {
  const vireon::app::Program& program = rig.program;
  const bool loaded = rig.opens(".trd", content);
  require(program.form.picTrd.lines().size() == (loaded ? kTrendPoints - 1 : 0));
  require(program.form.barTrd.value() == (loaded ? kTrendPoints - 1 : 0));
  if (!loaded) {
    return;
  }
  const auto points = program.state.trdBuf;
  // Captions settle in the third file: a control character gives way to a blank, then the quote behind it is
  // one at the beginning, then the comma in the quotes ends the caption.
  std::string settled;
  for (const char* name : {"b", "c", "d"}) {
    settled = rig.savedAs(name, ".trd");
    require(rig.reopens(name + std::string(".trd")) && program.state.trdBuf == points);
  }
  require(rig.savedAs("e", ".trd") == settled);
}

}  // namespace

// An input is a saved trend plot.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  vireon::fuzz::withNew<SavedFileRig>(
      [&](SavedFileRig& rig) { fuzzTrend(rig, std::string(data, data + size)); });
  return 0;
}
