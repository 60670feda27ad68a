#include "simulator/waveform_frame.h"

#include "simulator/setting_bytes.h"

namespace vireon::simulator {
namespace {

void append(std::string& text, const Samples& samples) {
  for (const std::uint8_t sample : samples) text.push_back(static_cast<char>(sample));
}

}  // namespace

// Positions on the wire are one higher than in the text: the start mark stands at 0.
std::string waveformText(const WaveformContent& content, const Settings& settings) {
  std::string text;
  text.reserve(kWaveformLength);
  text.append(content.key).append(":00");
  text += hexByte(functionByte(settings.meter));               // 7
  text += hexByte(channelByte(settings.a, content.scaleA));    // 9
  text += hexByte(channelByte(settings.b, settings.b.scale));  // 11
  text += hexByte(timeBaseByte(settings.timeBase));            // 13
  text += hexByte(settings.a.position);                        // 15
  text += hexByte(settings.b.position);                        // 17
  text += hexByte(triggerByte(settings.trigger));              // 19
  text += hexByte(settings.trigger.level);                     // 21
  text += "00";                                                // 23
  text += hexByte(settings.timeBase.position);                 // 25
  text += content.reference ? "20" : "00";                     // 27, 28
  append(text, content.a);                                     // 29
  append(text, content.b);                                     // 154
  text += content.reading;                                     // 279
  return text;
}

}  // namespace vireon::simulator
