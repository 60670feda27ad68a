#include "fuzz/arena.h"

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <new>
#include <vector>

#include "fuzz/require.h"

namespace {

constexpr std::size_t kArenaBytes = std::size_t{256} << 20U;  // pages that were never used take no memory
constexpr std::size_t kAlignment = __STDCPP_DEFAULT_NEW_ALIGNMENT__;

// Blocks one behind the other.
struct Blocks {
  alignas(kAlignment) std::byte bytes[kArenaBytes];
  std::size_t used;
  std::size_t kept;
  bool open;
};

Blocks blocks;  // operator new knows no object

bool isInside(const void* block) {
  return block >= blocks.bytes && block < blocks.bytes + kArenaBytes;
}

// NOLINTBEGIN(cppcoreguidelines-no-malloc,cppcoreguidelines-owning-memory): this is what owning stands on
void* allocate(std::size_t size) {
  if (!blocks.open) {
    void* const block = std::malloc(std::max<std::size_t>(size, 1));
    return block == nullptr ? throw std::bad_alloc() : block;
  }
  vireon::fuzz::require(size < kArenaBytes - blocks.used - kAlignment);
  void* const block = blocks.bytes + blocks.used;
  blocks.used += (std::max<std::size_t>(size, 1) + kAlignment - 1) / kAlignment * kAlignment;
  return block;
}

void release(void* block) {
  if (!isInside(block)) {
    std::free(block);
  }
}
// NOLINTEND(cppcoreguidelines-no-malloc,cppcoreguidelines-owning-memory)

std::vector<std::byte>& keptBytes() {
  static std::vector<std::byte> bytes;
  return bytes;
}

}  // namespace

void* operator new(std::size_t size) {
  return allocate(size);
}
void* operator new[](std::size_t size) {
  return allocate(size);
}
void operator delete(void* block) noexcept {
  release(block);
}
void operator delete[](void* block) noexcept {
  release(block);
}
void operator delete(void* block, std::size_t /*size*/) noexcept {
  release(block);
}
void operator delete[](void* block, std::size_t /*size*/) noexcept {
  release(block);
}

namespace vireon::fuzz {

bool Arena::isThere() {
  return true;
}

Arena::Scope::Scope() {
  blocks.open = true;
}

Arena::Scope::~Scope() {
  blocks.open = false;
}

void Arena::keep() {
  blocks.open = false;
  keptBytes().assign(blocks.bytes, blocks.bytes + blocks.used);
  blocks.open = true;
  blocks.kept = blocks.used;
}

void Arena::putBack() {
  std::memcpy(blocks.bytes, keptBytes().data(), blocks.kept);
  blocks.used = blocks.kept;
}

}  // namespace vireon::fuzz
