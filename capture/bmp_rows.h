#pragma once

#include <array>
#include <cstdint>
#include <string_view>
#include <vector>

#include "platform/bitmap.h"

namespace vireon::capture {

// How the pixels of a bitmap file are stored; all of it checked but the data's length.
struct BmpLayout {
  int width = 0;  // both at least 1
  int height = 0;
  bool downwards = false;  // the first row is the top one
  unsigned bits = 0;       // a pixel: 1, 4, 8, 16, 24 or 32
  bool runLengths = false;
  std::array<std::uint32_t, 3> masks{};  // red, green, blue; each of neighbouring bits; for 16 and 32 bits
  std::vector<std::uint32_t> colors;     // 0x00RRGGBB; for 1, 4 and 8 bits
};

// Both give the picture in `data`, or an empty one when that ends too early. A colour that the table does not
// have is black.
platform::Bitmap plainRows(const BmpLayout& layout, std::string_view data);
platform::Bitmap runLengthRows(const BmpLayout& layout, std::string_view data);

}  // namespace vireon::capture
