#pragma once

#include "form/main_form.h"
#include "protocol/instrument_state.h"

namespace vireon::protocol {

inline constexpr int kTrendPoints = 120;                  // of a full plot
inline constexpr int kLastTrendPoint = kTrendPoints - 1;  // the value of barTrd when the plot is full

// Draws the line that ends at a point of trdBuf, 1 to 120, on picTrd. Faults (kConversion) when its point or
// the one before is no "&H" number.
void drawTrendLine(form::MainForm& form, const InstrumentState& state, int point);

// Empties picTrd and barTrd; trdBuf keeps its points.
void clearTrend(form::MainForm& form);

}  // namespace vireon::protocol
