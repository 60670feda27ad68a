#pragma once

#include "form/fields.h"
#include "platform/message_box.h"

namespace vireon::meter {

// Whether the instrument can take the text of a box as a parameter: it is not blank and has no ";" and no
// ",", which part commands and parameters, no control character, and no letter outside code page 1252.
// Otherwise the user is told, by the caption of the box's label.
bool accepts(const form::TextBox& box, const form::Label& label, platform::MessageBoxes& messages);

}  // namespace vireon::meter
