#include "adapters/qt/kept_size.h"

namespace vireon::adapters {

bool KeptSize::asks(const QSize& size, const QSize& wanted, Clock::time_point now) {
  if (size == wanted) {
    reachedAt_ = reachedAt_.value_or(now);
    return false;
  }
  const bool settled = reachedAt_ && now - *reachedAt_ >= kSettled;
  reachedAt_.reset();
  if (wanted == asked_ && size == before_ && !settled) {
    return false;
  }
  asked_ = wanted;
  before_ = size;
  return true;
}

}  // namespace vireon::adapters
