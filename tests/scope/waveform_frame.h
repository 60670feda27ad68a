#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "form/picture_box.h"
#include "protocol/instrument_state.h"

namespace vireon::tests {

using FrameBytes = std::array<std::uint8_t, 289>;  // STX at 0, text at 1 to 288
using Samples = std::array<std::uint8_t, 125>;

// A waveform frame by its fields; both channels on, source channel A, trigger at sample index 62.
struct WaveformFields {
  std::string head = "\2drs:00";  // bytes 0 to 6
  std::string dfn = "00";
  std::string vda = "44";
  std::string vdb = "45";
  std::string hdv = "09";
  std::string vpa = "30";
  std::string vpb = "50";
  std::string trg = "00";
  std::string tlv = "40";
  std::string hpo = "3E";
  char flags = '0';
  Samples a = ramp(20);
  Samples b = ramp(110);
  std::string reading = " 1.234 VDC";

  // Samples that rise by one from `first` on.
  static Samples ramp(int first) {
    Samples samples{};
    for (std::size_t i = 0; i < samples.size(); ++i) {
      samples[i] = static_cast<std::uint8_t>(first + static_cast<int>(i));
    }
    return samples;
  }

  FrameBytes bytes() const {
    std::string text = head + dfn + vda + vdb + hdv + vpa + vpb + trg + tlv + "##" + hpo + flags + '#';
    text.append(a.begin(), a.end());
    text.append(b.begin(), b.end());
    text += reading;
    FrameBytes frame{};
    std::copy_n(text.begin(), frame.size(), frame.begin());
    return frame;
  }
};

inline void receiveFrame(protocol::InstrumentState& state, const FrameBytes& frame) {
  std::copy(frame.begin(), frame.end(), state.rxBuf.begin());
  state.rxBuf[frame.size()] = 3;
  state.rxLen = static_cast<int>(frame.size()) - 1;
}

// The segment of a trace that ends at sample `i`.
inline form::Line segment(const Samples& samples, std::size_t i, form::Color color) {
  const int x = 510 + 30 * static_cast<int>(i);
  return {x - 30, 30 * samples[i - 1] - 170, x, 30 * samples[i] - 170, color};
}

// What a frame with these samples leaves on the picture, in the order of drawing.
inline std::vector<form::Line> bothTraces(const Samples& a, const Samples& b) {
  std::vector<form::Line> lines;
  for (std::size_t i = 1; i < a.size(); ++i) {
    if (a[i] != 240) {
      lines.push_back(segment(a, i, form::kRed));
    }
    lines.push_back(segment(b, i, form::kGreen));
  }
  return lines;
}

inline std::vector<form::Line> linesOf(const form::PictureBox& picture) {
  return {picture.lines().begin(), picture.lines().end()};
}

}  // namespace vireon::tests
