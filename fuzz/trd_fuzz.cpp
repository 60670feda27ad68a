#include <string>

#include "files/trend_file.h"
#include "fuzz/arena.h"
#include "fuzz/saved_file_rig.h"
#include "protocol/trend_plot.h"

namespace {

using vireon::fuzz::require;
using vireon::fuzz::SavedFileRig;
using vireon::protocol::kTrendPoints;

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
  std::string captions;
  for (const int label : {7, 1, 3}) {
    captions.append(vireon::files::listCaption(program.form.vdtrd[label].caption())).append("\r\n");
  }
  require(rig.savedAs("b", ".trd").starts_with(captions));
  require(rig.reopens("b.trd") && program.state.trdBuf == points);
}

}  // namespace

// An input is a saved trend plot.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  vireon::fuzz::withNew<SavedFileRig>(
      [&](SavedFileRig& rig) { fuzzTrend(rig, std::string(data, data + size)); });
  return 0;
}
