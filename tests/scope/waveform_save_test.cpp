#include <gtest/gtest.h>

#include <stdexcept>

#include "tests/form/expect_fault.h"
#include "tests/scope/scope_rig.h"

namespace vireon::scope {
namespace {

class WaveformSave : public tests::ScopeRig {
 protected:
  WaveformSave() {
    waveform.writeWaveform = [this] {
      tests::FrameBytes written{};
      std::copy_n(state.rxBuf.begin(), written.size(), written.begin());
      written_.push_back(written);
      armedWhileWriting_ = waveform.wfmSave;
      linesWhileWriting_ = form.picScope.lines().size();
    };
  }

  tests::FrameBytes faulty() const {
    tests::WaveformFields fields = good_;
    fields.tlv = "ZZ";
    return fields.bytes();
  }

  tests::WaveformFields good_;
  std::vector<tests::FrameBytes> written_;
  bool armedWhileWriting_ = true;
  std::size_t linesWhileWriting_ = 0;
};

TEST_F(WaveformSave, NothingIsWrittenUnlessItWasArmed) {
  EXPECT_FALSE(waveform.wfmSave);
  take(good_.bytes());
  EXPECT_TRUE(written_.empty());
}

TEST_F(WaveformSave, AnArmedSaveWritesTheNextFrameOnce) {
  waveform.wfmSave = true;
  take(good_.bytes());
  take(good_.bytes());
  take(good_.bytes());
  EXPECT_EQ(written_, std::vector<tests::FrameBytes>{good_.bytes()});
  EXPECT_FALSE(waveform.wfmSave);
}

TEST_F(WaveformSave, TheFrameIsDrawnAndTheSaveConsumedBeforeItIsWritten) {
  waveform.wfmSave = true;
  take(good_.bytes());
  EXPECT_FALSE(armedWhileWriting_);
  EXPECT_EQ(linesWhileWriting_, 248U);
}

TEST_F(WaveformSave, AFaultyFrameWritesNothingAndLeavesTheSaveArmed) {
  waveform.wfmSave = true;
  for (int times = 0; times < 3; ++times) {
    take(faulty());
    EXPECT_TRUE(waveform.wfmSave);
    EXPECT_FALSE(state.uiBusy);
  }
  EXPECT_TRUE(written_.empty());
  take(good_.bytes());
  take(good_.bytes());
  EXPECT_EQ(written_, std::vector<tests::FrameBytes>{good_.bytes()});
  EXPECT_FALSE(waveform.wfmSave);
  EXPECT_FALSE(state.uiBusy);
}

TEST_F(WaveformSave, AFaultReachesTheCallerOfTheDrawing) {
  waveform.wfmSave = true;
  tests::receiveFrame(state, faulty());
  tests::expectFault(form::FaultKind::kConversion, [this] { waveform.scopeDraw(); });
  EXPECT_TRUE(waveform.wfmSave);
}

TEST_F(WaveformSave, AFrameThatIsOnlyShownDoesNotConsumeTheSave) {
  waveform.wfmSave = true;
  tests::receiveFrame(state, good_.bytes());
  waveform.dspWfm();
  EXPECT_TRUE(waveform.wfmSave);
  EXPECT_TRUE(written_.empty());
  EXPECT_EQ(form.picScope.lines().size(), 248U);
}

TEST_F(WaveformSave, OtherFramesDoNotConsumeTheSave) {
  waveform.wfmSave = true;
  for (const char* key : {"DRS", "lgd", "afn", "vda"}) {
    tests::FrameBytes frame = good_.bytes();
    std::copy_n(key, 3, frame.begin() + 1);
    take(frame);
  }
  EXPECT_TRUE(waveform.wfmSave);
  EXPECT_TRUE(written_.empty());
}

TEST_F(WaveformSave, WithoutAWriterTheSaveIsConsumedAllTheSame) {
  waveform.writeWaveform = {};
  waveform.wfmSave = true;
  tests::receiveFrame(state, good_.bytes());
  EXPECT_NO_THROW(waveform.scopeDraw());
  EXPECT_FALSE(waveform.wfmSave);
}

TEST_F(WaveformSave, AWriterThatFailsLeavesTheProgramIdleAndTheSaveConsumed) {
  waveform.writeWaveform = [] { throw std::runtime_error("disk full"); };
  waveform.wfmSave = true;
  take(good_.bytes());
  EXPECT_FALSE(waveform.wfmSave);
  EXPECT_FALSE(state.uiBusy);
  EXPECT_EQ(form.picScope.lines().size(), 248U);
}

}  // namespace
}  // namespace vireon::scope
