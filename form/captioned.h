#pragma once

#include <string>
#include <utility>

#include "form/control.h"

namespace vireon::form {

// A control that shows a text in a colour on a face.
class Captioned : public Control {
 public:
  Captioned(Form& form, std::string name) : Control(form, std::move(name)) {}

  const std::string& caption() const { return caption_; }
  void setCaption(std::string caption) { assign(caption_, std::move(caption)); }
  Color foreColor() const { return foreColor_; }
  void setForeColor(Color color) { assign(foreColor_, color); }
  Color backColor() const { return backColor_; }
  void setBackColor(Color color) { assign(backColor_, color); }

 private:
  std::string caption_;
  Color foreColor_ = kButtonText;
  Color backColor_ = kButtonFace;
};

}  // namespace vireon::form
