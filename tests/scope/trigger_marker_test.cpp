#include <gtest/gtest.h>

#include "tests/form/expect_fault.h"
#include "tests/form/recording_view.h"
#include "tests/scope/scope_rig.h"

namespace vireon::scope {
namespace {

constexpr int kNoSource = 3;

std::string hexDigits(int value) {
  const std::string digits = "0123456789ABCDEF";
  return {digits[static_cast<std::size_t>(value / 16)], digits[static_cast<std::size_t>(value % 16)]};
}

class TriggerMarker : public tests::ScopeRig {
 protected:
  // Draws a frame with this trigger point while this source is selected. The frame's own source is 3, which
  // leaves the selection as it is.
  void draw(int source, const std::string& triggerPoint) {
    for (form::OptionButton& option : form.optTS) {
      option.setValue(false);
    }
    if (source != kNoSource) {
      form.optTS[source].setValue(true);
    }
    fields_.trg = "03";
    fields_.tlv = triggerPoint;
    tests::receiveFrame(state, fields_.bytes());
    waveform.dspWfm();
  }

  // Index of the byte that the marker stands at.
  static int topOf(std::size_t index, const tests::FrameBytes& frame) { return 30 * frame[index] - 300; }

  tests::WaveformFields fields_;
};

TEST_F(TriggerMarker, StandsAtTheSampleOfTheTriggerPointWithinTheSourcesTrace) {
  struct MarkerCase {
    int source;
    int triggerPoint;
    std::size_t index;  // of the frame's byte
  };
  const MarkerCase cases[] = {
      {0, 0, 27},
      {0, 2, 29},
      {0, 121, 148},
      {0, 122, 149},
      {0, 123, 149},
      {0, 200, 149},
      {0, 255, 149},
      {1, 0, 150},
      {1, 122, 150},
      {1, 123, 150},
      {1, 124, 151},
      {1, 200, 227},
      {1, 255, 282},
      {2, 0, 27},
      {2, 122, 149},
      {2, 123, 150},
      {2, 255, 282},
      {kNoSource, 0, 27},
      {kNoSource, 122, 149},
      {kNoSource, 123, 150},
      {kNoSource, 255, 282},
  };
  // In this frame the bytes around the clamps differ from each other.
  for (std::size_t i = 0; i < fields_.a.size(); ++i) {
    fields_.a[i] = static_cast<std::uint8_t>(100 - i % 97);
  }
  for (const MarkerCase& expected : cases) {
    draw(expected.source, hexDigits(expected.triggerPoint));
    EXPECT_EQ(form.markT.top(), topOf(expected.index, fields_.bytes()))
        << expected.source << " " << expected.triggerPoint;
  }
}

TEST_F(TriggerMarker, OfChannelAWithPoint200StandsAtSample120) {
  fields_.a[120] = 77;
  draw(0, "C8");
  EXPECT_EQ(form.markT.top(), 30 * 77 - 300);
}

TEST_F(TriggerMarker, IsHiddenForAnExternalSourceButStillMoved) {
  draw(0, "40");
  ASSERT_TRUE(form.markT.visible());
  fields_.a[10] = 33;
  draw(2, "0C");
  EXPECT_FALSE(form.markT.visible());
  EXPECT_EQ(form.markT.top(), 30 * 33 - 300);
}

TEST_F(TriggerMarker, IsShownForEveryOtherSource) {
  for (const int source : {0, 1, kNoSource}) {
    draw(2, "40");
    draw(source, "40");
    EXPECT_TRUE(form.markT.visible()) << source;
  }
}

TEST_F(TriggerMarker, IsPlacedByTheSourceThatWasSelectedBeforeTheFrame) {
  fields_.a[120] = 77;
  fields_.trg = "01";
  fields_.tlv = "C8";
  form.optTS[0].setValue(true);
  take(fields_.bytes());
  EXPECT_EQ(form.optTS.selected(), 1);
  EXPECT_EQ(form.markT.top(), 30 * 77 - 300);
  take(fields_.bytes());
  EXPECT_EQ(form.markT.top(), topOf(200 + 27, fields_.bytes()));
}

TEST_F(TriggerMarker, TakesDigitsOfEitherCase) {
  draw(kNoSource, "7f");
  EXPECT_EQ(form.markT.top(), topOf(127 + 27, fields_.bytes()));
  draw(kNoSource, "7F");
  EXPECT_EQ(form.markT.top(), topOf(127 + 27, fields_.bytes()));
}

TEST_F(TriggerMarker, LeftOfItIsTheHorizontalPosition) {
  fields_.hpo = "3E";
  take(fields_.bytes());
  EXPECT_EQ(form.markT.left(), 60 * 30 + 500);
}

TEST_F(TriggerMarker, APointThatIsNoHexNumberEndsTheFrameBeforeAnything) {
  draw(0, "40");
  const std::vector<std::string> points = {
      "G0", "0G", "  ", " 4", "4 ", "-1", "+1", "0x", std::string(2, '\0'), "4,"};
  for (const std::string& point : points) {
    fields_.tlv = point;
    fields_.vda = "00";
    fields_.a = tests::WaveformFields::ramp(1);
    fields_.reading = "OTHER     ";
    fields_.flags = '2';
    tests::receiveFrame(state, fields_.bytes());
    tests::RecordingView view;
    form.setView(&view);
    tests::expectFault(form::FaultKind::kConversion, [this] { waveform.dspWfm(); });
    EXPECT_TRUE(view.changes.empty()) << point;
    form.setView(nullptr);
  }
  fields_.tlv = "41";
  take(fields_.bytes());
  EXPECT_EQ(form.lblVd[0].caption(), "50mV");
  EXPECT_EQ(form.posDV[1].caption(), "REF");
}

}  // namespace
}  // namespace vireon::scope
