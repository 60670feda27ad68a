#include "form/tab_control.h"

#include "form/control_visitor.h"

namespace vireon::form {

void TabControl::setCaptions(std::vector<std::string> captions) {
  const int count = static_cast<int>(captions.size());
  if (count < 1) {
    throw Fault(FaultKind::kPropertyValue);
  }
  assign(captions_, std::move(captions));
  setTabs(count);
}

void TabControl::setTabs(int count) {
  if (count < 1) {
    throw Fault(FaultKind::kPropertyValue);
  }
  captions_.resize(static_cast<std::size_t>(count));
  if (tab_ >= count) {
    tab_ = 0;
  }
  touch();
}

void TabControl::setTab(int tab) {
  if (choose(tab)) {
    raise(onSwitch);
  }
}

void TabControl::look(int tab) {
  if (choose(tab)) {
    raise(onLook);
  }
}

bool TabControl::choose(int tab) {
  if (tab < 0 || tab >= tabs()) {
    throw Fault(FaultKind::kPropertyValue);
  }
  return assign(tab_, tab);
}

void TabControl::accept(ControlVisitor& visitor) {
  visitor.visit(*this);
}

}  // namespace vireon::form
