#pragma once

#include <QString>
#include <string>

#include "tests/soak/dice.h"

namespace vireon::soak {

// What a user might type into the box of that name, sense and nonsense.
QString typedText(Dice& dice, const std::string& box);

// Letters of all kinds, those of paths left out.
QString nonsense(Dice& dice, int longest);

}  // namespace vireon::soak
