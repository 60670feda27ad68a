#pragma once

#include <gtest/gtest.h>

#include "form/control_visitor.h"
#include "form/main_form.h"
#include "protocol/instrument_state.h"

namespace vireon::tests {

// Looks whether every control holds a value that a control of its kind can hold.
class RangeCheck final : public form::ControlVisitor {
 public:
  std::string outside;  // names of the controls that do not

  void visit(form::Button& /*control*/) override {}
  void visit(form::CheckBox& box) override { expect(box, box.value() == 0 || box.value() == 1); }
  void visit(form::OptionButton& /*control*/) override {}
  void visit(form::Label& /*control*/) override {}
  void visit(form::TextBox& /*control*/) override {}
  void visit(form::ComboBox& combo) override {
    expect(combo, combo.listIndex() >= -1 && combo.listIndex() < static_cast<int>(combo.items().size()));
  }
  void visit(form::Slider& slider) override { ranged(slider); }
  void visit(form::ProgressBar& bar) override { ranged(bar); }
  void visit(form::PictureBox& picture) override {
    const std::size_t most = picture.name() == "picScope" ? 248 : form::PictureBox::kMaximumLines;
    expect(picture, picture.lines().size() <= most);
  }
  void visit(form::Shape& /*control*/) override {}
  void visit(form::Timer& timer) override { expect(timer, timer.interval() >= 0); }
  void visit(form::TabControl& strip) override {
    expect(strip, strip.tab() >= 0 && strip.tab() < strip.tabs());
  }
  void visit(form::StatusBar& /*control*/) override {}
  void visit(form::Grid& grid) override {
    expect(grid,
           grid.rows() >= 13 && grid.columns() == 4 && grid.topRow() >= 1 && grid.topRow() < grid.rows());
  }

 private:
  void ranged(const form::Ranged& control) {
    expect(control, control.value() >= control.minimum() && control.value() <= control.maximum());
  }
  void expect(const form::Control& control, bool within) {
    if (!within) {
      outside += control.name() + " ";
    }
  }
};

template <class Group>
bool atMostOneSelected(const Group& group) {
  return std::count_if(group.begin(), group.end(), [](const auto& option) { return option.value(); }) <= 1;
}

// What holds after any frame whatever.
inline testing::AssertionResult isSane(const form::MainForm& form, const protocol::InstrumentState& state) {
  RangeCheck check;
  for (form::Control* control : form.controls()) {
    control->accept(check);
  }
  if (!check.outside.empty()) {
    return testing::AssertionFailure() << "out of range: " << check.outside;
  }
  if (!atMostOneSelected(form.optFun) || !atMostOneSelected(form.optTS) || !atMostOneSelected(form.optLog)) {
    return testing::AssertionFailure() << "two options of one group selected";
  }
  if (state.uiBusy) {
    return testing::AssertionFailure() << "still busy";
  }
  if (state.logRow < 1 || form.posT.top() < 200 || form.posT.top() > 2900) {
    return testing::AssertionFailure() << "row " << state.logRow << ", level marker " << form.posT.top();
  }
  return testing::AssertionSuccess();
}

}  // namespace vireon::tests
