#include "files/out_of_memory.h"

#include <new>

namespace vireon::files {

void OutOfMemory::tell(platform::MessageBoxes& messages) const {
  try {
    messages.show(message_);
  } catch (const std::bad_alloc&) {
    return;
  }
}

}  // namespace vireon::files
