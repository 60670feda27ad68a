#pragma once

#include <string>
#include <string_view>

#include "files/list_values.h"
#include "form/main_form.h"
#include "protocol/instrument_state.h"

namespace vireon::files {

// Points beyond this, in either direction, are none of a plot.
inline constexpr double kLargestTrendPoint = 32767;

// The plot's three captions and its points; one that never came is 0.
std::string trendFile(const form::MainForm& form, const protocol::InstrumentState& state);

// Reads the captions into vdtrd and the points, as numbers, into trdBuf, up to the one that was missing or no
// number. The lower limit's label shows the upper limit's text. An empty line is the point 0.
ListReadResult readTrend(std::string_view file, form::MainForm& form, protocol::InstrumentState& state);

// Draws all points of trdBuf on picTrd and fills barTrd.
void drawTrend(form::MainForm& form, const protocol::InstrumentState& state);

}  // namespace vireon::files
