#include "tests/soak/paint_watch.h"

#include <fcntl.h>
#include <sys/resource.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <functional>
#include <memory>
#include <system_error>
#include <utility>

namespace vireon::soak {
namespace {

constexpr int kWish = 5;               // milliseconds
constexpr std::size_t kMostGaps = 40;  // kept with their acts
constexpr double kMillisecond = 1e6;   // nanoseconds

std::int64_t clockTime(clockid_t clock) {
  timespec time{};
  ::clock_gettime(clock, &time);
  return static_cast<std::int64_t>(time.tv_sec) * 1'000'000'000 + time.tv_nsec;
}

// "<on the processor> <waiting for it> <times it got it>", nanoseconds; the file is opened once, as its name
// means the thread that opens it.
std::int64_t queuedTime() {
  thread_local const int file = ::open("/proc/thread-self/schedstat", O_RDONLY | O_CLOEXEC);
  std::array<char, 80> text{};
  if (file < 0 || ::pread(file, text.data(), text.size() - 1, 0) <= 0) {
    return 0;
  }
  char* end = nullptr;
  std::strtoll(text.data(), &end, 10);
  return std::strtoll(end, nullptr, 10);
}

std::int64_t queuedTimeOfAll(const StallWatch& stalls) {
  std::int64_t sum = 0;
  std::error_code ignored;
  for (const auto& thread : std::filesystem::directory_iterator("/proc/self/task", ignored)) {
    if (stalls.owns(thread.path().filename())) {
      continue;
    }
    std::ifstream file(thread.path() / "schedstat");
    std::int64_t run = 0;
    std::int64_t queued = 0;
    file >> run >> queued;
    sum += queued;
  }
  return sum;
}

}  // namespace

Moment PaintWatch::now() const {
  const std::int64_t queued = queuedTime();
  rusage use{};
  ::getrusage(RUSAGE_THREAD, &use);
  const std::int64_t system = std::int64_t{use.ru_stime.tv_sec} * 1'000'000'000 + use.ru_stime.tv_usec * 1000;
  return {clockTime(CLOCK_MONOTONIC),
          clockTime(CLOCK_THREAD_CPUTIME_ID),
          queued,
          queuedTimeOfAll(stalls_) - queued,
          system,
          use.ru_minflt + use.ru_majflt};
}

class PaintWatch::Pixel : public QWidget {
 public:
  Pixel(QWidget& window, std::function<void()> painted) : QWidget(&window), painted_(std::move(painted)) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    resize(1, 1);
    show();
  }

 protected:
  void paintEvent(QPaintEvent* /*event*/) override { painted_(); }

 private:
  std::function<void()> painted_;
};

PaintWatch::PaintWatch(ActLog& log) : log_(log) {
  QObject::connect(&wish_, &QTimer::timeout, &wish_, [this] { wish(); });
}

// A window that is not to be seen is not painted; nor is it at once when it is to be seen again.
void PaintWatch::wish() {
  const Qt::WindowStates state = window_ == nullptr ? Qt::WindowStates() : window_->windowState();
  if (window_ == nullptr || !window_->isVisible() || state != state_) {
    last_ = {};
    state_ = state;
  } else if (pixel_ != nullptr && !window_->isMinimized()) {
    pixel_->update();
  }
}

void PaintWatch::watch(QWidget& window) {
  window_ = &window;
  last_ = {};
  pixel_ = std::make_unique<Pixel>(window, [this] { painted(); }).release();
  wish_.start(kWish);
}

void PaintWatch::stop() {
  wish_.stop();
  window_ = nullptr;
}

void PaintWatch::painted() {
  const Moment now = this->now();
  const std::string act = log_.latest();
  const Moment spent = now - last_ - excused_;
  if (last_.wall != 0 && static_cast<double>(spent.wall) / kMillisecond > kLongest) {
    keep({static_cast<double>(spent.wall) / kMillisecond, static_cast<double>(spent.processor) / kMillisecond,
          static_cast<double>(spent.queued) / kMillisecond,
          std::max(0.0, static_cast<double>(spent.others) / kMillisecond),
          static_cast<double>(stalls_.stalled(last_.wall, now.wall)) / kMillisecond,
          static_cast<double>(spent.system) / kMillisecond, spent.pages,
          actThen_ == act ? act : actThen_ + " .. " + act});
  }
  ++paints_;
  last_ = now;
  excused_ = {};
  actThen_ = act;
}

void PaintWatch::keep(const Gap& gap) {
  ++gaps_;
  ownGaps_ += gap.own() > kLongest ? 1U : 0U;
  heavyGaps_ += gap.computing() > kLongestComputing || gap.own() > kLongestWait ? 1U : 0U;
  std::array<char, 120> text{};
  std::snprintf(text.data(), text.size(),
                "gap %.0f ms: computing %.0f (%.0f), not run %.0f, others %.0f, stalled %.0f", gap.wall,
                gap.processor, gap.system, gap.queued, gap.others, gap.stalled);
  log_.note(text.data());
  const auto place =
      std::upper_bound(worst_.begin(), worst_.end(), gap,
                       [](const Gap& one, const Gap& other) { return one.own() > other.own(); });
  worst_.insert(place, gap);
  if (worst_.size() > kMostGaps) {
    worst_.pop_back();
  }
}

}  // namespace vireon::soak
