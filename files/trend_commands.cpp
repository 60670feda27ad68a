#include "files/trend_commands.h"

#include "files/trend_file.h"
#include "protocol/trend_plot.h"

namespace vireon::files {
namespace {

constexpr std::size_t kLargestTrendFile = 1U << 20U;

}  // namespace

void TrendCommands::save() {
  if (name_.empty() || name_.isMade()) {
    name_.make("Trd_", kExtension);
  }
  if (form_.barTrd.value() != protocol::kLastTrendPoint) {
    folder_.say("Not saved: the trend plot has " + std::to_string(points()) + " of its " +
                std::to_string(protocol::kTrendPoints) + " points");
    return;
  }
  if (folder_.allows(name_.name())) {
    write();
  }
}

// A bar at 0 is a plot of one point or an empty one.
int TrendCommands::points() const {
  const int last = form_.barTrd.value();
  const bool first = state_.trdCnt == 0 && !std::holds_alternative<std::monostate>(state_.trdBuf[0]);
  return last > 0 || first ? last + 1 : 0;
}

void TrendCommands::saveTrd() {
  const std::string name = name_.name();
  if (name_.empty() || name_.isMade() || !isAllowedName(name) || folder_.has(name + kExtension)) {
    name_.make("Trd_", kExtension);
  }
  write();
}

void TrendCommands::write() {
  folder_.save(name_.name(), kExtension, trendFile(form_, state_));
}

void TrendCommands::load(const std::string& path) {
  protocol::clearTrend(form_);
  const auto file = folder_.read(path, kLargestTrendFile);
  if (!file) {
    return;
  }
  const ListReadResult result = readTrend(*file, form_, state_);
  if (result.error != ListError::kNone) {
    folder_.sayProblem(path, result, "a number");
    return;
  }
  drawTrend(form_, state_);
  folder_.sayLoaded(path);
}

}  // namespace vireon::files
