#include "adapters/qt/colors.h"

#include <QApplication>

namespace vireon::adapters {

void paint(QWidget& widget, QPalette::ColorRole role, form::Color color) {
  QPalette palette = widget.palette();
  for (const auto group : {QPalette::Active, QPalette::Inactive}) {
    palette.setBrush(group, role,
                     color.isSystem() ? QApplication::palette().brush(group, role) : QBrush(toQColor(color)));
  }
  widget.setPalette(palette);
}

}  // namespace vireon::adapters
