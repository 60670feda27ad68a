#pragma once

#include "platform/clipboard.h"
#include "platform/png_encoder.h"

namespace vireon::adapters {

// The desktop's clipboard.
class QtClipboard : public platform::Clipboard {
 public:
  void setPicture(const platform::Bitmap& bitmap) override;
};

// The toolkit's PNG writer.
class QtPngEncoder : public platform::PngEncoder {
 public:
  std::string encode(const platform::Bitmap& bitmap) override;
};

}  // namespace vireon::adapters
