#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "form/captioned.h"

namespace vireon::form {

// A text on the panel. A marker on a picture also has a place, in twips from the picture's origin.
class Label : public Captioned {
 public:
  Label(Form& form, std::string name) : Captioned(form, std::move(name)) {}

  int left() const { return left_; }
  void setLeft(int twips) { assign(left_, twips); }
  int top() const { return top_; }
  void setTop(int twips) { assign(top_, twips); }

  void accept(ControlVisitor& visitor) override;

 private:
  int left_ = 0;
  int top_ = 0;
};

// A line of text that the user edits.
class TextBox : public Control {
 public:
  TextBox(Form& form, std::string name) : Control(form, std::move(name)) {}

  const std::string& text() const { return text_; }
  void setText(std::string text);

  // The text as it is seen, UTF-8. A letter that code page 1252 lacks is "?" in text(), and complete() is
  // False until it is gone.
  const std::string& utf8() const { return utf8_; }
  void setUtf8(std::string utf8);
  bool complete() const { return complete_; }

  // Takes over what the user made of the text.
  void type(std::string_view utf8);

  bool readOnly() const { return readOnly_; }
  void setReadOnly(bool readOnly) { assign(readOnly_, readOnly); }

  // What a key press does before the box takes it; `character` is a code of code page 1252, 13 for Enter.
  void keyPress(int character) const { raise(onKeyPress, character); }
  // What a mouse button pressed on the box does.
  void mouseDown() const { raise(onMouseDown); }
  // What a key press that brings the input focus into the box does.
  void focus() const { raise(onFocus); }

  Handler onChange;  // the text as it is seen is a new one
  std::function<void(int)> onKeyPress;
  Handler onMouseDown;
  Handler onFocus;

  void accept(ControlVisitor& visitor) override;

 protected:
  bool isInput() const override { return true; }

 private:
  void take(std::string text, std::string utf8, bool complete);

  std::string text_;
  std::string utf8_;
  bool complete_ = true;
  bool readOnly_ = false;
};

// A list of which one item is shown.
class ComboBox : public Control {
 public:
  ComboBox(Form& form, std::string name) : Control(form, std::move(name)) {}

  const std::vector<std::string>& items() const { return items_; }
  void addItem(std::string item);
  // Empties the list; the position becomes -1, without an event.
  void clear();

  // Position of the shown item from 0, -1 when none is shown.
  int listIndex() const { return listIndex_; }
  // Raises onClick when the position is a new one. Faults (kPropertyValue) past the list or below -1.
  void setListIndex(int index);
  Handler onClick;

  void accept(ControlVisitor& visitor) override;

 protected:
  bool isInput() const override { return true; }

 private:
  std::vector<std::string> items_;
  int listIndex_ = -1;
};

}  // namespace vireon::form
