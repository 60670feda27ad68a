#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <utility>

#include "form/control.h"

namespace vireon::form {

// N controls of one kind under one name, addressed by index 0 to N-1.
template <class Kind, std::size_t N>
class ControlArray {
 public:
  ControlArray(Form& form, const std::string& name)
      : ControlArray(form, name, std::make_index_sequence<N>{}) {}

  static constexpr int size() { return static_cast<int>(N); }

  // Faults (kBounds) outside 0 to N-1.
  Kind& operator[](int index) { return elements_[checked(index)]; }
  const Kind& operator[](int index) const { return elements_[checked(index)]; }

  auto begin() { return elements_.begin(); }
  auto end() { return elements_.end(); }
  auto begin() const { return elements_.begin(); }
  auto end() const { return elements_.end(); }

  // Gives every element the same handler, which receives the element's index.
  void onEach(Handler Kind::*event, const std::function<void(int)>& handler) {
    for (int index = 0; index < size(); ++index) {
      (*this)[index].*event = [handler, index] { handler(index); };
    }
  }

 private:
  template <std::size_t... Index>
  ControlArray(Form& form, const std::string& name, std::index_sequence<Index...> /*indices*/)
      : elements_{Kind(form, name + "_" + std::to_string(Index))...} {}

  static std::size_t checked(int index) {
    if (index < 0 || index >= size()) {
      throw Fault(FaultKind::kBounds);
    }
    return static_cast<std::size_t>(index);
  }

  std::array<Kind, N> elements_;
};

}  // namespace vireon::form
