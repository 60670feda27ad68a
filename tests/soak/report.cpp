#include "tests/soak/report.h"

#include <cmath>
#include <cstddef>
#include <sstream>

namespace vireon::soak {
namespace {

constexpr double kLongRun = 10;  // minutes in which every control comes to its turn
constexpr std::size_t kShownGaps = 15;

void tellGaps(std::ostream& text, const PaintWatch& paints) {
  text << "Paints: " << paints.paints() << "; gaps over " << PaintWatch::kLongest << " ms: " << paints.gaps()
       << ", the program's own: " << paints.ownGaps() << ", heavy: " << paints.heavyGaps() << "\n";
  std::size_t shown = 0;
  for (const Gap& gap : paints.worst()) {
    if (++shown > kShownGaps) {
      break;
    }
    text << "  " << std::lround(gap.wall) << " ms: computing " << std::lround(gap.processor)
         << " (in the system " << std::lround(gap.system) << ", pages " << gap.pages << "), not run "
         << std::lround(gap.queued) << ", other threads not run " << std::lround(gap.others)
         << ", computer stood still " << std::lround(gap.stalled) << ", own " << std::lround(gap.own())
         << ": " << gap.act << "\n";
  }
}

void tellGrowth(std::ostream& text, const Soak& soak) {
  text << "First rest: " << soak.first.text() << "\nLast rest:  " << soak.last.text() << "\n";
  if (!soak.between.samples().empty()) {
    text << "After session 1: " << soak.between.samples().front().text()
         << "\nAfter the last:  " << soak.between.samples().back().text() << "\n";
  }
}

}  // namespace

std::string reportOf(Soak& soak, const Order& order) {
  const auto unused = soak.controls.unused();
  if (order.minutes >= kLongRun && !unused.empty()) {
    soak.log.finding("controls that were never used: " + std::to_string(unused.size()));
  }
  // The sanitizers make everything slower.
  if (!isSanitized() && soak.paints.heavyGaps() > 0) {
    soak.log.finding("gaps between paints that are the program's own: " +
                     std::to_string(soak.paints.heavyGaps()));
  }
  std::ostringstream text;
  text << "Seed " << order.seed << ", " << order.minutes << " minutes: " << soak.sessions << " sessions, "
       << soak.log.acts() << " acts, " << soak.rests << " rests, " << soak.faults << " faults, "
       << soak.commands << " commands\n"
       << "Messages: " << soak.messages.messages() << ", losses of the link: " << soak.messages.losses()
       << "; files saved " << soak.files.saves() << ", loaded " << soak.files.loads() << ", failed "
       << soak.files.failures() << "; printed " << soak.paper.printed << "\n";
  for (const auto& [kind, count] : soak.log.counts()) {
    text << "  " << count << " x " << kind << "\n";
  }
  tellGaps(text, soak.paints);
  tellGrowth(text, soak);
  text << "Controls used: " << soak.controls.known() - unused.size() << " of " << soak.controls.known()
       << "\n";
  for (const std::string& name : unused) {
    text << "  never used: " << name << "\n";
  }
  for (const std::string& finding : soak.log.firstFindings()) {
    text << "FINDING: " << finding << "\n";
  }
  text << soak.log.findings() << " findings\n";
  return text.str();
}

}  // namespace vireon::soak
