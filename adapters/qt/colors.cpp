#include "adapters/qt/colors.h"

namespace vireon::adapters {

void paint(QWidget& widget, QPalette::ColorRole role, form::Color color) {
  const QPalette before = widget.palette();
  QPalette palette;  // without the role, which then is the desktop's
  for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
    for (int each = 0; each < QPalette::NColorRoles; ++each) {
      const auto other = static_cast<QPalette::ColorRole>(each);
      const bool kept = other != role || group == QPalette::Disabled;
      if (kept && before.isBrushSet(group, other)) {
        palette.setBrush(group, other, before.brush(group, other));
      }
    }
    if (!color.isSystem() && group != QPalette::Disabled) {
      palette.setBrush(group, role, toQColor(color));
    }
  }
  widget.setPalette(palette);
}

}  // namespace vireon::adapters
