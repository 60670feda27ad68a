#include "adapters/qt/picture_exchange.h"

#include <QBuffer>
#include <QClipboard>
#include <QGuiApplication>

#include "adapters/qt/bitmap_image.h"

namespace vireon::adapters {

void QtClipboard::setPicture(const platform::Bitmap& bitmap) {
  QGuiApplication::clipboard()->setImage(imageOf(bitmap));
}

std::string QtPngEncoder::encode(const platform::Bitmap& bitmap) {
  QBuffer buffer;
  buffer.open(QIODevice::WriteOnly);
  return imageOf(bitmap).save(&buffer, "PNG") ? buffer.data().toStdString() : std::string();
}

}  // namespace vireon::adapters
