#pragma once

#include <new>
#include <string>
#include <vector>

#include "platform/clipboard.h"
#include "platform/png_encoder.h"

namespace vireon::tests {

class FakeClipboard final : public platform::Clipboard {
 public:
  std::vector<platform::Bitmap> pictures;  // each one set
  bool outOfMemory = false;                // at every call

  void setPicture(const platform::Bitmap& bitmap) override {
    if (outOfMemory) throw std::bad_alloc();
    pictures.push_back(bitmap);
  }
};

// Its files tell the picture's size alone.
class FakePngEncoder final : public platform::PngEncoder {
 public:
  bool works = true;

  std::string encode(const platform::Bitmap& bitmap) override {
    return works ? "PNG " + std::to_string(bitmap.width) + "x" + std::to_string(bitmap.height)
                 : std::string();
  }
};

}  // namespace vireon::tests
