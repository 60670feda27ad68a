#pragma once

#include <exception>

namespace vireon::form {

// Why a statement could not be carried out.
enum class FaultKind {
  kConversion,     // a text is no number
  kBounds,         // an index lies past a table, an array or a buffer
  kPropertyValue,  // a control does not take the value
};

// A run-time fault: thrown at the statement, caught by the trap around an item, a frame or a handler.
class Fault : public std::exception {
 public:
  explicit Fault(FaultKind kind) : kind_(kind) {}

  FaultKind kind() const { return kind_; }
  const char* what() const noexcept override { return "run-time fault"; }

 private:
  FaultKind kind_;
};

}  // namespace vireon::form
