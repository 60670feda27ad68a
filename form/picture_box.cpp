#include "form/picture_box.h"

#include "form/control_visitor.h"

namespace vireon::form {

void PictureBox::cls() {
  if (!lines_.empty()) {
    lines_.clear();
    touch();
  }
}

void PictureBox::line(int x1, int y1, int x2, int y2, Color color) {
  if (lines_.size() < kMaximumLines) {
    lines_.push_back({x1, y1, x2, y2, color});
    touch();
  }
}

void PictureBox::accept(ControlVisitor& visitor) {
  visitor.visit(*this);
}

void Shape::accept(ControlVisitor& visitor) {
  visitor.visit(*this);
}

}  // namespace vireon::form
