#pragma once

#include <cstdint>

namespace vireon::simulator {

// Repeatable pseudo-random numbers, the same sequence for the same seed.
class Random {
 public:
  explicit Random(std::uint64_t seed) : state_(seed) {}

  std::uint64_t next() {
    state_ += 0x9E3779B97F4A7C15U;
    std::uint64_t mixed = state_;
    mixed = (mixed ^ (mixed >> 30U)) * 0xBF58476D1CE4E5B9U;
    mixed = (mixed ^ (mixed >> 27U)) * 0x94D049BB133111EBU;
    return mixed ^ (mixed >> 31U);
  }

  // From -1 to 1, near 0 more often than far from it.
  double deviation() {
    constexpr std::uint64_t kHalf = 0xFFFFFFFFU;
    const std::uint64_t bits = next();
    return (static_cast<double>(bits >> 32U) - static_cast<double>(bits & kHalf)) / 4294967296.0;
  }

 private:
  std::uint64_t state_;
};

}  // namespace vireon::simulator
