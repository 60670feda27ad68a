#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "simulator/logger_parameters.h"
#include "simulator/logger_statistics.h"
#include "simulator/meter.h"
#include "simulator/wall_clock.h"

namespace vireon::simulator {

// The recording side of the meter. Times are seconds of instrument time.
class Logger {
 public:
  static constexpr std::size_t kRecordsPerDump = 24;
  static constexpr int kTrendPoints = 120;
  static constexpr int kHighestPoint = 40;
  static constexpr const char* kEndMark = "--EOD---";  // in the end record, where others have their time

  using ReadingAt = std::function<Reading(double seconds)>;

  // Takes all readings that came due up to `now`.
  void advance(double now, const ReadingAt& readingAt, const WallClock& wallClock);

  // Enters a mode: ends a run, drops what waits to be fetched, begins new statistics.
  void enterMode(LoggerMode mode, double now);
  LoggerMode mode() const { return mode_; }

  void resetStatistics() { statistics_ = {}; }
  void togglePause() { paused_ = !paused_; }

  // Ends a run or a pause, begins new statistics and winds the read-out back; the memory is kept.
  void rewind();

  // Starts a run, which overwrites the memory (a trend the points of the last), or ends the one in
  // progress. Nothing in mode kOff.
  void toggleRun(double now);

  // Ends a run and empties the memory.
  void clearMemory();

  // Next part of the memory: up to 24 records of 24 characters, or the end record alone when none is left.
  std::string nextDump();

  // Next point or live record of the run; empty when none waits.
  std::string nextLive();

  std::string statisticsText() const { return statistics_.text(mode_, parameters_); }

  bool paused() const { return paused_; }
  // Stays true at the end of a run until a single point or record is left to be fetched.
  bool running() const { return running_ || (finishing_ && waiting() > 1); }
  // Points and records to be fetched.
  std::size_t waiting() const;

  const LoggerParameters& parameters() const { return parameters_; }
  LoggerParameters& parameters() { return parameters_; }
  std::size_t recordCount() const { return memory_.size(); }

 private:
  struct Record {
    int address = 0;
    std::string timeOfDay;
    Reading reading;
  };

  void stop();
  void advanceRun(double now, const ReadingAt& readingAt, const WallClock& wallClock);
  void advanceStatistics(double now, const ReadingAt& readingAt, const WallClock& wallClock);
  void takePoint(const Reading& reading);
  void takeRecord(double due, const ReadingAt& readingAt, const WallClock& wallClock);
  Reading peakOf(double due, const ReadingAt& readingAt) const;
  double runStep() const;

  LoggerParameters parameters_;
  LoggerStatistics statistics_;
  LoggerMode mode_ = LoggerMode::kOff;
  std::vector<Record> memory_;
  std::vector<int> points_;
  std::size_t fetched_ = 0;
  std::size_t dumped_ = 0;
  double advancedTo_ = 0.0;
  double nextRun_ = 0.0;
  double nextStatistics_ = 0.0;
  bool running_ = false;
  bool finishing_ = false;
  bool paused_ = false;
};

}  // namespace vireon::simulator
