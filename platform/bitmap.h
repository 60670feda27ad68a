#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace vireon::platform {

// A picture in memory: rows from the top, pixels from the left, each 0x00RRGGBB.
struct Bitmap {
  int width = 0;  // pixels
  int height = 0;
  std::vector<std::uint32_t> pixels;  // width * height of them

  bool empty() const { return width <= 0 || height <= 0; }
  std::uint32_t at(int x, int y) const {
    return pixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(width) +
                  static_cast<std::size_t>(x)];
  }
  friend bool operator==(const Bitmap&, const Bitmap&) = default;
};

// A bitmap of this size, all pixels black; empty where a side is 0 or less.
inline Bitmap blackBitmap(int width, int height) {
  if (width <= 0 || height <= 0) {
    return {};
  }
  return {width, height,
          std::vector<std::uint32_t>(static_cast<std::size_t>(width) * static_cast<std::size_t>(height))};
}

}  // namespace vireon::platform
