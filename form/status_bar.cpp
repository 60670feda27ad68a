#include "form/status_bar.h"

#include "form/control_visitor.h"

namespace vireon::form {
namespace {

std::size_t position(int panel) {
  if (panel < 1 || panel > StatusBar::kPanels) {
    throw Fault(FaultKind::kBounds);
  }
  return static_cast<std::size_t>(panel - 1);
}

}  // namespace

const std::string& StatusBar::panel(int number) const {
  return texts_[position(number)];
}

void StatusBar::setPanel(int number, std::string text) {
  assign(texts_[position(number)], std::move(text));
}

const std::string& StatusBar::toolTip(int number) const {
  return toolTips_[position(number)];
}

void StatusBar::setToolTip(int number, std::string text) {
  assign(toolTips_[position(number)], std::move(text));
}

void StatusBar::accept(ControlVisitor& visitor) {
  visitor.visit(*this);
}

}  // namespace vireon::form
