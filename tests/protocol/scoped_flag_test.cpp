#include "protocol/scoped_flag.h"

#include <gtest/gtest.h>

namespace vireon::protocol {
namespace {

TEST(ScopedFlag, RaisesTheFlagAndGivesItsFormerValueBack) {
  bool flag = false;
  {
    const ScopedFlag outer(flag);
    EXPECT_TRUE(flag);
    {
      const ScopedFlag inner(flag);
      EXPECT_TRUE(flag);
    }
    EXPECT_TRUE(flag);
  }
  EXPECT_FALSE(flag);
}

}  // namespace
}  // namespace vireon::protocol
