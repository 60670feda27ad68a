#include <gtest/gtest.h>

#include <algorithm>

#include "tests/usb/served_instrument.h"
#include "tests/usb/usb_program.h"

namespace vireon::tests {
namespace {

constexpr int kFrames = 200;

std::vector<form::Line> linesOf(const simulator::Trace& sent) {
  std::vector<form::Line> lines;
  for (std::size_t i = 1; i < sent.a.size(); ++i) {
    const int x = 510 + 30 * static_cast<int>(i);
    if (sent.a[i] != 240) {
      lines.push_back({x - 30, 30 * sent.a[i - 1] - 170, x, 30 * sent.a[i] - 170, form::Color{255}});
    }
    lines.push_back({x - 30, 30 * sent.b[i - 1] - 170, x, 30 * sent.b[i] - 170, form::Color{65280}});
  }
  return lines;
}

TEST(UsbSession, TwoHundredFramesAreDrawnAsSentAndTheInstrumentIsLeftToItself) {
  Gadget gadget({});
  ServedInstrument instrument(gadget.plug());
  UsbProgram usb;
  usb.load();
  usb.connect();
  usb.start();
  std::vector<form::Line> last;
  int changes = 0;
  for (int frame = 0; frame < kFrames; ++frame) {
    SCOPED_TRACE(frame);
    usb.tick();
    const auto drawn = usb.form().picScope.lines();
    const std::vector<form::Line> lines(drawn.begin(), drawn.end());
    ASSERT_EQ(lines, linesOf(instrument.trace()));
    if (lines != last) ++changes;
    last = lines;
  }
  EXPECT_GT(changes, kFrames / 2);

  usb.form().cmdBttn[0].click();
  usb.expectDisconnected();
  const auto log = instrument.log();
  EXPECT_EQ(std::count(log.begin(), log.end(), "DRS??"), kFrames);
  EXPECT_EQ(log.back(), "GTL");
  EXPECT_EQ(usb.messages.count(), 0U);
}

}  // namespace
}  // namespace vireon::tests
