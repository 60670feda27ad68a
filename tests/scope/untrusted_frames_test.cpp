#include <gtest/gtest.h>

#include <random>

#include "tests/scope/sane_state.h"
#include "tests/scope/scope_rig.h"

namespace vireon::scope {
namespace {

constexpr int kLongest = 600;

// Bytes of a frame: any at all, those of replies, or a known key followed by either.
class FrameSource {
 public:
  explicit FrameSource(unsigned seed) : random_(seed) {}

  void fill(protocol::InstrumentState& state, int length) {
    const int kind = pick(4);
    state.rxBuf[0] = 2;
    for (int index = 1; index <= length; ++index) {
      state.rxBuf[static_cast<std::size_t>(index)] = kind % 2 == 0 ? anyByte() : replyByte();
    }
    if (kind >= 2) {
      for (int start = 1; start + 3 <= length; start += 4 + pick(60)) {
        const std::string key = kKeys[static_cast<std::size_t>(pick(std::size(kKeys)))];
        std::copy(key.begin(), key.end(), state.rxBuf.begin() + start);
        if (start > 1) {
          state.rxBuf[static_cast<std::size_t>(start) - 1] = ',';
        }
      }
    }
    state.rxLen = length;
  }

 private:
  static constexpr const char* kKeys[] = {"drm", "dps", "drp", "sid", "sim", "drt", "vda",
                                          "vdb", "vpa", "vpb", "hdv", "hpo", "tlv", "trg",
                                          "dfn", "drg", "sts", "drs", "mem", "lgd", "afn"};

  int pick(std::size_t choices) { return static_cast<int>(random_() % choices); }
  std::uint8_t anyByte() { return static_cast<std::uint8_t>(random_()); }
  std::uint8_t replyByte() {
    static const std::string alphabet = "0123456789ABCDEFabcdef:,, -+.";
    return static_cast<std::uint8_t>(alphabet[static_cast<std::size_t>(pick(alphabet.size()))]);
  }

  std::mt19937 random_;
};

struct Situation {
  int tab;
  int mode;
};

class UntrustedFrames : public testing::TestWithParam<Situation> {};

TEST_P(UntrustedFrames, OfAnyLengthLeaveTheWindowSane) {
  FrameSource source(static_cast<unsigned>(100 * GetParam().tab + GetParam().mode + 1));
  tests::ScopeParts parts;
  for (int round = 0; round < 4; ++round) {
    for (int length = 0; length <= kLongest; ++length) {
      parts.form.SSTab1.setTab(GetParam().tab);
      parts.form.cmbDmod.setListIndex(GetParam().mode);
      parts.form.panTrd.setVisible(round % 2 == 0);
      source.fill(parts.state, length);
      parts.dispatcher.dspRcv();
      ASSERT_TRUE(tests::isSane(parts.form, parts.state)) << "round " << round << " length " << length;
    }
  }
}

TEST_P(UntrustedFrames, LeaveAGoodWaveformDrawnAsEver) {
  const tests::WaveformFields good;
  FrameSource source(static_cast<unsigned>(100 * GetParam().tab + GetParam().mode + 7));
  tests::ScopeParts parts;
  for (int length = 0; length <= kLongest; ++length) {
    parts.form.SSTab1.setTab(GetParam().tab);
    parts.form.cmbDmod.setListIndex(GetParam().mode);
    source.fill(parts.state, length);
    parts.dispatcher.dspRcv();
    // Every field of the header differs from the frame before, so that the good one is followed whole.
    tests::WaveformFields other;
    other.dfn = "01";
    other.vda = other.vdb = "00";
    parts.take(other.bytes());
    parts.take(good.bytes());
    ASSERT_EQ(tests::linesOf(parts.form.picScope), tests::bothTraces(good.a, good.b)) << "length " << length;
    ASSERT_EQ(parts.form.lblDmm.caption(), good.reading);
  }
}

INSTANTIATE_TEST_SUITE_P(TabsAndModes, UntrustedFrames,
                         testing::Values(Situation{0, -1}, Situation{0, 0}, Situation{0, 4}, Situation{1, -1},
                                         Situation{1, 0}, Situation{1, 1}, Situation{1, 2}, Situation{1, 3},
                                         Situation{1, 4}),
                         [](const auto& instance) {
                           const Situation& situation = instance.param;
                           return "Tab" + std::to_string(situation.tab) +
                                  (situation.mode < 0 ? "NoMode" : "Mode" + std::to_string(situation.mode));
                         });

TEST(OverlongFrame, ALengthBeyondTheBufferEndsTheFrameAndLeavesTheWindowSane) {
  FrameSource source(1);
  for (int length = kLongest + 1; length <= kLongest + 65; ++length) {
    tests::ScopeParts parts;
    source.fill(parts.state, kLongest);
    parts.state.rxLen = length;
    parts.dispatcher.dspRcv();
    EXPECT_TRUE(tests::isSane(parts.form, parts.state)) << length;
  }
}

}  // namespace
}  // namespace vireon::scope
