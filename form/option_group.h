#pragma once

#include <string>

#include "form/buttons.h"
#include "form/control_array.h"

namespace vireon::form {

// An array of option buttons of which at most one is selected.
template <std::size_t N>
class OptionGroup : public ControlArray<OptionButton, N> {
 public:
  OptionGroup(Form& form, const std::string& name) : ControlArray<OptionButton, N>(form, name) {
    for (OptionButton& member : *this) {
      for (OptionButton& other : *this) {
        member.group_.push_back(&other);
      }
    }
  }

  // Index of the selected button, N when none is.
  int selected() const {
    int index = 0;
    while (index < this->size() && !(*this)[index].value()) {
      ++index;
    }
    return index;
  }
};

}  // namespace vireon::form
