#pragma once

#include <QPointer>
#include <QTimer>
#include <QWidget>
#include <algorithm>
#include <chrono>
#include <cstdint>
#include <string>
#include <vector>

#include "tests/soak/act_log.h"
#include "tests/soak/stall_watch.h"

namespace vireon::soak {

// Where a moment's time went, nanoseconds since some moment.
struct Moment {
  std::int64_t wall = 0;
  std::int64_t processor = 0;  // this thread's
  std::int64_t queued = 0;     // this thread was ready to run and the system ran another
  std::int64_t others = 0;     // the same of the process's other threads, together
  std::int64_t system = 0;     // of the processor's: in the system's calls and for its pages
  std::int64_t pages = 0;      // the number of pages that were not there

  friend Moment operator-(const Moment& one, const Moment& other) {
    return {one.wall - other.wall,     one.processor - other.processor, one.queued - other.queued,
            one.others - other.others, one.system - other.system,       one.pages - other.pages};
  }
  friend Moment operator+(const Moment& one, const Moment& other) {
    return {one.wall + other.wall,     one.processor + other.processor, one.queued + other.queued,
            one.others + other.others, one.system + other.system,       one.pages + other.pages};
  }
};

// Two paints with more than kLongest between them. Milliseconds.
struct Gap {
  double wall = 0;
  double processor = 0;
  double queued = 0;   // the computer's doing, and so are:
  double others = 0;   // other threads of the program, for which this one may have waited
  double stalled = 0;  // of wall: the computer stood still; perhaps within the processor's time, too
  double system = 0;
  std::int64_t pages = 0;  // a count
  std::string act;

  // What the program is to answer for: it computed, or waited for something.
  double own() const {
    return std::max(0.0, processor + std::max(0.0, wall - queued - processor - others) - stalled);
  }
  double computing() const { return std::max(0.0, processor - stalled); }
};

// Wants a pixel of the window painted again and again and knows the time between two paints.
class PaintWatch {
 public:
  static constexpr double kLongest = 50;  // milliseconds
  // So much computing or waiting in a gap is hardly another's doing, however busy the computer and its disk.
  static constexpr double kLongestComputing = 80;
  static constexpr double kLongestWait = 3000;

  explicit PaintWatch(ActLog& log);

  // Watches this window from now on.
  void watch(QWidget& window);
  void stop();

  // The test's own work on the window's thread for a scope; it is no part of a gap.
  class OwnWork {
   public:
    explicit OwnWork(PaintWatch& watch) : watch_(watch), start_(watch.now()) {}
    OwnWork(const OwnWork&) = delete;
    OwnWork& operator=(const OwnWork&) = delete;
    ~OwnWork() { watch_.excused_ = watch_.excused_ + (watch_.now() - start_); }

   private:
    PaintWatch& watch_;
    Moment start_;
  };

  std::uint64_t paints() const { return paints_; }
  // Gaps over kLongest by the clock; those that were the program's own as far as can be told; those in which
  // it computed for more than kLongestComputing, or waited for more than kLongestWait.
  std::uint64_t gaps() const { return gaps_; }
  std::uint64_t ownGaps() const { return ownGaps_; }
  std::uint64_t heavyGaps() const { return heavyGaps_; }
  // The longest of the program's own first.
  const std::vector<Gap>& worst() const { return worst_; }

 private:
  class Pixel;
  // Of the calling thread.
  Moment now() const;
  void painted();
  void wish();
  void keep(const Gap& gap);

  ActLog& log_;
  StallWatch stalls_;
  QTimer wish_;
  QPointer<QWidget> pixel_;
  QPointer<QWidget> window_;
  Qt::WindowStates state_;
  Moment last_;
  Moment excused_;
  std::string actThen_;
  std::uint64_t paints_ = 0;
  std::uint64_t gaps_ = 0;
  std::uint64_t ownGaps_ = 0;
  std::uint64_t heavyGaps_ = 0;
  std::vector<Gap> worst_;
};

}  // namespace vireon::soak
