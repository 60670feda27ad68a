#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <random>
#include <span>
#include <string_view>

namespace vireon::soak {

// Random numbers that are the same for the same key, whatever was drawn for another one.
class Dice {
 public:
  Dice(std::initializer_list<std::uint64_t> key) {
    std::uint64_t seed = 0;
    for (const std::uint64_t part : key) {
      seed = mixed(seed + part + 0x9E3779B97F4A7C15U);
    }
    generator_.seed(seed);
  }

  // 0 to count - 1; `count` above 0.
  int below(int count) { return static_cast<int>(generator_() % static_cast<std::uint64_t>(count)); }
  int between(int lowest, int highest) { return lowest + below(highest - lowest + 1); }
  bool oneIn(int count) { return below(count) == 0; }
  bool percent(int chance) { return below(100) < chance; }
  std::uint64_t number() { return generator_(); }

  // An element; `choices` is not empty.
  template <class Choices>
  auto& pick(Choices& choices) {
    return choices[static_cast<std::size_t>(below(static_cast<int>(std::size(choices))))];
  }

  // A number for a name, so that the choice among names hangs little on which others there are.
  static std::uint64_t weight(std::uint64_t salt, std::string_view name) {
    std::uint64_t hash = salt ^ 0xCBF29CE484222325U;
    for (const char letter : name) {
      hash = (hash ^ static_cast<std::uint8_t>(letter)) * 0x100000001B3U;
    }
    return mixed(hash);
  }

 private:
  static std::uint64_t mixed(std::uint64_t value) {
    value = (value ^ (value >> 30U)) * 0xBF58476D1CE4E5B9U;
    value = (value ^ (value >> 27U)) * 0x94D049BB133111EBU;
    return value ^ (value >> 31U);
  }

  std::mt19937_64 generator_;
};

}  // namespace vireon::soak
