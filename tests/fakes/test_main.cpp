#include <gtest/gtest.h>

#include "tests/fakes/fault_report.h"

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  vireon::tests::FaultReport::install();
  return RUN_ALL_TESTS();
}
