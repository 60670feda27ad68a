#pragma once

#include <string>

#include "app/executables/session.h"
#include "simulator/instrument.h"

namespace vireon::app {

// Takes the pictures of the documents: both tabs in all their modes, and the viewer. They go to `folder`
// (made if missing), their names ending with `suffix`. Returns the process's exit code: 0 when all were
// taken.
int takePictures(Session& session, simulator::Instrument& instrument, simulator::ManualClock& clock,
                 const std::string& folder, const std::string& suffix);

}  // namespace vireon::app
