// Memory under a system that takes advice about its pages.
#include "platform/memory.h"

#include <sys/mman.h>
#include <unistd.h>

#include <cstdint>

namespace halyard {
namespace {

// Less is not worth a call of the system: no large page would fit in.
constexpr std::size_t kWorthwhile = std::size_t{4} << 20;

}  // namespace

void ExpectToFill([[maybe_unused]] void* memory, [[maybe_unused]] std::size_t size) noexcept {
#ifdef MADV_HUGEPAGE
  if (size < kWorthwhile) return;
  // Whole pages of the usual size are advised; the system finds large ones among them.
  const auto page = static_cast<std::uintptr_t>(sysconf(_SC_PAGESIZE));
  const auto begin = reinterpret_cast<std::uintptr_t>(memory);
  const std::uintptr_t first = (begin + page - 1) / page * page;
  const std::uintptr_t end = (begin + size) / page * page;
  // Advice that is not taken changes nothing.
  static_cast<void>(madvise(reinterpret_cast<void*>(first), end - first, MADV_HUGEPAGE));
#endif
}

}  // namespace halyard
