#include "protocol/trend_plot.h"

#include <cmath>

namespace vireon::protocol {
namespace {

// Twips on picTrd.
int trendX(int point) {
  return 750 + 30 * point;
}

int trendY(const TrendPoint& point) {
  return 1260 - static_cast<int>(std::lround(30.0 * numberOf(point)));
}

}  // namespace

void drawTrendLine(form::MainForm& form, const InstrumentState& state, int point) {
  const auto end = static_cast<std::size_t>(point);
  form.picTrd.line(trendX(point - 1), trendY(state.trdBuf[end - 1]), trendX(point), trendY(state.trdBuf[end]),
                   form::kRed);
}

void clearTrend(form::MainForm& form) {
  form.picTrd.cls();
  form.barTrd.setValue(0);
}

}  // namespace vireon::protocol
