#pragma once

#include "platform/message_box.h"

namespace vireon::files {

// What the user is told when memory has run out, made while there is some.
class OutOfMemory {
 public:
  // Shows the one message; nothing where there is no memory for a box either.
  void tell(platform::MessageBoxes& messages) const;

 private:
  platform::Message message_{"Out of Memory",
                             "There is not enough memory for this.\nIt was ended, and sampling is stopped.",
                             platform::MessageIcon::kExclamation};
};

}  // namespace vireon::files
