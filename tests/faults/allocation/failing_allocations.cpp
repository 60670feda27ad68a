#include "tests/faults/allocation/failing_allocations.h"

#include <cstdlib>
#include <new>

#include "tests/fakes/fault_count.h"
#include "tests/faults/allocation_pause.h"

namespace vireon::tests {

AllocationPlan& allocationPlan() {
  static AllocationPlan plan;
  return plan;
}

namespace {

bool allocationFails() {
  if (allocationsPaused()) return false;
  AllocationPlan& plan = allocationPlan();
  ++plan.made;
  const bool fails =
      plan.failAt != 0 && (plan.made == plan.failAt || (plan.fromThenOn && plan.made > plan.failAt));
  if (fails && plan.failed++ == 0) countFault();
  return fails;
}

void* allocate(std::size_t size) {
  return allocationFails() ? nullptr : std::malloc(size == 0 ? 1 : size);
}

void* allocateAligned(std::size_t size, std::align_val_t alignment) {
  const auto boundary = static_cast<std::size_t>(alignment);
  return allocationFails() ? nullptr
                           : std::aligned_alloc(boundary, (size + boundary - 1) / boundary * boundary);
}

void* orThrow(void* memory) {
  if (memory == nullptr) throw std::bad_alloc();
  return memory;
}

}  // namespace
}  // namespace vireon::tests

using vireon::tests::allocate;
using vireon::tests::allocateAligned;
using vireon::tests::orThrow;

void* operator new(std::size_t size) {
  return orThrow(allocate(size));
}
void* operator new[](std::size_t size) {
  return orThrow(allocate(size));
}
void* operator new(std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
  return allocate(size);
}
void* operator new[](std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
  return allocate(size);
}
void* operator new(std::size_t size, std::align_val_t alignment) {
  return orThrow(allocateAligned(size, alignment));
}
void* operator new[](std::size_t size, std::align_val_t alignment) {
  return orThrow(allocateAligned(size, alignment));
}
void operator delete(void* memory) noexcept {
  std::free(memory);
}
void operator delete[](void* memory) noexcept {
  std::free(memory);
}
void operator delete(void* memory, std::size_t /*size*/) noexcept {
  std::free(memory);
}
void operator delete[](void* memory, std::size_t /*size*/) noexcept {
  std::free(memory);
}
void operator delete(void* memory, std::align_val_t /*alignment*/) noexcept {
  std::free(memory);
}
void operator delete[](void* memory, std::align_val_t /*alignment*/) noexcept {
  std::free(memory);
}
void operator delete(void* memory, std::size_t /*size*/, std::align_val_t /*alignment*/) noexcept {
  std::free(memory);
}
void operator delete[](void* memory, std::size_t /*size*/, std::align_val_t /*alignment*/) noexcept {
  std::free(memory);
}
