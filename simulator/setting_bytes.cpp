#include "simulator/setting_bytes.h"

#include <string_view>

#include "simulator/meter.h"

namespace vireon::simulator {
namespace {

std::uint8_t bit(bool set, unsigned number) {
  return static_cast<std::uint8_t>(set ? 1U << number : 0U);
}

std::uint8_t joined(unsigned bits) {
  return static_cast<std::uint8_t>(bits);
}

}  // namespace

std::string hexByte(unsigned value) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  return {kDigits[(value >> 4U) & 15U], kDigits[value & 15U]};
}

std::uint8_t channelByte(const ChannelSettings& channel, int scale) {
  return joined((static_cast<unsigned>(scale) & 15U) | bit(channel.alternating, 4) |
                bit(channel.automatic, 5) | bit(channel.on, 6));
}

std::uint8_t timeBaseByte(const TimeBaseSettings& timeBase) {
  return joined((static_cast<unsigned>(timeBase.scale) & 31U) | bit(timeBase.automatic, 6));
}

std::uint8_t triggerByte(const TriggerSettings& trigger) {
  return joined(static_cast<unsigned>(trigger.source) | bit(trigger.falling, 2) | bit(trigger.automatic, 5));
}

std::uint8_t functionByte(const MeterSettings& meter) {
  return joined(static_cast<unsigned>(meter.mode) << 4U | static_cast<unsigned>(meter.function));
}

std::uint8_t rangeByte(const MeterSettings& meter) {
  const int code = meter.range[rangeSlot(meter.function)];
  return joined((static_cast<unsigned>(code) & 7U) | bit(meter.automatic, 3));
}

std::uint8_t statusByte(const Status& status) {
  return joined(bit(status.hold, 0U) | bit(status.single, 1) | bit(status.paused, 3) |
                bit(status.logging, 4) | bit(status.waiting, 6));
}

}  // namespace vireon::simulator
