#include "simulator/instrument.h"

#include <chrono>

#include "simulator/auto_scale.h"

namespace vireon::simulator {

Instrument::Instrument(Model model, Clock& clock) : model_(model), clock_(clock) {
  settle();
  acquisition_.restart(now());
}

double Instrument::now() const {
  return std::chrono::duration<double>(clock_.now()).count();
}

Signal& Instrument::signal(Channel channel) {
  switch (channel) {
    case Channel::kA:
      return inputs_.a;
    case Channel::kB:
      return inputs_.b;
    case Channel::kExternal:
      return inputs_.external;
    case Channel::kMeter:
      break;
  }
  return inputs_.meter.signal;
}

Reading Instrument::reading() const {
  return heldReading_ ? *heldReading_ : measure(inputs_.meter, settings_.meter, now());
}

// What is automatic follows its signal.
void Instrument::settle() {
  if (settings_.a.automatic) settings_.a.scale = fittingVoltScale(inputs_.a, settings_.a);
  if (settings_.b.automatic) settings_.b.scale = fittingVoltScale(inputs_.b, settings_.b);
  if (settings_.timeBase.automatic) {
    const bool followsB = settings_.trigger.source == TriggerSource::kB;
    const int scale = fittingTimeScale(followsB ? inputs_.b : inputs_.a, settings_.timeBase.scale);
    if (scale != settings_.timeBase.scale) acquisition_.restart(now());
    settings_.timeBase.scale = scale;
  }
  if (settings_.meter.automatic && !heldReading_) {
    settings_.meter.range[rangeSlot(settings_.meter.function)] = reading().range;
  }
}

void Instrument::refresh() {
  if (acquisition_.update(settings_, inputs_, now())) setHold(true);
}

void Instrument::storeReference() {
  refresh();
  acquisition_.storeReference();
}

std::string Instrument::refuse(std::string_view command) {
  log_.add(command);
  return std::string(kRefusal);
}

std::string Instrument::answer(std::string_view command) {
  log_.add(command);
  const auto commands = parseCommands(command, model_, settings_.meter.mode);
  if (!commands) return std::string(kRefusal);
  settle();
  const auto readingAt = [this](double seconds) { return measure(inputs_.meter, settings_.meter, seconds); };
  logger_.advance(now(), readingAt, wallClock_);
  std::string reply;
  for (const Command& next : *commands) {
    remote_ = next.verb != Verb::kGtl;
    if (!next.query) execute(next);
    if (answersWithFrame(next)) return frame(next);
    if (!next.query) continue;
    const std::string text = item(next);
    if (!text.empty() && !reply.empty()) reply += ',';
    reply += text;
  }
  return reply.empty() ? std::string(kAcknowledge) : reply;
}

}  // namespace vireon::simulator
