#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "platform/bitmap.h"

namespace vireon::capture {

// Files that are larger, or whose picture is, are not read.
inline constexpr std::size_t kLongestBmpFile = 300U << 20U;  // bytes
inline constexpr std::int64_t kMostBmpPixels = 1LL << 26U;

enum class BmpError {
  kNone,
  kNoBitmap,     // does not begin as a bitmap file
  kDamaged,      // ends too early, or contradicts itself
  kTooLarge,     // has more pixels than asked for
  kUnsupported,  // holds another kind of file, e.g. a JPEG, or a rare arrangement of bits
};

struct BmpResult {
  platform::Bitmap bitmap;  // empty unless error is kNone
  BmpError error = BmpError::kNone;
};

// The picture in a bitmap file (.bmp): 1, 4, 8, 16, 24 or 32 bits a pixel, with bit fields or run lengths,
// rows upwards or downwards. Transparency is left out. A picture of more than `mostPixels`, which are at most
// kMostBmpPixels, is too large.
BmpResult readBmp(std::string_view bytes, std::int64_t mostPixels = kMostBmpPixels);

// A bitmap file of 24 bits a pixel, rows upwards. The bitmap is not empty and has at most kMostBmpPixels.
std::string bmpFile(const platform::Bitmap& bitmap);

}  // namespace vireon::capture
