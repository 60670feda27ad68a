#pragma once

#include "platform/bitmap.h"

namespace vireon::platform {

// The desktop's clipboard.
class Clipboard {
 public:
  Clipboard() = default;
  Clipboard(const Clipboard&) = delete;
  Clipboard& operator=(const Clipboard&) = delete;
  virtual ~Clipboard() = default;

  // Offers the picture to every program, in place of what the clipboard held; returns at once.
  virtual void setPicture(const Bitmap& bitmap) = 0;
};

}  // namespace vireon::platform
