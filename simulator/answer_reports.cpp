#include "simulator/answer_reports.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <utility>

#include "simulator/answer_bytes.h"
#include "simulator/command_collector.h"

namespace vireon::simulator {
namespace {

using Reports = std::deque<AnswerReport>;

// Place of a report counted from 1, or of none.
std::ptrdiff_t placeOf(const std::optional<std::size_t>& number, const Reports& reports) {
  if (!number || *number == 0 || *number > reports.size()) return -1;
  return static_cast<std::ptrdiff_t>(*number - 1);
}

void spoil(Reports& reports, const Faults& faults) {
  if (faults.cutAfterReports) reports.resize(std::min(reports.size(), *faults.cutAfterReports));
  if (faults.shortReport) {
    const auto place = placeOf(faults.shortReport->report, reports);
    if (place >= 0) {
      reports[static_cast<std::size_t>(place)].length = std::min(faults.shortReport->length, kReportPayload);
    }
  }
  if (const auto place = placeOf(faults.doubleReport, reports); place >= 0) {
    reports[static_cast<std::size_t>(place)].copies = 2;
  }
  if (const auto place = placeOf(faults.swapReport, reports); place >= 0) {
    const auto index = static_cast<std::size_t>(place);
    if (index + 1 < reports.size()) std::swap(reports[index], reports[index + 1]);
  }
  if (const auto place = placeOf(faults.dropReport, reports); place >= 0) {
    reports.erase(reports.begin() + place);
  }
}

}  // namespace

std::deque<AnswerReport> AnswerCutter::cut(const std::string& text, const Faults& faults) {
  const auto bytes = answerBytes(text, faults);
  const bool ends = !bytes.empty() && bytes.back() == CommandCollector::kEnd;
  Reports reports;
  for (std::size_t first = 0; first < bytes.size(); first += kReportPayload) {
    const std::size_t count = std::min(kReportPayload, bytes.size() - first);
    if (!ends) buffer_.fill(0);
    std::copy_n(bytes.begin() + static_cast<std::ptrdiff_t>(first), count, buffer_.begin());
    reports.push_back({buffer_});
  }
  spoil(reports, faults);
  return reports;
}

}  // namespace vireon::simulator
