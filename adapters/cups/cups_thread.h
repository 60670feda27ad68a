#pragma once

#include <functional>

namespace vireon::adapters {

// Runs `load`, which may install a way to ask the user for a password, where no print service is found. From
// then on a service that asks this thread for a password gets none: only the thread that has the windows may
// open a dialog.
void loadPrintSupport(const std::function<void()>& load);

}  // namespace vireon::adapters
