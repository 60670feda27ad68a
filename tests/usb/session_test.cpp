#include <gtest/gtest.h>

#include <algorithm>

#include "tests/app/traces_of.h"
#include "tests/usb/served_instrument.h"
#include "tests/usb/usb_program.h"

namespace vireon::tests {
namespace {

constexpr int kFrames = 200;

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
    ASSERT_EQ(lines, tracesOf(instrument.trace()));
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
