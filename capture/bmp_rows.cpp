#include "capture/bmp_rows.h"

#include <algorithm>
#include <bit>
#include <utility>

#include "files/little_endian.h"

namespace vireon::capture {
namespace {

std::uint32_t& pixelAt(platform::Bitmap& bitmap, int x, int y) {
  return bitmap.pixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(bitmap.width) +
                       static_cast<std::size_t>(x)];
}

std::uint32_t color(const BmpLayout& layout, std::uint32_t index) {
  return index < layout.colors.size() ? layout.colors[index] : 0;
}

// A field of a pixel as 0 to 255; the bits of a narrow one repeat, as other programs have it.
std::uint32_t field(std::uint32_t pixel, std::uint32_t mask) {
  if (mask == 0) {
    return 0;
  }
  const auto bits = static_cast<unsigned>(std::popcount(mask));
  const std::uint32_t value = (pixel & mask) >> static_cast<unsigned>(std::countr_zero(mask));
  if (bits >= 8) {
    return value >> (bits - 8);
  }
  std::uint32_t wide = value << (8 - bits);
  for (unsigned filled = bits; filled < 8; filled *= 2) {
    wide |= wide >> filled;
  }
  return wide;
}

std::uint32_t plainPixel(const BmpLayout& layout, std::string_view row, std::size_t x) {
  switch (layout.bits) {
    case 24:
      return files::u24At(row, 3 * x);
    case 16:
    case 32: {
      const std::uint32_t pixel = layout.bits == 16 ? files::u16At(row, 2 * x) : files::u32At(row, 4 * x);
      return field(pixel, layout.masks[0]) << 16U | field(pixel, layout.masks[1]) << 8U |
             field(pixel, layout.masks[2]);
    }
    default: {
      const std::size_t bit = x * layout.bits;
      const std::uint32_t index = std::uint32_t{files::u8At(row, bit / 8)} >> (8 - layout.bits - bit % 8);
      return color(layout, index & ((1U << layout.bits) - 1U));
    }
  }
}

// Draws what run lengths say, from the bottom left corner; what leads out of the picture is left out.
class RunLengthPen {
 public:
  explicit RunLengthPen(const BmpLayout& layout)
      : layout_(layout), bitmap_(platform::blackBitmap(layout.width, layout.height)) {}

  bool done() const { return y_ >= layout_.height; }
  void endLine() {
    x_ = 0;
    ++y_;
  }
  void move(std::uint32_t right, std::uint32_t up) {
    x_ = std::min(layout_.width, x_ + static_cast<int>(right));
    y_ = std::min(layout_.height, y_ + static_cast<int>(up));
  }
  void draw(std::uint32_t index) {
    if (x_ < layout_.width && y_ < layout_.height) {
      pixelAt(bitmap_, x_, layout_.height - 1 - y_) = color(layout_, index);
      ++x_;
    }
  }
  platform::Bitmap&& take() { return std::move(bitmap_); }

 private:
  const BmpLayout& layout_;
  platform::Bitmap bitmap_;
  int x_ = 0;
  int y_ = 0;  // from the bottom
};

}  // namespace

platform::Bitmap plainRows(const BmpLayout& layout, std::string_view data) {
  const auto width = static_cast<std::size_t>(layout.width);
  const auto height = static_cast<std::size_t>(layout.height);
  const std::size_t used = (width * layout.bits + 7) / 8;
  const std::size_t stride = (used + 3) / 4 * 4;
  // Some writers leave out what fills the last row up.
  if (data.size() < stride * (height - 1) + used) {
    return {};
  }
  platform::Bitmap bitmap = platform::blackBitmap(layout.width, layout.height);
  for (std::size_t row = 0; row < height; ++row) {
    const int y = static_cast<int>(layout.downwards ? row : height - 1 - row);
    const std::string_view bytes = data.substr(row * stride, used);
    for (int x = 0; x < layout.width; ++x) {
      pixelAt(bitmap, x, y) = plainPixel(layout, bytes, static_cast<std::size_t>(x));
    }
  }
  return bitmap;
}

platform::Bitmap runLengthRows(const BmpLayout& layout, std::string_view data) {
  RunLengthPen pen(layout);
  // The two or one pixels of a byte.
  const auto index = [&](std::uint32_t byte, std::uint32_t pixel) {
    return layout.bits == 8 ? byte : (pixel % 2 == 0 ? byte >> 4U : byte & 15U);
  };
  std::size_t at = 0;
  while (!pen.done() && at + 2 <= data.size()) {
    const std::uint32_t count = files::u8At(data, at);
    const std::uint32_t second = files::u8At(data, at + 1);
    at += 2;
    if (count > 0) {
      for (std::uint32_t pixel = 0; pixel < count; ++pixel) {
        pen.draw(index(second, pixel));
      }
    } else if (second == 0) {
      pen.endLine();
    } else if (second == 1) {
      return pen.take();
    } else if (second == 2) {
      if (at + 2 > data.size()) {
        return {};
      }
      pen.move(files::u8At(data, at), files::u8At(data, at + 1));
      at += 2;
    } else {
      const std::size_t used = (std::size_t{second} * layout.bits + 7) / 8;
      if (at + used > data.size()) {
        return {};
      }
      for (std::uint32_t pixel = 0; pixel < second; ++pixel) {
        pen.draw(index(files::u8At(data, at + (layout.bits == 8 ? pixel : pixel / 2)), pixel));
      }
      at += used + used % 2;
    }
  }
  return pen.done() ? pen.take() : platform::Bitmap();
}

}  // namespace vireon::capture
