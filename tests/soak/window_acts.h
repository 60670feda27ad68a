#pragma once

#include "tests/soak/dice.h"
#include "tests/soak/stage.h"

namespace vireon::soak {

// A key or a shortcut at the main window or the viewer.
void useKeys(Stage& stage, Dice& dice);

// Another size, minimised, maximised, another palette.
void useFrame(Stage& stage, Dice& dice);

// A file dropped on the main window: a saved one, a stranger's, a folder, or none that is there.
void dropFile(Stage& stage, Dice& dice);
void drop(Stage& stage, const std::string& path);

}  // namespace vireon::soak
