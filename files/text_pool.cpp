#include "files/text_pool.h"

#include <functional>

namespace vireon::files {
namespace {

constexpr std::size_t kFirstPlaces = 1024;  // a power of two, as all later sizes

}  // namespace

std::uint32_t TextPool::numberOf(std::string_view text) {
  if (places_.size() < 2 * (ends_.size() + 1)) grow();
  const std::size_t mask = places_.size() - 1;
  for (std::size_t place = std::hash<std::string_view>{}(text)&mask;; place = (place + 1) & mask) {
    if (places_[place] == 0) {
      texts_ += text;
      ends_.push_back(static_cast<std::uint32_t>(texts_.size()));
      places_[place] = size();
      return size() - 1;
    }
    if (this->text(places_[place] - 1) == text) return places_[place] - 1;
  }
}

std::string_view TextPool::text(std::uint32_t number) const {
  const std::size_t start = number == 0 ? 0 : ends_[number - 1];
  return std::string_view(texts_).substr(start, ends_[number] - start);
}

void TextPool::grow() {
  places_.assign(places_.empty() ? kFirstPlaces : places_.size() * 2, 0);
  const std::size_t mask = places_.size() - 1;
  for (std::uint32_t number = 0; number < size(); ++number) {
    std::size_t place = std::hash<std::string_view>{}(text(number)) & mask;
    while (places_[place] != 0) place = (place + 1) & mask;
    places_[place] = number + 1;
  }
}

}  // namespace vireon::files
