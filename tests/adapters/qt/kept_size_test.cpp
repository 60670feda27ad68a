#include "adapters/qt/kept_size.h"

#include <gtest/gtest.h>

namespace vireon::tests {
namespace {

using adapters::KeptSize;
using std::chrono::milliseconds;

constexpr QSize kWanted(730, 360);
constexpr QSize kTiled(900, 500);

class KeptSizeOfAWindow : public testing::Test {
 protected:
  bool asksAt(const QSize& size, milliseconds later) { return kept.asks(size, kWanted, start + later); }

  const KeptSize::Clock::time_point start;
  KeptSize kept;
};

TEST_F(KeptSizeOfAWindow, IsAskedForWhereItIsAnother) {
  EXPECT_FALSE(asksAt(kWanted, milliseconds(0)));
  EXPECT_TRUE(asksAt(kTiled, milliseconds(1)));
}

TEST_F(KeptSizeOfAWindow, IsAskedForOnceOfAManagerThatInsists) {
  EXPECT_TRUE(asksAt(kTiled, milliseconds(0)));
  EXPECT_FALSE(asksAt(kWanted, milliseconds(1)));
  EXPECT_FALSE(asksAt(kTiled, milliseconds(20)));
  EXPECT_FALSE(asksAt(kTiled, milliseconds(9000)));
}

TEST_F(KeptSizeOfAWindow, IsAskedForAgainWhereTheSameResizeComesLater) {
  EXPECT_TRUE(asksAt(kTiled, milliseconds(0)));
  EXPECT_FALSE(asksAt(kWanted, milliseconds(1)));
  EXPECT_FALSE(asksAt(kWanted, milliseconds(200)));
  EXPECT_TRUE(asksAt(kTiled, milliseconds(1) + KeptSize::kSettled));
}

TEST_F(KeptSizeOfAWindow, IsAskedForAgainWhereItWasForgotten) {
  EXPECT_TRUE(asksAt(kTiled, milliseconds(0)));
  kept.forget();
  EXPECT_TRUE(asksAt(kTiled, milliseconds(1)));
}

}  // namespace
}  // namespace vireon::tests
