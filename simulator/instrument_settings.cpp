#include <algorithm>

#include "simulator/instrument.h"
#include "simulator/scales.h"
#include "simulator/settings.h"

namespace vireon::simulator {
namespace {

// "up" leads to the next code, that is to more volts or seconds per division, or to the coarser range.
int stepOf(Word word) {
  return word == Word::kUp ? 1 : -1;
}

bool isStep(Word word) {
  return word == Word::kUp || word == Word::kDown;
}

int stepped(int code, Word word, int count) {
  return std::clamp(code + stepOf(word), 0, count - 1);
}

}  // namespace

void Instrument::execute(const Command& command) {
  switch (command.verb) {
    case Verb::kDhd:
      setHold(command.word == Word::kOn);
      break;
    case Verb::kDfn:
      setFunction(command.number);
      break;
    case Verb::kDrg:
      setRange(command.word);
      break;
    case Verb::kSck:
      wallClock_.set(command.text, now());
      break;
    case Verb::kDps:
    case Verb::kDpc:
    case Verb::kDrc:
    case Verb::kSmm:
      executeLogger(command);
      break;
    default:
      executeScope(command);
      break;
  }
  settle();
}

void Instrument::executeScope(const Command& command) {
  const auto byte = static_cast<std::uint8_t>(command.number);
  switch (command.verb) {
    case Verb::kVda:
      setChannel(settings_.a, command, measuresOhms(settings_.meter.function));
      break;
    case Verb::kVdb:
      setChannel(settings_.b, command, false);
      break;
    case Verb::kVpa:
      settings_.a.position = byte;
      break;
    case Verb::kVpb:
      settings_.b.position = byte;
      break;
    case Verb::kHdv:
      setTimeBase(command);
      break;
    case Verb::kHpo:
      settings_.timeBase.position = byte;
      break;
    case Verb::kTlv:
      settings_.trigger.level = byte;
      break;
    case Verb::kTrg:
      setTrigger(command.word);
      break;
    default:
      break;
  }
}

void Instrument::executeLogger(const Command& command) {
  if (command.verb == Verb::kDps) {
    const auto changed = withFields(logger_.parameters(), settings_.meter.mode, command.text);
    if (changed) logger_.parameters() = *changed;
  } else if (command.verb == Verb::kSmm) {
    logger_.parameters().method = command.number;
  } else if (command.verb == Verb::kDrc) {
    logger_.clearMemory();
  } else if (command.number == 0) {
    logger_.resetStatistics();
  } else if (command.number == 1) {
    logger_.togglePause();
  } else if (command.number == 2) {
    logger_.rewind();
  } else if (command.number == 4) {
    logger_.toggleRun(now());
  }
}

void Instrument::setChannel(ChannelSettings& channel, const Command& command, bool carriesRange) {
  switch (command.word) {
    case Word::kUp:
    case Word::kDown:
      if (carriesRange) {
        setRange(command.word);
      } else {
        channel.automatic = false;
        channel.scale = stepped(channel.scale, command.word, kVoltScales);
      }
      break;
    case Word::kAuto:
    case Word::kManual:
      channel.automatic = command.word == Word::kAuto;
      break;
    case Word::kAc:
    case Word::kDc:
      channel.alternating = command.word == Word::kAc;
      break;
    case Word::kOn:
    case Word::kOff:
      channel.on = command.word == Word::kOn;
      break;
    default:
      break;
  }
}

void Instrument::setTimeBase(const Command& command) {
  TimeBaseSettings& timeBase = settings_.timeBase;
  timeBase.automatic = command.word == Word::kAuto;
  if (!isStep(command.word)) return;
  timeBase.scale = stepped(timeBase.scale, command.word, kTimeScales);
  acquisition_.restart(now());
}

void Instrument::setTrigger(Word word) {
  TriggerSettings& trigger = settings_.trigger;
  switch (word) {
    case Word::kNormal:
    case Word::kAuto:
      trigger.automatic = word == Word::kAuto;
      break;
    case Word::kSourceA:
      trigger.source = TriggerSource::kA;
      break;
    case Word::kSourceB:
      trigger.source = TriggerSource::kB;
      break;
    case Word::kSourceExternal:
      trigger.source = TriggerSource::kExternal;
      break;
    case Word::kRising:
    case Word::kFalling:
      trigger.falling = word == Word::kFalling;
      break;
    case Word::kSingle:
    case Word::kSingleOff:
      settings_.single = word == Word::kSingle;
      setHold(false);
      break;
    default:
      break;
  }
}

void Instrument::setHold(bool hold) {
  if (hold && !settings_.hold) {
    // The picture that stands still is the one of this moment.
    acquisition_.update(settings_, inputs_, now());
    heldReading_ = reading();
  }
  const bool released = settings_.hold && !hold;
  settings_.hold = hold;
  if (hold) return;
  heldReading_.reset();
  if (released) acquisition_.restart(now());
  if (settings_.single) acquisition_.armSingle(now());
}

void Instrument::setFunction(int value) {
  settings_.meter.mode = static_cast<LoggerMode>(value / 16);
  settings_.meter.function = static_cast<Function>(value % 16);
  if (heldReading_) heldReading_ = measure(inputs_.meter, settings_.meter, now());
  logger_.enterMode(settings_.meter.mode, now());
}

void Instrument::setRange(Word word) {
  MeterSettings& meter = settings_.meter;
  meter.automatic = word == Word::kAuto;
  if (!isStep(word)) return;
  int& code = meter.range[rangeSlot(meter.function)];
  code = stepped(code, word, rangeCount(meter.function));
}

}  // namespace vireon::simulator
