#pragma once

#include <QPalette>
#include <QWidget>

#include "form/color.h"

namespace vireon::adapters {

// The screen's colour of a 24-bit colour; the system's colours have none of their own (see paint).
inline QColor toQColor(form::Color color) {
  return {color.red(), color.green(), color.blue()};
}

// Gives a palette role of the widget a colour; a system colour gives the role back to the desktop.
void paint(QWidget& widget, QPalette::ColorRole role, form::Color color);

}  // namespace vireon::adapters
