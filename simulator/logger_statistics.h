#pragma once

#include <string>

#include "simulator/logger_parameters.h"
#include "simulator/meter.h"

namespace vireon::simulator {

// Running summary of the readings of a record, relative or compare run.
class LoggerStatistics {
 public:
  // Takes one reading at a time of day "HH:MM:SS"; an overload counts for nothing.
  void add(const Reading& reading, const std::string& timeOfDay, const LoggerParameters& parameters);

  // Lets running time pass, in seconds.
  void pass(double seconds) { elapsed_ += seconds; }

  // The summary of a mode in adjacent fields; empty in modes that have none.
  std::string text(LoggerMode mode, const LoggerParameters& parameters) const;

 private:
  struct Stamped {
    Reading reading;
    std::string timeOfDay = "00:00:00";
  };

  std::string recordText() const;
  std::string relativeText(const LoggerParameters& parameters) const;
  std::string compareText(const LoggerParameters& parameters) const;

  Stamped highest_;
  Stamped lowest_;
  Stamped latest_;
  double sum_ = 0.0;
  double errorSum_ = 0.0;
  long count_ = 0;
  long passed_ = 0;
  double elapsed_ = 0.0;
};

}  // namespace vireon::simulator
