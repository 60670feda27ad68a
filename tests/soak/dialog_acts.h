#pragma once

#include <QWidget>

#include "tests/soak/dice.h"
#include "tests/soak/stage.h"

namespace vireon::soak {

// What stands before the main window and wants an answer first: an opened list or menu, a message, a file
// dialog, the search for the instrument. Null when there is none.
QWidget* inFront();

// One act with it. Milliseconds until the next.
int answer(Stage& stage, Dice& dice, QWidget& front);

// Sends it away: no, cancel, close.
void dismiss(Stage& stage, QWidget& front);

}  // namespace vireon::soak
