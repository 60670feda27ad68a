#include "tests/desktop/rig/pixmap_file.h"

#include <algorithm>
#include <sstream>
#include <string>

namespace vireon::tests {

platform::Bitmap fromPixmapFile(std::string_view bytes) {
  std::istringstream header{std::string(bytes.substr(0, 64))};
  std::string kind;
  int width = 0;
  int height = 0;
  int most = 0;
  header >> kind >> width >> height >> most;
  if (!header || kind != "P6" || most != 255) return {};
  bytes.remove_prefix(static_cast<std::size_t>(header.tellg()) + 1);
  platform::Bitmap bitmap = platform::blackBitmap(width, height);
  if (bytes.size() < 3 * bitmap.pixels.size()) return {};
  for (std::size_t i = 0; i < bitmap.pixels.size(); ++i) {
    const auto color = [&](std::size_t byte) {
      return std::uint32_t{static_cast<unsigned char>(bytes[3 * i + byte])};
    };
    bitmap.pixels[i] = color(0) << 16U | color(1) << 8U | color(2);
  }
  return bitmap;
}

platform::Bitmap part(const platform::Bitmap& whole, int left, int top, int width, int height) {
  platform::Bitmap result = platform::blackBitmap(width, height);
  for (int y = std::max(0, -top); y < std::min(height, whole.height - top); ++y) {
    for (int x = std::max(0, -left); x < std::min(width, whole.width - left); ++x) {
      result.pixels[static_cast<std::size_t>(y * width + x)] = whole.at(x + left, y + top);
    }
  }
  return result;
}

int differences(const platform::Bitmap& one, const platform::Bitmap& other) {
  if (one.width != other.width || one.height != other.height) {
    return std::max(one.width * one.height, other.width * other.height);
  }
  int count = 0;
  for (std::size_t i = 0; i < one.pixels.size(); ++i) count += one.pixels[i] == other.pixels[i] ? 0 : 1;
  return count;
}

}  // namespace vireon::tests
