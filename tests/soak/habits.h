#pragma once

#include <QWidget>

#include "tests/soak/dice.h"
#include "tests/soak/stage.h"

namespace vireon::soak {

// The user sets out to do something that takes several controls in a row.
void takeUp(Stage& stage, Dice& dice);
// The same for what brings the files, or the link, into play.
void takeUpFiles(Stage& stage, Dice& dice);
void takeUpLink(Stage& stage, Dice& dice);

// The next control of it, among those that can be used now; null when there is none.
QWidget* wanted(Stage& stage, const std::vector<QWidget*>& usable);

}  // namespace vireon::soak
