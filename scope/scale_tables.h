#pragma once

#include "form/main_form.h"
#include "protocol/instrument_state.h"

namespace vireon::scope {

// Fills the scale labels, the lists of functions and modes, and the grid's columns and header row.
// Runs once, when the window is loaded; the function "Dwell" is listed only if state.modelId is known by
// then and names the model that has it.
void initLbl(form::MainForm& form, protocol::InstrumentState& state);

// Writes the header row of the logger grid; its blanks are part of the texts.
void writeGridHeader(form::Grid& grid);

// Shows a channel's setting byte (0 = A, 1 = B): bits 0 to 3 volts/div or, for channel A on OHM or BZ, the
// ohm range; 4 AC coupling; 5 auto scale; 6 channel on. Channel B is left alone on OHM and BZ.
// Faults (kBounds) when the code lies past the table in use.
void dspVinf(form::MainForm& form, const protocol::InstrumentState& state, int index, int num);

}  // namespace vireon::scope
