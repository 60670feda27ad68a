#pragma once

#include "adapters/qt/modal_gate.h"

namespace vireon::adapters {

// One turn of the event loop in which the windows paint and nothing else of the program happens: timers of
// the form and close requests are told by the gate to wait, timers of widgets are put off, and the user's
// input stays in its queue.
void paintingTurn(ModalGate& gate);

}  // namespace vireon::adapters
