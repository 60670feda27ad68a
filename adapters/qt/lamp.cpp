#include "adapters/qt/lamp.h"

#include <QPainter>

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
  painter.drawEllipse(QRectF(rect()).adjusted(1, 1, -1, -1));
}

}  // namespace vireon::adapters
