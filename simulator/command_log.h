#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace vireon::simulator {

// The newest commands in the order of their arrival. Bounded: when `capacity` entries are reached, the
// older half is forgotten, so that at least the newest capacity / 2 are always there.
class CommandLog {
 public:
  static constexpr std::size_t kStartCapacity = 4096;

  void add(std::string_view command);
  void clear() { entries_.clear(); }

  // Changes the bound, at least 2, and forgets what is beyond it.
  void setCapacity(std::size_t capacity);

  const std::vector<std::string>& entries() const { return entries_; }

  // Commands ever added, forgotten ones too.
  std::uint64_t total() const { return total_; }

 private:
  std::vector<std::string> entries_;
  std::size_t capacity_ = kStartCapacity;
  std::uint64_t total_ = 0;
};

}  // namespace vireon::simulator
