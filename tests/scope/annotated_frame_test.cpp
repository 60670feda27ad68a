#include <gtest/gtest.h>

#include "tests/scope/scope_rig.h"

namespace vireon::scope {
namespace {

// A live frame as it lies in the buffer.
constexpr tests::FrameBytes kFrame = {
    2,    // 0: STX
    'd',  // 1: key
    'r',  // 2: key
    's',  // 3: key
    ':',  // 4: head, not interpreted
    'x',  // 5: head, not interpreted
    'y',  // 6: head, not interpreted
    '0',  // 7: dfn mode: plain meter
    '0',  // 8: dfn function: DCV
    '5',  // 9: vda channel on, AC
    '4',  // 10: vda 1V
    '4',  // 11: vdb channel on, DC
    '6',  // 12: vdb 5V
    '4',  // 13: hdv auto
    '9',  // 14: hdv 1mS
    '3',  // 15: vpa 48: channel A's zero
    '0',  // 16: vpa its low digit
    '5',  // 17: vpb 80: channel B's zero
    '0',  // 18: vpb its low digit
    '2',  // 19: trg auto trigger
    '4',  // 20: trg falling, channel A
    '2',  // 21: tlv trigger point 46
    'E',  // 22: tlv its low digit
    '?',  // 23: not interpreted
    '?',  // 24: not interpreted
    '3',  // 25: hpo 62: horizontal position
    'E',  // 26: hpo its low digit
    '2',  // 27: flags, bit value 2: channel B shows the reference trace
    '?',  // 28: not interpreted
    62,  64, 66,  69, 71, 73, 74, 76,  78,  79,  80,  81,  81,
    82,  82, 82,  82, 81, 80, 79, 78,  76,  75,  73,  71,  // 29-53: channel A, samples 0-24
    69,  67, 65,  63, 60, 58, 56, 54,  52,  50,  48,  47,  46,
    44,  43, 240, 42, 42, 42, 42, 43,  44,  45,  46,  47,  // 54-78: channel A, samples 25-49
    49,  50, 52,  54, 56, 59, 61, 63,  65,  67,  69,  71,  73,
    75,  77, 78,  79, 80, 81, 82, 82,  82,  82,  81,  81,  // 79-103: channel A, samples 50-74
    80,  79, 77,  76, 74, 72, 70, 68,  66,  64,  62,  59,  57,
    55,  53, 51,  49, 48, 46, 45, 44,  43,  42,  42,  42,  // 104-128: channel A, samples 75-99
    42,  43, 43,  44, 45, 46, 48, 49,  51,  53,  55,  57,  60,
    62,  64, 66,  68, 70, 72, 74, 76,  77,  79,  80,  81,  // 129-153: channel A, samples 100-124
    80,  81, 82,  83, 84, 85, 86, 87,  88,  89,  90,  91,  92,
    93,  94, 95,  96, 97, 98, 99, 100, 101, 102, 103, 104,  // 154-178: channel B, samples 0-24
    80,  81, 82,  83, 84, 85, 86, 87,  88,  89,  90,  91,  92,
    93,  94, 95,  96, 97, 98, 99, 100, 101, 102, 103, 104,  // 179-203: channel B, samples 25-49
    80,  81, 82,  83, 84, 85, 86, 87,  88,  89,  240, 91,  92,
    93,  94, 95,  96, 97, 98, 99, 100, 101, 102, 103, 104,  // 204-228: channel B, samples 50-74
    80,  81, 82,  83, 84, 85, 86, 87,  88,  89,  90,  91,  92,
    93,  94, 95,  96, 97, 98, 99, 100, 101, 102, 103, 104,  // 229-253: channel B, samples 75-99
    80,  81, 82,  83, 84, 85, 86, 87,  88,  89,  90,  91,  92,
    93,  94, 95,  96, 97, 98, 99, 100, 101, 102, 103, 104,  // 254-278: channel B, samples 100-124
    '-',                                                    // 279: reading, character 1
    '1',                                                    // 280: reading, character 2
    '2',                                                    // 281: reading, character 3
    '.',                                                    // 282: reading, character 4
    '3',                                                    // 283: reading, character 5
    '4',                                                    // 284: reading, character 6
    ' ',                                                    // 285: reading, character 7
    'm',                                                    // 286: reading, character 8
    'V',                                                    // 287: reading, character 9
    ' ',                                                    // 288: reading, character 10
};

class AnnotatedFrame : public tests::ScopeRig {
 protected:
  AnnotatedFrame() { take(kFrame); }

  static tests::Samples samples(std::size_t first) {
    tests::Samples samples{};
    std::copy_n(kFrame.begin() + static_cast<std::ptrdiff_t>(first), samples.size(), samples.begin());
    return samples;
  }
};

TEST_F(AnnotatedFrame, ItsHeaderShowsAsTheInstrumentsSettings) {
  EXPECT_EQ(form.cmbFun.listIndex(), 0);
  EXPECT_EQ(form.optFun.selected(), 0);
  EXPECT_EQ(form.lblSinf[0].caption(), "A:1V");
  EXPECT_EQ(form.chkVac[0].caption(), "AC");
  EXPECT_EQ(form.lblSinf[1].caption(), "B:5V");
  EXPECT_EQ(form.chkVac[1].caption(), "DC");
  EXPECT_EQ(form.lblSinf[2].caption(), "1mS");
  EXPECT_EQ(form.chkHat.value(), 1);
  EXPECT_EQ(form.sldPosV[0].value(), 48);
  EXPECT_EQ(form.posDV[0].top(), (48 - 21) * 30 + 330);
  EXPECT_EQ(form.sldPosV[1].value(), 80);
  EXPECT_EQ(form.posDV[1].top(), (80 - 21) * 30 + 330);
  EXPECT_EQ(form.lblSinf[3].caption(), "-");
  EXPECT_EQ(form.lblSinf[4].caption(), "CHA");
  EXPECT_EQ(form.lblSinf[5].caption(), "Auto");
  EXPECT_EQ(form.trgLvl.value(), 0x2E ^ 255);
  EXPECT_EQ(form.sldPosH.value(), 62);
  EXPECT_EQ(form.markT.left(), (62 - 2) * 30 + 500);
  EXPECT_EQ(form.posDV[1].caption(), "REF");
}

TEST_F(AnnotatedFrame, ItsReadingIsShownWithItsBlanks) {
  EXPECT_EQ(form.lblDmm.caption(), "-12.34 mV ");
}

TEST_F(AnnotatedFrame, ItsTriggerMarkerStandsAtTheSampleOfTheTriggerPoint) {
  EXPECT_TRUE(form.markT.visible());
  EXPECT_EQ(form.markT.top(), 30 * kFrame[46 + 27] - 300);
}

TEST_F(AnnotatedFrame, ItsTracesAre247SegmentsForOneGap) {
  EXPECT_EQ(form.picScope.lines().size(), 247U);
  EXPECT_EQ(tests::linesOf(form.picScope), tests::bothTraces(samples(29), samples(154)));
}

TEST_F(AnnotatedFrame, ItsTracesRunFrom510To4230) {
  const auto lines = form.picScope.lines();
  EXPECT_EQ(lines.front(), (form::Line{510, 30 * 62 - 170, 540, 30 * 64 - 170, form::kRed}));
  EXPECT_EQ(lines[1], (form::Line{510, 30 * 80 - 170, 540, 30 * 81 - 170, form::kGreen}));
  EXPECT_EQ(lines.back(), (form::Line{4200, 30 * 103 - 170, 4230, 30 * 104 - 170, form::kGreen}));
}

TEST_F(AnnotatedFrame, ARecalledMemoryIsDrawnTheSame) {
  tests::ScopeParts other;
  tests::FrameBytes frame = kFrame;
  frame[1] = 'm';
  frame[2] = 'e';
  frame[3] = 'm';
  other.take(frame);
  EXPECT_EQ(tests::linesOf(other.form.picScope), tests::linesOf(form.picScope));
  EXPECT_EQ(other.form.lblDmm.caption(), form.lblDmm.caption());
}

TEST_F(AnnotatedFrame, AnUpperCaseKeyIsNotDrawn) {
  tests::ScopeParts other;
  tests::FrameBytes frame = kFrame;
  for (std::size_t index = 1; index <= 3; ++index) {
    frame[index] = static_cast<std::uint8_t>(frame[index] - 32);
  }
  other.take(frame);
  EXPECT_TRUE(other.form.picScope.lines().empty());
  EXPECT_EQ(other.form.lblDmm.caption(), "");
}

}  // namespace
}  // namespace vireon::scope
