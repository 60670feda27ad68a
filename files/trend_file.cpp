#include "files/trend_file.h"

#include <cmath>
#include <initializer_list>

#include "protocol/trend_plot.h"

namespace vireon::files {
namespace {

using protocol::kTrendPoints;

std::string printed(const protocol::TrendPoint& point) {
  if (const auto* text = std::get_if<std::string>(&point)) {
    return listCaption(*text);
  }
  return listNumber(protocol::numberOf(point));
}

}  // namespace

std::string trendFile(const form::MainForm& form, const protocol::InstrumentState& state) {
  std::string file;
  for (const int label : {7, 1, 3}) {
    file.append(listCaption(form.vdtrd[label].caption())).append(kLineEnd);
  }
  for (std::size_t point = 0; point < kTrendPoints; ++point) {
    file.append(printed(state.trdBuf[point])).append(kLineEnd);
  }
  return file;
}

ListReadResult readTrend(std::string_view file, form::MainForm& form, protocol::InstrumentState& state) {
  ListReader reader(file);
  for (const auto& labels : {std::initializer_list<int>{7}, {1, 2}, {3}}) {
    const auto caption = reader.lineField();
    if (!caption) {
      return {ListError::kTooShort, reader.line()};
    }
    for (const int label : labels) {
      form.vdtrd[label].setCaption(std::string(*caption));
    }
  }
  for (std::size_t point = 0; point < kTrendPoints; ++point) {
    const auto field = reader.field();
    if (!field) {
      return {ListError::kTooShort, reader.line()};
    }
    const auto value = field->empty() ? 0.0 : numberOfField(*field);
    if (!value || std::abs(*value) > kLargestTrendPoint) {
      return {ListError::kNoNumber, reader.line()};
    }
    state.trdBuf[point] = *value;
  }
  return {ListError::kNone, reader.line()};
}

void drawTrend(form::MainForm& form, const protocol::InstrumentState& state) {
  for (int point = 1; point < kTrendPoints; ++point) {
    protocol::drawTrendLine(form, state, point);
    form.barTrd.setValue(point);
  }
}

}  // namespace vireon::files
