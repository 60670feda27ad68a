#include "simulator/instrument.h"
#include "simulator/setting_bytes.h"
#include "simulator/waveform_frame.h"

namespace vireon::simulator {

// While the meter measures ohms its range stands in place of channel A's volts/div code.
int Instrument::shownScale() const {
  const MeterSettings& meter = settings_.meter;
  return measuresOhms(meter.function) ? meter.range[rangeSlot(meter.function)] : settings_.a.scale;
}

std::string Instrument::scopeItem(const Command& command) {
  switch (command.verb) {
    case Verb::kVda:
      return "vda:" + hexByte(channelByte(settings_.a, shownScale()));
    case Verb::kVdb:
      return "vdb:" + hexByte(channelByte(settings_.b, settings_.b.scale));
    case Verb::kVpa:
      return "vpa:" + hexByte(settings_.a.position);
    case Verb::kVpb:
      return "vpb:" + hexByte(settings_.b.position);
    case Verb::kHdv:
      return "hdv:" + hexByte(timeBaseByte(settings_.timeBase));
    case Verb::kHpo:
      return "hpo:" + hexByte(settings_.timeBase.position);
    case Verb::kTlv:
      return "tlv:" + hexByte(settings_.trigger.level);
    case Verb::kTrg:
      return "trg:" + hexByte(triggerByte(settings_.trigger));
    default:
      return {};
  }
}

std::string Instrument::item(const Command& command) {
  switch (command.verb) {
    case Verb::kSid:
      return "sid:" + std::string(systemText(model_));
    case Verb::kSim: {
      std::string name(identity(model_));
      name.resize(kIdentityWidth, ' ');
      return "sim:" + name;
    }
    case Verb::kSts:
      refresh();
      return "sts:" + hexByte(statusByte({settings_.hold, settings_.single, logger_.paused(),
                                          logger_.running(), logger_.waiting() > 0}));
    case Verb::kDfn:
      return "dfn:" + hexByte(functionByte(settings_.meter));
    case Verb::kDrg:
      return "drg:" + hexByte(rangeByte(settings_.meter));
    case Verb::kDps:
      return "dps:" + parameterText(logger_.parameters(), settings_.meter.mode);
    case Verb::kDrm:
      return "drm:" + liveText(reading());
    case Verb::kDrp:
      return "drp:" + logger_.statisticsText();
    case Verb::kDrt: {
      const std::string live = logger_.nextLive();
      return live.empty() ? live : "drt:" + live;
    }
    case Verb::kAfn:
      return "afn:" + functionText(settings_.meter.function);
    default:
      return scopeItem(command);
  }
}

std::string Instrument::waveform() {
  refresh();
  const std::string shown = liveText(reading());
  return waveformText({"drs", shownScale(), acquisition_.trace().a, acquisition_.shownB(),
                       acquisition_.showsReference(), shown},
                      settings_);
}

std::string Instrument::frame(const Command& command) {
  switch (command.verb) {
    case Verb::kMem:
      return memoryText(command.number);
    case Verb::kDpc:
      return "lgd:" + logger_.nextDump();
    default:
      return waveform();
  }
}

}  // namespace vireon::simulator
