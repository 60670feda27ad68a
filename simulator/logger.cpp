#include "simulator/logger.h"

#include <algorithm>
#include <cmath>

#include "simulator/padding.h"
#include "simulator/quantity.h"
#include "simulator/setting_bytes.h"

namespace vireon::simulator {
namespace {

constexpr double kStatisticsStep = 0.25;  // s
// Due times are sums of steps: what is due now must not wait for the rounding of the last one.
constexpr double kTolerance = 1e-6;  // s
// Readings made up for in one go; what is older is passed over.
constexpr double kLongestCatchUp = 25000.0;  // s
constexpr int kPeakReadings = 40;
constexpr std::size_t kRecordLength = 24;

std::string padded(int value, std::size_t width) {
  return zeroPadded(std::to_string(value), width);
}

std::string endRecord() {
  return leftAligned(std::string(6, ' ') + Logger::kEndMark, kRecordLength);
}

}  // namespace

std::size_t Logger::waiting() const {
  return (mode_ == LoggerMode::kTrend ? points_.size() : memory_.size()) - fetched_;
}

void Logger::stop() {
  running_ = false;
  finishing_ = false;
  paused_ = false;
}

void Logger::enterMode(LoggerMode mode, double now) {
  stop();
  mode_ = mode;
  points_.clear();
  fetched_ = mode == LoggerMode::kTrend ? 0 : memory_.size();
  statistics_ = {};
  advancedTo_ = now;
  nextStatistics_ = now;
}

void Logger::rewind() {
  stop();
  statistics_ = {};
  dumped_ = 0;
  fetched_ += waiting();
}

void Logger::clearMemory() {
  stop();
  memory_.clear();
  points_.clear();
  fetched_ = 0;
  dumped_ = 0;
}

void Logger::toggleRun(double now) {
  if (running()) {
    stop();
    return;
  }
  if (mode_ == LoggerMode::kOff) return;
  stop();
  fetched_ = 0;
  if (mode_ == LoggerMode::kTrend) {
    points_.clear();
  } else {
    memory_.clear();
    dumped_ = 0;
  }
  running_ = true;
  nextRun_ = now + (mode_ == LoggerMode::kTrend ? 0.0 : runStep());
}

double Logger::runStep() const {
  return mode_ == LoggerMode::kTrend ? trendStep(parameters_.trendSpan) : parameters_.sampleTime;
}

void Logger::advance(double now, const ReadingAt& readingAt, const WallClock& wallClock) {
  const double passed = now - advancedTo_;
  if (paused_) {
    nextRun_ += passed;
    nextStatistics_ += passed;
  } else {
    statistics_.pass(passed);
    advanceRun(now, readingAt, wallClock);
    advanceStatistics(now, readingAt, wallClock);
  }
  advancedTo_ = now;
}

void Logger::advanceRun(double now, const ReadingAt& readingAt, const WallClock& wallClock) {
  while (running_ && nextRun_ <= now + kTolerance) {
    if (mode_ == LoggerMode::kTrend) {
      takePoint(readingAt(nextRun_));
    } else {
      takeRecord(nextRun_, readingAt, wallClock);
    }
    nextRun_ += runStep();
  }
}

void Logger::advanceStatistics(double now, const ReadingAt& readingAt, const WallClock& wallClock) {
  const bool summed =
      mode_ == LoggerMode::kRecord || mode_ == LoggerMode::kRelative || mode_ == LoggerMode::kCompare;
  if (!summed) return;
  nextStatistics_ = std::max(nextStatistics_, now - kLongestCatchUp);
  for (; nextStatistics_ <= now + kTolerance; nextStatistics_ += kStatisticsStep) {
    statistics_.add(readingAt(nextStatistics_), wallClock.timeOfDay(nextStatistics_), parameters_);
  }
}

void Logger::takePoint(const Reading& reading) {
  const double offset = parseQuantity(parameters_.trendOffset).value_or(0.0);
  const double division = parseQuantity(parameters_.trendDivision).value_or(1.0);
  // Four divisions of ten steps, the offset in the middle.
  const double steps = kHighestPoint / 2.0 + 10.0 * (reading.value - offset) / division;
  points_.push_back(static_cast<int>(std::lround(std::clamp(steps, 0.0, 1.0 * kHighestPoint))));
  if (points_.size() < static_cast<std::size_t>(kTrendPoints)) return;
  running_ = false;
  finishing_ = true;
}

Reading Logger::peakOf(double due, const ReadingAt& readingAt) const {
  Reading peak = readingAt(due);
  for (int i = 1; i < kPeakReadings; ++i) {
    const Reading reading = readingAt(due - parameters_.sampleTime * i / kPeakReadings);
    if (std::abs(reading.value) > std::abs(peak.value)) peak = reading;
  }
  return peak;
}

void Logger::takeRecord(double due, const ReadingAt& readingAt, const WallClock& wallClock) {
  const int address = parameters_.firstAddress + static_cast<int>(memory_.size());
  const Reading reading = parameters_.method == 1 ? peakOf(due, readingAt) : readingAt(due);
  memory_.push_back({address, wallClock.timeOfDay(due), reading});
  if (address < parameters_.lastAddress) return;
  running_ = false;
  finishing_ = true;
}

std::string Logger::nextDump() {
  if (dumped_ == memory_.size()) return endRecord();
  std::string text;
  const std::size_t end = std::min(memory_.size(), dumped_ + kRecordsPerDump);
  for (; dumped_ < end; ++dumped_) {
    const Record& record = memory_[dumped_];
    text += padded(record.address, 5) + " " + record.timeOfDay + " " + recordText(record.reading) + " ";
  }
  return text;
}

std::string Logger::nextLive() {
  if (waiting() == 0) return {};
  const std::size_t next = fetched_++;
  if (mode_ == LoggerMode::kTrend) {
    return padded(static_cast<int>(next), 3) + ":" + hexByte(static_cast<unsigned>(points_[next]));
  }
  const Record& record = memory_[next];
  return padded(record.address, 5) + record.timeOfDay + listText(record.reading);
}

}  // namespace vireon::simulator
