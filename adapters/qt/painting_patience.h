#pragma once

#include "adapters/posix/node_patience.h"
#include "adapters/qt/modal_gate.h"

namespace vireon::adapters {

// Patience with a node just plugged in that leaves the windows painting. `gate` outlives it.
NodePatience paintingPatience(ModalGate& gate);

}  // namespace vireon::adapters
