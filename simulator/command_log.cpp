#include "simulator/command_log.h"

#include <algorithm>

namespace vireon::simulator {
namespace {

void keepNewest(std::vector<std::string>& entries, std::size_t count) {
  if (entries.size() <= count) return;
  entries.erase(entries.begin(), entries.end() - static_cast<std::ptrdiff_t>(count));
}

}  // namespace

void CommandLog::add(std::string_view command) {
  if (entries_.size() >= capacity_) keepNewest(entries_, capacity_ / 2);
  entries_.emplace_back(command);
  ++total_;
}

void CommandLog::setCapacity(std::size_t capacity) {
  capacity_ = std::max<std::size_t>(capacity, 2);
  keepNewest(entries_, capacity_);
}

}  // namespace vireon::simulator
