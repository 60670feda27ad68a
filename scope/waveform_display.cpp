#include "scope/waveform_display.h"

#include <algorithm>
#include <string_view>

#include "protocol/reply_text.h"

namespace vireon::scope {
namespace {

struct HeaderField {
  std::string_view key;
  std::size_t index;  // of the first of two characters in the frame
};

constexpr HeaderField kHeader[] = {{"dfn:", 7},  {"vda:", 9},  {"vdb:", 11}, {"hdv:", 13}, {"vpa:", 15},
                                   {"vpb:", 17}, {"trg:", 19}, {"tlv:", 21}, {"hpo:", 25}};
constexpr std::size_t kFlagEntry = 10;

constexpr int kStep = 30;      // twips per sample and per sample step
constexpr int kLeft = 510;     // x of sample 0
constexpr int kOrigin = -170;  // y of sample value 0

}  // namespace

void WaveformDisplay::scopeDraw() {
  dspWfm();
  if (!wfmSave) {
    return;
  }
  wfmSave = false;
  if (writeWaveform) {
    writeWaveform();
  }
}

void WaveformDisplay::dspWfm() {
  placeTriggerMarker();
  followSettings();
  form_.picScope.cls();
  drawTraces();
  form_.lblDmm.setCaption(std::string(state_.rxBuf.begin() + WaveformFrame::kReading,
                                      state_.rxBuf.begin() + WaveformFrame::kSize));
}

void WaveformDisplay::placeTriggerMarker() {
  const auto digits = state_.rxBuf.begin() + WaveformFrame::kTriggerPoint;
  int tp = protocol::hexValue(std::string(digits, digits + 2));
  form_.markT.setVisible(!form_.optTS[2].value());
  if (form_.optTS[0].value()) {
    tp = std::min(tp, 122);
  } else if (form_.optTS[1].value()) {
    tp = std::max(tp, 123);
  }
  form_.markT.setTop(kStep * state_.rxBuf[static_cast<std::size_t>(tp) + 27] - 300);
}

void WaveformDisplay::followSettings() {
  for (std::size_t entry = 1; entry < kFlagEntry; ++entry) {
    const HeaderField& field = kHeader[entry - 1];
    const auto first = state_.rxBuf.begin() + static_cast<std::ptrdiff_t>(field.index);
    if (!std::equal(first, first + 2, wfmHdr_[entry].begin(), wfmHdr_[entry].end(),
                    [](std::uint8_t byte, char character) { return static_cast<char>(byte) == character; })) {
      const std::string value(first, first + 2);
      interpreter_.dspSinf(std::string(field.key) + value);
      wfmHdr_[entry] = value;  // only now: what the panel could not take comes with the next frame
    }
  }
  const std::uint8_t flags = state_.rxBuf[WaveformFrame::kFlags];
  const std::string text(1, static_cast<char>(flags));
  if (wfmHdr_[kFlagEntry] != text) {
    wfmHdr_[kFlagEntry] = text;
    form_.posDV[1].setCaption((flags & 2) != 0 ? "REF" : "CHB");
  }
}

void WaveformDisplay::drawTraces() {
  const bool drawA = form_.chkVof[0].value() == 1;
  const bool drawB = !state_.ohmBz && form_.chkVof[1].value() == 1;
  const std::uint8_t* const a = state_.rxBuf.data() + WaveformFrame::kSamplesA;
  const std::uint8_t* const b = state_.rxBuf.data() + WaveformFrame::kSamplesB;
  for (int i = 1; i < WaveformFrame::kSamples; ++i) {
    const int x1 = kStep * (i - 1) + kLeft;
    const int x2 = kStep * i + kLeft;
    if (drawA && a[i] != WaveformFrame::kGap) {
      form_.picScope.line(x1, kStep * a[i - 1] + kOrigin, x2, kStep * a[i] + kOrigin, form::kRed);
    }
    if (drawB) {
      form_.picScope.line(x1, kStep * b[i - 1] + kOrigin, x2, kStep * b[i] + kOrigin, form::kGreen);
    }
  }
}

}  // namespace vireon::scope
