#include "protocol/trend_point.h"

#include <gtest/gtest.h>

#include "tests/form/expect_fault.h"

namespace vireon::protocol {
namespace {

TEST(TrendPoint, NothingCountsAsZero) {
  EXPECT_EQ(numberOf(TrendPoint()), 0.0);
}

TEST(TrendPoint, TheInstrumentsTextCountsAsItsHexadecimalNumber) {
  EXPECT_EQ(numberOf(TrendPoint("&H00")), 0.0);
  EXPECT_EQ(numberOf(TrendPoint("&H3C")), 60.0);
  EXPECT_EQ(numberOf(TrendPoint("&Hff")), 255.0);
}

TEST(TrendPoint, ANumberCountsAsItself) {
  EXPECT_EQ(numberOf(TrendPoint(17.25)), 17.25);
}

TEST(TrendPoint, AnyOtherTextIsAFault) {
  for (const char* text : {"", "&H", "&HG0", "3C", "H3C", "&h3C", "&H123", " &H3C"}) {
    SCOPED_TRACE(text);
    tests::expectFault(form::FaultKind::kConversion, [&] { numberOf(TrendPoint(text)); });
  }
}

}  // namespace
}  // namespace vireon::protocol
