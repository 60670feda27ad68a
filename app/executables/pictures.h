#pragma once

#include <string>

#include "app/executables/session.h"
#include "simulator/instrument.h"

namespace vireon::app {

// Takes the pictures of the documents: the scope tab disconnected, live, with a reference trace, on OHM and
// with an external trigger. They go to `folder` (made if missing), their names ending with `suffix`.
// Returns the process's exit code: 0 when all were taken.
int takePictures(Session& session, simulator::Instrument& instrument, simulator::ManualClock& clock,
                 const std::string& folder, const std::string& suffix);

}  // namespace vireon::app
