#include "adapters/qt/bitmap_image.h"

#include <algorithm>

namespace vireon::adapters {

QImage imageOf(const platform::Bitmap& bitmap) {
  if (bitmap.empty()) {
    return {};
  }
  QImage image(bitmap.width, bitmap.height, QImage::Format_RGB32);
  for (int y = 0; y < image.height(); ++y) {
    const auto row = bitmap.pixels.begin() + std::ptrdiff_t{y} * bitmap.width;
    std::transform(row, row + bitmap.width, reinterpret_cast<QRgb*>(image.scanLine(y)),
                   [](std::uint32_t pixel) { return pixel | 0xFF000000U; });
  }
  return image;
}

platform::Bitmap bitmapOf(const QImage& image) {
  const QImage opaque = image.convertToFormat(QImage::Format_RGB32);
  platform::Bitmap bitmap = platform::blackBitmap(opaque.width(), opaque.height());
  for (int y = 0; y < bitmap.height; ++y) {
    const auto* row = reinterpret_cast<const QRgb*>(opaque.constScanLine(y));
    std::transform(row, row + bitmap.width, bitmap.pixels.begin() + std::ptrdiff_t{y} * bitmap.width,
                   [](QRgb pixel) { return pixel & RGB_MASK; });
  }
  return bitmap;
}

}  // namespace vireon::adapters
