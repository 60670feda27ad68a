#pragma once

#include <span>
#include <string>
#include <utility>
#include <vector>

#include "form/control.h"

namespace vireon::form {

// A drawn line; coordinates in twips from the picture's top left corner, y downwards.
struct Line {
  int x1 = 0;
  int y1 = 0;
  int x2 = 0;
  int y2 = 0;
  Color color;
  friend bool operator==(const Line&, const Line&) = default;
};

// A panel that holds other controls, or a picture that lines are drawn on.
class PictureBox : public Control {
 public:
  PictureBox(Form& form, std::string name) : Control(form, std::move(name)) {}

  // Removes every line; what belongs to the background stays.
  void cls();
  // Draws a line over those already there. At most kMaximumLines are kept, later ones are dropped.
  void line(int x1, int y1, int x2, int y2, Color color);
  std::span<const Line> lines() const { return lines_; }

  static constexpr std::size_t kMaximumLines = 10000;

  void accept(ControlVisitor& visitor) override;

 private:
  std::vector<Line> lines_;
};

// A filled shape, e.g. a lamp.
class Shape : public Control {
 public:
  Shape(Form& form, std::string name) : Control(form, std::move(name)) {}

  Color fillColor() const { return fillColor_; }
  void setFillColor(Color color) { assign(fillColor_, color); }

  void accept(ControlVisitor& visitor) override;

 private:
  Color fillColor_ = kWhite;
};

}  // namespace vireon::form
