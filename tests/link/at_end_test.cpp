#include "link/at_end.h"

#include <gtest/gtest.h>

#include <new>
#include <stdexcept>

namespace vireon::link {
namespace {

TEST(AtEnd, ActsWhenTheScopeIsLeftAndNotBefore) {
  int acts = 0;
  {
    const AtEnd end([&] { ++acts; });
    EXPECT_EQ(acts, 0);
  }
  EXPECT_EQ(acts, 1);
}

TEST(AtEnd, ActsWhenTheScopeThrowsAndLetsThatThrough) {
  int acts = 0;
  const auto scope = [&] {
    const AtEnd end([&] { ++acts; });
    throw std::runtime_error("first");
  };
  EXPECT_THROW(scope(), std::runtime_error);
  EXPECT_EQ(acts, 1);
}

TEST(AtEnd, WhatTheActThrowsGoesNoFurther) {
  const auto scope = [](bool throws) {
    const AtEnd end([] { throw std::bad_alloc(); });
    if (throws) throw std::runtime_error("first");
  };
  EXPECT_NO_THROW(scope(false));
  EXPECT_THROW(scope(true), std::runtime_error);
}

}  // namespace
}  // namespace vireon::link
