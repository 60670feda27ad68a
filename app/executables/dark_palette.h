#pragma once

#include <QPalette>

namespace vireon::app {

// A dark palette as desktops have it, to see the window in where the desktop's own is light.
inline QPalette darkPalette() {
  QPalette palette(QColor(0x45, 0x48, 0x4c), QColor(0x38, 0x3a, 0x3d));
  palette.setColor(QPalette::Base, QColor(0x1c, 0x1d, 0x1f));
  palette.setColor(QPalette::ToolTipBase, QColor(0x4c, 0x4f, 0x53));
  palette.setColor(QPalette::Highlight, QColor(0x3d, 0x7a, 0xc8));
  palette.setColor(QPalette::Disabled, QPalette::WindowText, QColor(0x8c, 0x90, 0x94));
  palette.setColor(QPalette::Disabled, QPalette::ButtonText, QColor(0x8c, 0x90, 0x94));
  palette.setColor(QPalette::Disabled, QPalette::Text, QColor(0x8c, 0x90, 0x94));
  return palette;
}

}  // namespace vireon::app
