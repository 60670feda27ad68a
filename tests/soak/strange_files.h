#pragma once

#include "tests/soak/dice.h"
#include "tests/soak/stage.h"

namespace vireon::soak {

// Somebody else's hand in the folder: damaged copies of saved files, files of other programs, a long list,
// folders and dead links with the names of files. All are named "theirs...".
void putStrangeFile(Stage& stage, Dice& dice);

// Removes saved files and strange ones, so that a long run has not ever more of them.
void clearFolder(Stage& stage);
void clearFolder(const std::filesystem::path& folder);

}  // namespace vireon::soak
