#include "tests/fuzz/support/memory_bound.h"

#include <algorithm>

#include "tests/fuzz/support/promise.h"

// Parts of the sanitizers' runtime, which not every compiler declares.
extern "C" {
int __sanitizer_install_malloc_and_free_hooks(void (*on_allocation)(const volatile void*, std::size_t),
                                              void (*on_release)(const volatile void*));
std::size_t __sanitizer_get_allocated_size(const volatile void* block);
}

namespace halyard::fuzz {
namespace {

// Objects are small, but every few bytes of a definition may become one, elements of arrays
// become objects as far as their allowance goes, and arrays grow in steps. A target that
// looks at values makes some hundred elements, of 64 KB at most.
constexpr std::ptrdiff_t kBase = 18 << 20;
constexpr std::ptrdiff_t kPerInputByte = 5 << 10;

bool g_counts = false;
std::ptrdiff_t g_held = 0;
std::ptrdiff_t g_bound = 0;
std::ptrdiff_t g_peak = 0;

void CountAllocation(const volatile void*, std::size_t size) {
  if (!g_counts) return;
  g_held += static_cast<std::ptrdiff_t>(size);
  g_peak = std::max(g_peak, g_held);
  if (g_held > g_bound) {
    g_counts = false;
    Hold(false, "memory stays within a bound that the size of the input gives");
  }
}

void CountRelease(const volatile void* block) {
  if (g_counts && block != nullptr)
    g_held -= static_cast<std::ptrdiff_t>(__sanitizer_get_allocated_size(block));
}

}  // namespace

MemoryBound::MemoryBound(std::size_t input_bytes) {
  static const int installed = __sanitizer_install_malloc_and_free_hooks(CountAllocation, CountRelease);
  Hold(installed != 0, "the sanitizer tells of allocations");
  g_held = 0;
  g_bound = kBase + kPerInputByte * static_cast<std::ptrdiff_t>(input_bytes);
  g_counts = true;
}

MemoryBound::~MemoryBound() { g_counts = false; }

std::size_t MemoryBound::Peak() noexcept { return static_cast<std::size_t>(g_peak); }

}  // namespace halyard::fuzz
