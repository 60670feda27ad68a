#include <gtest/gtest.h>

#include "tests/form/recording_view.h"
#include "tests/scope/scope_rig.h"

namespace vireon::scope {
namespace {

using Lines = std::vector<form::Line>;
using tests::segment;

class WaveformTraces : public tests::ScopeRig {
 protected:
  Lines draw() {
    take(frame_.bytes());
    return tests::linesOf(form.picScope);
  }

  // Segments of one trace from `first` to `last`, but those in `left`.
  static Lines trace(const tests::Samples& samples, form::Color color,
                     const std::vector<std::size_t>& left = {}) {
    Lines lines;
    for (std::size_t i = 1; i < samples.size(); ++i) {
      if (std::find(left.begin(), left.end(), i) == left.end()) {
        lines.push_back(segment(samples, i, color));
      }
    }
    return lines;
  }

  tests::WaveformFields frame_;
};

TEST_F(WaveformTraces, BothChannelsAre248SegmentsInTurn) {
  const Lines lines = draw();
  EXPECT_EQ(lines.size(), 248U);
  EXPECT_EQ(lines, tests::bothTraces(frame_.a, frame_.b));
}

TEST_F(WaveformTraces, EverySampleValueHasItsHeight) {
  for (int first = 0; first < 256; ++first) {
    for (std::size_t i = 0; i < frame_.a.size(); ++i) {
      frame_.a[i] = static_cast<std::uint8_t>(first + static_cast<int>(i));
      frame_.b[i] = static_cast<std::uint8_t>(first - static_cast<int>(i));
    }
    EXPECT_EQ(draw(), tests::bothTraces(frame_.a, frame_.b)) << first;
  }
}

TEST_F(WaveformTraces, TheTopOfTheScreenIs170TwipsAboveThePicture) {
  frame_.a[0] = 0;
  frame_.a[1] = 255;
  EXPECT_EQ(draw().front(), (form::Line{510, -170, 540, 7480, form::kRed}));
}

TEST_F(WaveformTraces, AChannelThatIsOffIsNotDrawn) {
  frame_.vda = "04";
  EXPECT_EQ(draw(), trace(frame_.b, form::kGreen));
  frame_.vda = "44";
  frame_.vdb = "04";
  EXPECT_EQ(draw(), trace(frame_.a, form::kRed));
  frame_.vda = "04";
  EXPECT_EQ(draw(), Lines{});
}

TEST_F(WaveformTraces, OnOhmAndBuzzerChannelBIsNotDrawnEvenWhenItIsOn) {
  frame_.vda = "43";
  for (const char* function : {"02", "03"}) {
    frame_.dfn = "00";
    EXPECT_EQ(draw().size(), 248U);
    frame_.dfn = function;
    EXPECT_EQ(draw(), trace(frame_.a, form::kRed)) << function;
    EXPECT_EQ(form.chkVof[1].value(), 1) << function;
  }
}

TEST_F(WaveformTraces, AnEndSampleOf240LeavesAGapInChannelA) {
  frame_.vdb = "04";
  frame_.a[40] = 240;
  const Lines lines = draw();
  EXPECT_EQ(lines, trace(frame_.a, form::kRed, {40}));
  EXPECT_EQ(lines[39],
            (form::Line{510 + 30 * 40, 30 * 240 - 170, 510 + 30 * 41, 30 * frame_.a[41] - 170, form::kRed}));
}

TEST_F(WaveformTraces, GapsAtTheEndsOfChannelA) {
  frame_.vdb = "04";
  frame_.a[0] = 240;
  EXPECT_EQ(draw(), trace(frame_.a, form::kRed));
  frame_.a[124] = 240;
  EXPECT_EQ(draw(), trace(frame_.a, form::kRed, {124}));
  frame_.a[1] = 240;
  EXPECT_EQ(draw(), trace(frame_.a, form::kRed, {1, 124}));
}

TEST_F(WaveformTraces, ChannelAOfGapsAloneIsNotDrawn) {
  frame_.vdb = "04";
  frame_.a.fill(240);
  EXPECT_EQ(draw(), Lines{});
}

TEST_F(WaveformTraces, SamplesBeside240AreNoGap) {
  frame_.vdb = "04";
  frame_.a[40] = 239;
  frame_.a[50] = 241;
  EXPECT_EQ(draw().size(), 124U);
}

TEST_F(WaveformTraces, A240OfChannelBIsDrawn) {
  frame_.vda = "04";
  frame_.b[40] = 240;
  EXPECT_EQ(draw(), trace(frame_.b, form::kGreen));
}

TEST_F(WaveformTraces, AGapInChannelALeavesChannelBWhole) {
  frame_.a.fill(240);
  EXPECT_EQ(draw(), trace(frame_.b, form::kGreen));
}

TEST_F(WaveformTraces, OnlyTheFrameInHandIsShown) {
  draw();
  frame_.a = tests::WaveformFields::ramp(60);
  frame_.b = tests::WaveformFields::ramp(10);
  EXPECT_EQ(draw(), tests::bothTraces(frame_.a, frame_.b));
}

TEST_F(WaveformTraces, ThePictureIsEmptiedEvenWhenNothingIsDrawn) {
  draw();
  frame_.vda = "04";
  frame_.vdb = "04";
  tests::RecordingView view;
  form.setView(&view);
  draw();
  EXPECT_TRUE(form.picScope.lines().empty());
  EXPECT_EQ(std::count(view.changes.begin(), view.changes.end(), "picScope"), 1);
}

TEST_F(WaveformTraces, TheReadingIsTenCharactersAsTheyStand) {
  for (const char* reading : {" 1.234 VDC", "          ", "0123456789", "\xB5V\xFF\x80,;:\x01xx"}) {
    frame_.reading = reading;
    draw();
    EXPECT_EQ(form.lblDmm.caption(), reading);
  }
}

TEST_F(WaveformTraces, TheReadingIsShownWithBothChannelsOff) {
  frame_.vda = "04";
  frame_.vdb = "04";
  frame_.reading = "0123456789";
  draw();
  EXPECT_EQ(form.lblDmm.caption(), "0123456789");
}

TEST_F(WaveformTraces, ControlsAreMovedWhileTheProgramIsBusy) {
  bool busy = false;
  form.sldPosH.onChange = [&] { busy = state.uiBusy; };
  frame_.hpo = "11";
  draw();
  EXPECT_TRUE(busy);
  EXPECT_FALSE(state.uiBusy);
}

}  // namespace
}  // namespace vireon::scope
