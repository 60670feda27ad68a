#include "files/list_print.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "files/time_text.h"
#include "protocol/record_list.h"
#include "protocol/trend_plot.h"

namespace vireon::files {
namespace {

constexpr double kGap = 360;           // twips between two columns
constexpr double kNarrowest = 900;     // twips of a column without its gap
constexpr int kRowsBetweenLooks = 50;  // at the progress and at "Cancel"

using TabStops = std::array<double, kListColumns + 1>;  // twips; the last is the right edge

std::size_t letters(std::string_view text) {
  return static_cast<std::size_t>(std::count_if(
      text.begin(), text.end(), [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U; }));
}

// The stops at which each column's longest text has room; closer together where the page is too narrow.
TabStops tabStops(const platform::PrintDocument& document, const std::vector<ListRow>& lines) {
  TabStops stops{};
  for (std::size_t column = 0; column < kListColumns; ++column) {
    const auto longest = std::max_element(
        lines.begin(), lines.end(),
        [&](const auto& one, const auto& other) { return letters(one[column]) < letters(other[column]); });
    stops[column + 1] = stops[column] + std::max(kNarrowest, document.textWidth((*longest)[column])) + kGap;
  }
  const double right = document.area().width;
  const double scale = std::min(1.0, right / stops.back());
  std::transform(stops.begin(), stops.end(), stops.begin(), [&](double stop) { return stop * scale; });
  stops.back() = right;
  return stops;
}

void drawLine(platform::PrintDocument& document, const TabStops& stops, double y, const ListRow& line) {
  for (std::size_t column = 0; column < line.size(); ++column) {
    const double gap = column + 1 < line.size() ? kGap / 2 : 0;
    document.text(stops[column], y, stops[column + 1] - stops[column] - gap, line[column]);
  }
}

}  // namespace

int printedRows(const form::Grid& list) {
  for (int row = 0; row < list.rows(); ++row) {
    if (list.text(row, protocol::kReadingColumn).empty()) {
      return row;
    }
    if (list.text(row, protocol::kTimeColumn) == protocol::kEndOfData) {
      return row + 1;
    }
  }
  return list.rows();
}

ListRow printedLine(const form::Grid& list, int row) {
  return {list.text(row, protocol::kRecordColumn), timeText(list.text(row, protocol::kTimeColumn)),
          list.text(row, protocol::kReadingColumn), list.text(row, protocol::kRemarkColumn)};
}

void ListPrint::connectEvents() {
  form_.cmdLprt.onClick = [this] { cmdLprt_Click(); };
}

void ListPrint::cmdLprt_Click() {
  if (form_.panTrd.visible()) {
    protocol::clearTrend(form_);
    return;
  }
  const int rows = form_.grdLog.columns() < kListColumns ? 0 : printedRows(form_.grdLog);
  if (rows == 0) {
    form_.StatusBar1.setPanel(1, "The list is empty");
    return;
  }
  printOut_.print(PrintOut::kList, messages_,
                  [&](platform::PrintDocument& document) { return draw(document, rows); });
}

bool ListPrint::draw(platform::PrintDocument& document, int rows) {
  std::optional<link::LongWork::Scope> work;
  if (rows > kLongPrint) {
    work.emplace(work_, rows);
  }
  std::vector<ListRow> lines;
  lines.reserve(static_cast<std::size_t>(rows));
  for (int row = 0; row < rows; ++row) {
    lines.push_back(printedLine(form_.grdLog, row));
  }
  const TabStops stops = tabStops(document, lines);
  const double step = document.lineHeight();
  const int perPage = std::max(2, static_cast<int>(document.area().height / step));
  int onPage = 0;
  for (std::size_t row = 0; row < lines.size(); ++row) {
    if (onPage == perPage) {
      document.newPage();
      drawLine(document, stops, 0, lines.front());
      onPage = 1;
    }
    drawLine(document, stops, onPage * step, lines[row]);
    ++onPage;
    if (work && row % kRowsBetweenLooks == 0 && !work->goOn(static_cast<int>(row))) {
      return false;
    }
  }
  return true;
}

}  // namespace vireon::files
