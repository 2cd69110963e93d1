#include "tests/failures/failing_memory.h"

#include <cstdlib>
#include <new>

namespace {

std::size_t g_failing = 0;  // 0: none is counted
std::size_t g_count = 0;
const bool* g_only_while = nullptr;
halyard::test::CodeTest g_only_from = nullptr;
bool g_happened = false;
std::ptrdiff_t g_live = 0;

// Counts an allocation that the code at `place` asks for; whether it is the one that fails.
bool Fails(const void* place) {
  if (g_failing == 0 || (g_only_while != nullptr && !*g_only_while)) return false;
  if (g_only_from != nullptr && !g_only_from(place)) return false;
  if (++g_count != g_failing) return false;
  g_happened = true;
  return true;
}

void* Counted(void* block) {
  if (block != nullptr) ++g_live;
  return block;
}

}  // namespace

extern "C" {

void* __real_malloc(std::size_t size);
void* __real_calloc(std::size_t count, std::size_t size);
void* __real_realloc(void* block, std::size_t size);
void __real_free(void* block);

void* __wrap_malloc(std::size_t size) {
  return Fails(__builtin_return_address(0)) ? nullptr : Counted(__real_malloc(size));
}

void* __wrap_calloc(std::size_t count, std::size_t size) {
  return Fails(__builtin_return_address(0)) ? nullptr : Counted(__real_calloc(count, size));
}

void* __wrap_realloc(void* block, std::size_t size) {
  if (Fails(__builtin_return_address(0))) return nullptr;
  void* moved = __real_realloc(block, size);
  return block == nullptr ? Counted(moved) : moved;
}

void __wrap_free(void* block) {
  if (block != nullptr) --g_live;
  __real_free(block);
}

}  // extern "C"

namespace {

// What operator new makes for the code at `place`; null where it fails.
void* New(std::size_t size, const void* place) {
  return Fails(place) ? nullptr : Counted(__real_malloc(size != 0 ? size : 1));
}

void* NewOrThrow(std::size_t size, const void* place) {
  void* block = New(size, place);
  if (block == nullptr) throw std::bad_alloc();
  return block;
}

}  // namespace

void* operator new(std::size_t size) { return NewOrThrow(size, __builtin_return_address(0)); }
void* operator new[](std::size_t size) { return NewOrThrow(size, __builtin_return_address(0)); }
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
  return New(size, __builtin_return_address(0));
}
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
  return New(size, __builtin_return_address(0));
}
void operator delete(void* block) noexcept { __wrap_free(block); }
void operator delete[](void* block) noexcept { __wrap_free(block); }
void operator delete(void* block, std::size_t) noexcept { __wrap_free(block); }
void operator delete[](void* block, std::size_t) noexcept { __wrap_free(block); }
void operator delete(void* block, const std::nothrow_t&) noexcept { __wrap_free(block); }
void operator delete[](void* block, const std::nothrow_t&) noexcept { __wrap_free(block); }

namespace halyard::test {

FailingAllocation::FailingAllocation(std::size_t which, const bool* only_while) {
  g_happened = false;
  g_count = 0;
  g_only_while = only_while;
  g_only_from = nullptr;
  g_failing = which;
}

FailingAllocation::FailingAllocation(std::size_t which, CodeTest only_from) : FailingAllocation(which) {
  g_only_from = only_from;
}

FailingAllocation::~FailingAllocation() { g_failing = 0; }

bool FailingAllocation::Happened() const { return g_happened; }

std::size_t FailingAllocation::Count() const { return g_count; }

std::ptrdiff_t LiveBlocks() { return g_live; }

}  // namespace halyard::test
