#include "tests/soak/report.h"

#include <array>
#include <cstdarg>
#include <cstdio>

namespace vireon::soak {
namespace {

constexpr double kLongRun = 10;  // minutes in which every control comes to its turn
constexpr std::size_t kShownGaps = 15;
#ifdef __SANITIZE_ADDRESS__
constexpr bool kJudgesGaps = false;  // the sanitizers make everything slower
#else
constexpr bool kJudgesGaps = true;
#endif

template <class... Values>
std::string line(const char* format, Values... values) {
  std::array<char, 600> text{};
  std::snprintf(text.data(), text.size(), format, values...);
  return text.data();
}

std::string gapsText(const PaintWatch& paints) {
  std::string text =
      line("Paints: %llu; gaps over %.0f ms: %llu, the program's own: %llu\n",
           static_cast<unsigned long long>(paints.paints()), PaintWatch::kLongest,
           static_cast<unsigned long long>(paints.gaps()), static_cast<unsigned long long>(paints.ownGaps()));
  std::size_t shown = 0;
  for (const Gap& gap : paints.worst()) {
    if (++shown > kShownGaps) {
      break;
    }
    text += line("  %.0f ms: computing %.0f, not run %.0f, own %.0f: %s\n", gap.wall, gap.processor,
                 gap.queued, gap.own(), gap.act.c_str());
  }
  return text;
}

std::string growthText(const Soak& soak) {
  std::string text = "First rest: " + soak.first.text() + "\nLast rest:  " + soak.last.text() + "\n";
  if (!soak.between.samples().empty()) {
    text += "After session 1: " + soak.between.samples().front().text() +
            "\nAfter the last:  " + soak.between.samples().back().text() + "\n";
  }
  return text;
}

}  // namespace

std::string reportOf(Soak& soak, const Order& order) {
  const auto unused = soak.controls.unused();
  if (order.minutes >= kLongRun && !unused.empty()) {
    soak.log.finding("controls that were never used: " + std::to_string(unused.size()));
  }
  if (kJudgesGaps && soak.paints.ownGaps() > 0) {
    soak.log.finding("gaps between paints of the program's own: " + std::to_string(soak.paints.ownGaps()));
  }
  std::string text =
      line("Seed %llu, %g minutes: %llu sessions, %llu acts, %llu rests, %llu faults\n",
           static_cast<unsigned long long>(order.seed), order.minutes,
           static_cast<unsigned long long>(soak.sessions), static_cast<unsigned long long>(soak.log.acts()),
           static_cast<unsigned long long>(soak.rests), static_cast<unsigned long long>(soak.faults));
  text += line(
      "Messages: %llu, losses of the link: %llu; files saved %llu, loaded %llu, failed %llu; printed %llu\n",
      static_cast<unsigned long long>(soak.messages.messages()),
      static_cast<unsigned long long>(soak.messages.losses()),
      static_cast<unsigned long long>(soak.files.saves()),
      static_cast<unsigned long long>(soak.files.loads()),
      static_cast<unsigned long long>(soak.files.failures()),
      static_cast<unsigned long long>(soak.paper.printed));
  for (const auto& [kind, count] : soak.log.counts()) {
    text += line("  %6llu %s\n", static_cast<unsigned long long>(count), kind.c_str());
  }
  text += gapsText(soak.paints) + growthText(soak);
  text += line("Controls used: %zu of %zu\n", soak.controls.known() - unused.size(), soak.controls.known());
  for (const std::string& name : unused) {
    text += "  never used: " + name + "\n";
  }
  for (const std::string& finding : soak.log.firstFindings()) {
    text += "FINDING: " + finding + "\n";
  }
  text += line("%llu findings\n", static_cast<unsigned long long>(soak.log.findings()));
  return text;
}

}  // namespace vireon::soak
