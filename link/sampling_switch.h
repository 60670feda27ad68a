#pragma once

#include "form/main_form.h"

namespace vireon::link {

// Shows the start button as running or not, and lets the poll timer run or stops it.
void switchSampling(form::MainForm& form, bool running);

}  // namespace vireon::link
