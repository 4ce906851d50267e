// Replaced allocation functions, which serve this whole test program. Memory still comes from
// malloc, where sanitizers watch it.
#include "support/memory.h"

#include <malloc.h>

#include <atomic>
#include <cstdlib>
#include <new>

namespace {

std::atomic<std::size_t> allocations = 0;
std::atomic<std::int64_t> bytes_in_use = 0;

// Of the code under test, which runs on one thread.
struct Faults {
  bool watched = false;
  int spared = 0;
  std::size_t count = 0;
  std::size_t point = 0;
  bool from_there_on = false;
} faults;

bool Fails() {
  if (!faults.watched || faults.spared != 0) return false;
  ++faults.count;
  if (faults.point == 0 || faults.count < faults.point) return false;
  return faults.count == faults.point || faults.from_there_on;
}

std::int64_t BytesOf(void* memory) {
#ifdef _WIN32
  return memory != nullptr ? static_cast<std::int64_t>(_msize(memory)) : 0;
#else
  return static_cast<std::int64_t>(malloc_usable_size(memory));
#endif
}

// Out of line: the compiler must not see which malloc a free belongs to.
[[gnu::noinline]] void* Allocate(std::size_t size) noexcept {
  if (Fails()) return nullptr;
  ++allocations;
  void* memory = std::malloc(size != 0 ? size : 1);
  bytes_in_use += BytesOf(memory);
  return memory;
}

[[gnu::noinline]] void* AllocateOrThrow(std::size_t size) {
  if (void* memory = Allocate(size)) return memory;
  throw std::bad_alloc();
}

[[gnu::noinline]] void Release(void* memory) noexcept {
  bytes_in_use -= BytesOf(memory);
  std::free(memory);
}

}  // namespace

namespace conmuta::test::memory {

std::size_t Allocations() {
  return allocations;
}

std::int64_t BytesInUse() {
  return bytes_in_use;
}

void FailAt(std::size_t point, bool from_there_on) {
  faults = {true, 0, 0, point, from_there_on};
}

std::size_t Stop() {
  faults.watched = false;
  return faults.count;
}

Spared::Spared() {
  ++faults.spared;
}
Spared::~Spared() {
  --faults.spared;
}

}  // namespace conmuta::test::memory

void* operator new(std::size_t size) {
  return AllocateOrThrow(size);
}
void* operator new[](std::size_t size) {
  return AllocateOrThrow(size);
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
  return Allocate(size);
}
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
  return Allocate(size);
}
void operator delete(void* memory) noexcept {
  Release(memory);
}
void operator delete[](void* memory) noexcept {
  Release(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
  Release(memory);
}
void operator delete[](void* memory, std::size_t) noexcept {
  Release(memory);
}
void operator delete(void* memory, const std::nothrow_t&) noexcept {
  Release(memory);
}
void operator delete[](void* memory, const std::nothrow_t&) noexcept {
  Release(memory);
}
