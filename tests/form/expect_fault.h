#pragma once

#include <gtest/gtest.h>

#include "form/fault.h"

namespace vireon::tests {

// Runs the statement and expects it to end in a fault of this kind.
template <class Statement>
void expectFault(form::FaultKind kind, Statement statement) {
  try {
    statement();
  } catch (const form::Fault& fault) {
    EXPECT_EQ(fault.kind(), kind);
    return;
  }
  ADD_FAILURE() << "no fault";
}

}  // namespace vireon::tests
