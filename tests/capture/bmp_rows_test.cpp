#include "capture/bmp_rows.h"

#include <gtest/gtest.h>

#include <limits>

#include "tests/capture/bmp_bytes.h"

namespace vireon::tests {
namespace {

TEST(RunLengthRows, MovedOutFartherThanNumbersReachTheyDrawNothing) {
  capture::BmpLayout layout;
  layout.width = 1;
  layout.height = 1;
  layout.bits = 8;
  layout.runLengths = true;
  layout.colors = {0xFF0000};
  const std::string move = raw({0, 2, 255, 0});
  constexpr int kMoves = std::numeric_limits<int>::max() / 255 + 1;
  std::string data;
  data.reserve(kMoves * move.size() + 4);
  for (int count = 0; count < kMoves; ++count) data += move;
  data += raw({1, 0, 0, 1});
  EXPECT_EQ(capture::runLengthRows(layout, data), (platform::Bitmap{1, 1, {0}}));
}

}  // namespace
}  // namespace vireon::tests
