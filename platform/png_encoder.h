#pragma once

#include <string>

#include "platform/bitmap.h"

namespace vireon::platform {

// Writes pictures as PNG files.
class PngEncoder {
 public:
  PngEncoder() = default;
  PngEncoder(const PngEncoder&) = delete;
  PngEncoder& operator=(const PngEncoder&) = delete;
  virtual ~PngEncoder() = default;

  // The bytes of a file that holds exactly these pixels; empty when it cannot be made, e.g. for lack of
  // memory.
  virtual std::string encode(const Bitmap& bitmap) = 0;
};

}  // namespace vireon::platform
