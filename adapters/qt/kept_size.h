#pragma once

#include <QSize>
#include <chrono>
#include <optional>

namespace vireon::adapters {

// A size that a window goes back to, unless the window manager insists on another.
class KeptSize {
 public:
  using Clock = std::chrono::steady_clock;

  // A window that has had its size for so long was resized by its user, not by a manager that insists.
  static constexpr std::chrono::milliseconds kSettled{300};

  // Whether the window, whose inner size is `size`, is to be given `wanted`. Of a manager that insists it is
  // True once. To be asked after each change.
  bool asks(const QSize& size, const QSize& wanted, Clock::time_point now = Clock::now());

  // The next answer is True again where the sizes differ.
  void forget() { asked_ = {}; }

 private:
  QSize asked_;                                 // last given to the window
  QSize before_;                                // which had this size then
  std::optional<Clock::time_point> reachedAt_;  // while it has the wanted one
};

}  // namespace vireon::adapters
