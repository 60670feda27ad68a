#pragma once

#include <QPointer>
#include <QTimer>
#include <QWidget>
#include <chrono>
#include <cstdint>
#include <string>
#include <vector>

#include "tests/soak/act_log.h"

namespace vireon::soak {

// Where a moment's time went, nanoseconds since some moment.
struct Moment {
  std::int64_t wall = 0;
  std::int64_t processor = 0;  // this thread's
  std::int64_t queued = 0;     // this thread was ready to run and the system ran another

  // Of the calling thread.
  static Moment now();
};

// Two paints with more than kLongest between them. Milliseconds.
struct Gap {
  double wall = 0;
  double processor = 0;
  double queued = 0;  // the computer's doing
  std::string act;

  // What the program is to answer for: it computed, or waited for something.
  double own() const { return wall - queued; }
};

// Wants a pixel of the window painted again and again and knows the time between two paints.
class PaintWatch {
 public:
  static constexpr double kLongest = 50;  // milliseconds

  explicit PaintWatch(ActLog& log);

  // Watches this window from now on.
  void watch(QWidget& window);
  void stop();

  // The test's own work on the window's thread for a scope; it is no part of a gap.
  class OwnWork {
   public:
    explicit OwnWork(PaintWatch& watch) : watch_(watch), start_(Moment::now().wall) {}
    OwnWork(const OwnWork&) = delete;
    OwnWork& operator=(const OwnWork&) = delete;
    ~OwnWork() { watch_.excused_ += Moment::now().wall - start_; }

   private:
    PaintWatch& watch_;
    std::int64_t start_;
  };

  std::uint64_t paints() const { return paints_; }
  // Gaps over kLongest by the clock; those among them that were the program's own; the longest of those
  // first.
  std::uint64_t gaps() const { return gaps_; }
  std::uint64_t ownGaps() const { return ownGaps_; }
  const std::vector<Gap>& worst() const { return worst_; }

 private:
  class Pixel;
  void painted();
  void keep(const Gap& gap);

  ActLog& log_;
  QTimer wish_;
  QPointer<QWidget> pixel_;
  QPointer<QWidget> window_;
  Moment last_;
  std::int64_t excused_ = 0;
  std::string actThen_;
  std::uint64_t paints_ = 0;
  std::uint64_t gaps_ = 0;
  std::uint64_t ownGaps_ = 0;
  std::vector<Gap> worst_;
};

}  // namespace vireon::soak
