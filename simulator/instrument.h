#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "simulator/acquisition.h"
#include "simulator/clock.h"
#include "simulator/command.h"
#include "simulator/command_log.h"
#include "simulator/inputs.h"
#include "simulator/logger.h"
#include "simulator/meter.h"
#include "simulator/model.h"
#include "simulator/settings.h"
#include "simulator/wall_clock.h"

namespace vireon::simulator {

// The instrument behind its links: state, inputs and answers. Keeps a reference to the clock, which must
// outlive it. For one thread at a time.
class Instrument {
 public:
  static constexpr std::string_view kAcknowledge = "\x06";
  static constexpr std::string_view kRefusal = "\x05";

  Instrument(Model model, Clock& clock);

  // Carries out a command string and returns the text of the reply frame without its marks, 1 to 599
  // bytes, none of them 2 or 3: reply items, one frame, kAcknowledge when there is nothing to reply, or
  // kRefusal, in which case nothing was carried out.
  std::string answer(std::string_view command);

  // Refuses a command string that reached the instrument in a state in which it takes none.
  std::string refuse(std::string_view command);

  // The command strings received, refused ones too, newest last. Bounded: at `capacity` entries (4096 at
  // the start) the older half is forgotten.
  const std::vector<std::string>& log() const { return log_.entries(); }
  void clearLog() { log_.clear(); }
  void setLogCapacity(std::size_t capacity) { log_.setCapacity(capacity); }
  // Command strings ever received; neither clearing nor forgetting changes it.
  std::uint64_t commandCount() const { return log_.total(); }

  Model model() const { return model_; }
  // False at the start and after "GTL"; any other command that is understood takes the instrument remote.
  bool remote() const { return remote_; }

  // What is plugged in.
  Signal& signal(Channel channel);
  MeterInput& meterInput() { return inputs_.meter; }
  Inputs& inputs() { return inputs_; }

  // The front panel. Codes and ranges must stay within the bounds that settings.h gives.
  Settings& settings() { return settings_; }
  const Settings& settings() const { return settings_; }

  Logger& logger() { return logger_; }

  // The picture last taken.
  const Trace& trace() const { return acquisition_.trace(); }
  // Takes a picture and shows channel A's trace as the reference in channel B's place until it is cleared.
  void storeReference();
  void clearReference() { acquisition_.clearReference(); }

 private:
  double now() const;
  void refresh();
  void settle();
  Reading reading() const;
  int shownScale() const;

  void execute(const Command& command);
  void executeScope(const Command& command);
  void executeLogger(const Command& command);
  void setChannel(ChannelSettings& channel, const Command& command, bool carriesRange);
  void setTimeBase(const Command& command);
  void setTrigger(Word word);
  void setHold(bool hold);
  void setFunction(int value);
  void setRange(Word word);

  std::string item(const Command& command);
  std::string scopeItem(const Command& command);
  std::string frame(const Command& command);
  std::string waveform();

  Model model_;
  Clock& clock_;
  CommandLog log_;
  Inputs inputs_ = startInputs();
  Settings settings_;
  Acquisition acquisition_;
  Logger logger_;
  WallClock wallClock_;
  std::optional<Reading> heldReading_;
  bool remote_ = false;
};

}  // namespace vireon::simulator
