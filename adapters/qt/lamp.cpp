#include "adapters/qt/lamp.h"

#include <QPainter>
#include <algorithm>

#include "adapters/qt/colors.h"

namespace vireon::adapters {

void Lamp::setColor(form::Color color) {
  if (color_ != color) {
    color_ = color;
    update();
  }
}

void Lamp::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(palette().color(QPalette::Mid).darker(130), 1));
  painter.setBrush(toQColor(color_));
  const double radius = std::min(width(), height()) / 2.0 - 1;
  painter.drawEllipse(QRectF(rect()).center(), radius, radius);
}

}  // namespace vireon::adapters
