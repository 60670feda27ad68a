#pragma once

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "simulator/clock.h"
#include "simulator/instrument.h"

namespace vireon::simulator::tests {

using namespace std::chrono_literals;

// A waveform frame as it stands on the wire: index 0 is the start mark.
class Frame {
 public:
  explicit Frame(std::string text) : text_(std::move(text)) {}

  const std::string& text() const { return text_; }
  std::string field(std::size_t wireIndex) const { return text_.substr(wireIndex - 1, 2); }
  char flag() const { return text_.at(26); }
  std::string reading() const { return text_.substr(278, 10); }
  std::vector<int> a() const { return samples(29); }
  std::vector<int> b() const { return samples(154); }

 private:
  std::vector<int> samples(std::size_t wireIndex) const {
    std::vector<int> values;
    for (std::size_t i = 0; i < 125; ++i) {
      values.push_back(static_cast<std::uint8_t>(text_.at(wireIndex - 1 + i)));
    }
    return values;
  }

  std::string text_;
};

// An instrument without noise on a clock that only moves when it is told to.
struct Bench {
  explicit Bench(Model model = Model::kK7310) : instrument(model, clock) {
    instrument.signal(Channel::kA).noise = 0.0;
    instrument.signal(Channel::kB).noise = 0.0;
    instrument.meterInput().drift = 0.0;
    instrument.meterInput().flicker = 0.0;
    clock.advance(10s);
  }

  std::string ask(std::string_view command) { return instrument.answer(command); }
  Frame frame() { return Frame(ask("DRS??")); }
  Signal& a() { return instrument.signal(Channel::kA); }
  Signal& b() { return instrument.signal(Channel::kB); }

  ManualClock clock;
  Instrument instrument;
};

inline int lowest(const std::vector<int>& samples) {
  return *std::min_element(samples.begin(), samples.end());
}
inline int highest(const std::vector<int>& samples) {
  return *std::max_element(samples.begin(), samples.end());
}
inline int span(const std::vector<int>& samples) {
  return highest(samples) - lowest(samples);
}

// Number of places at which the trace passes a screen position upwards (towards smaller samples).
inline int risesThrough(const std::vector<int>& samples, int position) {
  int count = 0;
  for (std::size_t i = 1; i < samples.size(); ++i) {
    if (samples[i - 1] > position && samples[i] <= position) ++count;
  }
  return count;
}

const std::string kAck(Instrument::kAcknowledge);
const std::string kRefused(Instrument::kRefusal);

}  // namespace vireon::simulator::tests
