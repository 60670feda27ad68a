#include "simulator/quantity.h"

#include <gtest/gtest.h>

namespace vireon::simulator::tests {
namespace {

TEST(Quantity, ReadsNumbersWithPrefixedUnits) {
  EXPECT_DOUBLE_EQ(parseQuantity("-1.234mV").value(), -0.001234);
  EXPECT_DOUBLE_EQ(parseQuantity("+2V").value(), 2.0);
  EXPECT_DOUBLE_EQ(parseQuantity("1.5k").value(), 1500.0);
  EXPECT_DOUBLE_EQ(parseQuantity("2 MOhm").value(), 2e6);
  EXPECT_DOUBLE_EQ(parseQuantity("50%").value(), 50.0);
  EXPECT_DOUBLE_EQ(parseQuantity("7").value(), 7.0);
}

TEST(Quantity, RefusesEverythingElse) {
  for (const char* text : {"", "-", "V", ".", "1..2", "--1", "1e5!", "1V2", "1,5", "\x02", "0x10:"}) {
    EXPECT_FALSE(parseQuantity(text).has_value()) << text;
  }
}

}  // namespace
}  // namespace vireon::simulator::tests
