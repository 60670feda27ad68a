#pragma once

#include <array>
#include <cstdint>
#include <optional>

#include "simulator/inputs.h"
#include "simulator/random.h"
#include "simulator/settings.h"
#include "simulator/sweep.h"

namespace vireon::simulator {

// The scope's picture: when it is taken and how long it stays. All times are seconds of instrument time.
class Acquisition {
 public:
  // Brings the picture up to `now`. While the display is held nothing changes; in normal mode, without a
  // trigger, the last picture stays, which is blank at the start. From 0.2 s/div on the picture is built
  // up point by point over the one before, or over a blank one after a restart. Returns true when this
  // took a single-shot capture; the caller holds the display then.
  bool update(const Settings& settings, const Inputs& inputs, double now);

  // Drops a slow sweep in progress; the next one begins at `now`, on a blank picture.
  void restart(double now);

  // The next single-shot capture takes the first trigger from `now` on.
  void armSingle(double now);

  const Trace& trace() const { return trace_; }

  // Keeps channel A's trace as the reference, shown in channel B's place until it is cleared.
  void storeReference() { reference_ = trace_.a; }
  void clearReference() { reference_.reset(); }
  bool showsReference() const { return reference_.has_value(); }

  // What stands in channel B's place.
  const Samples& shownB() const { return reference_ ? *reference_ : trace_.b; }

 private:
  void updateFast(const Settings& settings, const Inputs& inputs, double now);
  void updateSlow(const Settings& settings, const Inputs& inputs, double now);
  bool updateSingle(const Settings& settings, const Inputs& inputs, double now);
  std::optional<double> slowSweepStart(const Settings& settings, const Inputs& inputs) const;

  Trace trace_;
  std::optional<Samples> reference_;
  Random random_{0x5EED};
  double sweepFrom_ = 0.0;
  double singleFrom_ = 0.0;
  bool blank_ = true;
  bool firstSweep_ = true;
};

}  // namespace vireon::simulator
