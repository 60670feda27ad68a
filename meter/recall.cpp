#include "meter/recall.h"

#include <string>

#include "protocol/trend_plot.h"

namespace vireon::meter {
namespace {

constexpr const char* kRewind = "DPC02";
constexpr const char* kRewindAndStatus = "DPC02;STS??";
constexpr const char* kNextDump = "DPC03";
constexpr int kMostSilent = 3;  // answers in a row that list nothing

std::string counted(int records) {
  return std::to_string(records) + (records == 1 ? " record" : " records");
}

}  // namespace

link::Outcome Recall::clearList() {
  const link::Outcome outcome = link_.ask(kRewindAndStatus);
  if (outcome == link::Outcome::kAnswered) {
    listing_.prepare();
    protocol::clearTrend(form_);
  }
  return outcome;
}

void Recall::download() {
  link::LongWork::Scope scope(longWork_, 0, {&form_.chkLog0});
  listCleared_ = false;
  tell(fetch(scope));
}

Recall::Ending Recall::fetch(link::LongWork::Scope& scope) {
  form_.StatusBar1.setPanel(1, "Recall: winding back");
  if (const link::Outcome outcome = link_.ask(kRewind); outcome != link::Outcome::kAnswered) {
    return endingOf(outcome);
  }
  if (!scope.goOn(0)) {
    return Ending::kCancelled;
  }
  if (const link::Outcome outcome = clearList(); outcome != link::Outcome::kAnswered) {
    return endingOf(outcome);
  }
  listCleared_ = true;
  return fetchDumps(scope);
}

Recall::Ending Recall::fetchDumps(link::LongWork::Scope& scope) {
  for (int silent = 0; silent < kMostSilent;) {
    const int before = listing_.records();
    form_.StatusBar1.setPanel(1, "Recall: " + counted(before) + " so far");
    if (!scope.goOn(before)) {
      return Ending::kCancelled;
    }
    const link::Outcome outcome = link_.ask(kNextDump);
    if (outcome == link::Outcome::kFailed || outcome == link::Outcome::kRefused) {
      return endingOf(outcome);
    }
    if (state_.logEnd) {
      return Ending::kComplete;
    }
    silent = listing_.records() == before ? silent + 1 : 0;
  }
  return Ending::kNothingMore;
}

Recall::Ending Recall::endingOf(link::Outcome outcome) {
  switch (outcome) {
    case link::Outcome::kRefused:
      return Ending::kRefused;
    case link::Outcome::kFailed:
      return Ending::kLinkLost;
    default:
      return Ending::kNothingMore;
  }
}

void Recall::tell(Ending ending) {
  if (ending == Ending::kComplete) {
    form_.StatusBar1.setPanel(1, "Recall complete: " + counted(listing_.records()));
    return;
  }
  std::string text;
  switch (ending) {
    case Ending::kCancelled:
      text = "Recall cancelled: ";
      break;
    case Ending::kRefused:
      text = "Recall refused by the instrument: ";
      break;
    case Ending::kLinkLost:
      text = "Recall ended, the link is lost: ";
      break;
    default:
      text = "Recall ended, no end of the data came: ";
      break;
  }
  form_.StatusBar1.setPanel(
      1, text + (listCleared_ ? counted(listing_.records()) + " kept" : "the list is kept"));
}

}  // namespace vireon::meter
