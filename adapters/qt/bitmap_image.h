#pragma once

#include <QImage>

#include "platform/bitmap.h"

namespace vireon::adapters {

// The same pixels as the toolkit's image and back; transparency is left out.
QImage imageOf(const platform::Bitmap& bitmap);
platform::Bitmap bitmapOf(const QImage& image);

}  // namespace vireon::adapters
