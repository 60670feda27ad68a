#include "simulator/padding.h"

#include <gtest/gtest.h>

namespace vireon::simulator {
namespace {

TEST(Padding, ComesBeforeATextThatStaysWhole) {
  EXPECT_EQ(zeroPadded("42", 5), "00042");
  EXPECT_EQ(zeroPadded("123456", 5), "123456");
  EXPECT_EQ(rightAligned("42", 5), "   42");
  EXPECT_EQ(rightAligned("123456", 5), "123456");
}

TEST(Padding, ComesBehindATextThatIsCutAtTheWidth) {
  EXPECT_EQ(leftAligned("42", 5), "42   ");
  EXPECT_EQ(leftAligned("123456", 5), "12345");
}

}  // namespace
}  // namespace vireon::simulator
