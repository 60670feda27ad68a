#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace vireon::files {

// Texts, each kept once and numbered from 0 in the order they came. At most 4 GB together.
class TextPool {
 public:
  std::uint32_t numberOf(std::string_view text);

  std::uint32_t size() const { return static_cast<std::uint32_t>(ends_.size()); }
  std::size_t bytes() const { return texts_.size(); }
  std::string_view text(std::uint32_t number) const;

 private:
  void grow();

  std::string texts_;                  // one behind the other
  std::vector<std::uint32_t> ends_;    // of each text in texts_
  std::vector<std::uint32_t> places_;  // number + 1 by hash, the next free place on a collision; 0 is free
};

}  // namespace vireon::files
