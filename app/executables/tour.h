#pragma once

#include <string>

#include "app/executables/session.h"
#include "simulator/instrument.h"

namespace vireon::app {

// Uses the window as a newcomer would: connects, watches 200 live frames, turns volts/div, time/div and a
// channel. Saves a picture of each step into `folder` (made if missing) and prints what it did and saw.
// Returns the process's exit code: 0 when every step did what it should.
int runTour(Session& session, const simulator::Instrument& instrument, const std::string& folder);

}  // namespace vireon::app
