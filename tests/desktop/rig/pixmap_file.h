#pragma once

#include <string_view>

#include "platform/bitmap.h"

namespace vireon::tests {

// The picture in a binary "portable pixmap" of 8 bits a colour, as other programs write it; empty for
// anything else.
platform::Bitmap fromPixmapFile(std::string_view bytes);

// A part of a picture; what lies outside of it is black.
platform::Bitmap part(const platform::Bitmap& whole, int left, int top, int width, int height);

// How many pixels differ; all of them where the sizes do.
int differences(const platform::Bitmap& one, const platform::Bitmap& other);

}  // namespace vireon::tests
